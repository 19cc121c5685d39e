#include "check/diagnosis.h"

#include <algorithm>
#include <array>
#include <iterator>

#include <korvel/plx.hpp>

#include "check/files.h"
#include "check/hearing.h"
#include "check/second_look.h"
#include "check/words.h"
#include "format/encoding.h"
#include "format/limits.h"
#include "format/read.h"

namespace plxclip::check {

namespace fs = std::filesystem;
namespace plx = korvel::plx;

namespace {

std::string sizeInWords(std::uintmax_t bytes)
{
    constexpr std::uintmax_t mebibyte = std::uintmax_t{1} << 20;
    constexpr std::uintmax_t gibibyte = std::uintmax_t{1} << 30;
    return bytes % gibibyte == 0 ? std::to_string(bytes / gibibyte) + " GiB"
                                 : std::to_string(bytes / mebibyte) + " MiB";
}

std::string_view nameOf(format::Encoding encoding)
{
    constexpr std::array<std::string_view, 5> names = {"UTF-8", "UTF-16LE", "UTF-16BE", "UTF-32LE",
                                                       "UTF-32BE"};
    return names[static_cast<std::size_t>(encoding)];
}

// A path as the library takes it.
plx::String libraryPath(const fs::path& path)
{
    std::string text = textOf(path);
    std::replace(text.begin(), text.end(), '/', '\\');
    return plx::fromUtf8(text);
}

// A document that was read, or tried, and what was said about it.
class Reading {
public:
    Reading(std::string content, std::string_view documentName)
        : bytes(std::move(content)), name(documentName)
    {
        std::string utf8 = bytes;
        format::makeUtf8(utf8);
        text = Text(std::move(utf8));
    }

    // For the reader, which uses it up.
    std::string& copy() { return used = bytes; }

    void add(Finding finding)
    {
        finding.document = name;
        findings.push_back(std::move(finding));
    }

    // In the order of their places.
    void report(std::vector<Finding>& all)
    {
        auto& losses = hearing.losses;
        std::stable_sort(losses.begin(), losses.end(), [](const Heard& a, const Heard& b) {
            return a.loss.place < b.loss.place;
        });
        for (const Heard& loss : losses) {
            add(findingOf(loss, text));
        }
        if (hearing.defect) {
            add(defectFinding(*hearing.defect));
        }
        std::move(findings.begin(), findings.end(), std::back_inserter(all));
    }

    Finding placeOf(const format::Taken& taken)
    {
        return {
            Effect::noted, Reason::otherType, name, taken.path, text.positionOf(taken.place), {}};
    }

    // Where the value of this path stands; null when it was not taken.
    const format::Taken* taken(std::string_view path) const
    {
        const auto found =
            std::find_if(hearing.taken.begin(), hearing.taken.end(),
                         [path](const format::Taken& each) { return each.path == path; });
        return found == hearing.taken.end() ? nullptr : &*found;
    }

    Hearing hearing;
    Text text{{}};

private:
    Finding defectFinding(const format::Defect& defect)
    {
        if (defect.kind != format::Defect::Kind::encoding) {
            return findingOf(defect, text);
        }
        const auto encoding = format::detectEncoding(bytes).encoding;
        const std::size_t place = format::placeInFile(bytes, defect.place);
        return {Effect::refused,
                Reason::encoding,
                {},
                {},
                text.positionOf(defect.place),
                "byte " + std::to_string(place) + " is no " + std::string(nameOf(encoding))};
    }

    std::string bytes;
    std::string used;
    std::string name;
    std::vector<Finding> findings;
};

class Diagnostician {
public:
    explicit Diagnostician(const fs::path& file) : clipFile(file), folder(file.parent_path()) {}

    Diagnosis run();

private:
    void examinePropertyDocument();
    void examineClipFile();
    void reportMissing();
    std::string similarName() const;
    std::unique_ptr<Reading> load(const fs::path& file, std::string_view name,
                                  std::uintmax_t limit);
    void refuse(std::string_view document, Reason reason, std::string message);
    void compareTypes();

    fs::path clipFile;
    fs::path folder;
    format::DocumentReader reader;
    std::unique_ptr<Reading> properties;
    std::unique_ptr<Reading> data;
    bool isByProperties = false;
    Diagnosis result;
};

Diagnosis Diagnostician::run()
{
    examinePropertyDocument();
    examineClipFile();
    compareTypes();
    for (Reading* const reading : {properties.get(), data.get()}) {
        if (reading != nullptr) {
            reading->report(result.findings);
        }
    }
    return std::move(result);
}

void Diagnostician::refuse(std::string_view document, Reason reason, std::string message)
{
    result.findings.push_back(
        {Effect::refused, reason, std::string(document), {}, {}, std::move(message)});
}

std::unique_ptr<Reading> Diagnostician::load(const fs::path& file, std::string_view name,
                                             std::uintmax_t limit)
{
    std::string bytes;
    const ReadResult read = readFile(file, limit, bytes);
    if (read == ReadResult::tooLarge) {
        refuse(name, Reason::tooLarge, "is larger than " + sizeInWords(limit));
        return nullptr;
    }
    if (read == ReadResult::unreadable) {
        refuse(name, Reason::unreadable, "cannot be read, or is no plain file");
        return nullptr;
    }
    return std::make_unique<Reading>(std::move(bytes), name);
}

// On a system that tells capital letters from small ones the name has to be right to the letter.
std::string Diagnostician::similarName() const
{
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder, error)) {
        const std::string name = textOf(entry.path().filename());
        if (lowerCase(name) == propertyDocument) {
            return name;
        }
    }
    return {};
}

void Diagnostician::reportMissing()
{
    const std::string similar = similarName();
    refuse(propertyDocument, Reason::missingDocument,
           similar.empty() ? "there is none beside the clip file"
                           : "there is none beside the clip file; \"" + similar +
                                 "\" is not looked at, capital letters count");
}

void Diagnostician::examinePropertyDocument()
{
    const fs::path file = folder / propertyDocument;
    std::error_code error;
    if (!fs::exists(file, error)) {
        reportMissing();
        return;
    }
    properties = load(file, propertyDocument, format::propertyDocumentLimit);
    if (properties == nullptr) {
        return;
    }
    isByProperties = result.isListable =
        reader.readProperties(properties->copy(), result.properties, &properties->hearing);
    if (const auto* const id = properties->taken("/id")) {
        result.id = properties->placeOf(*id);
    }
}

void Diagnostician::examineClipFile()
{
    data = load(clipFile, {}, format::dataDocumentLimit);
    if (data == nullptr) {
        return;
    }
    const plx::String directory = libraryPath(folder);
    if (result.isListable) {
        result.part = reader.readPart(data->copy(), directory, nullptr, &data->hearing);
    } else {
        format::LoadedClip clip;
        result.isListable = reader.readClip(data->copy(), directory, nullptr, clip, &data->hearing);
        result.properties = std::move(clip.properties);
        result.part = std::move(clip.part);
        if (const auto* const id = data->taken("/id")) {
            result.id = data->placeOf(*id);
        }
    }
    if (result.part != nullptr) {
        for (Note& note : noteworthyOf(*result.part, data->hearing.taken)) {
            note.finding.position = data->text.positionOf(note.place);
            data->add(std::move(note.finding));
        }
    }
}

// A catalogue shows the type of the property document, and a host makes of the clip what it says.
void Diagnostician::compareTypes()
{
    const auto* const type = isByProperties ? properties->taken("/part/type") : nullptr;
    if (type == nullptr || result.part == nullptr ||
        result.properties.partType == result.part->type()) {
        return;
    }
    const auto nameOfType = [](std::uint32_t code) {
        return '"' + std::string(own::part_type::name(code)) + '"';
    };
    Finding finding = properties->placeOf(*type);
    finding.message = nameOfType(result.properties.partType) +
                      " is shown in a catalogue, but the part of the clip file is " +
                      nameOfType(result.part->type());
    properties->add(std::move(finding));
}

} // namespace

Diagnosis diagnose(const fs::path& clipFile)
{
    return Diagnostician(clipFile).run();
}

} // namespace plxclip::check
