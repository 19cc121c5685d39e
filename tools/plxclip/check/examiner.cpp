#include "check/examiner.h"

#include <algorithm>

#include "check/contents.h"
#include "check/values.h"

namespace plxclip::check {

namespace {

char lower(char letter)
{
    return 'A' <= letter && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

// Objects and arrays are long and their beginning tells little.
bool isShown(const Node& value)
{
    return value.kind != Kind::object && value.kind != Kind::array;
}

std::int64_t numberOf(const Node& value)
{
    switch (value.kind) {
    case Kind::flag:
        return value.flag ? millionths : 0;
    case Kind::integer:
        return value.integer * millionths;
    case Kind::real:
        return inMillionths(static_cast<float>(value.real));
    default:
        return 0;
    }
}

} // namespace

bool equalButForCase(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char left, char right) { return lower(left) == lower(right); });
}

void Examiner::add(std::string pointer, std::size_t offset, Reason reason, std::string message,
                   const Loss& loss)
{
    if (!loss.text.empty()) {
        message += "; ";
        message += loss.text;
    }
    findings.push_back({loss.effect, reason, std::string(name), std::move(pointer),
                        document.positionOf(offset), std::move(message)});
}

void Examiner::report(const Node& value, Reason reason, std::string_view what, const Loss& loss)
{
    std::string message = isShown(value) ? excerpt(value) + ' ' : std::string();
    message += what;
    add(pointerTo(value), value.start, reason, std::move(message), loss);
}

void Examiner::reportMissing(const Node& object, std::string_view key, const Loss& loss)
{
    add(pointerTo(object, key), object.start, Reason::missingKey, "is missing", loss);
}

void Examiner::reportKey(const Node& value, Reason reason, std::string_view what, const Loss& loss)
{
    add(pointerTo(value), value.keyStart, reason, std::string(what), loss);
}

const Node* memberOf(const Node& object, std::string_view name)
{
    for (const Node& member : Children(object)) {
        if (member.key == name) {
            return &member;
        }
    }
    return nullptr;
}

Fields::Fields(Examiner& reporter, const Node& owner, std::span<const Key> table,
               const Loss& ifItFails)
    : examiner(reporter), object(owner), keys(table), loss(ifItFails)
{
    std::vector<const Node*> others;
    findMembers(others);
    for (std::size_t place = 0; place < keys.size(); ++place) {
        take(place, Need::required);
    }
    if (!isComplete) {
        return;
    }
    for (std::size_t place = 0; place < keys.size(); ++place) {
        take(place, Need::optional);
    }
    reportOthers(others);
}

std::size_t Fields::placeOf(std::string_view name) const
{
    std::size_t place = 0;
    while (place < keys.size() && keys[place].name != name) {
        ++place;
    }
    return place;
}

void Fields::findMembers(std::vector<const Node*>& others)
{
    for (const Node& member : Children(object)) {
        const std::size_t place = placeOf(member.key);
        if (place < keys.size() && found[place] == nullptr) {
            found[place] = &member;
        } else {
            others.push_back(&member);
        }
    }
}

void Fields::take(std::size_t place, Need need)
{
    const Key& key = keys[place];
    const Node* const value = found[place];
    if (key.need != need) {
        return;
    }
    if (value == nullptr) {
        if (need == Need::required) {
            isComplete = false;
            examiner.reportMissing(object, key.name, loss);
        }
        return;
    }
    const auto problem = problemOf(*value, key);
    good[place] = !problem;
    if (!problem) {
        return;
    }
    if (need == Need::required) {
        isComplete = false;
        examiner.report(*value, problem->reason, problem->text, loss);
    } else {
        examiner.report(*value, problem->reason, problem->text, {Effect::ignored, key.instead});
    }
}

// Keys that no table names are anyone's own, but one that differs in case alone is a mistake.
void Fields::reportOthers(const std::vector<const Node*>& others)
{
    for (const Node* const member : others) {
        if (placeOf(member->key) < keys.size()) {
            examiner.reportKey(*member, Reason::repeated, "stands here again",
                               {Effect::dropped, "the first one counts"});
            continue;
        }
        for (std::size_t place = 0; place < keys.size(); ++place) {
            if (found[place] == nullptr && equalButForCase(member->key, keys[place].name)) {
                examiner.reportKey(*member, Reason::unknownKey,
                                   "is no key; \"" + std::string(keys[place].name) + "\" is one",
                                   {Effect::ignored, "capital letters count"});
            }
        }
    }
}

const Node* Fields::operator[](std::string_view name) const
{
    const std::size_t place = placeOf(name);
    return place < keys.size() && good[place] ? found[place] : nullptr;
}

std::int64_t Fields::sum() const
{
    std::int64_t sum = 0;
    for (std::size_t place = 0; place < keys.size(); ++place) {
        sum += good[place] ? numberOf(*found[place]) : inMillionths(keys[place].initial);
    }
    return sum;
}

std::int64_t initialSum(std::span<const Key> table)
{
    std::int64_t sum = 0;
    for (const Key& key : table) {
        sum += inMillionths(key.initial);
    }
    return sum;
}

const Node* Fields::present(std::string_view name) const
{
    const std::size_t place = placeOf(name);
    return place < keys.size() ? found[place] : nullptr;
}

} // namespace plxclip::check
