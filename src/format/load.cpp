#include "format/load.h"

#include <optional>

#include "format/document.h"
#include "format/encoding.h"
#include "format/filter_reader.h"
#include "format/limits.h"
#include "format/part_reader.h"
#include "format/values.h"

namespace Korvel::CANTORIS::PLX::format {

namespace {

bool readRequiredText(const Value* value, String& slot)
{
    auto text = asText(value);
    if (!text || text->empty()) {
        return false;
    }
    slot = std::move(*text);
    return true;
}

void readVendorAndFilter(const Value* vendor, const Value* filter, ClipProperties& properties)
{
    if (auto name = asText(vendor)) {
        properties.vendorName = std::move(*name);
    }
    if (asObject(filter) != nullptr) {
        readFilter(*filter, properties.vendorName, properties.filter);
    }
}

bool readPartHeader(const Value* value, ClipProperties& properties)
{
    if (asObject(value) == nullptr) {
        return false;
    }
    namespace keys = schema::part_header;
    const Members members(*value, keys::keys);
    const auto type = asWholeUtf8(members[keys::type]);
    if (!type) {
        return false;
    }
    properties.partType = part_type::fromName(*type);
    if (part_type::isMidi(properties.partType)) {
        if (const auto key = asInteger(members[keys::key])) {
            properties.assignPartKey(static_cast<std::uint32_t>(*key));
        }
        if (const auto tempo = asInteger(members[keys::tempo])) {
            properties.assignPartTempo(static_cast<std::uint32_t>(*tempo));
        }
    }
    return properties.partType != part_type::none;
}

// False without a root, too.
bool fill(ClipProperties& properties, const Value* root)
{
    if (root == nullptr) {
        return false;
    }
    namespace keys = schema::property;
    const Members members(*root, keys::keys);
    if (!readRequiredText(members[keys::id], properties.id) ||
        !readRequiredText(members[keys::name], properties.name) ||
        !readPartHeader(members[keys::part], properties)) {
        return false;
    }
    readVendorAndFilter(members[keys::vendor], members[keys::filter], properties);
    return true;
}

// Every document is an object. A file that begins with anything else is not worth its memory.
fs::Verdict judge(std::string_view beginning)
{
    constexpr std::size_t enoughForTheEncoding = 4;
    const auto unit = beginning.size() < enoughForTheEncoding ? std::nullopt : firstUnit(beginning);
    if (!unit) {
        return fs::Verdict::undecided;
    }
    return *unit == U'{' ? fs::Verdict::worthReading : fs::Verdict::hopeless;
}

} // namespace

// One document at a time. The roots are null when the file cannot be read and when it holds no document.
class Loader::Source {
public:
    const Value* propertyRoot(const fs::Path& path, fs::Kind kind)
    {
        return root(path, propertyDocumentLimit, kind);
    }

    const Value* dataRoot(const fs::Path& path)
    {
        return root(path, dataDocumentLimit, fs::Kind::unknown);
    }

    const Value* rootOf(std::string& bytes) { return document_.parse(bytes); }

private:
    const Value* root(const fs::Path& path, std::uint64_t limit, fs::Kind kind)
    {
        const fs::ReadOptions options{limit, judge, kind};
        const bool isRead = fs::readFile(path, bytes_, options, patience_) == fs::ReadResult::read;
        return isRead ? document_.parse(bytes_) : nullptr;
    }

    std::string bytes_;
    fs::Patience patience_;
    Document document_;
};

Loader::Loader() : source_(std::make_unique<Source>()) {}
Loader::~Loader() = default;

bool Loader::loadProperties(const fs::Path& path, ClipProperties& properties, fs::Kind kind)
{
    return fill(properties, source_->propertyRoot(path, kind));
}

bool Loader::takeProperties(std::string& bytes, ClipProperties& properties)
{
    return fill(properties, source_->rootOf(bytes));
}

bool Loader::loadClip(const fs::Path& path, ClipBase* clip, LoadedClip& loaded)
{
    const Value* const root = source_->dataRoot(path);
    if (root == nullptr) {
        return false;
    }
    namespace keys = schema::data;
    const DataMembers members(*root, keys::keys);
    if (!readRequiredText(members[keys::id], loaded.properties.id) ||
        !readRequiredText(members[keys::name], loaded.properties.name)) {
        return false;
    }
    readVendorAndFilter(members[keys::vendor], members[keys::filter], loaded.properties);
    loaded.part = readPart(members, fs::folderOf(path), clip);
    return loaded.part != nullptr;
}

std::unique_ptr<PartBase> Loader::loadPart(const fs::Path& path, ClipBase* clip)
{
    const Value* const root = source_->dataRoot(path);
    if (root == nullptr) {
        return nullptr;
    }
    return readPart(DataMembers(*root, schema::data::keys), fs::folderOf(path), clip);
}

} // namespace Korvel::CANTORIS::PLX::format
