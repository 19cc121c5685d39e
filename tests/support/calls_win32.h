// Disturbs the calls by which the library asks Windows for files. A program or a DLL reaches the system by a
// table of addresses, its imports; functions of the test are put into that table, so that the code under
// test needs no seam for it.
#pragma once
#ifdef _WIN32

#    include <functional>
#    include <memory>
#    include <string>
#    include <vector>

#    include <windows.h>

namespace support {

class CallTable;

// The calls of one module are disturbed as long as this lives; one at a time.
class DisturbedCalls {
public:
    // Null for the program itself.
    explicit DisturbedCalls(HMODULE module);
    DisturbedCalls(const DisturbedCalls&) = delete;
    DisturbedCalls& operator=(const DisturbedCalls&) = delete;
    ~DisturbedCalls();

    // Which calls they can be.
    static std::vector<std::string> disturbable();

    // From now on the calls are counted from 1, and the one of that number fails.
    void failCall(long number, DWORD error);

    // The same, and all calls after it fail too.
    void failFrom(long number, DWORD error);

    // So many of the next calls of that name fail; the others are left alone.
    void failNext(const char* name, long count, DWORD error);

    // Just before the call of that number something else happens.
    void actBefore(long number, std::function<void()> act);

    // Entries are marked with that tag, as far as they are opened as themselves; in what is said of their
    // names, too, or there not.
    enum class Shown { byHandleAndName, byHandleAlone };
    void markEntries(DWORD tag, Shown shown = Shown::byHandleAndName);

    // What files are known by.
    struct Numbers {
        bool areLong = true;           // of 128 bits
        bool areShort = true;          // of 64 bits
        bool areNamed = true;          // by one path
        unsigned char highestByte = 0; // of the long numbers, in place of its own
    };
    void numberFiles(const Numbers& numbers);

    // What becomes of each call is decided by the test: it goes on, or fails with an error that is not 0.
    struct Call {
        const char* name;
        bool isDeleting;
        std::function<std::wstring()> path; // what it is about, as the system knows it
    };
    void decide(std::function<DWORD(const Call&)> decision);

    // Each call reads or writes so many bytes at most; whatever else was asked for goes on.
    void limitTransfers(DWORD bytes);

    // Back to normal; tells how many calls there were.
    long stop();

    // Their names, since they were counted last.
    [[nodiscard]] const std::vector<std::string>& calls() const;

    // With which flags the removal of the last entry was asked for; 0 when it was not.
    [[nodiscard]] DWORD removalFlags() const;
};

// How many handles a program that is started now would inherit, and how many there are at all.
int countInheritableHandles();
int countHandles();

} // namespace support

#endif
