// The only file that includes RapidJSON, with the settings of this library.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace Korvel::CANTORIS::PLX::format {

// Thrown for a text that RapidJSON only handles by an assertion, such as an escaped lone surrogate.
// Its own assertion would end the host; ours ends the parse.
struct DocumentDefect {};

} // namespace Korvel::CANTORIS::PLX::format

// A host may contain a RapidJSON of its own, with other settings, so ours is in our namespace.
#define RAPIDJSON_NAMESPACE Korvel::CANTORIS::PLX::format::json
#define RAPIDJSON_NAMESPACE_BEGIN namespace Korvel::CANTORIS::PLX::format::json {
#define RAPIDJSON_NAMESPACE_END }
#define RAPIDJSON_ASSERT(condition)                      \
    (static_cast<bool>(condition) ? static_cast<void>(0) \
                                  : throw ::Korvel::CANTORIS::PLX::format::DocumentDefect())

#include <rapidjson/prettywriter.h>
#include <rapidjson/reader.h>
#include <rapidjson/stringbuffer.h>

namespace Korvel::CANTORIS::PLX::format {

// RapidJSON does not check what its allocator returns, so this one throws when memory runs out.
class ThrowingAllocator {
public:
    static const bool kNeedFree = true;

    void* Malloc(std::size_t size) { return size == 0 ? nullptr : checked(std::malloc(size)); }

    void* Realloc(void* block, std::size_t, std::size_t newSize)
    {
        if (newSize == 0) {
            std::free(block);
            return nullptr;
        }
        return checked(std::realloc(block, newSize));
    }

    static void Free(void* block) { std::free(block); }

private:
    static void* checked(void* block)
    {
        if (block == nullptr) {
            throw std::bad_alloc();
        }
        return block;
    }
};

// UTF-8 that is known to be valid, except that an escape may still mean a lone low surrogate.
struct CheckedUtf8 : json::UTF8<char> {
    template <class Output>
    static void Encode(Output& output, unsigned codepoint)
    {
        RAPIDJSON_ASSERT(codepoint < 0xD800 || codepoint > 0xDFFF);
        json::UTF8<char>::Encode(output, codepoint);
    }
};

using Text = json::GenericInsituStringStream<CheckedUtf8>;

// In place and without recursion, because a document may be large and nested to any depth.
inline constexpr unsigned parseFlags =
    json::kParseDefaultFlags | json::kParseInsituFlag | json::kParseIterativeFlag;

} // namespace Korvel::CANTORIS::PLX::format

// Known defects of RapidJSON 1.1.0, by their numbers in its issue tracker, and how we avoid them.
// Reading:
// - Exponents and fractions overflow an int (#1261, #2391), tables of powers of ten are read beyond
//   their ends (#313, #1251), and long fractions are compared with what was never written (#1255).
//   All this happens while a number is read, even one that is to be returned as text. We read numbers
//   ourselves: see ParseNumber in walk.cpp.
// - Validating an encoding reads beyond the text (#2327): the text is validated before it is parsed.
// - An escaped lone surrogate is accepted or ends the host (#1738): see CheckedUtf8.
// - SIMD instructions read up to 15 bytes beyond the text (#1227, #1723): they are not used.
// - Deep documents overflow the stack in the parser, in visiting and in destroying values (#1027,
//   #2282): the parser is told not to recurse, and there are no values.
// - When memory runs out, the parser writes to a null pointer (#1735): see ThrowingAllocator.
// Writing:
// - For a text of 700 MB the reserved size overflows 32 bits (#2336, #2348): see Output::ascii.
// - A float with few decimals takes more room than is reserved (#2185): all are written with all
//   decimals.
// Both: an empty stack counts from a null pointer (#1724). We define Reserve ourselves, below.
#ifdef RAPIDJSON_SIMD
#    error "RapidJSON would read behind the end of documents"
#endif

namespace Korvel::CANTORIS::PLX::format::json {

template <>
template <class T>
RAPIDJSON_FORCEINLINE void internal::Stack<ThrowingAllocator>::Reserve(std::size_t count)
{
    const auto top = reinterpret_cast<std::uintptr_t>(stackTop_);
    if (RAPIDJSON_UNLIKELY(top + sizeof(T) * count > reinterpret_cast<std::uintptr_t>(stackEnd_))) {
        Expand<T>(count);
    }
}

// Most documents that are read were written without white space.
template <>
inline void SkipWhitespace(Text& is)
{
    const char* at = is.src_;
    while (*at == ' ' || *at == '\n' || *at == '\r' || *at == '\t') {
        ++at;
    }
    is.src_ += at - is.src_;
}

} // namespace Korvel::CANTORIS::PLX::format::json
