// Folders whose paths are longer than Windows once allowed: 259 units for a file, 247 for a new folder.
#ifdef _WIN32

#    include "odd_paths.h"
#    include "support/temp_dir.h"

using support::Path;
using support::Text;

namespace {

class LongPaths : public OddPaths {
protected:
    // The system counts the zero at the end, and the prefix.
    static constexpr std::size_t longest = 32'766;
    static constexpr std::size_t prefixLength = 4;

    LongPaths()
    {
        std::filesystem::create_directories(systemFolder());
        std::filesystem::create_directories(userFolder());
    }
    ~LongPaths() override { removeNamed(); }

    // A path of exactly that length below a folder.
    static Path pathOfLength(std::size_t length, const Path& above)
    {
        Text path = above.native();
        while (path.size() + 1 < length) {
            const std::size_t left = length - path.size() - 1;
            path += L'\\' + Text(left > 202 ? 200 : left, L'x');
        }
        return path;
    }

    // The same, for a folder that is removed at the end, with the folders on the way to it.
    Path folderOfLength(std::size_t length, const Path& above)
    {
        Path folder = pathOfLength(length, above);
        named.push_back({folder.native(), above.native().size()});
        return folder;
    }
    Path folderOfLength(std::size_t length) { return folderOfLength(length, scratch()); }

    // The standard library of this compiler could not find folders with such paths.
    void removeNamed()
    {
        for (auto& [path, lengthAbove] : named) {
            for (; path.size() > lengthAbove; path.resize(path.rfind(L'\\'))) {
                RemoveDirectoryW(longForm(path).c_str());
            }
        }
        named.clear();
    }

    // Whether the system itself makes a folder with that path, and the folders on the way to it.
    bool canMake(const Path& folder) const
    {
        const Text path = longForm(folder);
        for (std::size_t end = scratch().native().size() + prefixLength; end < path.size();) {
            end = std::min(path.find(L'\\', end + 1), path.size());
            CreateDirectoryW(path.substr(0, end).c_str(), nullptr);
        }
        return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
    }

    // Not even a folder on the way there is made.
    void expectRefusedAtOnce(const Text& folder)
    {
        const support::Tree before = support::treeOf(scratch());
        expectRefused(folder);
        EXPECT_EQ(support::treeOf(scratch()), before);
    }

    // Nothing can be in such a folder: it is neither the user directory nor the system directory, and has no
    // clips as a further one.
    void expectRefused(const Text& folder)
    {
        SCOPED_TRACE(folder.size());
        const Text system = systemFolder().wstring();
        const Text user = userFolder().wstring();
        expectNoManager(system, folder, KRT_PLX_RESULT_DIRECTORY_NOT_CREATED);
        expectNoManager(folder, user, KRT_PLX_RESULT_DIRECTORY_MISSING);
        const wchar_t* further[] = {folder.c_str()};
        const support::OwnedManager own(KRT_PLX_CreateManager(support::uniqueAppID().c_str(),
                                                              system.c_str(), user.c_str(), further,
                                                              1, further, 1, nullptr));
        ASSERT_NE(own.get(), nullptr);
        EXPECT_EQ(KRT_PLX_Manager_readAllClipFiles(own.get()), KRT_PLX_RESULT_OK);
        EXPECT_EQ(support::userClipCount(own.get()), 0u);
        EXPECT_EQ(support::systemClipCount(own.get()), 0u);
    }

    static void expectNoManager(const Text& system, const Text& user, std::uint32_t expected)
    {
        std::uint32_t code = KRT_PLX_RESULT_OK;
        EXPECT_EQ(KRT_PLX_CreateManager(support::uniqueAppID().c_str(), system.c_str(),
                                        user.c_str(), nullptr, 0, nullptr, 0, &code),
                  nullptr);
        EXPECT_EQ(code, expected);
    }

    // What lies in the folder of a clip has a path so much longer: two identifiers and the extension.
    static constexpr std::size_t inClip = 1 + 36 + 1 + 36 + 7;

private:
    struct Named {
        Text path;
        std::size_t lengthAbove;
    };
    std::vector<Named> named;
};

TEST_F(LongPaths, OnBothSidesOfTheOldLimits)
{
    for (const std::size_t length : {180, 247, 248, 259, 260, 261, 300, 1000}) {
        const Path user = folderOfLength(length);
        ASSERT_EQ(user.native().size(), length);
        expectAllWorks(user.wstring(), user);
    }
}

TEST_F(LongPaths, InEachFormThatTheSystemCompletes)
{
    const Path user = folderOfLength(600);
    Text slashes = user.generic_wstring();
    expectAllWorks(slashes, user);
    expectAllWorks(user.wstring() + L"\\.\\inner\\..", user);
    expectAllWorks(user.wstring() + L". ", user);
    expectAllWorks(user.wstring() + L"\\", user);
    expectAllWorks(prefix + user.wstring(), user);
}

TEST_F(LongPaths, BelowTheCurrentFolder)
{
    const Path user = folderOfLength(500);
    const CurrentFolder current(scratch());
    expectAllWorks(user.lexically_relative(scratch()).wstring(), user);
}

// A server that an emulated Windows keeps in its own folder of devices.
TEST_F(LongPaths, OnAServer)
{
    const wchar_t* const devices = _wgetenv(L"WINECONFIGDIR");
    if (devices == nullptr) {
        GTEST_SKIP() << "there is no server that a test could make";
    }
    const Path server =
        Path(Text(devices).substr(prefixLength)) / "dosdevices" / "unc" / "krt-plx-server";
    std::filesystem::create_directories(server / "share");
    const Path share = LR"(\\krt-plx-server\share)";
    for (const std::size_t length : {40, 300, 1000}) {
        const Path user = folderOfLength(length, share);
        expectAllWorks(user.wstring(), user);
        removeNamed();
    }
    std::filesystem::remove_all(server);
}

// Real systems take almost the length that is possible at all, emulated ones what their host takes.
TEST_F(LongPaths, AsLongAsTheSystemTakes)
{
    for (const std::size_t length : {2'000, 30'000}) {
        const bool isPossible = canMake(folderOfLength(length + inClip));
        removeNamed();
        const Path user = folderOfLength(length);
        if (isPossible) {
            expectAllWorks(user.wstring(), user);
        } else {
            expectRefused(user.wstring());
        }
        removeNamed();
    }
}

TEST_F(LongPaths, LongerThanAnySystemTakesAreRefused)
{
    for (const std::size_t length : {longest - prefixLength + 1, longest + 1, 4 * longest}) {
        const Path folder = pathOfLength(length, scratch());
        expectRefusedAtOnce(folder.wstring());
        expectRefusedAtOnce(prefix + folder.wstring());
    }
}

// The system counts the bytes of a path in 16 bits: a path that is cut off there must not lead elsewhere.
TEST_F(LongPaths, AreNeverCutOff)
{
    const Path other = scratch() / "other";
    support::addAudioClip(other / "one", "ID");
    constexpr std::size_t round = 0x8000;
    expectRefusedAtOnce(pathOfLength(round + other.native().size(), other).wstring());
}

} // namespace

#endif
