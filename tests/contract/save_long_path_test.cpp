// Saving where paths become too long for the system: each length stops it at another step.
#include <fstream>
#include <functional>
#include <string_view>
#include <system_error>

#include "support/saving.h"
#include "support/temp_dir.h"

using support::Path;

namespace {

std::size_t lengthOf(const Path& path)
{
    return path.native().size();
}

constexpr std::size_t longName = 200;

// A folder of exactly that length below another.
Path folderOfLength(Path folder, std::size_t length)
{
    while (lengthOf(folder) + 1 + longName + 2 <= length) {
        folder /= std::string(longName, 'x');
    }
    return folder / std::string(length - lengthOf(folder) - 1, 'y');
}

bool canMakeFolder(const Path& folder)
{
    std::error_code error;
    return std::filesystem::create_directory(folder, error) && std::filesystem::remove(folder);
}

bool canMakeFile(const Path& file)
{
    const bool made = std::ofstream(file).is_open();
    return made && std::filesystem::remove(file);
}

// Removes empty folders from the innermost outward. Not every standard library can look into folders
// whose paths are this long, but all can do this.
void removeFolders(Path innermost, const Path& outermost)
{
    for (; innermost != outermost; innermost = innermost.parent_path()) {
        EXPECT_TRUE(std::filesystem::remove(innermost));
    }
}

// The length of the longest path below the folder that `canMake` still makes.
std::size_t longestPath(const Path& start, bool (*canMake)(const Path&))
{
    Path folder = start;
    while (canMakeFolder(folder / std::string(longName, 'x'))) {
        folder /= std::string(longName, 'x');
        std::filesystem::create_directory(folder);
    }
    std::size_t length = 0;
    for (std::size_t step = 128; step > 0; step /= 2) {
        if (canMake(folder / std::string(length + step, 'z'))) {
            length += step;
        }
    }
    removeFolders(folder, start);
    return lengthOf(folder) + 1 + length;
}

// What lies in a clip's folder has a path so much longer than the user directory's.
constexpr std::size_t idLength = 36;
constexpr std::size_t clipFolder = 1 + idLength;
constexpr std::size_t audioFolder = clipFolder + std::string_view("/audio").size();
constexpr std::size_t propertyDocument = clipFolder + std::string_view("/property.json").size();
constexpr std::size_t dataDocument = clipFolder + 1 + idLength + std::string_view(".kxclip").size();

// Not all calls of a system take paths of the very same length.
constexpr std::size_t margin = 8;

class SaveAtTheEndOfPaths : public SaveTest {
protected:
    using Build = std::function<void(KRT_PLX_ClipBase*)>;

    // Saves what `build` makes in a user directory of that length. A clip that was saved can be removed
    // as well; then, as after a failure, nothing is left.
    void expectCode(std::uint32_t code, std::size_t userLength, const Build& build)
    {
        const Path user = folderOfLength(scratch() / "long", userLength);
        const auto own = support::createManager({systemFolder(), user, {}, {}});
        ASSERT_NE(own.get(), nullptr);
        KRT_PLX_ClipBase* const ownClip = KRT_PLX_Manager_createMutableClip(own.get());
        build(ownClip);
        const auto result = support::save(ownClip);
        EXPECT_EQ(result.code, code);
        EXPECT_EQ(result.clip != nullptr, code == KRT_PLX_RESULT_OK);
        if (result.clip != nullptr) {
            EXPECT_TRUE(KRT_PLX_Clip_readPart(result.clip));
            removeAudio(result.clip);
            EXPECT_TRUE(KRT_PLX_UserClip_remove(result.clip));
        }
        EXPECT_EQ(support::userClipCount(own.get()), 0u);
        removeFolders(user, scratch());
    }

    // An emulated Windows does not say which folder is which at such a depth, and what may lie outside
    // the clip's folder stays.
    static void removeAudio(KRT_PLX_ClipBase* clip)
    {
        KRT_PLX_PartBase* const part = KRT_PLX_Clip_audioPart(clip);
        if (part != nullptr) {
            const Path wave = support::hostPath(KRT_PLX_AudioPartBase_wavFilePath(part));
            EXPECT_TRUE(std::filesystem::remove(wave));
            EXPECT_TRUE(std::filesystem::remove(wave.parent_path()));
        }
    }

    Build audioNamed(const std::string& name)
    {
        return [wave = addWaveFile(name)](KRT_PLX_ClipBase* own) {
            support::createAudioPart(own, wave);
        };
    }

    const std::size_t longestFolder = longestPath(scratch(), canMakeFolder);
    const std::size_t longestFile = longestPath(scratch(), canMakeFile);
};

TEST_F(SaveAtTheEndOfPaths, TheClipFolderCannotBeMade)
{
    const std::size_t tooLong = longestFolder - clipFolder + 1;
    expectCode(KRT_PLX_RESULT_DIRECTORY_NOT_CREATED, tooLong, support::createMidiPart);
}

// The clip's folder is made before the wave file is looked at.
TEST_F(SaveAtTheEndOfPaths, TheClipFolderCannotBeMadeForAMissingWaveFile)
{
    const std::size_t longest = longestFolder - clipFolder;
    expectCode(KRT_PLX_RESULT_DIRECTORY_NOT_CREATED, longest + 1,
               KRT_PLX_MutableClip_createAudioPart);
    expectCode(KRT_PLX_RESULT_WAVE_FILE_MISSING, longest, KRT_PLX_MutableClip_createAudioPart);
}

TEST_F(SaveAtTheEndOfPaths, TheAudioFolderCannotBeMade)
{
    const std::size_t tooLong = longestFolder - audioFolder + 1;
    expectCode(KRT_PLX_RESULT_DIRECTORY_NOT_CREATED, tooLong, audioNamed("take.wav"));
}

TEST_F(SaveAtTheEndOfPaths, TheWaveFileCannotBeCopied)
{
    const std::string name(100, 'w');
    const std::size_t longest = longestFile - audioFolder - 1 - name.size();
    expectCode(KRT_PLX_RESULT_WAVE_FILE_NOT_COPIED, longest + 1, audioNamed(name));
    expectCode(KRT_PLX_RESULT_OK, longest - margin, audioNamed(name));
}

TEST_F(SaveAtTheEndOfPaths, ThePropertyDocumentCannotBeOpened)
{
    const std::size_t tooLong = longestFile - propertyDocument + 1;
    expectCode(KRT_PLX_RESULT_FILE_NOT_OPENED, tooLong, support::createMidiPart);
    expectCode(KRT_PLX_RESULT_FILE_NOT_OPENED, tooLong, audioNamed("w"));
}

TEST_F(SaveAtTheEndOfPaths, TheDataDocumentCannotBeOpened)
{
    const std::size_t longest = longestFile - dataDocument;
    expectCode(KRT_PLX_RESULT_FILE_NOT_OPENED, longest + 1, support::createMidiPart);
    expectCode(KRT_PLX_RESULT_OK, longest - margin, support::createMidiPart);
}

} // namespace
