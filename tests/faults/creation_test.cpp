// What other threads can do while one of them creates a manager: its folders may be on a slow
// drive, and nobody else must wait for it.
#include <chrono>
#include <filesystem>
#include <future>
#include <string_view>

#include <gtest/gtest.h>

#include "library_call.h"
#include "support/host.h"
#include "system_calls.h"

namespace {

using faults::lib;
using support::Path;
using support::pathText;
using support::text;

constexpr std::uint32_t untouched = 4711;

class Creation : public testing::Test {
protected:
    Creation() { std::filesystem::create_directory(scratch.path() / "system"); }

    KRT_PLX_Manager* create(std::string_view appID, std::string_view userFolder,
                            std::uint32_t& code) const
    {
        return KRT_PLX_CreateManager(
            text(appID).c_str(), pathText(scratch.path() / "system").c_str(),
            pathText(scratch.path() / userFolder).c_str(), nullptr, 0, nullptr, 0, &code);
    }

    // Creates the manager "first" and, in the middle of that, another one on another thread.
    void createTwo(std::string_view appIDOfSecond)
    {
        std::future_status status{};
        faults::actBefore(1, [&] {
            other = std::async(std::launch::async, [this, appIDOfSecond] {
                second.reset(create(appIDOfSecond, "of second", codeOfSecond));
            });
            status = other.wait_for(std::chrono::seconds(10));
        });
        {
            const faults::Inside inside(true);
            first.reset(create("first", "of first", codeOfFirst));
        }
        EXPECT_FALSE(faults::stopDisturbing().empty());
        other.wait();
        EXPECT_EQ(status, std::future_status::ready);
    }

    struct Destroy {
        void operator()(KRT_PLX_Manager* manager) const { KRT_PLX_Manager_destroy(manager); }
    };
    using Owned = std::unique_ptr<KRT_PLX_Manager, Destroy>;

    support::ScratchFolder scratch;
    std::future<void> other;
    Owned first;
    Owned second;
    std::uint32_t codeOfFirst = untouched;
    std::uint32_t codeOfSecond = untouched;
};

TEST_F(Creation, HoldsUpNoOther)
{
    createTwo("second");

    EXPECT_EQ(codeOfFirst, KRT_PLX_RESULT_OK);
    EXPECT_EQ(codeOfSecond, KRT_PLX_RESULT_OK);
    EXPECT_NE(first, second);
}

TEST_F(Creation, ReturnsWhatAnotherThreadHasMadeMeanwhile)
{
    createTwo("first");

    EXPECT_EQ(codeOfFirst, untouched);
    EXPECT_EQ(codeOfSecond, KRT_PLX_RESULT_OK);
    EXPECT_EQ(first, second);
    EXPECT_EQ(KRT_PLX_Manager_userClipDirPath(first.get()), pathText(scratch.path() / "of second"));
}

} // namespace
