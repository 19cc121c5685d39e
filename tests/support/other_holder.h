#pragma once
#ifndef _WIN32

#    include <fcntl.h>
#    include <gtest/gtest.h>
#    include <sys/file.h>
#    include <unistd.h>

#    include "support/temp_dir.h"

// Simulates another program that holds a file alone, or together with other readers.
class OtherHolder {
public:
    explicit OtherHolder(const support::Text& path, int operation = LOCK_EX)
        : file_(::open(support::hostPath(path).c_str(), O_RDWR | O_CLOEXEC))
    {
        EXPECT_EQ(::flock(file_, operation | LOCK_NB), 0) << "somebody else holds it";
    }
    OtherHolder(const OtherHolder&) = delete;
    OtherHolder& operator=(const OtherHolder&) = delete;
    ~OtherHolder() { ::close(file_); }

    static bool isHeld(const support::Text& path)
    {
        const int file = ::open(support::hostPath(path).c_str(), O_RDWR | O_CLOEXEC);
        const bool isFree = ::flock(file, LOCK_EX | LOCK_NB) == 0;
        ::close(file);
        return !isFree;
    }

private:
    int file_;
};

#endif
