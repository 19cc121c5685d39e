// The schemas in docs/schemas, and documents to hold against them.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <rapidjson/document.h>
#include <rapidjson/pointer.h>
#include <rapidjson/schema.h>

namespace schema {

using Document = rapidjson::Document;
using Value = rapidjson::Value;

// Null when the text is no JSON.
Document parse(std::string_view utf8);
Document copyOf(const Value& value);
std::string textOf(const Value& value);

// Where each member of each object in the document stands, as JSON pointers.
std::vector<std::string> membersOf(const Value& document);

Document without(const Document& document, const std::string& member);
Document withNull(const Document& document, const std::string& member);

// The file of docs/schemas with that name, without its extension.
class Schema : public rapidjson::IRemoteSchemaDocumentProvider {
public:
    explicit Schema(const std::string& name);

    // What the document breaks; empty when it is valid.
    [[nodiscard]] std::string complaint(const Value& document) const;
    [[nodiscard]] bool accepts(const Value& document) const { return complaint(document).empty(); }

private:
    const rapidjson::SchemaDocument* GetRemoteDocument(const char* uri,
                                                       rapidjson::SizeType length) override;

    std::map<std::string, std::unique_ptr<rapidjson::SchemaDocument>> others_;
    std::unique_ptr<rapidjson::SchemaDocument> schema_;
};

} // namespace schema
