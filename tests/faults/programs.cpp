#include "programs.h"

#include <fcntl.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace faults {

using support::text;

namespace {

// It is below the folder of user clips, so that it is on the same disk.
constexpr std::string_view newUserFolder = "user/new/and/deep";

std::string descriptionIn(const Seen& seen, const std::string& id)
{
    const auto place = seen.find(id);
    return place == seen.end() ? "" : place->second;
}

} // namespace

void Session::start(std::string_view userFolder)
{
    userFolder_ = userFolder;
    reports_ = {{0, see()}};
    std::filesystem::remove_all(world_.folder("user/new")); // made by the other host
    const int disk = ::open(world_.folder("user").c_str(), O_RDONLY | O_DIRECTORY);
    EXPECT_EQ(::syncfs(disk), 0);
    ::close(disk);
    before_ = support::treeOf(root());
    begin_();
}

void Session::report(bool success)
{
    if (!success) {
        ++failures_;
        return;
    }
    ++successes_;
    if (looks_) {
        reports_.push_back({changesSoFar().size(), see()});
    }
}

Seen Session::see() const
{
    return world_.whatAnotherHostSees(Parts::read, userFolder_);
}

void expectBetween(const Seen& old, const Seen& next, const Seen& removed, const Seen& now,
                   const std::function<bool(const std::string& id)>& isExempt)
{
    Seen all = old;
    all.insert(next.begin(), next.end());
    all.insert(now.begin(), now.end());
    for (const auto& [id, any] : all) {
        const std::string is = descriptionIn(now, id);
        const std::string was = descriptionIn(old, id);
        const std::string willBe = descriptionIn(next, id);
        const bool comesOrGoes = was.empty() != willBe.empty() || removed.contains(id);
        const std::string whole = removed.contains(id) ? removed.at(id) : was + willBe;
        EXPECT_TRUE(is == was || is == willBe || (comesOrGoes && whole.starts_with(is)) ||
                    isExempt(id))
            << id << ": " << is;
    }
}

Seen removedBetween(const Seen& old, const Seen& next)
{
    Seen removed = old;
    std::erase_if(removed, [&](const auto& clip) { return next.contains(clip.first); });
    return removed;
}

namespace {

void save(Session& session, const faults::Operations& part, const support::Path& wave)
{
    World& world = session.world();
    KRT_PLX_ClipBase* const clip = faults::build(world.manager, part, wave);
    const support::Text name = text("Saved");
    session.report(lib(KRT_PLX_MutableClip_save, clip, name.c_str(), false, &world.code) !=
                   nullptr);
}

void saveMidi(Session& session)
{
    session.world().scan();
    session.start();
    save(session, faults::midiOperations(), {});
}

void saveAudio(Session& session)
{
    session.world().scan();
    session.start();
    save(session, faults::audioOperations(), session.world().wave());
}

void saveLongAudio(Session& session)
{
    const support::Path wave = session.world().folder("long.wav");
    std::string bytes;
    for (int i = 0; i < 20000; ++i) {
        bytes += std::to_string(i) + ";";
    }
    support::writeFile(wave, bytes);
    session.world().scan();
    session.start();
    save(session, faults::audioOperations(), wave);
}

void saveInANewFolder(Session& session)
{
    session.start(newUserFolder);
    session.world().createManager(newUserFolder);
    if (session.world().manager == nullptr) {
        session.report(false);
        return;
    }
    save(session, faults::aiOperations(), {});
}

void saveThrice(Session& session)
{
    session.world().scan();
    session.start();
    save(session, faults::midiOperations(), {});
    save(session, faults::audioOperations(), session.world().wave());
    save(session, faults::aiOperations(), {});
}

// The clip whose document is edited. It has notes, so it is not listed without the document.
support::Path documentOf(World& world, std::string_view name)
{
    world.scan();
    return world.folder(world.folderOf(world.userClip(name))) / "property.json";
}

// An editor starts empty, so each edit writes all properties.
void edit(Session& session, std::size_t length)
{
    World& world = session.world();
    KRT_PLX_PropertyEditor* const editor = lib(KRT_PLX_UserClip_createPropertyEditor, world.clip);
    const support::Text name = text(std::string(length, 'n') + std::to_string(length));
    EXPECT_TRUE(lib(KRT_PLX_PropertyEditor_setClipName, editor, name.c_str()));
    session.report(lib(KRT_PLX_PropertyEditor_save, editor));
}

template <std::size_t... Lengths>
void editInTurn(Session& session)
{
    World& world = session.world();
    world.scan();
    world.clip = world.userClip("Midi");
    session.start();
    (edit(session, Lengths), ...);
}

// Replaces the document by one of the same length, whatever tags the clip has.
void editEqual(Session& session)
{
    World& world = session.world();
    world.scan();
    world.clip = world.userClip("Midi");
    KRT_PLX_PropertyEditor* const editor = KRT_PLX_UserClip_createPropertyEditor(world.clip);
    KRT_PLX_PropertyEditor_setClipName(editor, text("m1").c_str());
    EXPECT_TRUE(KRT_PLX_PropertyEditor_save(editor));
    session.start();
    edit(session, 1);
}

template <support::Encoding Form, support::ByteOrderMark Mark, std::size_t... Lengths>
void editEncoded(Session& session)
{
    const support::Path document = documentOf(session.world(), "Midi");
    support::writeDocument(document, support::readFile(document), Form, Mark);
    editInTurn<Lengths...>(session);
}

// Edits a clip that is not listed without its document.
template <std::size_t Length>
void editMissing(Session& session)
{
    const support::Path document = documentOf(session.world(), "Midi");
    session.world().clip = session.world().userClip("Midi");
    std::filesystem::remove(document);
    session.start();
    edit(session, Length);
}

// Edits a clip that has only its clip file.
void editWithoutDocument(Session& session)
{
    World& world = session.world();
    support::addClip(world.folder("user") / "alone too", std::nullopt,
                     support::midiDocumentWithID("alone too"));
    world.scan();
    world.clip = world.userClip("Name of alone too");
    session.start();
    edit(session, 40);
    edit(session, 3);
}

template <char Kind>
void remove(Session& session)
{
    World& world = session.world();
    world.scan();
    world.clip = world.userClip(Kind == 'm' ? "Midi" : "Audio");
    EXPECT_TRUE(lib(KRT_PLX_Clip_readPart, world.clip));
    session.start();
    session.report(lib(KRT_PLX_UserClip_remove, world.clip));
}

void editAndRemove(Session& session)
{
    editInTurn<300>(session);
    session.report(lib(KRT_PLX_UserClip_remove, session.world().clip));
    save(session, faults::midiOperations(), {});
}

using support::ByteOrderMark;
using support::Encoding;

} // namespace

const std::vector<Program>& programs()
{
    static const std::vector<Program> all = {
        {"save_a_MIDI_clip", saveMidi},
        {"save_an_audio_clip", saveAudio},
        {"save_a_long_audio_clip", saveLongAudio},
        {"save_in_a_new_user_folder", saveInANewFolder},
        {"save_three_clips", saveThrice},
        {"edit_to_a_longer_document", editInTurn<400>},
        {"edit_to_a_shorter_document", editInTurn<1>},
        {"edit_to_an_equal_length", editEqual},
        {"edit_in_turn", editInTurn<700, 3, 300, 20, 1000>},
        {"edit_across_a_page", editInTurn<6000, 3, 9000, 5000>},
        {"edit_UTF_16", editEncoded<Encoding::utf16LittleEndian, ByteOrderMark::with, 3>},
        {"edit_UTF_16_to_longer",
         editEncoded<Encoding::utf16BigEndian, ByteOrderMark::without, 1500>},
        {"edit_UTF_32", editEncoded<Encoding::utf32LittleEndian, ByteOrderMark::with, 1801>},
        {"edit_a_missing_document", editMissing<30>},
        {"edit_a_long_missing_document", editMissing<6000>},
        {"edit_a_clip_without_document", editWithoutDocument},
        {"remove_a_MIDI_clip", remove<'m'>},
        {"remove_an_audio_clip", remove<'a'>},
        {"edit_remove_save", editAndRemove},
    };
    return all;
}

} // namespace faults
