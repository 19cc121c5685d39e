#include <gtest/gtest.h>

#include "fs/fs.h"
#include "support/temp_dir.h"

namespace {

using namespace Korvel::CANTORIS::PLX;
using support::text;
using support::utf8;

struct PathCase {
    const char* path;
    const char* parent;
    const char* name;
    const char* extension;
};

class FsPath : public testing::TestWithParam<PathCase> {};

TEST_P(FsPath, IsTakenApartAtTheLastBackslashAndTheLastDot)
{
    const String path = text(GetParam().path);
    EXPECT_EQ(utf8(String{fs::parentPath(path)}), GetParam().parent);
    EXPECT_EQ(utf8(String{fs::fileName(path)}), GetParam().name);
    EXPECT_EQ(utf8(String{fs::extension(path)}), GetParam().extension);
}

INSTANTIATE_TEST_SUITE_P(
    Paths, FsPath,
    testing::Values(PathCase{R"(C:\clips\a.kxclip)", R"(C:\clips)", "a.kxclip", ".kxclip"},
                    PathCase{"", "", "", ""}, PathCase{"name", "", "", ""},
                    PathCase{"name.kxclip", "", "", ".kxclip"}, PathCase{R"(\)", "", "", ""},
                    PathCase{R"(\a)", "", "a", ""}, PathCase{R"(a\)", "a", "", ""},
                    PathCase{R"(a\\b)", R"(a\)", "b", ""},
                    PathCase{R"(a\.kxclip)", "a", ".kxclip", ".kxclip"},
                    PathCase{R"(a\b.)", "a", "b.", "."},
                    PathCase{R"(a\b.kxclip.bak)", "a", "b.kxclip.bak", ".bak"},
                    PathCase{R"(a.kxclip\b)", "a.kxclip", "b", R"(.kxclip\b)"},
                    PathCase{R"(/data/u\ID\x.y)", R"(/data/u\ID)", "x.y", ".y"},
                    PathCase{"/only/slashes.wav", "", "", ".wav"},
                    PathCase{R"(歌\🎵.wav)", "歌", "🎵.wav", ".wav"}));

TEST(FsPathJoin, PutsOneSeparatorBetween)
{
    EXPECT_EQ(utf8(fs::join("a"_t, "b"_t)), R"(a\b)");
    EXPECT_EQ(utf8(fs::join("/data/u"_t, "ID"_t)), R"(/data/u\ID)");
}

TEST(FsPathJoin, KeepsBothTextsAsTheyAre)
{
    EXPECT_EQ(utf8(fs::join("a\\"_t, "b"_t)), R"(a\\b)");
    EXPECT_EQ(utf8(fs::join(StringView{}, "b"_t)), R"(\b)");
    EXPECT_EQ(utf8(fs::join("a"_t, StringView{})), R"(a\)");
}

} // namespace
