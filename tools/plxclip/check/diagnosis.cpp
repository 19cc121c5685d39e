#include "check/diagnosis.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>

#include <fmt/format.h>

#include "check/files.h"
#include "check/hearing.h"
#include "check/second_look.h"
#include "check/words.h"
#include "format/encoding.h"
#include "format/limits.h"
#include "format/read.h"
#include "paths.h"

namespace plxclip::check {

namespace fs = std::filesystem;

namespace {

std::string sizeInWords(std::uintmax_t bytes)
{
    const std::uintmax_t mebibytes = bytes >> 20;
    return mebibytes % 1024 == 0 ? fmt::format("{} GiB", mebibytes / 1024)
                                 : fmt::format("{} MiB", mebibytes);
}

// A document, and what was said of it.
class Document {
public:
    Document(std::string content, std::string_view documentName)
        : bytes(std::move(content)), name(documentName), text(utf8Of(bytes))
    {
    }

    // For the reader, which overwrites it.
    std::string& copy() { return used = bytes; }

    // Where the value of this path stands, if it was taken.
    std::optional<Finding> placeOf(std::string_view path)
    {
        const auto found = std::ranges::find(hearing.taken, path, &format::Taken::path);
        if (found == hearing.taken.end()) {
            return std::nullopt;
        }
        return Finding{effect::noted,
                       reason::otherType,
                       {},
                       found->place,
                       found->path,
                       name,
                       text.positionOf(found->place)};
    }

    // In the order of their places.
    void report(std::vector<Finding>& all)
    {
        for (const Heard& loss : hearing.losses) {
            findings.push_back(findingOf(loss, text));
        }
        if (hearing.defect) {
            findings.push_back(defect(*hearing.defect));
        }
        std::ranges::stable_sort(findings, {}, &Finding::place);
        for (Finding& finding : findings) {
            finding.document = name;
            finding.position = text.positionOf(finding.place);
        }
        std::ranges::move(findings, std::back_inserter(all));
    }

    Hearing hearing;
    std::vector<Finding> findings;

private:
    static std::string utf8Of(std::string bytes)
    {
        format::makeUtf8(bytes);
        return bytes;
    }

    Finding defect(const format::Defect& defect) const
    {
        if (defect.kind != format::Defect::Kind::encoding) {
            return findingOf(defect, text);
        }
        constexpr std::array<std::string_view, 5> names = {"UTF-8", "UTF-16LE", "UTF-16BE",
                                                           "UTF-32LE", "UTF-32BE"};
        const auto encoding = static_cast<std::size_t>(format::detectEncoding(bytes).encoding);
        return {effect::refused, reason::encoding,
                fmt::format("byte {} is no {}", format::placeInFile(bytes, defect.place),
                            names.at(encoding)),
                defect.place};
    }

    std::string bytes;
    std::string used;
    std::string name;
    Text text;
};

class Diagnostician {
public:
    explicit Diagnostician(const fs::path& file) : clipFile(file), folder(file.parent_path()) {}

    Diagnosis run()
    {
        examineProperties();
        examineClipFile();
        compareTypes();
        for (auto* const document : {&properties, &data}) {
            if (*document) {
                (*document)->report(result.findings);
            }
        }
        return std::move(result);
    }

private:
    void examineProperties();
    void examineClipFile();
    void compareTypes();
    std::string similarName() const;
    void load(const fs::path& file, std::string_view name, std::uint64_t limit,
              std::optional<Document>& document);
    void refuse(std::string_view document, Reason reason, std::string message)
    {
        result.findings.push_back({effect::refused,
                                   reason,
                                   std::move(message),
                                   Finding::nowhere,
                                   {},
                                   std::string(document)});
    }

    fs::path clipFile;
    fs::path folder;
    own::fs::Patience patience;
    format::DocumentReader reader;
    std::optional<Document> properties;
    std::optional<Document> data;
    bool isByProperties = false;
    Diagnosis result;
};

// Reads a file as the library does.
void Diagnostician::load(const fs::path& file, std::string_view name, std::uint64_t limit,
                         std::optional<Document>& document)
{
    std::string bytes;
    std::error_code error;
    if (own::fs::readFile(libraryPath(textOf(file)), bytes, {.limit = limit}, patience) ==
        own::fs::ReadResult::read) {
        document.emplace(std::move(bytes), name);
    } else if (fs::is_regular_file(file, error) && fs::file_size(file, error) > limit) {
        refuse(name, reason::tooLarge, "is larger than " + sizeInWords(limit));
    } else {
        refuse(name, reason::unreadable, "cannot be read, or is no plain file");
    }
}

// On a system that tells capital letters from small ones the name must match exactly.
std::string Diagnostician::similarName() const
{
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder, error)) {
        const std::string name = textOf(entry.path().filename());
        if (lowerCase(name) == propertyDocument) {
            return fmt::format("; \"{}\" is not looked at, capital letters count", name);
        }
    }
    return {};
}

void Diagnostician::examineProperties()
{
    const fs::path file = folder / propertyDocument;
    std::error_code error;
    if (!fs::exists(file, error)) {
        refuse(propertyDocument, reason::missingDocument,
               "there is none beside the clip file" + similarName());
        return;
    }
    load(file, propertyDocument, format::propertyDocumentLimit, properties);
    if (properties) {
        isByProperties = result.isListable =
            reader.readProperties(properties->copy(), result.properties, &properties->hearing);
        result.id = properties->placeOf("/id").value_or(Finding());
    }
}

void Diagnostician::examineClipFile()
{
    load(clipFile, {}, format::dataDocumentLimit, data);
    if (!data) {
        return;
    }
    const auto directory = libraryPath(textOf(folder));
    if (result.isListable) {
        result.part = reader.readPart(data->copy(), directory, nullptr, &data->hearing);
    } else {
        format::LoadedClip clip;
        result.isListable = reader.readClip(data->copy(), directory, nullptr, clip, &data->hearing);
        result.properties = std::move(clip.properties);
        result.part = std::move(clip.part);
        result.id = data->placeOf("/id").value_or(result.id);
    }
    if (result.part != nullptr) {
        data->findings = noteworthyOf(*result.part, data->hearing.taken);
    }
}

// A catalogue shows the type of the property document, but a host sees the part of the clip file.
void Diagnostician::compareTypes()
{
    auto finding = isByProperties ? properties->placeOf("/part/type") : std::nullopt;
    if (finding && result.part != nullptr && result.properties.partType != result.part->type()) {
        finding->message =
            fmt::format(R"("{}" is shown in a catalogue, but the part of the clip file is "{}")",
                        own::part_type::name(result.properties.partType),
                        own::part_type::name(result.part->type()));
        properties->findings.push_back(std::move(*finding));
    }
}

} // namespace

Diagnosis diagnose(const fs::path& clipFile)
{
    return Diagnostician(clipFile).run();
}

} // namespace plxclip::check
