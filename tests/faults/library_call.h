// Marks calls into the library: calls that the program makes itself are never disturbed.
#pragma once

namespace faults {

// Whether the library is working. Only one thread disturbs it and is disturbed.
extern bool insideLibrary;

// Sets this for a scope.
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
