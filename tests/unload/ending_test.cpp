// The end of a process with the library in it: the library frees nothing and waits for nothing,
// because threads may be anywhere, also in the library.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/child.h"
#include "support/documents.h"
#include "support/files.h"

namespace {

class Ending : public testing::Test {
protected:
    Ending()
    {
        for (const char* name : {"a", "b", "c"}) {
            const support::Path clip = scratch.path() / "system" / name;
            support::writeFile(clip / "property.json", support::propertyDocument(name));
            support::writeFile(clip / "clip.kxclip", support::midiDocument());
        }
    }

    // Several times, because where a thread is when the process ends is random.
    void expectToEnd(const char* work, int times)
    {
        for (int i = 0; i < times; ++i) {
            ASSERT_THAT(support::runProgram(support::place(KRT_PLX_TEST_ENDING_HOST),
                                            {work, scratch.path()}, std::chrono::seconds(20)),
                        testing::Optional(0))
                << "time " << i;
        }
    }

    support::ScratchFolder scratch;
};

TEST_F(Ending, WhileThreadsCreateManagers)
{
    expectToEnd("creating", 8);
}

TEST_F(Ending, WhileThreadsReadClips)
{
    expectToEnd("reading", 8);
}

TEST_F(Ending, LeavesTheManagersToTheLast)
{
    expectToEnd("asking", 1);
}

} // namespace
