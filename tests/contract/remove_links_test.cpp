// Removing user clips where links are in play: a link goes, what it leads to stays. Where the system at
// hand makes no links, or does not tell them from files, the test says so and is skipped.
#include "support/saving.h"
#include "support/temp_dir.h"

using support::Path;
using support::pathText;
using support::readFile;
using support::writeFile;

namespace {

class RemoveLinks : public HostTest {
protected:
    void SetUp() override
    {
        if (support::isEmulatedWindows()) {
            GTEST_SKIP() << "an emulated Windows does not tell links from files";
        }
        if (!support::makeLink(pathText(scratch() / "probe"), pathText(scratch()))) {
            GTEST_SKIP() << "no links here";
        }
        std::filesystem::create_directories(outside());
    }

    [[nodiscard]] Path folder() const { return userFolder() / "one"; }
    [[nodiscard]] Path outside() const { return scratch() / "outside"; }

    static void link(const Path& from, const Path& target)
    {
        std::filesystem::create_directories(from.parent_path());
        ASSERT_TRUE(support::makeLink(pathText(from), pathText(target)));
    }

    KRT_PLX_ClipBase* readClip()
    {
        EXPECT_EQ(read(), KRT_PLX_RESULT_OK);
        EXPECT_EQ(support::userClipCount(manager()), 1u);
        return userClip(0);
    }

    // Reads the clip with its part, which is an audio part.
    KRT_PLX_ClipBase* readAudio()
    {
        KRT_PLX_ClipBase* const clip = readClip();
        EXPECT_TRUE(KRT_PLX_Clip_readPart(clip));
        EXPECT_NE(KRT_PLX_Clip_audioPart(clip), nullptr);
        return clip;
    }

    void addAudioDocuments(std::string_view waveFileName = "take.wav")
    {
        support::addClip(folder(), support::propertyDocument("ID", "audio"),
                         support::audioDocument(waveFileName));
    }

    void expectRemoved(KRT_PLX_ClipBase* clip)
    {
        EXPECT_TRUE(KRT_PLX_UserClip_remove(clip));
        EXPECT_EQ(support::userClipCount(manager()), 0u);
    }

    // Whether the folder has nothing in it, not even a link that leads nowhere.
    static bool isGone(const Path& path)
    {
        return !std::filesystem::exists(std::filesystem::symlink_status(path));
    }
};

TEST_F(RemoveLinks, TheClipFile)
{
    writeFile(outside() / "data", support::midiDocument());
    link(folder() / "clip.kxclip", outside() / "data");
    writeFile(folder() / "property.json", support::propertyDocument("ID"));
    expectRemoved(readClip());
    EXPECT_TRUE(isGone(folder()));
    EXPECT_EQ(readFile(outside() / "data"), support::midiDocument());
}

TEST_F(RemoveLinks, ThePropertyDocument)
{
    writeFile(outside() / "properties", support::propertyDocument("ID"));
    link(folder() / "property.json", outside() / "properties");
    writeFile(folder() / "clip.kxclip", support::midiDocument());
    expectRemoved(readClip());
    EXPECT_TRUE(isGone(folder()));
    EXPECT_EQ(readFile(outside() / "properties"), support::propertyDocument("ID"));
}

TEST_F(RemoveLinks, FilesThatLeadNowhereAnyMore)
{
    writeFile(outside() / "properties", support::propertyDocument("ID"));
    writeFile(outside() / "data", support::midiDocument());
    link(folder() / "property.json", outside() / "properties");
    link(folder() / "clip.kxclip", outside() / "data");
    KRT_PLX_ClipBase* const clip = readClip();
    std::filesystem::remove(outside() / "properties");
    std::filesystem::remove(outside() / "data");
    expectRemoved(clip);
    EXPECT_TRUE(isGone(folder()));
}

TEST_F(RemoveLinks, TheClipsFolder)
{
    support::addClip(outside(), support::propertyDocument("ID"), support::midiDocument());
    link(folder(), outside());
    expectRemoved(readClip());
    EXPECT_TRUE(std::filesystem::exists(outside()));
    EXPECT_TRUE(std::filesystem::is_empty(outside()));
    EXPECT_TRUE(std::filesystem::is_directory(folder()));
}

TEST_F(RemoveLinks, TheClipsFolderWithAnAudioPart)
{
    support::addAudioClip(outside(), "ID");
    writeFile(outside() / "notes.txt", "mine");
    link(folder(), outside());
    expectRemoved(readAudio());
    EXPECT_FALSE(std::filesystem::exists(outside() / "audio"));
    EXPECT_EQ(readFile(outside() / "notes.txt"), "mine");
}

TEST_F(RemoveLinks, TheUserDirectory)
{
    std::filesystem::remove(userFolder());
    support::addAudioClip(outside() / "one", "ID");
    link(userFolder(), outside());
    expectRemoved(readAudio());
    EXPECT_TRUE(std::filesystem::is_empty(outside()));
    EXPECT_TRUE(std::filesystem::is_directory(userFolder()));
}

TEST_F(RemoveLinks, TheWaveFile)
{
    writeFile(outside() / "take.wav", "RIFF");
    link(folder() / "audio" / "take.wav", outside() / "take.wav");
    addAudioDocuments();
    expectRemoved(readAudio());
    EXPECT_TRUE(isGone(folder()));
    EXPECT_EQ(readFile(outside() / "take.wav"), "RIFF");
}

// The folder that it leads to is not the clip's.
TEST_F(RemoveLinks, TheAudioFolder)
{
    writeFile(outside() / "take.wav", "RIFF");
    writeFile(outside() / "precious", "mine");
    link(folder() / "audio", outside());
    addAudioDocuments();
    expectRemoved(readAudio());
    EXPECT_EQ(readFile(outside() / "take.wav"), "RIFF");
    EXPECT_EQ(readFile(outside() / "precious"), "mine");
    EXPECT_TRUE(isGone(folder())); // the link was all that was left in it
}

TEST_F(RemoveLinks, TheAudioFolderOfAWaveFileInAFolderOfIt)
{
    writeFile(outside() / "inner" / "take.wav", "RIFF");
    link(folder() / "audio", outside());
    addAudioDocuments(R"(inner\\take.wav)");
    expectRemoved(readAudio());
    EXPECT_EQ(readFile(outside() / "inner" / "take.wav"), "RIFF");
}

TEST_F(RemoveLinks, TheAudioFolderToAFolderBesideIt)
{
    writeFile(folder() / "takes" / "take.wav", "RIFF");
    link(folder() / "audio", folder() / "takes");
    addAudioDocuments();
    expectRemoved(readAudio());
    EXPECT_TRUE(isGone(folder() / "audio"));
    EXPECT_EQ(readFile(folder() / "takes" / "take.wav"), "RIFF");
}

TEST_F(RemoveLinks, TheAudioFolderToTheClipsFolder)
{
    addAudioDocuments();
    writeFile(folder() / "take.wav", "RIFF");
    link(folder() / "audio", folder());
    expectRemoved(readAudio());
    EXPECT_EQ(readFile(folder() / "take.wav"), "RIFF");
}

TEST_F(RemoveLinks, InTheAudioFolder)
{
    writeFile(outside() / "deep" / "precious", "mine");
    writeFile(folder() / "audio" / "take.wav", "RIFF");
    addAudioDocuments();
    link(folder() / "audio" / "folder", outside());
    link(folder() / "audio" / "inner" / "folder", outside() / "deep");
    link(folder() / "audio" / "inner" / "file", outside() / "deep" / "precious");
    link(folder() / "audio" / "up", userFolder());
    expectRemoved(readAudio());
    EXPECT_TRUE(isGone(folder()));
    EXPECT_EQ(readFile(outside() / "deep" / "precious"), "mine");
    EXPECT_TRUE(std::filesystem::is_directory(userFolder()));
}

TEST_F(RemoveLinks, InTheAudioFolderThatLeadNowhere)
{
    writeFile(folder() / "audio" / "take.wav", "RIFF");
    addAudioDocuments();
    writeFile(outside() / "file", "");
    link(folder() / "audio" / "nowhere", outside() / "file");
    std::filesystem::remove(outside() / "file");
    expectRemoved(readAudio());
    EXPECT_TRUE(isGone(folder()));
}

TEST_F(RemoveLinks, OnTheWayToTheWaveFile)
{
    writeFile(outside() / "take.wav", "RIFF");
    addAudioDocuments(R"(inner\\take.wav)");
    link(folder() / "audio" / "inner", outside());
    expectRemoved(readAudio());
    EXPECT_EQ(readFile(outside() / "take.wav"), "RIFF");
}

TEST_F(RemoveLinks, FurtherUpOnTheWayToTheWaveFile)
{
    writeFile(outside() / "deep" / "take.wav", "RIFF");
    addAudioDocuments(R"(inner\\deep\\take.wav)");
    link(folder() / "audio" / "inner", outside());
    expectRemoved(readAudio());
    EXPECT_EQ(readFile(outside() / "deep" / "take.wav"), "RIFF");
}

// What a failed saving has made is removed in the same way.
TEST_F(RemoveLinks, ThatAWaveFileIsLeadToItsCopy)
{
    writeFile(outside() / "real.wav", "RIFF");
    link(outside() / "take.wav", outside() / "real.wav");
    KRT_PLX_ClipBase* const built = createMutableClip();
    support::createAudioPart(built, outside() / "take.wav");
    KRT_PLX_ClipBase* const saved = support::save(built).clip;
    ASSERT_NE(saved, nullptr);
    ASSERT_TRUE(KRT_PLX_Clip_readPart(saved));
    std::filesystem::remove(outside() / "real.wav");
    const Path copy = userFolder() / support::utf8(KRT_PLX_Clip_id(saved)) / "audio" / "take.wav";
    EXPECT_EQ(readFile(copy), "RIFF");
    expectRemoved(saved);
    EXPECT_TRUE(std::filesystem::is_empty(userFolder()));
}

} // namespace
