#include "check/document.h"

#include <algorithm>
#include <array>
#include <iterator>

#include <fmt/format.h>

#include "check/words.h"
#include "format/encoding.h"
#include "fs/fs.h"
#include "paths.h"

namespace plxclip::check {

namespace {

using format::Loss;
using format::LossReason;

std::string_view parentOf(std::string_view path)
{
    return path.substr(0, path.empty() ? 0 : path.rfind('/'));
}

bool isRequired(const Loss& loss)
{
    return loss.row != nullptr && !loss.isElement && loss.row->need == format::keys::Need::required;
}

std::string sizeInWords(std::uintmax_t bytes)
{
    const std::uintmax_t mebibytes = bytes >> 20;
    return mebibytes % 1024 == 0 ? fmt::format("{} GiB", mebibytes / 1024)
                                 : fmt::format("{} MiB", mebibytes);
}

} // namespace

void Document::take(std::string content)
{
    bytes = std::move(content);
    utf8 = bytes;
    format::makeUtf8(utf8);
}

bool Document::load(const std::filesystem::path& file, std::uint64_t limit)
{
    std::error_code error;
    std::string content;
    own::fs::Patience patience;
    if (own::fs::readFile(libraryPath(textOf(file)), content, {.limit = limit}, patience) ==
        own::fs::ReadResult::read) {
        take(std::move(content));
        return true;
    }
    if (is_regular_file(file, error) && file_size(file, error) > limit) {
        add({effect::refused, reason::tooLarge, "is larger than " + sizeInWords(limit)});
    } else {
        add({effect::refused, reason::unreadable, "cannot be read, or is no plain file"});
    }
    return false;
}

void Document::lost(const Loss& told)
{
    if (told.reason == LossReason::object) {
        objects.insert_or_assign(told.path, isRequired(told));
        return;
    }
    Loss& loss = losses.emplace_back(told);
    if (loss.reason == LossReason::missing) {
        loss.path += '/' + std::string(loss.key);
    } else if (loss.reason == LossReason::tooFew) {
        emptied.insert(loss.path);
    } else if (loss.reason == LossReason::notLookedAt) {
        passedOver.insert(loss.path);
    } else if (loss.reason == LossReason::notAccepted &&
               loss.shape->id == format::keys::Shape::Id::vibrato) {
        // It keeps what follows it from being read.
        const std::string vibrato(parentOf(loss.path));
        passedOver.insert({vibrato + "/rates", vibrato + "/depths"});
    }
}

// Of an object or a document that is lost, only why it is lost matters: what else is wrong with it loses nothing more.
bool Document::matters(const Loss& loss) const
{
    bool isCause = isRequired(loss); // of the loss of what is around it
    for (std::string_view path = loss.path; !path.empty();) {
        path = parentOf(path);
        const auto object = objects.find(path);
        if (passedOver.contains(path) || (object != objects.end() && !isCause)) {
            return false;
        }
        isCause = object != objects.end() ? object->second : emptied.contains(path);
    }
    return true;
}

Finding Document::placeOf(std::string_view path) const
{
    const auto what = std::ranges::find(taken, path, &format::Taken::path);
    if (what == taken.end()) {
        return {};
    }
    const Position position = document::behind(std::string_view(utf8).substr(0, what->place));
    return {.place = what->place, .pointer = what->path, .document = name, .position = position};
}

std::vector<Finding> Document::findings() const
{
    std::vector<Finding> all = others;
    if (defect) {
        all.push_back(findingOfDefect());
    }
    for (const Loss& loss : lossesThatMatter()) {
        all.push_back(findingOf(loss, utf8));
    }
    std::ranges::stable_sort(all, {}, &Finding::place);
    Position position{1, 1};
    std::size_t place = 0;
    for (Finding& finding : all) {
        finding.document = name;
        if (finding.place != Finding::nowhere) {
            position = document::behind(std::string_view(utf8).substr(place, finding.place - place),
                                        position);
            place = finding.place;
            finding.position = position;
        }
    }
    return all;
}

std::vector<Loss> Document::lossesThatMatter() const
{
    std::vector<Loss> all;
    std::ranges::copy_if(losses, std::back_inserter(all),
                         [this](const Loss& loss) { return !defect && matters(loss); });
    return all;
}

Finding Document::findingOfDefect() const
{
    if (defect->kind != format::Defect::Kind::encoding) {
        return findingOf(*defect, utf8);
    }
    constexpr std::array<std::string_view, 5> names = {"UTF-8", "UTF-16LE", "UTF-16BE", "UTF-32LE",
                                                       "UTF-32BE"};
    const auto encoding = static_cast<std::size_t>(format::detectEncoding(bytes).encoding);
    return {effect::refused, reason::encoding,
            fmt::format("byte {} is no {}", format::placeInFile(bytes, defect->place),
                        names.at(encoding)),
            defect->place};
}

} // namespace plxclip::check
