/**
 * @file handle.hpp
 * What all classes of the C++ face are: a copy of a C handle.
 */
#ifndef KORVEL_FACE_HANDLE_HPP
#define KORVEL_FACE_HANDLE_HPP

#include <cstdint>
#include <functional>

#include <korvel/plx/common.h>

namespace korvel::plx {

/** A handle of one family of objects. It owns nothing; two are equal when they are the same object.
 *  A member function of a null handle does what the C function does: nothing. */
template <typename RawType>
class Handle {
public:
    /** The type of the C handle. */
    using Raw = RawType;

    /** A null handle. */
    constexpr Handle() noexcept = default;
    /** The same object as the C handle. */
    constexpr explicit Handle(Raw* raw) noexcept : raw_(raw) {}

    /** The C handle. */
    [[nodiscard]] constexpr Raw* raw() const noexcept { return raw_; }

    /** False for a null handle. A dead handle is not recognised. */
    constexpr explicit operator bool() const noexcept { return raw_ != nullptr; }

    /** Whether both are the same object. */
    friend constexpr bool operator==(Handle left, Handle right) noexcept
    {
        return left.raw_ == right.raw_;
    }
    /** Whether they are two objects. */
    friend constexpr bool operator!=(Handle left, Handle right) noexcept
    {
        return left.raw_ != right.raw_;
    }

private:
    Raw* raw_ = nullptr;
};

/** For containers: std::unordered_set<Note, HandleHash>. */
struct HandleHash {
    /** The hash of the object's address. */
    template <typename Raw>
    std::size_t operator()(Handle<Raw> handle) const noexcept
    {
        return std::hash<Raw*>()(handle.raw());
    }
};

namespace detail {

/** Calls one of the C functions that count; 0 for a handle that it rejects. */
template <typename Function, typename... Arguments>
std::uint64_t count(Function function, Arguments... arguments) noexcept
{
    std::uint64_t number = 0;
    function(arguments..., &number);
    return number;
}

/** The handle as another class of its family if the test holds, else null. */
template <typename Target, typename Source>
constexpr Target castIf(bool is, Source source) noexcept
{
    return is ? Target(source.raw()) : Target();
}

} // namespace detail

} // namespace korvel::plx

#endif
