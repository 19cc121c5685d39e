// Data documents whose "wavFileName" is more than a name: whatever it leads to, what lies outside the
// clip's own folder is neither deleted nor written.
#include <string>

#include "support/saving.h"

using support::Path;
using support::pathText;
using support::Tree;
using support::treeOf;
using support::utf8;
using support::writeFile;

namespace {

struct WaveName {
    const char* title;
    const char* name;  // OUTSIDE stands for the whole path of a folder outside
    bool leadsOutside; // to a file that is there
};

const WaveName waveNames[] = {
    {"Backslashes", R"(..\..\..\outside\take.wav)", true},
    {"Slashes", "../../../outside/take.wav", true},
    {"Both", R"(..\../..\outside/take.wav)", true},
    {"SlashesAtTheEnd", R"(..\..\../outside/take.wav)", true},
    {"DetoursInside", R"(..\audio\..\..\..\outside\.\take.wav)", true},
    {"ThroughThisFolder", R"(.\.\..\..\..\outside\\take.wav)", true},
    {"TheOtherClip", R"(..\..\two\clip.kxclip)", true},
    {"TheOtherClipsWave", R"(..\..\two\audio\take.wav)", true},
    {"AWholePath", R"(OUTSIDE\take.wav)", false},
    {"AWholePathAfterASeparator", R"(\OUTSIDE\take.wav)", false},
    {"ADrive", R"(C:\take.wav)", false},
    {"ADrivesOwnFolder", "C:take.wav", false},
    {"AServer", R"(\\server\share\take.wav)", false},
    {"ADeviceSpace", R"(\\?\C:\take.wav)", false},
    {"ADevice", "NUL", false},
    {"AStream", "take.wav:stream", false},
    {"TheFolder", ".", false},
    {"TheFolderAbove", "..", false},
    {"FoldersAbove", R"(..\..\..)", false},
    {"ASeparatorAtTheEnd", R"(..\..\..\outside\)", false},
    {"AWildcard", R"(..\..\..\outside\*)", false},
};

class NeighbourWave : public HostTest {
protected:
    NeighbourWave()
    {
        writeFile(outside() / "take.wav", "precious");
        writeFile(outside() / "deep" / "other", "precious too");
        support::addAudioClip(userFolder() / "two", "other");
    }

    [[nodiscard]] Path outside() const { return scratch() / "outside"; }
    [[nodiscard]] Path folderOf(const WaveName& wave) const { return userFolder() / wave.title; }

    void addClipWith(const WaveName& wave)
    {
        const std::string name = support::replaced(wave.name, "OUTSIDE", utf8(pathText(outside())));
        support::addClip(folderOf(wave), support::propertyDocument(wave.title, "audio"),
                         support::audioDocument(support::replaced(name, "\\", "\\\\")));
        std::filesystem::create_directory(folderOf(wave) / "audio");
    }
};

TEST_F(NeighbourWave, LeadsToNothingThatIsTheClips)
{
    const Tree before = treeOf(scratch());
    for (const WaveName& wave : waveNames) {
        addClipWith(wave);
    }
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    for (const WaveName& wave : waveNames) {
        SCOPED_TRACE(wave.title);
        KRT_PLX_ClipBase* const clip = support::findUserClip(manager(), wave.title);
        ASSERT_NE(clip, nullptr);
        EXPECT_EQ(KRT_PLX_Clip_readPart(clip), wave.leadsOutside);
        EXPECT_EQ(KRT_PLX_Clip_audioPart(clip) != nullptr, wave.leadsOutside);
        EXPECT_TRUE(KRT_PLX_UserClip_remove(clip));
        EXPECT_FALSE(std::filesystem::exists(folderOf(wave) / "clip.kxclip"));
        std::filesystem::remove_all(folderOf(wave));
    }
    EXPECT_EQ(treeOf(scratch()), before);
}

} // namespace
