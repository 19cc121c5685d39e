// A document of a clip file, and what is found in it while the library's reader reads it.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "check/finding.h"
#include "format/losses.h"

namespace plxclip::check {

namespace own = Korvel::CANTORIS::PLX;
namespace format = own::format;

class Document final : public format::Listener {
public:
    // The name is that in the findings.
    explicit Document(std::string_view documentName) : name(documentName) {}

    // Reads the file as the library does. False when that is not possible, which is a finding.
    bool load(const std::filesystem::path& file, std::uint64_t limit);
    // The same for content that is there already.
    void take(std::string content);
    // For the reader, which overwrites it.
    std::string& copy() { return used = bytes; }

    void lost(const format::Loss& told) override;
    void refused(const format::Defect& told) override { defect = told; }
    void took(const format::Taken& told) override { taken.push_back(told); }

    const std::vector<format::Taken>& allTaken() const { return taken; }
    // Where the value of this path stands, if it was taken, and no more than that.
    Finding placeOf(std::string_view path) const;

    // Adds what the reader does not tell.
    void add(Finding finding) { others.push_back(std::move(finding)); }

    // All that was found, in the order of the places.
    std::vector<Finding> findings() const;

    // What was lost, without what matters no more because of another loss. Of a missing key the path is that
    // which it would have.
    std::vector<format::Loss> lossesThatMatter() const;
    const std::optional<format::Defect>& whyUnreadable() const { return defect; }

private:
    bool matters(const format::Loss& loss) const;
    Finding findingOfDefect() const;

    std::string name;
    std::string bytes;
    std::string utf8;
    std::string used;
    std::vector<Finding> others;
    std::vector<format::Taken> taken;
    std::vector<format::Loss> losses;
    std::optional<format::Defect> defect;

    // Paths of what is lost as a whole, so that what was lost in it need not matter.
    std::map<std::string, bool, std::less<>> objects; // and whether what is around it needs them
    std::set<std::string, std::less<>> emptied;       // lists of which too little is left
    std::set<std::string, std::less<>> passedOver;
};

} // namespace plxclip::check
