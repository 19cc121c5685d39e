// The one place that includes RapidJSON, as this library needs it.
#pragma once

#include <cstddef>
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

#include <rapidjson/document.h>
#include <rapidjson/prettywriter.h>
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

using Pool = json::MemoryPoolAllocator<ThrowingAllocator>;
using Value = json::GenericValue<CheckedUtf8, Pool>;

} // namespace Korvel::CANTORIS::PLX::format
