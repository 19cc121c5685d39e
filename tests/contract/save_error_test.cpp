// Clips that cannot be saved: the code, the order of the checks, and that nothing of the attempt is
// left.
#include <functional>
#include <limits>

#include "support/clip_model.h"
#include "support/editing.h"
#include "support/saving.h"

using support::Path;
using support::pathText;
using support::Text;
using support::text;

namespace {

class SaveError : public SaveTest {
protected:
    void removeUserFolder() { std::filesystem::remove_all(userFolder()); }
};

// --- The name and the part ----------------------------------------------------------------------------

TEST_F(SaveError, NullName)
{
    std::uint32_t code = 77;
    EXPECT_EQ(KRT_PLX_MutableClip_save(clip, nullptr, false, &code), nullptr);
    EXPECT_EQ(code, KRT_PLX_RESULT_NULL_ARGUMENT);
    support::createMidiPart(clip);
    code = 77;
    EXPECT_EQ(KRT_PLX_MutableClip_save(clip, nullptr, true, &code), nullptr);
    EXPECT_EQ(code, KRT_PLX_RESULT_NULL_ARGUMENT);
    EXPECT_EQ(support::userClipCount(manager()), 0u);
    EXPECT_TRUE(std::filesystem::is_empty(userFolder()));
}

TEST_F(SaveError, EmptyName)
{
    support::createMidiPart(clip);
    expectRefused(KRT_PLX_RESULT_EMPTY_NAME, Text());
}

TEST_F(SaveError, NoPart)
{
    expectRefused(KRT_PLX_RESULT_NO_PART);
}

TEST_F(SaveError, NoVoiceBank)
{
    KRT_PLX_PartBase* const part = KRT_PLX_MutableClip_createMidiPart(clip);
    KRT_PLX_MutableMidiPart_setLangID(part, 0);
    expectRefused(KRT_PLX_RESULT_NO_VOICE_BANK);
    EXPECT_TRUE(KRT_PLX_MutableMidiPart_setAiVoiceBankID(part, text("0123456789abcdef").c_str()));
    EXPECT_TRUE(KRT_PLX_MutableMidiPart_addAiLangID(part, 0));
    expectRefused(KRT_PLX_RESULT_NO_VOICE_BANK);
    EXPECT_FALSE(KRT_PLX_MutableMidiPart_setVoiceBankID(part, text("too short").c_str()));
    expectRefused(KRT_PLX_RESULT_NO_VOICE_BANK);
}

TEST_F(SaveError, NoLanguage)
{
    KRT_PLX_PartBase* const part = KRT_PLX_MutableClip_createMidiPart(clip);
    KRT_PLX_MutableMidiPart_setVoiceBankID(part, text("0123456789abcdef").c_str());
    expectRefused(KRT_PLX_RESULT_BAD_LANGUAGE);
    EXPECT_FALSE(KRT_PLX_MutableMidiPart_setLangID(part, 128));
    expectRefused(KRT_PLX_RESULT_BAD_LANGUAGE);
    EXPECT_TRUE(KRT_PLX_MutableMidiPart_setLangID(part, 127));
    EXPECT_EQ(support::save(clip).code, KRT_PLX_RESULT_OK);
}

TEST_F(SaveError, NoAiVoiceBank)
{
    KRT_PLX_PartBase* const part = support::createMidiAiPart(clip);
    EXPECT_TRUE(KRT_PLX_MutableMidiPart_setAiVoiceBankID(part, text("").c_str()));
    expectRefused(KRT_PLX_RESULT_NO_AI_VOICE_BANK);
    EXPECT_TRUE(KRT_PLX_MutableMidiPart_setVoiceBankID(part, text("0123456789abcdef").c_str()));
    EXPECT_TRUE(KRT_PLX_MutableMidiPart_setLangID(part, 0));
    expectRefused(KRT_PLX_RESULT_NO_AI_VOICE_BANK);
}

TEST_F(SaveError, NoAiLanguage)
{
    KRT_PLX_PartBase* const part = KRT_PLX_MutableClip_createMidiAiPart(clip);
    KRT_PLX_MutableMidiPart_setAiVoiceBankID(part, text("0123456789abcdef").c_str());
    EXPECT_TRUE(KRT_PLX_MutableMidiPart_setLangID(part, 0));
    expectRefused(KRT_PLX_RESULT_NO_AI_LANGUAGE);
    EXPECT_FALSE(KRT_PLX_MutableMidiPart_addAiLangID(part, 128));
    expectRefused(KRT_PLX_RESULT_NO_AI_LANGUAGE);
    EXPECT_TRUE(KRT_PLX_MutableMidiPart_addAiLangID(part, 127));
    EXPECT_EQ(support::save(clip).code, KRT_PLX_RESULT_OK);
}

// --- The user directory ---------------------------------------------------------------------------------

TEST_F(SaveError, UserDirectoryGone)
{
    support::createMidiPart(clip);
    removeUserFolder();
    expectRefused(KRT_PLX_RESULT_USER_DIRECTORY_MISSING);
    std::filesystem::create_directory(userFolder());
    EXPECT_EQ(support::save(clip).code, KRT_PLX_RESULT_OK);
}

TEST_F(SaveError, AFileInPlaceOfTheUserDirectory)
{
    support::createMidiPart(clip);
    removeUserFolder();
    support::writeFile(userFolder(), "");
    expectRefused(KRT_PLX_RESULT_USER_DIRECTORY_MISSING);
}

// --- The wave file --------------------------------------------------------------------------------------

TEST_F(SaveError, NoWaveFileSet)
{
    KRT_PLX_MutableClip_createAudioPart(clip);
    expectRefused(KRT_PLX_RESULT_WAVE_FILE_MISSING);
}

TEST_F(SaveError, WaveFileGone)
{
    const Path wave = addWaveFile();
    support::createAudioPart(clip, wave);
    std::filesystem::remove(wave);
    expectRefused(KRT_PLX_RESULT_WAVE_FILE_MISSING);
    std::filesystem::remove(wave.parent_path());
    expectRefused(KRT_PLX_RESULT_WAVE_FILE_MISSING);
    support::writeFile(wave, "RIFF");
    EXPECT_EQ(support::save(clip).code, KRT_PLX_RESULT_OK);
}

TEST_F(SaveError, WaveFileIsAFolder)
{
    const Path folder = scratch() / "folder.wav";
    std::filesystem::create_directory(folder);
    support::createAudioPart(clip, folder);
    expectRefused(KRT_PLX_RESULT_WAVE_FILE_MISSING);
}

TEST_F(SaveError, WaveFileBecameAFolder)
{
    const Path wave = addWaveFile();
    support::createAudioPart(clip, wave);
    std::filesystem::remove(wave);
    std::filesystem::create_directory(wave);
    expectRefused(KRT_PLX_RESULT_WAVE_FILE_MISSING);
}

TEST_F(SaveError, WavePathWithoutFileName)
{
    const Text folder = pathText(addWaveFile().parent_path()) + text("\\");
    KRT_PLX_PartBase* const part = KRT_PLX_MutableClip_createAudioPart(clip);
    ASSERT_TRUE(KRT_PLX_MutableAudioPart_setWavFilePath(part, folder.c_str()));
    expectRefused(KRT_PLX_RESULT_WAVE_FILE_MISSING);
}

Text withSlashes(const Path& path)
{
    const std::u8string generic = path.generic_u8string();
    return text(std::string(generic.begin(), generic.end()));
}

TEST_F(SaveError, WavePathWithoutABackslash)
{
    KRT_PLX_PartBase* const part = KRT_PLX_MutableClip_createAudioPart(clip);
    ASSERT_TRUE(KRT_PLX_MutableAudioPart_setWavFilePath(part, withSlashes(addWaveFile()).c_str()));
    expectRefused(KRT_PLX_RESULT_WAVE_FILE_NOT_COPIED);
}

// What follows the last backslash is taken for the file's name. With slashes in it, it is a path, which
// may lead out of the clip's folder.
TEST_F(SaveError, WavePathWithSlashesAfterTheLastBackslash)
{
    support::writeFile(scratch() / "take.wav", "RIFF");
    const Text waves = pathText(addWaveFile("inner/take.wav").parent_path().parent_path());
    KRT_PLX_PartBase* const part = KRT_PLX_MutableClip_createAudioPart(clip);
    for (const char* const tail : {"\\inner/take.wav", "\\../take.wav", "\\inner/../../take.wav"}) {
        SCOPED_TRACE(tail);
        ASSERT_TRUE(KRT_PLX_MutableAudioPart_setWavFilePath(part, (waves + text(tail)).c_str()));
        expectRefused(KRT_PLX_RESULT_WAVE_FILE_NOT_COPIED);
    }
}

TEST_F(SaveError, WavePathThatLeadsOutOfTheUserDirectory)
{
    support::writeFile(scratch() / "a" / "b" / "take.wav", "RIFF");
    std::filesystem::create_directories(scratch() / "a" / "b" / "c" / "d" / "e");
    const Text path =
        pathText(scratch() / "a" / "b" / "c" / "d" / "e") + text("\\../../../take.wav");
    KRT_PLX_PartBase* const part = KRT_PLX_MutableClip_createAudioPart(clip);
    ASSERT_TRUE(KRT_PLX_MutableAudioPart_setWavFilePath(part, path.c_str()));
    expectRefused(KRT_PLX_RESULT_WAVE_FILE_NOT_COPIED);
}

// --- The order of the checks ------------------------------------------------------------------------------

TEST_F(SaveError, TheNameIsLookedAtBeforeThePart)
{
    std::uint32_t code = 77;
    KRT_PLX_MutableClip_save(clip, nullptr, false, &code);
    EXPECT_EQ(code, KRT_PLX_RESULT_NULL_ARGUMENT);
    expectRefused(KRT_PLX_RESULT_EMPTY_NAME, Text());
    removeUserFolder();
    KRT_PLX_MutableClip_createMidiPart(clip);
    expectRefused(KRT_PLX_RESULT_EMPTY_NAME, Text());
}

TEST_F(SaveError, ThePartIsLookedAtBeforeTheUserDirectory)
{
    removeUserFolder();
    expectRefused(KRT_PLX_RESULT_NO_PART);
    KRT_PLX_PartBase* part = KRT_PLX_MutableClip_createMidiPart(clip);
    expectRefused(KRT_PLX_RESULT_NO_VOICE_BANK);
    KRT_PLX_MutableMidiPart_setVoiceBankID(part, text("0123456789abcdef").c_str());
    expectRefused(KRT_PLX_RESULT_BAD_LANGUAGE);
    KRT_PLX_MutableMidiPart_setLangID(part, 0);
    expectRefused(KRT_PLX_RESULT_USER_DIRECTORY_MISSING);
    part = KRT_PLX_MutableClip_createMidiAiPart(clip);
    expectRefused(KRT_PLX_RESULT_NO_AI_VOICE_BANK);
    KRT_PLX_MutableMidiPart_setAiVoiceBankID(part, text("0123456789abcdef").c_str());
    expectRefused(KRT_PLX_RESULT_NO_AI_LANGUAGE);
    KRT_PLX_MutableMidiPart_addAiLangID(part, 0);
    expectRefused(KRT_PLX_RESULT_USER_DIRECTORY_MISSING);
}

TEST_F(SaveError, TheUserDirectoryIsLookedAtBeforeTheWaveFile)
{
    KRT_PLX_MutableClip_createAudioPart(clip);
    removeUserFolder();
    expectRefused(KRT_PLX_RESULT_USER_DIRECTORY_MISSING);
}

TEST_F(SaveError, TheWaveFileIsLookedAtBeforeTheDocuments)
{
    const Text badName = support::units({'x', 0xD800});
    KRT_PLX_PartBase* const part = KRT_PLX_MutableClip_createAudioPart(clip);
    expectRefused(KRT_PLX_RESULT_WAVE_FILE_MISSING, badName);
    KRT_PLX_MutableAudioPart_setWavFilePath(part, withSlashes(addWaveFile()).c_str());
    expectRefused(KRT_PLX_RESULT_WAVE_FILE_NOT_COPIED, badName);
    KRT_PLX_MutableAudioPart_setWavFilePath(part, pathText(addWaveFile()).c_str());
    expectRefused(KRT_PLX_RESULT_FILE_NOT_WRITTEN, badName);
}

// --- After a failure --------------------------------------------------------------------------------------

TEST_F(SaveError, LeavesTheClipsThatAreThere)
{
    support::createMidiPart(clip);
    KRT_PLX_ClipBase* const saved = support::save(clip, "Earlier").clip;
    expectRefused(KRT_PLX_RESULT_FILE_NOT_WRITTEN, support::units({0xDC00}));
    EXPECT_EQ(userClip(0), saved);
    EXPECT_EQ(support::utf8(KRT_PLX_Clip_name(saved)), "Earlier");
    EXPECT_TRUE(KRT_PLX_Clip_readPart(saved));
}

TEST_F(SaveError, LeavesTheEditableClipAsItWas)
{
    KRT_PLX_PartBase* const part = support::createMidiAiPart(clip);
    KRT_PLX_NoteBase* const note = support::insertNote(part, 0);
    KRT_PLX_MutableNote_setPitchFine(note, std::numeric_limits<float>::quiet_NaN());
    const std::string before = describe(support::modelOfEditable(clip));
    expectRefused(KRT_PLX_RESULT_FILE_NOT_WRITTEN);
    EXPECT_EQ(describe(support::modelOfEditable(clip)), before);
    KRT_PLX_MutableNote_setPitchFine(note, 0.5f);
    EXPECT_EQ(support::save(clip).code, KRT_PLX_RESULT_OK);
}

} // namespace
