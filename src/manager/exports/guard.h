// The one way from an exported function to the object model. Every export is a single statement that
// starts with call, countOf or guarded; tests/symbols counts those that are not.
#pragma once

#include <concepts>
#include <cstdint>
#include <type_traits>

#include "manager/exports/handles.h"

namespace Korvel::CANTORIS::PLX::exports {

template <class Operation>
struct OperationTraits;
template <class Interface_, class Result_, class... Parameter>
struct OperationTraits<Result_ (Interface_::*)(Parameter...)> {
    using Interface = Interface_;
    using Result = Result_;
};
template <class Interface_, class Result_, class... Parameter>
struct OperationTraits<Result_ (Interface_::*)(Parameter...) noexcept>
    : OperationTraits<Result_ (Interface_::*)(Parameter...)> {
};
template <class Interface_, class Result_, class... Parameter>
struct OperationTraits<Result_ (Interface_::*)(Parameter...) const noexcept>
    : OperationTraits<Result_ (Interface_::*)(Parameter...)> {
};

// Hosts in some languages pass another byte than 1 for true. The compiler assumes that a bool is 0
// or 1, so its byte is read before anything copies it as a bool.
inline bool isTrue(const bool& fromHost)
{
    return reinterpret_cast<const volatile unsigned char&>(fromHost) != 0;
}

// Handles become roots, without being dereferenced, and every true becomes 1; everything else is
// passed on unchanged.
template <class Argument>
auto fromHost(const Argument& argument)
{
    if constexpr (requires { Families::rootOf(argument); }) {
        return Families::rootOf(argument);
    } else if constexpr (std::is_same_v<Argument, bool>) {
        return isTrue(argument);
    } else {
        return argument;
    }
}

// Objects become handles; everything else is returned unchanged.
template <class Result>
auto toHost(Result result)
{
    if constexpr (requires { Families::handleOf(result); }) {
        return Families::handleOf(result);
    } else {
        return result;
    }
}

// Runs the body; exceptions are caught here, and the host gets `otherwise`. Operations that cannot
// throw are noexcept: for them the compiler leaves the handler out and forwards by a jump.
template <class Result, class Body>
Result guarded(Result otherwise, Body body) noexcept
{
    try {
        return body();
    } catch (...) {
        return otherwise;
    }
}

template <auto Operation, class Object, class... Argument>
auto perform(Object& object, const Argument&... argument)
{
    using Result = typename OperationTraits<decltype(Operation)>::Result;
    if constexpr (std::is_void_v<Result>) {
        (object.*Operation)(fromHost(argument)...);
        return true; // an operation without a result cannot fail
    } else {
        return toHost((object.*Operation)(fromHost(argument)...));
    }
}

// Forwards to one operation of the interface behind the handle. `otherwise` is the result for a null
// handle, for one of another kind, and when memory runs out.
template <auto Operation, class Handle, class Otherwise, class... Argument>
auto call(Handle* handle, Otherwise otherwise, const Argument&... argument) noexcept
{
    using Interface = typename OperationTraits<decltype(Operation)>::Interface;
    using Result = decltype(perform<Operation>(std::declval<Interface&>(), argument...));
    return guarded<Result>(static_cast<Result>(otherwise), [&]() -> Result {
        Interface* const object = reach<Interface>(handle);
        return object == nullptr ? static_cast<Result>(otherwise)
                                 : perform<Operation>(*object, argument...);
    });
}

// Forwards to an operation that counts, and stores the count.
template <auto Operation, class Handle, class... Argument>
bool countOf(Handle* handle, std::uint64_t* count, Argument... argument) noexcept
{
    using Interface = typename OperationTraits<decltype(Operation)>::Interface;
    return guarded(false, [=] {
        Interface* const object = count == nullptr ? nullptr : reach<Interface>(handle);
        if (object == nullptr) {
            return false;
        }
        *count = static_cast<std::uint64_t>((object->*Operation)(argument...));
        return true;
    });
}

} // namespace Korvel::CANTORIS::PLX::exports
