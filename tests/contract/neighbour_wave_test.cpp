// Data documents whose "wavFileName" is more than a name: whatever it leads to, what lies outside the
// clip's own folder is neither deleted nor written.
#include <optional>
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

class NeighbourWave : public HostTest, public testing::WithParamInterface<WaveName> {
protected:
    NeighbourWave()
    {
        writeFile(outside() / "take.wav", "precious");
        writeFile(outside() / "deep" / "other", "precious too");
        support::addAudioClip(userFolder() / "two", "other");
    }

    [[nodiscard]] Path outside() const { return scratch() / "outside"; }
    [[nodiscard]] Path folder() const { return userFolder() / "one"; }

    void addClipWithName()
    {
        const std::string name =
            support::replaced(GetParam().name, "OUTSIDE", utf8(pathText(outside())));
        support::addClip(folder(), support::propertyDocument("ID", "audio"),
                         support::audioDocument(support::replaced(name, "\\", "\\\\")));
        std::filesystem::create_directory(folder() / "audio");
    }

    // All but the clip's own folder.
    [[nodiscard]] Tree others() const
    {
        Tree tree = treeOf(scratch());
        std::erase_if(tree, [](const auto& entry) { return entry.first.starts_with("user/one/"); });
        return tree;
    }
};

TEST_P(NeighbourWave, LeadsToNothingThatIsTheClips)
{
    addClipWithName();
    const Tree before = others();
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    KRT_PLX_ClipBase* const clip = support::findUserClip(manager(), "ID");
    ASSERT_NE(clip, nullptr);
    EXPECT_EQ(KRT_PLX_Clip_readPart(clip), GetParam().leadsOutside);
    EXPECT_EQ(KRT_PLX_Clip_audioPart(clip) != nullptr, GetParam().leadsOutside);
    EXPECT_TRUE(KRT_PLX_UserClip_remove(clip));
    EXPECT_EQ(others(), before);
    EXPECT_FALSE(std::filesystem::exists(folder() / "clip.kxclip"));
}

INSTANTIATE_TEST_SUITE_P(Names, NeighbourWave, testing::ValuesIn(waveNames),
                         [](const auto& parameter) { return parameter.param.title; });

} // namespace
