// The one place that includes RapidJSON, as this library needs it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace Korvel::CANTORIS::PLX::format {

// A text that RapidJSON can only assert about, such as an escaped lone surrogate. Its own assertion
// would end the host; ours ends the parse.
struct DocumentDefect {};

} // namespace Korvel::CANTORIS::PLX::format

// A host may carry a RapidJSON of its own, with settings of its own: ours lives in our namespace.
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

// RapidJSON does not look at what its allocator returns: want of memory must leave by exception.
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

// UTF-8 that is known to be valid, except that an escape may still name a lone low surrogate.
struct CheckedUtf8 : json::UTF8<char> {
    template <class Output>
    static void Encode(Output& output, unsigned codepoint)
    {
        RAPIDJSON_ASSERT(codepoint < 0xD800 || codepoint > 0xDFFF);
        json::UTF8<char>::Encode(output, codepoint);
    }
};

using Text = json::GenericInsituStringStream<CheckedUtf8>;

// In place and without recursion: a document may be large, and may nest without end.
inline constexpr unsigned parseFlags =
    json::kParseDefaultFlags | json::kParseInsituFlag | json::kParseIterativeFlag;

} // namespace Korvel::CANTORIS::PLX::format

// What RapidJSON 1.1.0 gets wrong, as its list of issues tells, and how each is kept from happening here.
// Reading:
// - Exponents and fractions overflow an int (#1261, #2391), tables of powers of ten are read beyond their
//   ends (#313, #1251), and long fractions are compared with what was never written (#1255): all while a
//   number is read, even one that is to be handed over as text. ParseNumber is ours, see walk.cpp.
// - Validating an encoding reads behind the text (#2327): the text is validated before it comes here.
// - An escaped surrogate that stands alone is let through or ends the host (#1738): see CheckedUtf8.
// - SIMD instructions read up to 15 bytes behind the text (#1227, #1723): they are not in use.
// - Deep documents overflow the stack in the parser, in visiting and in destroying values (#1027, #2282):
//   the parser is told not to recurse, and there are no values.
// - Where memory runs out, its absence is written to (#1735): see ThrowingAllocator.
// Writing:
// - A text of 700 MB makes the room for it wrap around at 32 bits (#2336, #2348): see Output::ascii.
// - A float with few decimals takes more room than there is (#2185): all are written with all of them.
// Both: an empty stack counts from a null pointer (#1724). Reserve below is ours.
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
