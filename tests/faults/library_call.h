// Calls into the library, marked as such: what the program does by itself is never disturbed.
#pragma once

namespace faults {

// Whether the library is at work. One thread alone disturbs and is disturbed.
extern bool insideLibrary;

// For a stretch of code, the library is at work or is not.
class Inside {
public:
    explicit Inside(bool inside) : before_(insideLibrary) { insideLibrary = inside; }
    Inside(const Inside&) = delete;
    Inside& operator=(const Inside&) = delete;
    ~Inside() { insideLibrary = before_; }

    [[nodiscard]] bool before() const { return before_; }

private:
    bool before_;
};

// lib(KRT_PLX_Clip_readPart, clip): the result of the exported function.
template <class Result, class... Parameter, class... Argument>
Result lib(Result (*function)(Parameter...) noexcept, Argument... argument)
{
    const Inside inside(true);
    return function(argument...);
}

} // namespace faults
