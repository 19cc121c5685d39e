#ifndef _WIN32

#    include <chrono>
#    include <string>
#    include <system_error>

#    include <fcntl.h>
#    include <sys/file.h>
#    include <unistd.h>

#    include "support/claim.h"

namespace support {

namespace {

using std::filesystem::directory_entry;
using std::filesystem::path;

// A number of an open folder, or -1 when another has claimed it.
int tryToClaim(const path& folder)
{
    const int number = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (number >= 0 && ::flock(number, LOCK_EX | LOCK_NB) != 0) {
        ::close(number);
        return -1;
    }
    return number;
}

bool isOld(const directory_entry& entry)
{
    std::error_code error;
    const auto time = entry.last_write_time(error);
    return !error && std::filesystem::file_time_type::clock::now() - time > std::chrono::minutes(1);
}

// What comes before the number in a scratch folder's name.
std::string prefixOf(const path& folder)
{
    const std::string name = folder.filename();
    return name.substr(0, name.find_last_of('-') + 1);
}

bool removeAllUnclaimed(const path& folder)
{
    std::error_code ignored;
    for (const directory_entry& entry :
         std::filesystem::directory_iterator(folder.parent_path(), ignored)) {
        if (entry.path().filename().string().rfind(prefixOf(folder), 0) != 0 || !isOld(entry)) {
            continue;
        }
        const int number = tryToClaim(entry.path());
        if (number >= 0) {
            std::filesystem::remove_all(entry.path(), ignored);
            ::close(number);
        }
    }
    return true;
}

} // namespace

Claim::Claim(const path& folder) : number_(tryToClaim(folder)) {}

Claim::~Claim()
{
    if (number_ >= 0) {
        ::close(number_);
    }
}

void removeUnclaimed(const path& folder)
{
    [[maybe_unused]] static const bool done = removeAllUnclaimed(folder);
}

} // namespace support

#endif
