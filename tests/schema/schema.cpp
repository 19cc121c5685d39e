#include "schema.h"

#include <stdexcept>

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include "support/files.h"

namespace schema {

namespace {

Document readSchema(const std::string& fileName)
{
    const support::Path folder =
        support::sourceFolder(KRT_PLX_TEST_SOURCE_FOLDER) / "docs" / "schemas";
    Document document = parse(support::readFile(folder / fileName));
    if (!document.IsObject()) {
        throw std::runtime_error(fileName + " is no JSON object");
    }
    return document;
}

std::string textOf(const rapidjson::Pointer& pointer)
{
    rapidjson::StringBuffer buffer;
    pointer.Stringify(buffer);
    return buffer.GetString();
}

void collectMembers(const Value& value, const rapidjson::Pointer& place,
                    std::vector<std::string>& members)
{
    if (value.IsObject()) {
        for (const auto& member : value.GetObject()) {
            const rapidjson::Pointer next = place.Append(member.name);
            members.push_back(textOf(next));
            collectMembers(member.value, next, members);
        }
    } else if (value.IsArray()) {
        for (rapidjson::SizeType i = 0; i < value.Size(); ++i) {
            collectMembers(value[i], place.Append(i), members);
        }
    }
}

rapidjson::Pointer pointerTo(const std::string& place)
{
    return rapidjson::Pointer(place.c_str(), place.size());
}

} // namespace

Document parse(std::string_view utf8)
{
    Document document;
    document.Parse(utf8.data(), utf8.size());
    return document.HasParseError() ? Document() : std::move(document);
}

Document copyOf(const Value& value)
{
    Document copy;
    copy.CopyFrom(value, copy.GetAllocator());
    return copy;
}

std::string textOf(const Value& value)
{
    rapidjson::StringBuffer buffer;
    rapidjson::Writer writer(buffer);
    value.Accept(writer);
    return {buffer.GetString(), buffer.GetSize()};
}

std::vector<std::string> membersOf(const Value& document)
{
    std::vector<std::string> members;
    collectMembers(document, rapidjson::Pointer(), members);
    return members;
}

Document without(const Document& document, const std::string& member)
{
    Document copy = copyOf(document);
    pointerTo(member).Erase(copy);
    return copy;
}

Document withNull(const Document& document, const std::string& member)
{
    Document copy = copyOf(document);
    pointerTo(member).Set(copy, Value());
    return copy;
}

Schema::Schema(const std::string& name)
    : schema_(std::make_unique<rapidjson::SchemaDocument>(readSchema(name + ".schema.json"), this))
{
}

std::string Schema::complaint(const Value& document) const
{
    rapidjson::SchemaValidator validator(*schema_);
    if (document.Accept(validator)) {
        return {};
    }
    return textOf(validator.GetInvalidDocumentPointer()) + " breaks \"" +
           validator.GetInvalidSchemaKeyword() + "\" of " +
           textOf(validator.GetInvalidSchemaPointer());
}

const rapidjson::SchemaDocument* Schema::GetRemoteDocument(const char* uri,
                                                           rapidjson::SizeType length)
{
    // The length that is handed in leaves out a character.
    const std::string text(uri, length + 1);
    const std::string fileName = text.substr(0, text.find('#'));
    auto& other = others_[fileName];
    if (other == nullptr) {
        other = std::make_unique<rapidjson::SchemaDocument>(readSchema(fileName), this);
    }
    return other.get();
}

} // namespace schema
