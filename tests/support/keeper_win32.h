#pragma once
#ifdef _WIN32

#    include <stdexcept>
#    include <string>

#    include <windows.h>

namespace support {

// Another program that has a file open, and what it lets others do with it meanwhile.
class Keeper {
public:
    explicit Keeper(const std::wstring& path, DWORD sharing = FILE_SHARE_READ | FILE_SHARE_WRITE)
        : file_(
              CreateFileW(path.c_str(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING, 0, nullptr))
    {
        if (file_ == INVALID_HANDLE_VALUE) {
            throw std::runtime_error("cannot be kept: error " + std::to_string(GetLastError()));
        }
    }
    Keeper(const Keeper&) = delete;
    Keeper& operator=(const Keeper&) = delete;
    ~Keeper() { CloseHandle(file_); }

private:
    HANDLE file_;
};

} // namespace support

#endif
