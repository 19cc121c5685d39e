#include "alternatives/plain_document.h"

#include <array>
#include <cstdio>
#include <memory>

namespace bench::plain {

namespace {

struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

} // namespace

bool parseFile(const Path& path, Document& document)
{
    const std::unique_ptr<std::FILE, Close> file(std::fopen(path.c_str(), "rb"));
    if (!file) {
        return false;
    }
    std::array<char, 256> buffer{};
    rapidjson::FileReadStream bytes(file.get(), buffer.data(), buffer.size());
    rapidjson::AutoUTFInputStream<unsigned, rapidjson::FileReadStream> stream(bytes);
    document.ParseStream<rapidjson::kParseDefaultFlags, rapidjson::AutoUTF<unsigned>>(stream);
    return !document.HasParseError() && document.IsObject();
}

const Value* find(const Value* object, const char16_t* key)
{
    if (object == nullptr || !object->IsObject()) {
        return nullptr;
    }
    const auto member = object->FindMember(key);
    return member == object->MemberEnd() ? nullptr : &member->value;
}

bool readText(const Value* value, std::u16string& target)
{
    if (value == nullptr || !value->IsString()) {
        return false;
    }
    target.assign(value->GetString(), value->GetStringLength());
    return true;
}

bool readInteger(const Value* value, std::int32_t least, std::int32_t most, std::int32_t& target)
{
    if (value == nullptr || !value->IsInt() || value->GetInt() < least || value->GetInt() > most) {
        return false;
    }
    target = value->GetInt();
    return true;
}

bool readNumber(const Value* value, std::int32_t most, std::uint32_t& target)
{
    std::int32_t number = 0;
    if (!readInteger(value, 0, most, number)) {
        return false;
    }
    target = static_cast<std::uint32_t>(number);
    return true;
}

void readSwitch(const Value* value, bool& target)
{
    if (value != nullptr && value->IsBool()) {
        target = value->GetBool();
    }
}

void readFloat(const Value* value, double most, float& target)
{
    if (value != nullptr && value->IsDouble() && value->GetDouble() >= 0 &&
        value->GetDouble() <= most) {
        target = static_cast<float>(value->GetDouble());
    }
}

} // namespace bench::plain
