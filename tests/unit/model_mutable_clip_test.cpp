#include <gtest/gtest.h>

#include "clip/clip_files.h"
#include "clip/mutable_clip_impl.h"
#include "format/save.h"
#include "model/audio_part_impl.h"
#include "model/midi_part_impl.h"
#include "support/temp_dir.h"

namespace {

using namespace Korvel::CANTORIS::PLX;

// Writes nothing, and records how it was called.
class Owner final : public MutableClipOwner {
public:
    Manager* manager() override { return nullptr; }
    bool owns(const MutableClipImpl&) const noexcept override { return ownsAll; }
    void discard(const MutableClipImpl& clip) override { discarded = &clip; }
    UserClip* write(const MutableClipImpl& clip, StringView name, bool formatted,
                    KRT_PLX_Result& result) override
    {
        written = &clip;
        writtenName = String(name);
        writtenFormatted = formatted;
        result = answer;
        return nullptr;
    }

    bool ownsAll = true;
    KRT_PLX_Result answer = KRT_PLX_RESULT_OK;
    const MutableClipImpl* discarded = nullptr;
    const MutableClipImpl* written = nullptr;
    String writtenName;
    bool writtenFormatted = false;
};

constexpr std::uint32_t untouched = 77;

class ModelMutableClip : public testing::Test {
protected:
    std::uint32_t save(const Char* name)
    {
        std::uint32_t result = untouched;
        clip.save(name, true, &result);
        return result;
    }
    std::uint32_t save() { return save("Clip"_t.data()); }

    MutableMidiPart& savablePart()
    {
        MutableMidiPart& part = *clip.createMidiPart();
        part.setVoiceBankID("ABCDEFGHIJKLMNOP"_t.data());
        part.setLangID(0);
        return part;
    }

    Owner owner;
    MutableClipImpl clip{owner};
};

TEST_F(ModelMutableClip, PassesItsArgumentsToItsOwner)
{
    savablePart();
    EXPECT_EQ(save(), KRT_PLX_RESULT_OK);
    EXPECT_EQ(owner.written, &clip);
    EXPECT_EQ(owner.writtenName, String("Clip"_t));
    EXPECT_TRUE(owner.writtenFormatted);
    EXPECT_EQ(clip.save("Clip"_t.data(), false, nullptr), nullptr);
    EXPECT_FALSE(owner.writtenFormatted);
}

TEST_F(ModelMutableClip, ReturnsTheResultOfItsOwner)
{
    savablePart();
    owner.answer = KRT_PLX_RESULT_FILE_NOT_WRITTEN;
    EXPECT_EQ(save(), 17u);
}

TEST_F(ModelMutableClip, IsDiscardedByItsOwner)
{
    clip.destroy();
    EXPECT_EQ(owner.discarded, &clip);
}

// In this order: no name, a clip of another manager, an empty name, the part.
TEST_F(ModelMutableClip, IsCheckedInOrder)
{
    owner.ownsAll = false;
    EXPECT_EQ(save(nullptr), 2u);
    EXPECT_EQ(save(""_t.data()), 12u);
    owner.ownsAll = true;
    EXPECT_EQ(save(""_t.data()), 10u);
    EXPECT_EQ(save(), 13u);
    EXPECT_EQ(owner.written, nullptr);
}

TEST_F(ModelMutableClip, APartOfAnUnknownTypeCannotBeSaved)
{
    MutableMidiPart& part = savablePart();
    for (const std::uint32_t type : {0u, 4u, 5u, 0xFFFFFFFFu}) {
        part.setType(type);
        EXPECT_EQ(clip.partType(), type);
        EXPECT_EQ(save(), 13u) << type;
    }
    part.setType(KRT_PLX_PART_MIDI);
    EXPECT_EQ(save(), 0u);
}

TEST_F(ModelMutableClip, APartThatIsNotWhatItsTypeSaysCannotBeSaved)
{
    MutableAudioPart& part = *clip.createAudioPart();
    for (const std::uint32_t type : {KRT_PLX_PART_MIDI, KRT_PLX_PART_MIDI_AI}) {
        part.setType(type);
        EXPECT_EQ(save(), 13u) << type;
    }
    EXPECT_EQ(owner.written, nullptr);
}

TEST_F(ModelMutableClip, APartThatIsNoAudioPartIsNotWrittenAsOneAndLeavesNothing)
{
    const support::TempDir directory;
    savablePart().setType(KRT_PLX_PART_AUDIO);
    {
        format::NewClipFolder folder(directory.path(), [](StringView) { return false; });
        EXPECT_EQ(folder.write(clip, "Clip"_t, false), KRT_PLX_RESULT_NO_PART);
    }
    EXPECT_TRUE(std::filesystem::is_empty(support::hostPath(directory.path())));
}

TEST_F(ModelMutableClip, AnAudioPartIsNotChecked)
{
    clip.createAudioPart();
    EXPECT_EQ(save(), 0u);
}

TEST_F(ModelMutableClip, AMidiPartNeedsAVoiceBankThenALanguage)
{
    MutableMidiPart& part = *clip.createMidiPart();
    EXPECT_EQ(save(), 18u);
    part.setVoiceBankID("ABCDEFGHIJKLMNOP"_t.data());
    EXPECT_EQ(save(), 19u);
    EXPECT_FALSE(part.setLangID(128));
    EXPECT_EQ(save(), 19u);
    part.setLangID(127);
    EXPECT_EQ(save(), 0u);
}

TEST_F(ModelMutableClip, AnAiPartNeedsAVoiceBankThenALanguage)
{
    MutableMidiPart& part = *clip.createMidiAiPart();
    part.setVoiceBankID("ABCDEFGHIJKLMNOP"_t.data());
    part.setLangID(0);
    EXPECT_EQ(save(), 20u);
    part.setAiVoiceBankID("ABCDEFGHIJKLMNOP"_t.data());
    EXPECT_EQ(save(), 21u);
    part.addAiLangID(127);
    EXPECT_EQ(save(), 0u);
}

// --- The folder of a clip that is saved -----------------------------------------------------------------

class SaveFolder : public ModelMutableClip {
protected:
    support::TempDir directory;
    std::vector<String> ids; // those that were asked about
};

TEST_F(SaveFolder, HasAnIDThatNoOtherClipHas)
{
    const format::NewClipFolder folder(directory.path(), [this](StringView id) {
        ids.emplace_back(id);
        return ids.size() < 3;
    });
    ASSERT_EQ(ids.size(), 3u);
    EXPECT_NE(ids[0], ids[1]);
    EXPECT_NE(ids[1], ids[2]);
    EXPECT_EQ(fs::fileName(folder.dataPath().text), ids[2] + String(clipExtension));
}

TEST_F(SaveFolder, IsNotThatOfAnotherProgramsClip)
{
    const format::NewClipFolder folder(directory.path(), [this](StringView id) {
        const String file = String(id) + String(clipExtension);
        if (ids.empty()) {
            support::writeBytes(directory / id + String("\\"_t) + file, "another's");
        }
        ids.emplace_back(id);
        return false;
    });
    ASSERT_EQ(ids.size(), 2u);
    EXPECT_FALSE(support::exists(String(folder.dataPath().text)));
}

TEST_F(SaveFolder, IsRemovedWithWhatOthersHavePutThere)
{
    savablePart();
    {
        format::NewClipFolder folder(directory.path(), [](StringView) { return false; });
        EXPECT_EQ(folder.write(clip, "Clip"_t, false), KRT_PLX_RESULT_OK);
        support::writeBytes(String(fs::folderOf(folder.dataPath()).text) + String("\\theirs"_t),
                            "x");
    }
    EXPECT_TRUE(std::filesystem::is_empty(support::hostPath(directory.path())));
}

} // namespace
