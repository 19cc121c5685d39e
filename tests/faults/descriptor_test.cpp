// Nothing more can be opened, while everything else works: as in a program that has used up its
// file descriptors. A call must clean up what it has begun without opening anything.

#include <cerrno>
#include <string>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "figures.h"
#include "system_calls.h"
#include "works.h"

namespace {

using faults::Work;
using faults::World;

// While this lives, at most this many more files can be opened.
class DescriptorLimit {
public:
    explicit DescriptorLimit(int more)
    {
        const int next = ::open("/", O_RDONLY | O_DIRECTORY);
        ::close(next);
        EXPECT_EQ(::getrlimit(RLIMIT_NOFILE, &previous_), 0);
        const rlimit limit{static_cast<rlim_t>(next + more), previous_.rlim_max};
        EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);
    }
    DescriptorLimit(const DescriptorLimit&) = delete;
    DescriptorLimit& operator=(const DescriptorLimit&) = delete;
    ~DescriptorLimit() { EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &previous_), 0); }

private:
    rlimit previous_{};
};

bool saveEdit(World& world)
{
    return faults::lib(KRT_PLX_PropertyEditor_save, world.editor);
}

void prepareEditWithoutDocument(World& world)
{
    const Work& edit = faults::workNamed("edit");
    edit.prepare(world);
    std::filesystem::remove(world.folder(edit.mayTouch(world)));
}

struct Change {
    const char* name;
    void (*prepare)(World& world);
    bool (*run)(World& world);
};

Change changeOf(std::string_view name)
{
    const Work& work = faults::workNamed(name);
    return {work.name.c_str(), work.prepare, work.run};
}

const std::vector<Change>& changes()
{
    static const std::vector<Change> all = {
        changeOf("save a MIDI clip"),
        changeOf("save an audio clip"),
        changeOf("edit"),
        {"edit a missing document", prepareEditWithoutDocument, saveEdit},
    };
    return all;
}

class DescriptorTest : public testing::TestWithParam<std::size_t> {
protected:
    static const Change& change() { return changes()[GetParam()]; }

    void start()
    {
        world_.reset();
        change().prepare(world_);
        before_ = support::treeOf(world_.folder(""));
    }

    void expectNothingLeft(bool done) const
    {
        if (!done) {
            faults::expectSameDisk(before_, support::treeOf(world_.folder("")));
            faults::count("changes that failed with no descriptor left");
        }
    }

    long countCalls()
    {
        start();
        faults::recordCalls();
        EXPECT_TRUE(change().run(world_));
        return std::ssize(faults::stopDisturbing());
    }

    World world_;
    support::Tree before_;
};

TEST_P(DescriptorTest, NothingIsLeftWhereverTheyEnd)
{
    const long calls = countCalls();
    for (long number = 1; number <= calls && !HasFailure(); ++number) {
        SCOPED_TRACE("from call " + std::to_string(number));
        start();
        faults::failOpeningFrom(number, EMFILE);
        const bool done = change().run(world_);
        faults::stopDisturbing();
        expectNothingLeft(done);
    }
}

TEST_P(DescriptorTest, NothingIsLeftHoweverFewThereAre)
{
    bool done = false;
    for (int more = 0; !done && !HasFailure(); ++more) {
        SCOPED_TRACE(std::to_string(more) + " more can be open");
        ASSERT_LT(more, 10) << "no change needs so many";
        start();
        {
            const DescriptorLimit limit(more);
            done = change().run(world_);
        }
        expectNothingLeft(done);
    }
}

INSTANTIATE_TEST_SUITE_P(Changes, DescriptorTest, testing::Range<std::size_t>(0, changes().size()),
                         [](const auto& parameter) {
                             return faults::caseName(changes()[parameter.param].name);
                         });

// --- Reading ----------------------------------------------------------------------------------------------

// The sanitizer opens a pipe to find out whether an address can be read.
#ifdef __SANITIZE_ADDRESS__
constexpr int ofTheSanitizer = 2;
#else
constexpr int ofTheSanitizer = 0;
#endif

TEST(Reading, NeedsOneDescriptorAtATime)
{
    World world;
    for (const char* name : {"scan", "scan again", "read a MIDI part", "read an audio part"}) {
        SCOPED_TRACE(name);
        const Work& work = faults::workNamed(name);
        world.reset();
        work.prepare(world);
        {
            const DescriptorLimit limit(1 + ofTheSanitizer);
            EXPECT_TRUE(work.run(world));
        }
        work.expectDone(world);
        faults::count("readings with one descriptor");
    }
}

// --- Reading the property document back ---------------------------------------------------------------

class ReadingBack : public testing::Test {
protected:
    // The last calls of a save that concern its property document, by name.
    long lastCall(std::string_view name)
    {
        start();
        faults::recordCalls();
        EXPECT_TRUE(work_.run(world_));
        const faults::SystemCalls calls = faults::stopDisturbing();
        long number = std::ssize(calls);
        while (number > 0 && !isAbout(calls[static_cast<std::size_t>(number - 1)], name)) {
            --number;
        }
        return number;
    }

    static bool isAbout(const faults::SystemCall& call, std::string_view name)
    {
        return call.name == name && call.path.ends_with("/property.json");
    }

    void start()
    {
        world_.reset();
        work_.prepare(world_);
    }

    // Lets the last such call fail.
    void expectCode(std::uint32_t code, std::string_view name, int error)
    {
        const long number = lastCall(name);
        ASSERT_GT(number, 0);
        start();
        const support::Tree before = support::treeOf(world_.folder(""));
        faults::failCall(number, error);
        EXPECT_FALSE(work_.run(world_));
        faults::stopDisturbing();
        EXPECT_EQ(world_.code, code);
        faults::expectSameDisk(before, support::treeOf(world_.folder("")));
    }

    const Work& work_ = faults::workNamed("save a MIDI clip");
    World world_;
};

TEST_F(ReadingBack, OfADocumentThatCannotBeOpened)
{
    for (const int error : {EMFILE, EACCES, ENOENT, EIO}) {
        expectCode(KRT_PLX_RESULT_FILE_NOT_OPENED, "openat", error);
    }
}

TEST_F(ReadingBack, OfADocumentThatCannotBeLookedAt)
{
    for (const int error : {EACCES, ENOENT, EIO}) {
        expectCode(KRT_PLX_RESULT_FILE_NOT_OPENED, "fstatat", error);
    }
}

// What was read of it may be all, but nobody knows.
TEST_F(ReadingBack, OfADocumentWhoseEndIsNotKnown)
{
    expectCode(KRT_PLX_RESULT_FILE_NOT_WRITTEN, "pread", EIO);
}

} // namespace
