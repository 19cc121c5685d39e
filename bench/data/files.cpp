#include "data/files.h"

#include <chrono>
#include <fstream>
#include <sstream>
#include <system_error>

namespace bench {

std::string readFile(const std::filesystem::path& file)
{
    std::ifstream in;
    in.exceptions(std::ios::failbit | std::ios::badbit);
    in.open(file, std::ios::binary);
    std::ostringstream content;
    content << in.rdbuf();
    return content.str();
}

void writeFile(const std::filesystem::path& file, std::string_view content)
{
    std::ofstream out;
    out.exceptions(std::ios::failbit | std::ios::badbit);
    out.open(file, std::ios::binary | std::ios::trunc);
    out.write(content.data(), static_cast<std::streamsize>(content.size()));
    out.close();
    // Clips are read more often than they are changed: of a file that was changed just now a reader may
    // want to be sure that the change is over.
    std::filesystem::last_write_time(file, std::filesystem::file_time_type::clock::now() -
                                               std::chrono::hours(1));
}

void linkFile(const std::filesystem::path& file, const std::filesystem::path& name)
{
    std::filesystem::remove(name);
    std::error_code error;
    std::filesystem::create_hard_link(file, name, error);
    if (error) {
        std::filesystem::copy_file(file, name);
    }
}

} // namespace bench
