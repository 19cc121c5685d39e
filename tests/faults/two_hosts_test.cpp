// Two processes work in one user folder: they scan, save, edit and remove at the same time.

#include <fstream>
#include <iostream>
#include <set>

#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "figures.h"
#include "support/editing.h"
#include "support/host.h"
#include "support/random.h"
#include "support/saving.h"

namespace {

using support::countOf;
using support::Random;
using support::text;
using support::utf8;

constexpr std::size_t mostClips = 12;

// The style of a part says how many notes it must have.
void buildClip(KRT_PLX_ClipBase* clip, std::uint32_t notes)
{
    KRT_PLX_PartBase* const part = support::createMidiPart(clip);
    KRT_PLX_MutableMidiPart_setStyleName(part, text(std::to_string(notes)).c_str());
    for (std::uint32_t i = 0; i < notes; ++i) {
        support::insertNote(part, static_cast<std::int32_t>(i) * 480);
    }
}

bool isWhole(KRT_PLX_ClipBase* clip)
{
    KRT_PLX_PartBase* const part = KRT_PLX_Clip_midiPart(clip);
    return part != nullptr && utf8(KRT_PLX_MidiPartBase_styleName(part)) ==
                                  std::to_string(countOf(KRT_PLX_MidiPartBase_numNotes, part));
}

// One host, which changes only its own clips and reads all.
class Host {
public:
    Host(const support::Folders& folders, char letter)
        : manager_(support::createManager(folders)), letter_(letter),
          random_(static_cast<std::uint32_t>(letter))
    {
    }

    void work(int operations)
    {
        for (int i = 0; i < operations && !testing::Test::HasFailure(); ++i) {
            switch (random_.below(5)) {
            case 0:
                scan();
                break;
            case 1:
                edit();
                break;
            case 2:
                remove();
                break;
            default:
                save();
            }
        }
        scan();
    }

    [[nodiscard]] const std::set<std::string>& own() const { return own_; }
    [[nodiscard]] long seenWhole() const { return seenWhole_; }

private:
    void save()
    {
        KRT_PLX_ClipBase* const clip = KRT_PLX_Manager_createMutableClip(manager_.get());
        buildClip(clip, 1 + random_.below(40));
        const auto [saved, code] = support::save(clip, std::string(1, letter_));
        ASSERT_EQ(code, KRT_PLX_RESULT_OK);
        EXPECT_TRUE(KRT_PLX_Clip_readPart(saved));
        EXPECT_TRUE(isWhole(saved));
        own_.insert(utf8(KRT_PLX_Clip_id(saved)));
        KRT_PLX_MutableClip_destroy(clip);
        if (own_.size() > mostClips) {
            remove();
        }
    }

    void edit()
    {
        if (KRT_PLX_ClipBase* const clip = chooseOwn()) {
            KRT_PLX_PropertyEditor* const editor = KRT_PLX_UserClip_createPropertyEditor(clip);
            const support::Text name =
                text(std::string(1, letter_) + std::to_string(random_.below(1000)));
            KRT_PLX_PropertyEditor_setClipName(editor, name.c_str());
            EXPECT_TRUE(KRT_PLX_PropertyEditor_save(editor));
        }
    }

    void remove()
    {
        if (KRT_PLX_ClipBase* const clip = chooseOwn()) {
            own_.erase(utf8(KRT_PLX_Clip_id(clip)));
            EXPECT_TRUE(KRT_PLX_UserClip_remove(clip));
        }
    }

    // No clip of this host is lost, and no clip of the other has a part with some of its notes
    // missing.
    void scan()
    {
        EXPECT_EQ(KRT_PLX_Manager_readUserClipFiles(manager_.get()), KRT_PLX_RESULT_OK);
        for (const std::string& id : own_) {
            KRT_PLX_ClipBase* const clip = support::findUserClip(manager_.get(), id);
            ASSERT_NE(clip, nullptr) << id;
            EXPECT_TRUE(KRT_PLX_Clip_readPart(clip));
        }
        for (std::uint64_t i = 0; i < support::userClipCount(manager_.get()); ++i) {
            KRT_PLX_ClipBase* const clip = KRT_PLX_Manager_userClip(manager_.get(), i);
            const bool isRead = KRT_PLX_Clip_readPart(clip);
            EXPECT_EQ(isRead, KRT_PLX_Clip_midiPart(clip) != nullptr);
            EXPECT_TRUE(!isRead || isWhole(clip));
            seenWhole_ += isRead && !own_.contains(utf8(KRT_PLX_Clip_id(clip))) ? 1 : 0;
        }
    }

    KRT_PLX_ClipBase* chooseOwn()
    {
        if (own_.empty()) {
            return nullptr;
        }
        const auto place =
            std::next(own_.begin(), random_.between(0, static_cast<int>(own_.size()) - 1));
        return support::findUserClip(manager_.get(), *place);
    }

    support::OwnedManager manager_;
    char letter_;
    Random random_;
    std::set<std::string> own_;
    long seenWhole_ = 0;
};

class TwoHostsTest : public testing::Test {
protected:
    TwoHostsTest() { std::filesystem::create_directories(folders_.system); }

    // Runs in a process of its own, which writes a list of its clips, and how many of the other's
    // it has read.
    pid_t start(char letter, int operations)
    {
        const pid_t process = ::fork();
        if (process == 0) {
            Host host(folders_, letter);
            host.work(operations);
            std::ofstream report(reportOf(letter));
            report << host.seenWhole() << "\n";
            for (const std::string& id : host.own()) {
                report << id << "\n";
            }
            report.close();
            ::_exit(HasFailure() ? 1 : 0);
        }
        return process;
    }

    static void expectGoodEnd(pid_t process)
    {
        int status = 0;
        ASSERT_EQ(::waitpid(process, &status, 0), process);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
    }

    [[nodiscard]] support::Path reportOf(char letter) const
    {
        return scratch_.path() / std::string(1, letter);
    }

    void addOwnOf(char letter, std::set<std::string>& ids) const
    {
        std::ifstream report(reportOf(letter));
        long seenWhole = 0;
        report >> seenWhole;
        EXPECT_GT(seenWhole, 0) << "the two have not met";
        faults::count("clips of the other host read", seenWhole);
        for (std::string id; report >> id;) {
            ids.insert(id);
        }
    }

    support::ScratchFolder scratch_;
    support::Folders folders_{scratch_.path() / "system", scratch_.path() / "user", {}, {}};
};

TEST_F(TwoHostsTest, LoseNoClipAndSeeNoHalfPart)
{
    const int operations = faults::isExhaustive() ? 5000 : 300;
    const pid_t first = start('A', operations);
    const pid_t second = start('B', operations);
    expectGoodEnd(first);
    expectGoodEnd(second);
    std::set<std::string> left;
    addOwnOf('A', left);
    addOwnOf('B', left);
    const support::OwnedManager manager = support::createManager(folders_);
    ASSERT_EQ(KRT_PLX_Manager_readAllClipFiles(manager.get()), KRT_PLX_RESULT_OK);
    const std::vector<std::string> listed = support::userClipIDs(manager.get());
    EXPECT_EQ(std::set(listed.begin(), listed.end()), left);
    for (const std::string& id : listed) {
        KRT_PLX_ClipBase* const clip = support::findUserClip(manager.get(), id);
        EXPECT_TRUE(KRT_PLX_Clip_readPart(clip) && isWhole(clip));
    }
    faults::count("operations of two hosts in one folder", 2L * operations);
}

} // namespace
