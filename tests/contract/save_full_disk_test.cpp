// Saving on a full disk: with each byte and each directory entry more that there is room for, another
// step fails.
#include <functional>

#include "support/full_disk.h"
#include "support/saving.h"

using support::Path;
using support::SmallDisk;
using support::text;

namespace {

using Build = std::function<void(KRT_PLX_ClipBase*)>;

// --- Files that may not grow --------------------------------------------------------------------------

class SaveWithinALimit : public SaveTest {
protected:
    void expectFailure(std::uint32_t code, std::uint64_t limit)
    {
        const support::Tree before = support::treeOf(scratch());
        support::SaveResult result{};
        {
            const support::FileSizeLimit limited(limit);
            if (!limited) {
                GTEST_SKIP() << "this system limits no file sizes";
            }
            result = support::save(clip);
        }
        EXPECT_EQ(result.clip, nullptr);
        EXPECT_EQ(result.code, code);
        EXPECT_EQ(support::treeOf(scratch()), before);
        EXPECT_EQ(support::userClipCount(manager()), 0u);
        EXPECT_EQ(support::save(clip).code, KRT_PLX_RESULT_OK);
    }
};

TEST_F(SaveWithinALimit, NothingCanBeWritten)
{
    support::createMidiPart(clip);
    expectFailure(KRT_PLX_RESULT_FILE_NOT_WRITTEN, 0);
}

TEST_F(SaveWithinALimit, ThePropertyDocumentCannotBeWrittenToItsEnd)
{
    support::createMidiPart(clip);
    expectFailure(KRT_PLX_RESULT_FILE_NOT_WRITTEN, 60);
}

TEST_F(SaveWithinALimit, TheDataDocumentCannotBeWrittenToItsEnd)
{
    KRT_PLX_PartBase* const part = support::createMidiPart(clip);
    const std::string style(5000, 's');
    KRT_PLX_MutableMidiPart_setStyleName(part, text(style).c_str());
    expectFailure(KRT_PLX_RESULT_FILE_NOT_WRITTEN, 4096);
}

TEST_F(SaveWithinALimit, TheWaveFileCannotBeCopiedToItsEnd)
{
    support::createAudioPart(clip, addWaveFile("take.wav", std::string(100000, 'w')));
    expectFailure(KRT_PLX_RESULT_WAVE_FILE_NOT_COPIED, 80000);
}

// --- A full file system ---------------------------------------------------------------------------------

constexpr std::uint64_t plenty = 1000;

class SaveOnASmallDisk : public SaveTest {
protected:
    // Saves what `build` makes in a user directory that is a file system of its own.
    void expectCode(std::uint32_t code, const SmallDisk::Room& size, const Build& build)
    {
        const Path user = scratch() / "disk";
        const SmallDisk disk(user, size);
        if (!disk) {
            GTEST_SKIP() << "this process may not mount a file system";
        }
        const SmallDisk::Room before = disk.freeRoom();
        const auto own = support::createManager({systemFolder(), user, {}, {}});
        KRT_PLX_ClipBase* const ownClip = KRT_PLX_Manager_createMutableClip(own.get());
        build(ownClip);
        const auto result = support::save(ownClip);
        EXPECT_EQ(result.code, code) << size.blocks << " blocks, " << size.entries << " entries";
        if (code != KRT_PLX_RESULT_OK) {
            EXPECT_EQ(result.clip, nullptr);
            EXPECT_TRUE(std::filesystem::is_empty(user));
            EXPECT_EQ(disk.freeRoom(), before);
            EXPECT_EQ(support::userClipCount(own.get()), 0u);
        }
    }

    void expectCodes(std::initializer_list<std::uint32_t> codes, const Build& build)
    {
        std::uint64_t entries = 1;
        for (const std::uint32_t code : codes) {
            expectCode(code, {plenty, entries++}, build);
        }
    }
};

TEST_F(SaveOnASmallDisk, WithoutRoomForTheNextEntry)
{
    expectCodes({KRT_PLX_RESULT_DIRECTORY_NOT_CREATED, KRT_PLX_RESULT_FILE_NOT_OPENED,
                 KRT_PLX_RESULT_FILE_NOT_OPENED, KRT_PLX_RESULT_OK},
                support::createMidiPart);
}

TEST_F(SaveOnASmallDisk, WithoutRoomForTheNextEntryOfAnAudioClip)
{
    const Path wave = addWaveFile();
    expectCodes({KRT_PLX_RESULT_DIRECTORY_NOT_CREATED, KRT_PLX_RESULT_DIRECTORY_NOT_CREATED,
                 KRT_PLX_RESULT_WAVE_FILE_NOT_COPIED, KRT_PLX_RESULT_FILE_NOT_OPENED,
                 KRT_PLX_RESULT_FILE_NOT_OPENED, KRT_PLX_RESULT_OK},
                [&wave](KRT_PLX_ClipBase* own) { support::createAudioPart(own, wave); });
}

TEST_F(SaveOnASmallDisk, WithoutRoomForTheDocuments)
{
    const auto build = [](KRT_PLX_ClipBase* own) {
        const std::string style(20000, 's');
        KRT_PLX_MutableMidiPart_setStyleName(support::createMidiPart(own), text(style).c_str());
    };
    expectCode(KRT_PLX_RESULT_FILE_NOT_WRITTEN, {1, plenty}, build);
    expectCode(KRT_PLX_RESULT_FILE_NOT_WRITTEN, {3, plenty}, build);
    expectCode(KRT_PLX_RESULT_OK, {plenty, plenty}, build);
}

TEST_F(SaveOnASmallDisk, WithoutRoomForTheWaveFile)
{
    const Path wave = addWaveFile("take.wav", std::string(100000, 'w'));
    expectCode(KRT_PLX_RESULT_WAVE_FILE_NOT_COPIED, {10, plenty},
               [&wave](KRT_PLX_ClipBase* own) { support::createAudioPart(own, wave); });
}

} // namespace
