// Holds the objects of a document against the table of keys and reports what differs.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "check/document.h"
#include "check/finding.h"
#include "check/keys.h"

namespace plxclip::check {

// What becomes of an object that fails.
struct Loss {
    Effect effect;
    std::string_view text;
};

// Reports about one document.
class Examiner {
public:
    Examiner(const Document& examined, std::string_view documentName, std::vector<Finding>& all)
        : document(examined), name(documentName), findings(all)
    {
    }

    void report(const Node& value, Reason reason, std::string_view what, const Loss& loss);
    void reportMissing(const Node& object, std::string_view key, const Loss& loss);
    void reportKey(const Node& value, Reason reason, std::string_view what, const Loss& loss);

    std::string excerpt(const Node& value) const { return document.excerpt(value); }

private:
    void add(std::string pointer, std::size_t offset, Reason reason, std::string message,
             const Loss& loss);

    const Document& document;
    std::string_view name;
    std::vector<Finding>& findings;
};

bool equalButForCase(std::string_view a, std::string_view b);

// The first member of that name; null when there is none.
const Node* memberOf(const Node& object, std::string_view name);

// The members of an object that a table of keys names. Building it reports whatever is wrong with
// them: of an object that fails only why it fails.
class Fields {
public:
    Fields(Examiner& reporter, const Node& owner, std::span<const Key> table,
           const Loss& ifItFails);

    // False when a required key failed.
    bool complete() const { return isComplete; }

    // The value that the library takes; null when the key is missing or wrong.
    const Node* operator[](std::string_view name) const;

    // All its numbers and flags, taken or initial, in millionths.
    std::int64_t sum() const;

    // The value, right or wrong; null when the key is missing.
    const Node* present(std::string_view name) const;

private:
    static constexpr std::size_t most = 16;

    std::size_t placeOf(std::string_view name) const;
    void findMembers(std::vector<const Node*>& others);
    void take(std::size_t place, Need need);
    void reportOthers(const std::vector<const Node*>& others);

    Examiner& examiner;
    const Node& object;
    std::span<const Key> keys;
    const Loss& loss;
    std::array<const Node*, most> found{};
    std::array<bool, most> good{};
    bool isComplete = true;
};

// The same for an object that is not there.
std::int64_t initialSum(std::span<const Key> table);

} // namespace plxclip::check
