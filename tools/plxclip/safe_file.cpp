#include "safe_file.h"

#include <filesystem>
#include <fstream>
#include <random>

#include <fmt/format.h>

#include "commands.h"
#include "paths.h"

namespace plxclip {

namespace {

// The file that a link leads to, so that the link stays.
std::filesystem::path targetOf(const std::string& file)
{
    std::error_code error;
    const std::filesystem::path target = std::filesystem::weakly_canonical(pathOf(file), error);
    return error ? pathOf(file) : target;
}

void requirePlace(const std::string& file, const std::filesystem::path& target)
{
    std::error_code error;
    if (std::filesystem::exists(target, error) &&
        !std::filesystem::is_regular_file(target, error)) {
        throw Failure(fmt::format("\"{}\" is there and is not a file; choose another name", file));
    }
}

std::filesystem::path nameBeside(const std::filesystem::path& target)
{
    std::random_device random;
    std::filesystem::path name = target;
    name += fmt::format(".{:08x}.part", random());
    return name;
}

bool write(const std::filesystem::path& path, std::string_view content)
{
    std::ofstream stream(path, std::ios::binary);
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
    stream.close();
    return !stream.fail();
}

} // namespace

void writeWholeFile(const std::string& file, std::string_view content)
{
    const std::filesystem::path target = targetOf(file);
    requirePlace(file, target);
    const std::filesystem::path half = nameBeside(target);
    std::error_code error;
    if (write(half, content)) {
        std::filesystem::rename(half, target, error);
        if (!error) {
            return;
        }
    }
    std::filesystem::remove(half, error);
    throw Failure(
        fmt::format("\"{}\" cannot be written; see whether its folder is there and may be "
                    "written to, and whether the disk is full",
                    file));
}

} // namespace plxclip
