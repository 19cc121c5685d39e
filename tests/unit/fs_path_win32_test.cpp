#ifdef _WIN32

#    include <string>

#    include <gtest/gtest.h>
#    include <windows.h>

#    include "fs/win32/path.h"
#    include "support/temp_dir.h"

namespace {

using namespace Korvel::CANTORIS::PLX;
using support::text;
using support::utf8;

std::string systemForm(const String& path)
{
    return utf8(fs::SystemPath{path}.text());
}

// What a host passes, and the names after it.
std::string systemForm(const char* given, const char* names)
{
    const String whole = text(given) + text(names);
    return utf8(fs::SystemPath{{whole, text(given).size()}}.text());
}

struct Row {
    const char* given;
    const char* system;
};

std::ostream& operator<<(std::ostream& out, const Row& row)
{
    return out << row.given;
}

class FsSystemPath : public testing::TestWithParam<Row> {};

TEST_P(FsSystemPath, IsWhatTheSystemMeansByIt)
{
    EXPECT_EQ(systemForm(text(GetParam().given)), GetParam().system);
}

INSTANTIATE_TEST_SUITE_P(
    Table, FsSystemPath,
    testing::Values(
        // full paths
        Row{R"(C:\clips)", R"(\\?\C:\clips)"}, Row{R"(c:\clips)", R"(\\?\c:\clips)"},
        Row{R"(C:\clips\)", R"(\\?\C:\clips)"}, Row{R"(C:\clips\\)", R"(\\?\C:\clips)"},
        Row{R"(C:/my/clips/)", R"(\\?\C:\my\clips)"}, Row{R"(C:\my\\clips)", R"(\\?\C:\my\clips)"},
        Row{R"(C:\my\.\clips)", R"(\\?\C:\my\clips)"}, Row{R"(C:\my\..\clips)", R"(\\?\C:\clips)"},
        Row{R"(C:\..\..\clips)", R"(\\?\C:\clips)"},
        // blanks and dots at the end
        Row{R"(C:\clips )", R"(\\?\C:\clips)"}, Row{R"(C:\clips.)", R"(\\?\C:\clips)"},
        Row{R"(C:\clips. . )", R"(\\?\C:\clips)"}, Row{R"(C:\my \clips)", R"(\\?\C:\my \clips)"},
        Row{R"(C:\.clips)", R"(\\?\C:\.clips)"},
        // drives
        Row{R"(C:\)", R"(\\?\C:\)"}, Row{R"(C:/)", R"(\\?\C:\)"}, Row{R"(C:\.)", R"(\\?\C:\)"},
        Row{R"(C:\clips\..)", R"(\\?\C:\)"}, Row{"Y:", R"(\\?\Y:\)"},
        // shares
        Row{R"(\\server\share\clips)", R"(\\?\UNC\server\share\clips)"},
        Row{R"(\\server\share\clips\)", R"(\\?\UNC\server\share\clips)"},
        Row{R"(//server/share/clips)", R"(\\?\UNC\server\share\clips)"},
        Row{R"(\\server\share)", R"(\\?\UNC\server\share\)"},
        Row{R"(\\server\share\)", R"(\\?\UNC\server\share\)"},
        Row{R"(\\server\share\..\..\clips)", R"(\\?\UNC\server\share\clips)"},
        // with the prefix: unchanged, except for separators at the end
        Row{R"(\\?\C:\clips)", R"(\\?\C:\clips)"}, Row{R"(\\?\C:\clips\)", R"(\\?\C:\clips)"},
        Row{R"(\\?\C:\clips\\)", R"(\\?\C:\clips)"}, Row{R"(\\?\C:\clips. )", R"(\\?\C:\clips. )"},
        Row{R"(\\?\C:\clips\..\x)", R"(\\?\C:\clips\..\x)"}, Row{R"(\\?\C:\NUL)", R"(\\?\C:\NUL)"},
        Row{R"(\\?\C:\)", R"(\\?\C:\)"}, Row{R"(\\?\C:)", R"(\\?\C:\)"},
        Row{R"(\\?\UNC\server\share\clips\)", R"(\\?\UNC\server\share\clips)"},
        Row{R"(\\?\UNC\server\share)", R"(\\?\UNC\server\share\)"},
        Row{R"(\\?\Volume{01234567-89ab-cdef-0123-456789abcdef}\clips\)",
            R"(\\?\Volume{01234567-89ab-cdef-0123-456789abcdef}\clips)"},
        // in the name space of devices
        Row{R"(\\.\C:\clips\)", R"(\\?\C:\clips)"}, Row{R"(\\.\C:)", R"(\\?\C:\)"},
        Row{R"(\\.\NUL)", ""}, Row{R"(\\.\pipe\clips)", ""}, Row{"NUL", ""}, Row{"COM1", ""},
        Row{"nul", ""},
        // not paths
        Row{"", ""}, Row{R"(\\?\)", ""}, Row{R"(\\.\)", ""}, Row{" ", ""}));

class FsSystemPathIn : public testing::Test {
protected:
    FsSystemPathIn()
    {
        GetCurrentDirectoryW(MAX_PATH, before);
        support::makeFolder(dir / "inner");
        SetCurrentDirectoryW((dir / "inner").c_str());
    }
    ~FsSystemPathIn() override { SetCurrentDirectoryW(before); }

    wchar_t before[MAX_PATH] = {};
    support::TempDir dir;
    const std::string prefix = R"(\\?\)" + utf8(dir.path());
};

TEST_F(FsSystemPathIn, ARelativePathIsCompleted)
{
    EXPECT_EQ(systemForm(text("clips")), prefix + R"(\inner\clips)");
    EXPECT_EQ(systemForm(text("clips\\")), prefix + R"(\inner\clips)");
    EXPECT_EQ(systemForm(text("clips. ")), prefix + R"(\inner\clips)");
    EXPECT_EQ(systemForm(text(".")), prefix + R"(\inner)");
    EXPECT_EQ(systemForm(text("..\\clips")), prefix + R"(\clips)");
    EXPECT_EQ(systemForm(text("..")), prefix);
}

TEST_F(FsSystemPathIn, ADriveAloneIsItsCurrentFolder)
{
    const String drive = dir.path().substr(0, 2);
    EXPECT_EQ(systemForm(drive), prefix + R"(\inner)");
    EXPECT_EQ(systemForm(drive + text("clips")), prefix + R"(\inner\clips)");
    EXPECT_EQ(systemForm(utf8(drive).c_str(), "\\a clip"), prefix + R"(\inner\a clip)");
}

TEST_F(FsSystemPathIn, ASeparatorAloneIsTheDrive)
{
    const std::string drive = R"(\\?\)" + utf8(dir.path().substr(0, 2));
    EXPECT_EQ(systemForm(text("\\clips")), drive + R"(\clips)");
    EXPECT_EQ(systemForm(text("\\")), drive + R"(\)");
}

TEST(FsSystemPathNames, StayAsTheyAre)
{
    EXPECT_EQ(systemForm(R"(C:\clips)", R"(\a\b.kxclip)"), R"(\\?\C:\clips\a\b.kxclip)");
    EXPECT_EQ(systemForm(R"(C:\clips)", R"(\a. \b.)"), R"(\\?\C:\clips\a. \b.)");
    EXPECT_EQ(systemForm(R"(C:\clips)", R"(\ a\...)"), R"(\\?\C:\clips\ a\...)");
    EXPECT_EQ(systemForm(R"(C:\clips)", R"(\NUL\COM1)"), R"(\\?\C:\clips\NUL\COM1)");
    EXPECT_EQ(systemForm(R"(C:\clips)", R"(\C:)"), R"(\\?\C:\clips\C:)");
}

TEST(FsSystemPathNames, FollowWhateverTheHostHasGiven)
{
    EXPECT_EQ(systemForm(R"(C:\clips. )", R"(\a. \b)"), R"(\\?\C:\clips\a. \b)");
    EXPECT_EQ(systemForm(R"(C:\clips\)", R"(\a)"), R"(\\?\C:\clips\a)");
    EXPECT_EQ(systemForm(R"(C:\)", R"(\a)"), R"(\\?\C:\a)");
    EXPECT_EQ(systemForm(R"(\\?\C:\clips\)", R"(\a)"), R"(\\?\C:\clips\a)");
    EXPECT_EQ(systemForm(R"(\\server\share)", R"(\a)"), R"(\\?\UNC\server\share\a)");
    EXPECT_EQ(systemForm("", R"(\a)"), "");
    EXPECT_EQ(systemForm("NUL", R"(\a)"), "");
}

// Documents may name wave files by paths with "." and "..".
TEST(FsSystemPathNames, MayBeDotAndDoubleDot)
{
    EXPECT_EQ(systemForm(R"(C:\clips)", R"(\a\..\b)"), R"(\\?\C:\clips\b)");
    EXPECT_EQ(systemForm(R"(C:\clips)", R"(\a\.\\b/c)"), R"(\\?\C:\clips\a\b\c)");
    EXPECT_EQ(systemForm(R"(C:\clips)", R"(\..\other)"), R"(\\?\C:\other)");
    EXPECT_EQ(systemForm(R"(C:\clips)", R"(\..\..\..\other)"), R"(\\?\C:\other)");
    EXPECT_EQ(systemForm(R"(\\server\share\clips)", R"(\..\..\other)"),
              R"(\\?\UNC\server\share\other)");
}

TEST(FsSystemPathLength, MayExceedTheOldLimits)
{
    const std::string deep = R"(C:\)" + std::string(200, 'a') + "\\" + std::string(200, 'b');
    EXPECT_EQ(systemForm(text(deep)), R"(\\?\)" + deep);
    EXPECT_EQ(systemForm(deep.c_str(), "\\c"), R"(\\?\)" + deep + "\\c");
}

// The system counts a path's bytes in 16 bits, with the zero at the end.
TEST(FsSystemPathLength, EndsWhereTheSystemStopsCounting)
{
    constexpr std::size_t longest = 0x7FFE;
    const String given = text(R"(\\?\C:\a)");
    for (const std::size_t length : {longest, longest + 1, 2 * longest, 4 * longest}) {
        const String whole = given + String(length - given.size(), L'b');
        const fs::SystemPath asGiven{whole};
        const fs::SystemPath withNames{
            {given + L'\\' + whole.substr(given.size() + 1), given.size()}};
        for (const fs::SystemPath& path : {asGiven, withNames}) {
            EXPECT_EQ(path.length(), length == longest ? longest : 0) << length;
            EXPECT_EQ(path.isEmpty(), length != longest) << length;
            EXPECT_EQ(path.error(), path.isEmpty() ? DWORD{ERROR_FILENAME_EXCED_RANGE}
                                                   : DWORD{ERROR_PATH_NOT_FOUND});
        }
    }
}

TEST(FsSystemPathNul, LeadsNowhere)
{
    EXPECT_TRUE(fs::SystemPath{text("C:\\clips") + Char{}}.isEmpty());
    EXPECT_TRUE(fs::SystemPath{text("C:\\clips") + Char{} + text("\\a")}.isEmpty());
}

} // namespace

#endif
