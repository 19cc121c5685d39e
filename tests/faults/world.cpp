#include "world.h"

#include <utility>

#include "support/clip_model.h"

namespace faults {

namespace {

using ClipAt = KRT_PLX_ClipBase* (*)(KRT_PLX_Manager*, std::uint64_t) noexcept;

using CountTags = bool (*)(KRT_PLX_Filter*, std::uint64_t*) noexcept;
using TagAt = const KRT_PLX_Char* (*)(KRT_PLX_Filter*, std::uint64_t) noexcept;

constexpr std::pair<CountTags, TagAt> tagLists[] = {
    {KRT_PLX_Filter_numGenres, KRT_PLX_Filter_genre},
    {KRT_PLX_Filter_numSingerGroups, KRT_PLX_Filter_singerGroup},
    {KRT_PLX_Filter_numSingerIDs, KRT_PLX_Filter_singerID},
    {KRT_PLX_Filter_numTypes, KRT_PLX_Filter_type},
    {KRT_PLX_Filter_numVendors, KRT_PLX_Filter_vendor}};

std::string describeTags(KRT_PLX_Filter* filter)
{
    std::string tags;
    for (const auto& [countTags, tagAt] : tagLists) {
        std::uint64_t size = 0;
        EXPECT_TRUE(countTags(filter, &size));
        for (std::uint64_t i = 0; i < size; ++i) {
            tags += support::utf8(tagAt(filter, i)) + "; ";
        }
        tags += "\n";
    }
    return tags;
}

std::string describeProperties(KRT_PLX_ClipBase* clip)
{
    return support::utf8(KRT_PLX_Clip_name(clip)) + " in " +
           support::utf8(KRT_PLX_Clip_path(clip)) + "\nby " +
           support::utf8(KRT_PLX_ClipBase_vendorName(clip)) + ", part " +
           std::to_string(KRT_PLX_ClipBase_partType(clip)) + ", key " +
           std::to_string(KRT_PLX_ClipBase_partKey(clip)) + ", tempo " +
           std::to_string(KRT_PLX_ClipBase_partTempo(clip)) + "\n" +
           describeTags(KRT_PLX_Clip_filter(clip));
}

std::string describe(KRT_PLX_ClipBase* clip)
{
    const bool hasPart =
        KRT_PLX_Clip_midiPart(clip) != nullptr || KRT_PLX_Clip_audioPart(clip) != nullptr;
    return describeProperties(clip) +
           (hasPart ? support::describe(support::modelOfRead(clip)) : "");
}

void addListed(std::map<std::string, std::string>& listed, KRT_PLX_Manager* manager, ClipAt clipAt)
{
    for (std::uint64_t i = 0; KRT_PLX_ClipBase* const clip = clipAt(manager, i); ++i) {
        listed.emplace(support::utf8(KRT_PLX_Clip_id(clip)), describe(clip));
    }
}

void readParts(KRT_PLX_Manager* manager, ClipAt clipAt)
{
    for (std::uint64_t i = 0; KRT_PLX_ClipBase* const clip = clipAt(manager, i); ++i) {
        KRT_PLX_Clip_readPart(clip);
    }
}

} // namespace

void expectSameDisk(const support::Tree& before, const support::Tree& after,
                    std::string_view except)
{
    support::Tree changes = after;
    for (const auto& [path, content] : before) {
        const auto found = after.find(path);
        if (found != after.end() && found->second == content) {
            changes.erase(path);
        } else {
            changes[path] = "is gone or changed";
        }
    }
    for (const auto& [path, content] : changes) {
        EXPECT_TRUE(!except.empty() && path.starts_with(except)) << path << ": " << content;
    }
}

std::map<std::string, std::string> describeListed(KRT_PLX_Manager* manager)
{
    std::map<std::string, std::string> listed;
    addListed(listed, manager, KRT_PLX_Manager_systemClip);
    addListed(listed, manager, KRT_PLX_Manager_userClip);
    return listed;
}

World::World()
{
    support::writeFile(wave(), "RIFF and what follows");
    std::filesystem::create_directories(model_ / "system");
    fill(model_ / "system", "Factory ");
    fill(model_ / "user", "");
    support::addClip(model_ / "system" / "alone", std::nullopt,
                     support::midiDocumentWithID("alone"));
    reset();
}

World::~World()
{
    destroyManager();
}

void World::fill(const support::Path& folder, std::string_view prefix) const
{
    const support::OwnedManager maker = support::createManager({model_ / "system", folder, {}, {}});
    const std::pair<const char*, const Operations*> clips[] = {
        {"Midi", &midiOperations()}, {"Ai", &aiOperations()}, {"Audio", &audioOperations()}};
    for (const auto& [name, operations] : clips) {
        KRT_PLX_ClipBase* const made = build(maker.get(), *operations, wave());
        EXPECT_NE(support::save(made, std::string(prefix) + name).clip, nullptr);
    }
}

void World::reset()
{
    destroyManager();
    std::filesystem::remove_all(disk_);
    std::filesystem::copy(model_, disk_, std::filesystem::copy_options::recursive);
    code = 0;
}

void World::createManager(std::string_view userFolder)
{
    const support::Text system = support::pathText(folder("system"));
    const support::Text user = support::pathText(folder(userFolder));
    manager = lib(KRT_PLX_CreateManager, appID.c_str(), system.c_str(), user.c_str(), nullptr, 0,
                  nullptr, 0, &code);
}

void World::destroyManager()
{
    clip = editable = saved = nullptr;
    editor = nullptr;
    lib(KRT_PLX_Manager_destroy, std::exchange(manager, nullptr));
}

void World::scan()
{
    createManager();
    EXPECT_EQ(lib(KRT_PLX_Manager_readAllClipFiles, manager), KRT_PLX_RESULT_OK);
}

KRT_PLX_ClipBase* World::userClip(std::string_view name) const
{
    for (std::uint64_t i = 0;; ++i) {
        KRT_PLX_ClipBase* const found = KRT_PLX_Manager_userClip(manager, i);
        if (found == nullptr || support::utf8(KRT_PLX_Clip_name(found)) == name) {
            return found;
        }
    }
}

std::string World::folderOf(KRT_PLX_ClipBase* listed) const
{
    return "user/" + support::utf8(KRT_PLX_Clip_id(listed)) + "/";
}

Sight World::look() const
{
    return {describeListed(manager),
            editable == nullptr ? "" : support::describe(support::modelOfEditable(editable)),
            support::treeOf(disk_)};
}

std::map<std::string, std::string> World::whatAnotherHostSees(Parts parts,
                                                              std::string_view userFolder) const
{
    const support::OwnedManager other =
        support::createManager({folder("system"), folder(userFolder), {}, {}});
    EXPECT_EQ(KRT_PLX_Manager_readAllClipFiles(other.get()), KRT_PLX_RESULT_OK);
    if (parts == Parts::read) {
        readParts(other.get(), KRT_PLX_Manager_systemClip);
        readParts(other.get(), KRT_PLX_Manager_userClip);
    }
    return describeListed(other.get());
}

} // namespace faults
