// The disk as a test sees it. A test names a place by std::filesystem::path, and hands it to the
// library by pathText().
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "support/claim.h"
#include "support/text.h"

namespace support {

using Path = std::filesystem::path;

// A name written in UTF-8: folder / place("さくら").
Path place(std::string_view utf8);

// The sources' folder, whose data the tests read: where the environment's KRT_PLX_TEST_SOURCE_FOLDER says that
// it is now, otherwise where it was when the program was built.
Path sourceFolder(std::string_view whenBuilt);

// The path as the library takes and returns it: backslashes, on every system.
Text pathText(const Path& path);

// Both make the missing folders above the file.
void writeFile(const Path& file, std::string_view bytes);
void writeDocument(const Path& file, std::string_view utf8, Encoding encoding,
                   ByteOrderMark mark = ByteOrderMark::without);

// The file's bytes; throws when it cannot be read.
std::string readFile(const Path& file);

// A new, empty folder that is gone, with everything in it, when the object is; if the process is killed
// before, when the next test program begins.
class ScratchFolder {
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    [[nodiscard]] const Path& path() const { return path_; }

private:
    Path path_;
    Claim claim_;
};

} // namespace support
