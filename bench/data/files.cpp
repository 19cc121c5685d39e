#include "data/files.h"

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
