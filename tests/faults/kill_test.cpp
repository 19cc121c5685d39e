// The process is killed at each system call of saving, editing and removing, and in the middle of
// each write. Another host then scans without error, and every other clip is whole.

#include <csignal>
#include <iostream>

#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "figures.h"
#include "system_calls.h"
#include "works.h"

namespace {

using faults::Moment;
using faults::SystemCalls;
using faults::Work;
using faults::World;
using support::Tree;

constexpr std::array killed = {
    "save a MIDI clip",
    "save an AI clip",
    "save an audio clip",
    "edit",
    "remove a MIDI clip",
    "remove an audio clip",
    "remove an audio clip, its part not read",
};

// The folder below "user" that is in one tree and not in the other, as a path in the tree.
std::string newFolder(const Tree& tree, const Tree& other)
{
    for (const auto& [path, content] : tree) {
        if (path.starts_with("user/") && path.ends_with("/") && !other.contains(path)) {
            return path.substr(0, path.find('/', 5) + 1);
        }
    }
    return {};
}

// Only the files of one folder, by their names in it, with its ID replaced by a known one.
Tree filesIn(const Tree& tree, const std::string& folder)
{
    Tree files;
    const std::string id = folder.empty() ? "" : folder.substr(5, folder.size() - 6);
    for (const auto& [path, content] : tree) {
        if (!folder.empty() && path.starts_with(folder)) {
            files[support::replaced(path.substr(folder.size()), id, "ID")] =
                support::replaced(content, id, "ID");
        }
    }
    return files;
}

// Which content a file has: that before the work, that after it, or something in between.
std::string stateOf(const std::string& name, const std::string& content, const Tree& before,
                    const Tree& finished)
{
    const auto isAsIn = [&](const Tree& tree) {
        const auto found = tree.find(name);
        return found != tree.end() && found->second == content;
    };
    if (isAsIn(finished)) {
        return isAsIn(before) || name.ends_with("/") ? "" : " (new)";
    }
    return isAsIn(before) ? "" : content.empty() ? " (empty)" : " (cut short)";
}

std::string remains(const Tree& files, const Tree& before, const Tree& finished)
{
    std::string text;
    for (const auto& [name, content] : files) {
        text += (text.empty() ? "" : ", ") + (name.empty() ? "the folder" : "`" + name + "`") +
                stateOf(name, content, before, finished);
    }
    return text.empty() ? "nothing" : text;
}

std::map<std::string, std::string> without(const std::string& id,
                                           std::map<std::string, std::string> clips)
{
    clips.erase(id);
    return clips;
}

class KillTest : public testing::TestWithParam<const char*> {
protected:
    static const Work& work() { return faults::workNamed(GetParam()); }

    void start()
    {
        world_.reset();
        work().prepare(world_);
        before_ = world_.look();
        folder_ = world_.clip == nullptr ? "" : world_.folderOf(world_.clip);
    }

    // Finds the calls at which it can be killed, and the result without a kill.
    SystemCalls rehearse()
    {
        start();
        all_ = world_.whatAnotherHostSees();
        faults::recordCalls();
        EXPECT_TRUE(work().run(world_));
        SystemCalls calls = faults::stopDisturbing();
        const Tree disk = support::treeOf(world_.folder(""));
        finished_ = filesIn(disk, folder_.empty() ? newFolder(disk, before_.disk) : folder_);
        return calls;
    }

    void killAt(long number, Moment moment)
    {
        start();
        const pid_t child = ::fork();
        if (child == 0) {
            faults::killAt(number, moment);
            work().run(world_);
            ::_exit(0);
        }
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
        faults::count("kills: " + work().name);
        world_.destroyManager();
    }

    // A row of the table of what can be left: the files, and what the next host reads from them.
    std::string look()
    {
        const Tree disk = support::treeOf(world_.folder(""));
        const bool isNew = folder_.empty();
        const std::string folder = isNew ? newFolder(disk, before_.disk) : folder_;
        faults::expectSameDisk(before_.disk, disk, folder);
        const Tree files = filesIn(disk, folder);
        return remains(files, isNew ? Tree() : filesIn(before_.disk, folder), finished_) + " | " +
               checkListed(folder, files);
    }

    std::string checkListed(const std::string& folder, const Tree& files)
    {
        const auto now = world_.whatAnotherHostSees();
        const std::string id = folder.empty() ? "" : folder.substr(5, folder.size() - 6);
        EXPECT_EQ(without(id, now), without(id, all_));
        if (!now.contains(id)) {
            return "not listed";
        }
        const bool hasPart = now.at(id).find("part.type") != std::string::npos;
        const auto data = files.find("ID.kxclip");
        const bool isWhole = data != files.end() && data->second == expectedData();
        EXPECT_TRUE(!hasPart || isWhole);
        return hasPart ? "listed, whole" : "listed, `readPart` says false";
    }

    // The clip file of the clip that is being saved, or of the existing one.
    std::string expectedData()
    {
        const Tree files = folder_.empty() ? finished_ : filesIn(before_.disk, folder_);
        const auto data = files.find("ID.kxclip");
        return data == files.end() ? "" : data->second;
    }

    World world_;
    faults::Sight before_;
    std::map<std::string, std::string> all_;
    std::string folder_; // of the clip that exists; a clip that is being saved gets a new one
    Tree finished_;
};

TEST_P(KillTest, LeavesEveryOtherClipWhole)
{
    const SystemCalls calls = rehearse();
    ASSERT_FALSE(calls.empty());
    std::string last;
    for (long number = 1; number <= std::ssize(calls) && !HasFailure(); ++number) {
        const faults::SystemCall& call = calls[static_cast<std::size_t>(number - 1)];
        for (const Moment moment : {Moment::before, Moment::halfWay}) {
            if (moment == Moment::halfWay && call.name != "pwrite") {
                continue;
            }
            SCOPED_TRACE(call.name + " " + call.path);
            killAt(number, moment);
            const std::string row = look();
            if (faults::isExhaustive() && row != last) {
                std::cout << "table: " << work().name << " | "
                          << (moment == Moment::before ? "before " : "in the middle of ")
                          << call.name << " | " << row << "\n";
            }
            last = row;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Works, KillTest, testing::ValuesIn(killed),
                         [](const auto& parameter) { return faults::caseName(parameter.param); });

} // namespace
