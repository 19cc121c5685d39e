#include "support/files.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <system_error>

namespace support {

Path place(std::string_view utf8)
{
    return Path(std::u8string(utf8.begin(), utf8.end()));
}

Path sourceFolder(std::string_view whenBuilt)
{
#ifdef _WIN32
    const wchar_t* const now = _wgetenv(L"KRT_PLX_TEST_SOURCE_FOLDER");
#else
    const char* const now = std::getenv("KRT_PLX_TEST_SOURCE_FOLDER");
#endif
    return now != nullptr ? Path(now) : place(whenBuilt);
}

Text pathText(const Path& path)
{
    const std::u8string native = path.u8string();
    std::string bytes(native.begin(), native.end());
    std::replace(bytes.begin(), bytes.end(), '/', '\\');
    return text(bytes);
}

void writeFile(const Path& file, std::string_view bytes)
{
    std::filesystem::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream) {
        throw std::runtime_error("cannot write " + file.string());
    }
}

void writeDocument(const Path& file, std::string_view utf8, Encoding encoding, ByteOrderMark mark)
{
    writeFile(file, encode(utf8, encoding, mark));
}

std::string readFile(const Path& file)
{
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        throw std::runtime_error("cannot read " + file.string());
    }
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

namespace {

// Several test programs may run at once: the one that makes the folder has it.
Path makeScratchFolder()
{
    std::random_device random;
    Path path;
    do {
        path = std::filesystem::temp_directory_path() / ("plx-scratch-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(path));
    return path;
}

} // namespace

ScratchFolder::ScratchFolder() : path_(makeScratchFolder()), claim_(path_)
{
    removeUnclaimed(path_);
}

ScratchFolder::~ScratchFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

} // namespace support
