#pragma once
#ifndef _WIN32

#    include <dirent.h>

// How many files and folders this program has open.
inline int countOpenDescriptors()
{
    int count = 0;
    DIR* const folder = ::opendir("/proc/self/fd");
    while (folder != nullptr && ::readdir(folder) != nullptr) {
        ++count;
    }
    if (folder != nullptr) {
        ::closedir(folder);
    }
    return count;
}

#endif
