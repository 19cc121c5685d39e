#include "schema_reference.h"

#include <fmt/format.h>

#include "clip_names.h"
#include "console.h"
#include "document/document.h"
#include "fix/clip_plan.h"
#include "format/keys.h"
#include "format/limits.h"
#include "format/rewrite.h"
#include "paths.h"

namespace plxclip {

namespace fs = std::filesystem;
namespace format = Korvel::CANTORIS::PLX::format;

namespace {

bool isPlainInUrl(char letter)
{
    constexpr std::string_view others = "/:-._~";
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
           (letter >= '0' && letter <= '9') || others.find(letter) != std::string_view::npos;
}

std::string urlOf(const fs::path& file)
{
    const std::string path = textOf(file);
    const bool hasHost = path.starts_with("//"); // a shared folder of Windows
    std::string url = hasHost ? "file:" : path.starts_with('/') ? "file://" : "file:///";
    for (const char letter : path) {
        url += isPlainInUrl(letter) ? std::string(1, letter)
                                    : fmt::format("%{:02X}", static_cast<unsigned char>(letter));
    }
    return url;
}

bool refer(const fs::path& document, const fs::path& schema)
{
    const auto text = fix::contentOf(document, format::dataDocumentLimit);
    document::Document changed(text.value_or(""));
    if (changed.root() == nullptr) {
        return false;
    }
    changed.insert(*changed.root(), format::keys::schemaReference, document::quote(urlOf(schema)),
                   nullptr);
    return format::rewriteDocument(libraryPath(textOf(document)), changed.text());
}

} // namespace

bool referToSchemas(const fs::path& clipFile)
{
    const fs::path folder = (programFile().parent_path() / PLXCLIP_SCHEMAS).lexically_normal();
    std::error_code error;
    return !fs::is_directory(folder, error) ||
           (refer(clipFile.parent_path() / propertyName, folder / "property.schema.json") &&
            refer(clipFile, folder / "data.schema.json"));
}

} // namespace plxclip
