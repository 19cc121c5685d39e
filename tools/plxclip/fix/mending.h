// Mending one document: what can be decided is changed in its text, the rest is named.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "check/document.h"
#include "check/finding.h"
#include "document/document.h"

namespace plxclip::fix {

struct Change {
    std::string pointer;
    document::Position position; // in the text before the change, as it was by then
    std::string message;
};

// Whether a change is wanted that nobody but the author can be sure of.
using Ask = std::function<bool(const std::string& question)>;

// Lets the document's reader read its text and tell it what is lost.
using Read = std::function<void(check::Document& document)>;

// The JSON that a required value must be; none if that is not known.
using Supply = std::function<std::optional<std::string>(const check::format::Loss& loss)>;

struct Surroundings {
    std::string name; // of the document, for questions
    Read read;
    Supply supply;
    Ask ask;
};

class Mending {
public:
    Mending(std::string utf8, Surroundings around) : text(std::move(utf8)), world(std::move(around))
    {
    }

    // Mends until there is nothing more to mend.
    void run();

    // Sets a value, whatever it is. False if there is no such member.
    bool set(std::string_view object, std::string_view key, const std::string& json,
             const std::string& why);

    std::string text;
    std::vector<Change> changes;
    std::vector<check::Finding> left; // what was not mended and loses something
    bool isDocument = false;          // the text can be read

private:
    class Round;

    Surroundings world;
    std::vector<std::string> refused; // the pointers of keys that shall not be renamed
};

// What was found in a document, without what loses nothing.
std::vector<check::Finding> lossesIn(const check::Document& document);

} // namespace plxclip::fix
