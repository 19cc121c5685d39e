// Other programs work in the same folders: between any two system calls files and folders vanish,
// appear, or are replaced. Only the clip that these programs touch may be affected.

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>

#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "allocations.h"
#include "figures.h"
#include "system_calls.h"
#include "works.h"

namespace {

using faults::Work;
using faults::World;
using support::Path;
using support::Tree;

constexpr std::array disturbedWorks = {
    "scan",
    "scan again",
    "read a MIDI part",
    "read an audio part",
    "save an AI clip",
    "save an audio clip",
    "edit",
    "remove a MIDI clip",
    "remove an audio clip",
};

// What another program does to a clip's folder, which may not exist (any more).
struct Deed {
    const char* name;
    void (*commit)(const Path& folder, const Path& elsewhere);
};

void removeFiles(const Path& folder)
{
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.is_regular_file()) {
            std::filesystem::remove(entry);
        }
    }
}

Path clipFile(const Path& folder)
{
    return folder / (folder.filename().string() + ".kxclip");
}

void removeAll(const Path& folder, const Path&)
{
    std::filesystem::remove_all(folder);
}

void removeDocuments(const Path& folder, const Path&)
{
    removeFiles(folder);
}

void putPipes(const Path& folder, const Path&)
{
    removeFiles(folder);
    ::mkfifo((folder / "property.json").c_str(), 0600);
    ::mkfifo(clipFile(folder).c_str(), 0600);
}

void putFolders(const Path& folder, const Path&)
{
    removeFiles(folder);
    std::filesystem::create_directories(folder / "property.json" / "deep");
    std::filesystem::create_directories(clipFile(folder) / "deep");
}

// Replaces the audio folder by a link to one that has files with the same names as the wave file.
void leadElsewhere(const Path& folder, const Path& elsewhere)
{
    if (std::filesystem::is_directory(folder / "audio")) {
        std::filesystem::rename(folder / "audio", folder / "moved");
        std::filesystem::create_directory_symlink(elsewhere, folder / "audio");
    }
}

void makeRings(const Path& folder, const Path&)
{
    std::filesystem::create_directory_symlink("..", folder / "up");
    std::filesystem::create_directory_symlink(".", folder / "ring");
    std::filesystem::create_symlink("ring.kxclip", folder / "ring.kxclip");
}

void addDeepFolders(const Path& folder, const Path&)
{
    std::filesystem::create_directories(folder / "new" / "deep" / "deeper");
    support::addClip(folder / "new" / "clip", support::propertyDocument("appeared"),
                     support::midiDocument());
}

constexpr Deed deeds[] = {
    {"folders vanish", removeAll},
    {"files vanish", removeDocuments},
    {"pipes take the place of files", putPipes},
    {"folders take the place of files", putFolders},
    {"a link takes the place of a folder", leadElsewhere},
    {"links make rings", makeRings},
    {"folders appear", addDeepFolders},
};

class NeighbourTest : public testing::TestWithParam<const char*> {
protected:
    static const Work& work() { return faults::workNamed(GetParam()); }

    // Without a limit, a call that opens a pipe would wait for ever.
    void SetUp() override
    {
        ::alarm(300);
        support::writeFile(elsewhere_ / "take.wav", "precious");
        support::writeFile(elsewhere_ / "deep" / "other.wav", "precious too");
    }

    void TearDown() override { ::alarm(0); }

    void start()
    {
        world_.reset();
        blocks_ = faults::liveBlocks();
        work().prepare(world_);
        all_ = world_.whatAnotherHostSees(faults::Parts::unread);
        before_ = world_.look();
        victim_ = chooseVictim();
    }

    // The folder of the clip that the work changes; for a scan, that of an audio clip.
    [[nodiscard]] Path chooseVictim() const
    {
        if (world_.clip != nullptr) {
            return world_.folder(world_.folderOf(world_.clip)).parent_path();
        }
        for (const auto& entry : std::filesystem::directory_iterator(world_.folder("user"))) {
            if (!work().name.starts_with("save") &&
                std::filesystem::exists(entry.path() / "audio")) {
                return entry;
            }
        }
        return {};
    }

    // The folder of the clip that is being saved, if there is one already.
    [[nodiscard]] Path newFolder() const
    {
        for (const auto& entry : std::filesystem::directory_iterator(world_.folder("user"))) {
            if (!before_.disk.contains("user/" + entry.path().filename().string() + "/")) {
                return entry;
            }
        }
        return {};
    }

    void commit(const Deed& deed)
    {
        victim_ = work().name.starts_with("save") ? newFolder() : victim_;
        if (std::filesystem::is_directory(victim_)) {
            deed.commit(victim_, elsewhere_);
            faults::count("times that a neighbour interfered");
        }
    }

    long countCalls()
    {
        start();
        faults::recordCalls();
        EXPECT_TRUE(work().run(world_));
        const long calls = std::ssize(faults::stopDisturbing());
        world_.destroyManager();
        return calls;
    }

    [[nodiscard]] bool isOther(const std::string& id) const
    {
        return id != victim_.filename() && id != "appeared";
    }

    // None of the clips that nobody has touched is lost or changed.
    void expectOthers(const std::map<std::string, std::string>& expected,
                      const std::map<std::string, std::string>& found) const
    {
        for (const auto& [id, description] : expected) {
            const auto place = found.find(id);
            EXPECT_TRUE(!isOther(id) || (place != found.end() && place->second == description))
                << id;
        }
    }

    void look(bool done)
    {
        expectOthers(work().lists ? all_ : before_.listed, faults::describeListed(world_.manager));
        expectOthers(all_, world_.whatAnotherHostSees(faults::Parts::unread));
        EXPECT_EQ(support::readFile(elsewhere_ / "take.wav"), "precious");
        EXPECT_EQ(support::treeOf(elsewhere_).size(), 3);
        EXPECT_TRUE(!work().lists || done);
        if (done && world_.saved != nullptr) {
            victim_ = world_.folder(world_.folderOf(world_.saved)).parent_path();
        }
        world_.destroyManager();
        EXPECT_EQ(faults::liveBlocks(), blocks_);
        std::filesystem::remove_all(victim_);
        Tree rest = before_.disk;
        std::erase_if(rest, [this](const auto& entry) { return isVictims(entry.first); });
        EXPECT_EQ(support::treeOf(world_.folder("")), rest);
    }

    [[nodiscard]] bool isVictims(const std::string& path) const
    {
        const std::string folder = "user/" + victim_.filename().string() + "/";
        return folder != "user//" && path.starts_with(folder);
    }

    World world_;
    Path elsewhere_ = world_.wave().parent_path() / "elsewhere";
    faults::Sight before_;
    std::map<std::string, std::string> all_;
    Path victim_;
    long blocks_ = 0;
};

TEST_P(NeighbourTest, HarmsNoOtherClip)
{
    const long calls = countCalls();
    for (const Deed& deed : deeds) {
        SCOPED_TRACE(deed.name);
        const bool isDense = deed.commit == leadElsewhere && !work().lists;
        const long step = faults::every(isDense ? 2 : 9);
        for (long number = 1; number <= calls && !HasFailure(); number += step) {
            SCOPED_TRACE("before call " + std::to_string(number));
            start();
            faults::actBefore(number, [&] { commit(deed); });
            const bool done = work().run(world_);
            faults::stopDisturbing();
            look(done);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Works, NeighbourTest, testing::ValuesIn(disturbedWorks),
                         [](const auto& parameter) { return faults::caseName(parameter.param); });

} // namespace
