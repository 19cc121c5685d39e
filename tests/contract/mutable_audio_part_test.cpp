#include <filesystem>
#include <string>

#include "support/editing.h"
#include "support/limits.h"

using support::countOf;
using support::largest;
using support::Path;
using support::pathText;
using support::smallest;
using support::text;
using support::utf8;

namespace {

class MutableAudioPart : public HostTest {
protected:
    MutableAudioPart() { support::writeFile(wave, "RIFF"); }

    bool set(const support::Text& path)
    {
        return KRT_PLX_MutableAudioPart_setWavFilePath(part, path.c_str());
    }
    std::string get() { return utf8(KRT_PLX_AudioPartBase_wavFilePath(part)); }

    const Path wave = scratch() / "take.wav";
    KRT_PLX_ClipBase* const clip = createMutableClip();
    KRT_PLX_PartBase* const part = KRT_PLX_MutableClip_createAudioPart(clip);
};

TEST_F(MutableAudioPart, StartsEmpty)
{
    ASSERT_NE(part, nullptr);
    EXPECT_EQ(KRT_PLX_PartBase_type(part), KRT_PLX_PART_AUDIO);
    EXPECT_TRUE(KRT_PLX_PartBase_isMutable(part));
    EXPECT_EQ(KRT_PLX_MutableAudioPart_parent(part), clip);
    EXPECT_EQ(get(), "");
    EXPECT_EQ(KRT_PLX_AudioPartBase_begin(part), 0);
    EXPECT_EQ(KRT_PLX_AudioPartBase_end(part), 0);
    EXPECT_EQ(countOf(KRT_PLX_AudioPartBase_numAudioEffects, part), 0u);
    EXPECT_EQ(KRT_PLX_MutableAudioPart_audioEffect(part, 0), nullptr);
    EXPECT_FALSE(KRT_PLX_AudioPartBase_numAudioEffects(part, nullptr));
}

TEST_F(MutableAudioPart, IsNotReadOnly)
{
    EXPECT_EQ(KRT_PLX_AudioPart_parent(part), nullptr);
    EXPECT_EQ(KRT_PLX_AudioPart_audioEffect(part, 0), nullptr);
    EXPECT_FALSE(KRT_PLX_AudioPart_hasAudioEffect(part, nullptr));
}

// Accepted, and without effect.
TEST_F(MutableAudioPart, RegionStaysAsItWas)
{
    EXPECT_TRUE(KRT_PLX_MutableAudioPart_setRegion(part, 100, 200));
    EXPECT_TRUE(KRT_PLX_MutableAudioPart_setRegion(part, largest, smallest));
    EXPECT_EQ(KRT_PLX_AudioPartBase_begin(part), 0);
    EXPECT_EQ(KRT_PLX_AudioPartBase_end(part), 0);
}

TEST_F(MutableAudioPart, TakesThePathOfAnExistingFile)
{
    EXPECT_TRUE(set(pathText(wave)));
    EXPECT_EQ(get(), utf8(pathText(wave).c_str()));
    const Path other = scratch() / support::place("うた") / support::place("テイク 1.wav");
    support::writeFile(other, "RIFF");
    EXPECT_TRUE(set(pathText(other)));
    EXPECT_EQ(get(), utf8(pathText(other).c_str()));
}

TEST_F(MutableAudioPart, TakesAnEmptyFileAndAFolder)
{
    support::writeFile(scratch() / "empty.wav", "");
    EXPECT_TRUE(set(pathText(scratch() / "empty.wav")));
    EXPECT_TRUE(set(pathText(scratch())));
    EXPECT_EQ(get(), utf8(pathText(scratch()).c_str()));
}

TEST_F(MutableAudioPart, KeepsItsPathWhenTheNewOneDoesNotExist)
{
    const support::Text standing = pathText(wave);
    ASSERT_TRUE(set(standing));
    EXPECT_FALSE(set(pathText(scratch() / "no such file.wav")));
    EXPECT_FALSE(set(pathText(scratch() / "no such folder" / "take.wav")));
    EXPECT_FALSE(set(pathText(wave / "take.wav")));
    EXPECT_FALSE(set(text("")));
    EXPECT_FALSE(KRT_PLX_MutableAudioPart_setWavFilePath(part, nullptr));
    EXPECT_EQ(get(), utf8(standing.c_str()));
}

TEST_F(MutableAudioPart, TakesNoPattern)
{
    EXPECT_FALSE(set(pathText(scratch()) + text("\\*")));
    EXPECT_FALSE(set(pathText(scratch()) + text("\\take.*")));
    EXPECT_FALSE(set(pathText(scratch()) + text("\\tak?.wav")));
    EXPECT_EQ(get(), "");
}

TEST_F(MutableAudioPart, TakesNoPathThatNoSystemCanHold)
{
    support::Text broken = pathText(wave);
    broken[broken.size() - 5] = static_cast<KRT_PLX_Char>(0xD800);
    EXPECT_FALSE(set(broken));
    EXPECT_EQ(get(), "");
}

TEST_F(MutableAudioPart, LooksAtTheFileOnlyWhenThePathIsSet)
{
    const support::Text path = pathText(wave);
    ASSERT_TRUE(set(path));
    std::filesystem::remove(wave);
    EXPECT_EQ(get(), utf8(path.c_str()));
    EXPECT_FALSE(set(path));
    EXPECT_EQ(get(), utf8(path.c_str()));
}

TEST_F(MutableAudioPart, TakesItsOwnPath)
{
    ASSERT_TRUE(set(pathText(wave)));
    EXPECT_TRUE(
        KRT_PLX_MutableAudioPart_setWavFilePath(part, KRT_PLX_AudioPartBase_wavFilePath(part)));
    EXPECT_EQ(get(), utf8(pathText(wave).c_str()));
}

TEST_F(MutableAudioPart, PathIsACopy)
{
    support::Text path = pathText(wave);
    set(path);
    path[0] = KRT_PLX_Char{'?'};
    EXPECT_EQ(get(), utf8(pathText(wave).c_str()));
}

} // namespace
