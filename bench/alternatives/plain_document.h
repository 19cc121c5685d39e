// The UTF-16 document of the plain form, and the lookups in it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include <rapidjson/document.h>
#include <rapidjson/encodedstream.h>
#include <rapidjson/filereadstream.h>

#include "data/folder.h"

namespace bench::plain {

using Utf16 = rapidjson::UTF16<char16_t>;
using Document = rapidjson::GenericDocument<Utf16>;
using Value = Document::ValueType;

// False when the file cannot be opened or holds no document.
bool parseFile(const Path& file, Document& document);

// Null when the object has no such key, or is no object.
const Value* find(const Value* object, const char16_t* key);

// Each changes its target only when there is a value of the type, and of the range.
bool readText(const Value* value, std::u16string& target);
bool readInteger(const Value* value, std::int32_t least, std::int32_t most, std::int32_t& target);
bool readNumber(const Value* value, std::int32_t most, std::uint32_t& target);
void readSwitch(const Value* value, bool& target);
void readFloat(const Value* value, double most, float& target);

template <class Visit>
void forEach(const Value* array, Visit visit)
{
    if (array != nullptr && array->IsArray()) {
        for (const Value& element : array->GetArray()) {
            visit(&element);
        }
    }
}

} // namespace bench::plain
