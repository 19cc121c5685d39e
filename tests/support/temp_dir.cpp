#include "support/temp_dir.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

#include "support/temp_dir_system.h"

namespace support {

namespace {

constexpr auto backslash = static_cast<KRT_PLX_Char>('\\');

void check(bool success, const char* what, const Text& path)
{
    if (!success) {
        throw std::runtime_error(std::string(what) + ": " + utf8(path));
    }
}

} // namespace

TempDir::TempDir() : path_(makeFreshFolder()), claim_(hostPath(path_))
{
    removeUnclaimed(hostPath(path_));
}

TempDir::~TempDir()
{
    removeAll(path_);
}

Text TempDir::operator/(TextView relative) const
{
    return path_ + backslash + Text{relative};
}

void makeFolder(const Text& path)
{
    std::filesystem::create_directories(hostPath(path));
}

void writeBytes(const Text& path, std::string_view content)
{
    std::filesystem::create_directories(hostPath(path).parent_path());
    std::ofstream file(hostPath(path), std::ios::binary | std::ios::trunc);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    file.close();
    check(!file.fail(), "cannot write", path);
}

std::string readBytes(const Text& path)
{
    std::ifstream file(hostPath(path), std::ios::binary);
    check(file.is_open(), "cannot open", path);
    return {std::istreambuf_iterator<char>(file), {}};
}

bool exists(const Text& path)
{
    std::error_code error;
    return std::filesystem::exists(hostPath(path), error);
}

} // namespace support
