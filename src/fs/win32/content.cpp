#include <cstdio>
#include <memory>

#include "fs/fs.h"
#include "fs/win32/system.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

File open(const String& path, const Char* mode)
{
    return File{holdsNul(path) ? nullptr : _wfopen(path.c_str(), mode)};
}

// What is still buffered is written by closing, hence closing can fail.
bool close(File& file)
{
    return std::fclose(file.release()) == 0;
}

// Stops early at the end of the file: it may have shrunk since its size was asked.
bool readAll(std::FILE* file, std::string& content)
{
    const std::size_t length = std::fread(content.data(), 1, content.size(), file);
    content.resize(length);
    return std::ferror(file) == 0;
}

bool writeAll(std::FILE* file, std::string_view content)
{
    return std::fwrite(content.data(), 1, content.size(), file) == content.size();
}

bool copyAll(std::FILE* from, std::FILE* to)
{
    constexpr std::size_t blockSize = 64 * 1024;
    const auto block = std::make_unique<char[]>(blockSize);
    std::size_t count = std::fread(block.get(), 1, blockSize, from);
    while (count > 0 && writeAll(to, {block.get(), count})) {
        count = std::fread(block.get(), 1, blockSize, from);
    }
    return count == 0 && std::ferror(from) == 0;
}

} // namespace

// The size is asked for by the path, and the kind comes with it.
bool readFile(const String& path, std::string& content, Kind)
{
    const auto status = statusOf(path);
    if (!status || !isPlain(path, *status) || status->size > content.max_size()) {
        return false;
    }
    const File file = open(path, L"rb");
    if (!file) {
        return false;
    }
    content.resize(static_cast<std::size_t>(status->size));
    return readAll(file.get(), content);
}

WriteResult writeFile(const String& path, std::string_view content)
{
    const bool isFree = isPlainFile(path) || isMissing(path);
    File file = isFree ? open(path, L"wb") : nullptr;
    if (!file) {
        return WriteResult::notOpened;
    }
    const bool complete = writeAll(file.get(), content);
    return close(file) && complete ? WriteResult::written : WriteResult::failed;
}

bool copyFile(const String& from, const String& to)
{
    if (!isPlainFile(from) || !isMissing(to)) {
        return false;
    }
    const File input = open(from, L"rb");
    File output = input ? open(to, L"wb") : nullptr;
    return output && copyAll(input.get(), output.get()) && close(output);
}

} // namespace Korvel::CANTORIS::PLX::fs
