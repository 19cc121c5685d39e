#include "works.h"

#include <algorithm>
#include <filesystem>

#include "support/clip_model.h"

namespace faults {

namespace {

const support::Text newName = support::text("A new name that is longer than any small buffer");
const support::Text aTag = support::text("A tag that is longer than any small buffer as well");
constexpr std::uint32_t untouched = 4711;

std::string nothing(World&)
{
    return "";
}

bool createIn(World& world, std::string_view userFolder)
{
    world.code = untouched;
    world.createManager(userFolder);
    return world.manager != nullptr;
}

void expectManager(World& world)
{
    EXPECT_EQ(world.code, KRT_PLX_RESULT_OK);
    EXPECT_TRUE(KRT_PLX_HasManager(world.manager));
}

void expectAllListed(World& world)
{
    EXPECT_EQ(describeListed(world.manager), world.whatAnotherHostSees(Parts::unread));
    EXPECT_EQ(support::userClipCount(world.manager), 3);
    EXPECT_EQ(support::systemClipCount(world.manager), 4);
}

void scanAndEdit(World& world)
{
    world.scan();
    world.editable = build(world.manager, midiOperations(), world.wave());
    lib(KRT_PLX_Clip_readPart, world.userClip("Midi"));
}

template <std::uint32_t (*Read)(KRT_PLX_Manager*) noexcept>
bool readList(World& world)
{
    world.code = lib(Read, world.manager);
    return world.code == KRT_PLX_RESULT_OK;
}

// --- Parts ------------------------------------------------------------------------------------------

template <char Kind>
void choose(World& world)
{
    world.scan();
    world.clip = world.userClip(Kind == 'm' ? "Midi" : Kind == 'i' ? "Ai" : "Audio");
}

template <char Kind>
void chooseRead(World& world)
{
    choose<Kind>(world);
    EXPECT_TRUE(lib(KRT_PLX_Clip_readPart, world.clip));
}

bool readPart(World& world)
{
    return lib(KRT_PLX_Clip_readPart, world.clip);
}

void expectPartRead(World& world)
{
    const std::string id = support::utf8(KRT_PLX_Clip_id(world.clip));
    EXPECT_EQ(describeListed(world.manager)[id], world.whatAnotherHostSees()[id]);
}

// --- Saving -----------------------------------------------------------------------------------------

template <char Kind>
void buildClip(World& world)
{
    world.scan();
    const Operations& operations = Kind == 'm'   ? midiOperations()
                                   : Kind == 'i' ? aiOperations()
                                                 : audioOperations();
    world.editable = build(world.manager, operations, world.wave());
}

template <bool Formatted>
bool save(World& world)
{
    world.code = untouched;
    world.saved =
        lib(KRT_PLX_MutableClip_save, world.editable, newName.c_str(), Formatted, &world.code);
    return world.saved != nullptr;
}

void expectSaved(World& world)
{
    EXPECT_EQ(world.code, KRT_PLX_RESULT_OK);
    EXPECT_TRUE(KRT_PLX_Manager_hasUserClip(world.manager, world.saved));
    EXPECT_TRUE(KRT_PLX_Clip_readPart(world.saved));
    expectPartRead((world.clip = world.saved, world));
}

std::string newFolder(World&)
{
    return "user/";
}

// --- Editing and removing ---------------------------------------------------------------------------

void openEditor(World& world)
{
    chooseRead<'m'>(world);
    world.editor = lib(KRT_PLX_UserClip_createPropertyEditor, world.clip);
    EXPECT_TRUE(lib(KRT_PLX_PropertyEditor_setClipName, world.editor, newName.c_str()));
    EXPECT_TRUE(lib(KRT_PLX_PropertyEditor_addFilterType, world.editor, aTag.c_str()));
    EXPECT_TRUE(lib(KRT_PLX_PropertyEditor_addFilterGenre, world.editor, aTag.c_str()));
    EXPECT_TRUE(lib(KRT_PLX_PropertyEditor_setPartKey, world.editor, std::uint32_t{7}));
    EXPECT_TRUE(lib(KRT_PLX_PropertyEditor_setPartTempo, world.editor, std::uint32_t{9000}));
}

void openEditorAndLoseTheDocument(World& world)
{
    openEditor(world);
    std::filesystem::remove(world.folder(world.folderOf(world.clip) + "property.json"));
}

// The work includes a new editor: until it is saved, nothing of the clip changes.
bool fillEditor(World& world)
{
    KRT_PLX_PropertyEditor* const editor = lib(KRT_PLX_UserClip_createPropertyEditor, world.clip);
    return editor != nullptr && lib(KRT_PLX_PropertyEditor_setClipName, editor, newName.c_str()) &&
           lib(KRT_PLX_PropertyEditor_addFilterType, editor, aTag.c_str()) &&
           lib(KRT_PLX_PropertyEditor_addFilterType, editor, newName.c_str()) &&
           lib(KRT_PLX_PropertyEditor_addFilterGenre, editor, aTag.c_str()) &&
           lib(KRT_PLX_PropertyEditor_addFilterGenre, editor, newName.c_str()) &&
           lib(KRT_PLX_PropertyEditor_setPartKey, editor, std::uint32_t{7}) &&
           lib(KRT_PLX_PropertyEditor_setPartTempo, editor, std::uint32_t{9000});
}

void expectUnchangedClip(World& world)
{
    EXPECT_EQ(support::utf8(KRT_PLX_Clip_name(world.clip)), "Midi");
    EXPECT_EQ(KRT_PLX_ClipBase_partKey(world.clip), keyOfBuiltClips());
}

bool saveEdit(World& world)
{
    return lib(KRT_PLX_PropertyEditor_save, world.editor);
}

void expectEdited(World& world)
{
    EXPECT_EQ(support::text(support::utf8(KRT_PLX_Clip_name(world.clip))), newName);
    EXPECT_EQ(KRT_PLX_ClipBase_partKey(world.clip), 7);
    expectPartRead(world);
}

std::string propertyDocument(World& world)
{
    return world.folderOf(world.clip) + "property.json";
}

bool removeClip(World& world)
{
    return lib(KRT_PLX_UserClip_remove, world.clip);
}

void expectRemoved(World& world)
{
    EXPECT_EQ(support::userClipCount(world.manager), 2);
    EXPECT_EQ(world.whatAnotherHostSees().size(), 6);
    EXPECT_FALSE(KRT_PLX_Manager_hasUserClip(world.manager, world.clip));
}

std::string clipFolder(World& world)
{
    return world.folderOf(world.clip);
}

// --- Destroying -------------------------------------------------------------------------------------

bool destroyClip(World& world)
{
    return lib(KRT_PLX_MutableClip_destroy, world.editable);
}

void expectNoEditable(World& world)
{
    EXPECT_FALSE(KRT_PLX_Manager_hasMutableClip(world.manager, world.editable));
    world.editable = nullptr;
}

bool destroy(World& world)
{
    return lib(KRT_PLX_Manager_destroy, world.manager);
}

void expectNoManager(World& world)
{
    EXPECT_FALSE(KRT_PLX_HasManager(world.manager));
    world.manager = nullptr;
    world.editable = nullptr;
}

} // namespace

const std::vector<Work>& works()
{
    static const std::vector<Work> all = {
        {"create", false, true, [](World&) {}, [](World& world) { return createIn(world, "user"); },
         expectManager, nothing},
        {"create with a new user folder", false, true, [](World&) {},
         [](World& world) { return createIn(world, "new/and/deep"); }, expectManager,
         [](World&) { return std::string("new/"); }, "new/"},
        {"scan", true, true, [](World& world) { world.createManager(); },
         readList<KRT_PLX_Manager_readAllClipFiles>, expectAllListed, nothing},
        {"scan again", true, true, scanAndEdit, readList<KRT_PLX_Manager_readAllClipFiles>,
         expectAllListed, nothing},
        {"scan user clips again", true, true, scanAndEdit,
         readList<KRT_PLX_Manager_readUserClipFiles>, expectAllListed, nothing},
        {"read a MIDI part", false, true, choose<'m'>, readPart, expectPartRead, nothing},
        {"read an AI part", false, true, choose<'i'>, readPart, expectPartRead, nothing},
        {"read an audio part", false, true, choose<'a'>, readPart, expectPartRead, nothing},
        {"read a part again", false, true, chooseRead<'m'>, readPart, expectPartRead, nothing},
        {"save a MIDI clip", false, true, buildClip<'m'>, save<false>, expectSaved, newFolder},
        {"save a MIDI clip, indented", false, true, buildClip<'m'>, save<true>, expectSaved,
         newFolder},
        {"save an AI clip", false, true, buildClip<'i'>, save<false>, expectSaved, newFolder},
        {"save an audio clip", false, true, buildClip<'a'>, save<false>, expectSaved, newFolder},
        {"save an audio clip, indented", false, true, buildClip<'a'>, save<true>, expectSaved,
         newFolder},
        {"fill a property editor", false, false, choose<'m'>, fillEditor, expectUnchangedClip,
         nothing},
        {"edit", false, true, openEditor, saveEdit, expectEdited, propertyDocument},
        {"edit, its document gone", false, true, openEditorAndLoseTheDocument, saveEdit,
         expectEdited, propertyDocument},
        {"remove a MIDI clip", false, true, chooseRead<'m'>, removeClip, expectRemoved, clipFolder},
        {"remove an audio clip", false, true, chooseRead<'a'>, removeClip, expectRemoved,
         clipFolder},
        {"remove an audio clip, its part not read", false, true, choose<'a'>, removeClip,
         expectRemoved, clipFolder},
        {"destroy an editable clip", false, false, scanAndEdit, destroyClip, expectNoEditable,
         nothing},
        {"destroy", false, false, scanAndEdit, destroy, expectNoManager, nothing},
    };
    return all;
}

const Work& workNamed(std::string_view name)
{
    return *std::find_if(works().begin(), works().end(),
                         [name](const Work& work) { return work.name == name; });
}

std::string caseName(std::string work)
{
    std::replace_if(
        work.begin(), work.end(), [](char c) { return c == ' ' || c == ','; }, '_');
    return work;
}

} // namespace faults
