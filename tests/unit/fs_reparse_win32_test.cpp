#ifdef _WIN32

#    include <ostream>

#    include <gtest/gtest.h>

#    include "fs/win32/reparse.h"

namespace {

using namespace Korvel::CANTORIS::PLX::fs;

constexpr DWORD marked = FILE_ATTRIBUTE_REPARSE_POINT;
constexpr DWORD folder = FILE_ATTRIBUTE_DIRECTORY;

// The tags that Microsoft has assigned and documented (see "Reparse Point Tags" in the protocol [MS-FSCC]).
struct Known {
    const char* name;
    DWORD tag;
    Sort ofFile;
    Sort ofFolder;
};

std::ostream& operator<<(std::ostream& out, const Known& known)
{
    return out << known.name;
}

class FsKnownTag : public testing::TestWithParam<Known> {};

TEST_P(FsKnownTag, TellsWhatTheEntryIs)
{
    EXPECT_EQ(sortOf(marked | FILE_ATTRIBUTE_ARCHIVE, GetParam().tag), GetParam().ofFile);
    EXPECT_EQ(sortOf(marked | folder, GetParam().tag), GetParam().ofFolder);
}

constexpr Known link(const char* name, DWORD tag)
{
    return {name, tag, Sort::link, Sort::link};
}
constexpr Known plain(const char* name, DWORD tag)
{
    return {name, tag, Sort::file, Sort::folder};
}
constexpr Known special(const char* name, DWORD tag)
{
    return {name, tag, Sort::special, Sort::special};
}

INSTANTIATE_TEST_SUITE_P(Links, FsKnownTag,
                         testing::Values(link("symbolic link", 0xA000000C),
                                         link("junction or mount point", 0xA0000003),
                                         link("symbolic link of Linux programs", 0xA000001D),
                                         link("global reparse point", 0xA0000019),
                                         link("container link", 0xA0000027),
                                         link("other container link", 0xA0001027),
                                         link("mark of a removed container entry", 0xA000001F),
                                         link("mark of a removed projected entry", 0xA0000022),
                                         link("web server cache", 0xA0000010), link("no tag", 0)));

INSTANTIATE_TEST_SUITE_P(
    Plain, FsKnownTag,
    testing::Values(
        plain("cloud", 0x9000001A), plain("cloud 1", 0x9000101A), plain("cloud 2", 0x9000201A),
        plain("cloud 3", 0x9000301A), plain("cloud 4", 0x9000401A), plain("cloud 5", 0x9000501A),
        plain("cloud 6", 0x9000601A), plain("cloud 7", 0x9000701A), plain("cloud 8", 0x9000801A),
        plain("cloud 9", 0x9000901A), plain("cloud A", 0x9000A01A), plain("cloud B", 0x9000B01A),
        plain("cloud C", 0x9000C01A), plain("cloud D", 0x9000D01A), plain("cloud E", 0x9000E01A),
        plain("cloud F", 0x9000F01A), plain("older cloud drive", 0x80000021),
        plain("older cloud placeholder", 0x80000015), plain("storage synchronisation", 0x8000001E),
        plain("storage synchronisation of folders", 0x90000027),
        plain("duplicates removed", 0x80000013), plain("single instance storage", 0x80000007),
        plain("compressed by the system", 0x80000017), plain("image file", 0x80000008),
        plain("hierarchical storage", 0xC0000004), plain("hierarchical storage 2", 0x80000006),
        plain("cluster volume", 0x80000009), plain("distributed folder", 0x8000000A),
        plain("replicated folder", 0x80000012), plain("container", 0x80000018),
        plain("container 1", 0x90001018), plain("projected", 0x9000001C),
        plain("network file system", 0x80000014), plain("alias of a program", 0x8000001B),
        plain("unhandled", 0x80000020)));

INSTANTIATE_TEST_SUITE_P(Special, FsKnownTag,
                         testing::Values(special("socket", 0x80000023),
                                         special("pipe of Linux programs", 0x80000024),
                                         special("character device", 0x80000025),
                                         special("block device", 0x80000026)));

TEST(FsTag, OfAnEntryWithoutAMarkMeansNothing)
{
    EXPECT_EQ(sortOf(FILE_ATTRIBUTE_NORMAL, 0xA000000C), Sort::file);
    EXPECT_EQ(sortOf(folder, 0xA0000003), Sort::folder);
    EXPECT_EQ(sortOf(FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN, 0x80000024), Sort::file);
}

TEST(FsTag, OfAnUnknownKindIsDecidedByItsBit)
{
    EXPECT_EQ(sortOf(marked, 0x0000ABCD), Sort::file);
    EXPECT_EQ(sortOf(marked | folder, 0x1000ABCD), Sort::folder);
    EXPECT_EQ(sortOf(marked | folder, 0x2000ABCD), Sort::link);
}

TEST(FsAttributes, OfADeviceAreNotThoseOfAFile)
{
    EXPECT_EQ(sortOf(FILE_ATTRIBUTE_DEVICE, 0), Sort::special);
    EXPECT_EQ(sortOf(FILE_ATTRIBUTE_DEVICE | folder, 0), Sort::special);
}

} // namespace

#endif
