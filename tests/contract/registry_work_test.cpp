// Managers at work in several threads at once, each in its own, all in one user folder: no data is
// shared between them but the registry.
#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "support/editing.h"
#include "support/saving.h"

using support::OwnedManager;
using support::text;

namespace {

constexpr int rounds = 12;
constexpr std::uint32_t notes = 20;

class RegistryWork : public testing::Test {
protected:
    RegistryWork()
    {
        std::filesystem::create_directories(folders.system);
        support::writeFile(wave, "RIFF and what follows");
    }

    static void fillMidi(KRT_PLX_ClipBase* clip)
    {
        KRT_PLX_PartBase* const part = KRT_PLX_MutableClip_createMidiPart(clip);
        KRT_PLX_MutableMidiPart_setVoiceBankID(part, text(support::voiceBankID).c_str());
        KRT_PLX_MutableMidiPart_setLangID(part, 0);
        for (std::uint32_t i = 0; i < notes; ++i) {
            KRT_PLX_MutableMidiPart_insertNote(part, static_cast<std::int32_t>(i) * 480, 480,
                                               text("la").c_str(), text("l a").c_str(), 0);
        }
    }

    void fillAudio(KRT_PLX_ClipBase* clip) const
    {
        KRT_PLX_PartBase* const part = KRT_PLX_MutableClip_createAudioPart(clip);
        KRT_PLX_MutableAudioPart_setWavFilePath(part, support::pathText(wave).c_str());
    }

    KRT_PLX_ClipBase* saveOne(KRT_PLX_Manager* manager, int round) const
    {
        KRT_PLX_ClipBase* const built = KRT_PLX_Manager_createMutableClip(manager);
        round % 2 == 0 ? fillMidi(built) : fillAudio(built);
        std::uint32_t code = KRT_PLX_RESULT_NO_MANAGER;
        KRT_PLX_ClipBase* const saved =
            KRT_PLX_MutableClip_save(built, text("first name").c_str(), round % 3 == 0, &code);
        KRT_PLX_MutableClip_destroy(built);
        return code == KRT_PLX_RESULT_OK && KRT_PLX_Clip_readPart(saved) ? saved : nullptr;
    }

    static bool edit(KRT_PLX_ClipBase* clip)
    {
        KRT_PLX_PropertyEditor* const editor = KRT_PLX_UserClip_createPropertyEditor(clip);
        return KRT_PLX_PropertyEditor_setClipName(editor, text("second name").c_str()) &&
               KRT_PLX_PropertyEditor_save(editor);
    }

    // Saves, edits, removes every third clip, and reads the folder that the others write.
    void work(std::atomic<int>& done) const
    {
        const OwnedManager manager = support::createManager(folders);
        for (int round = 0; round < rounds; ++round) {
            KRT_PLX_ClipBase* const clip = saveOne(manager.get(), round);
            const bool edited = edit(clip);
            const bool kept = round % 3 != 2 || KRT_PLX_UserClip_remove(clip);
            const bool read = KRT_PLX_Manager_readUserClipFiles(manager.get()) == KRT_PLX_RESULT_OK;
            done += edited && kept && read ? 1 : 0;
        }
    }

    support::ScratchFolder scratch;
    support::Folders folders{scratch.path() / "system", scratch.path() / "user", {}, {}};
    support::Path wave = scratch.path() / "take.wav";
};

TEST_F(RegistryWork, OfEachThreadIsDoneAsIfItWereAlone)
{
    constexpr int count = 3;
    std::atomic<int> done = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < count; ++i) {
        threads.emplace_back([&] { work(done); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(done, count * rounds);

    const OwnedManager manager = support::createManager(folders);
    ASSERT_EQ(KRT_PLX_Manager_readAllClipFiles(manager.get()), KRT_PLX_RESULT_OK);
    ASSERT_EQ(support::userClipCount(manager.get()), count * rounds * 2 / 3);
    for (std::uint64_t i = 0; i < count * rounds * 2 / 3; ++i) {
        KRT_PLX_ClipBase* const clip = KRT_PLX_Manager_userClip(manager.get(), i);
        EXPECT_EQ(support::utf8(KRT_PLX_Clip_name(clip)), "second name");
        EXPECT_TRUE(KRT_PLX_Clip_readPart(clip));
    }
}

} // namespace
