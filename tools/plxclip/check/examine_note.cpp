#include "check/examination.h"

namespace plxclip::check {

namespace {

constexpr Loss noteDropped{Effect::dropped, "the note is left out"};
constexpr Loss nothing{Effect::ignored, ""};
constexpr Loss pointDropped{Effect::dropped, "the point is left out"};
constexpr Loss dvqmDropped{Effect::dropped, "all of it is left out"};
constexpr Loss vibratoEnds{Effect::dropped, "the vibrato is not read any further"};
constexpr Loss nameDropped{Effect::dropped, "the name is left out"};

// A position plus a duration has an end.
bool fits(Examiner& examiner, const Fields& note)
{
    const std::int64_t end =
        std::int64_t{note["pos"]->integer} + std::int64_t{note["duration"]->integer};
    if (end <= keys::lastPosition) {
        return true;
    }
    examiner.report(*note["duration"], Reason::outOfRange,
                    "leads beyond position " + std::to_string(keys::lastPosition), noteDropped);
    return false;
}

std::size_t countLevelNames(const Node& array)
{
    std::size_t count = 0;
    for (const Node& element : Children(array)) {
        count += element.kind == Kind::text ? 1U : 0U;
    }
    return count;
}

void reportOtherNames(Examiner& examiner, const Node& array)
{
    for (const Node& element : Children(array)) {
        if (element.kind != Kind::text) {
            examiner.report(element, Reason::wrongType, "is no string", nameDropped);
        }
    }
}

// False when it is left at its defaults.
bool examineDvqm(Examiner& examiner, const Node& object, Contents& contents)
{
    const Fields fields(examiner, object, keys::dvqm, dvqmDropped);
    if (!fields.complete()) {
        return false;
    }
    const Node& array = *fields["levelNames"];
    const std::size_t names = countLevelNames(array);
    if (names == 0 || names > keys::mostLevelNames) {
        examiner.report(array, Reason::wrongValue,
                        "holds " + std::to_string(names) + " strings, but must hold 1 to " +
                            std::to_string(keys::mostLevelNames),
                        dvqmDropped);
        return false;
    }
    reportOtherNames(examiner, array);
    contents.levelNames += names;
    contents.values += fields.sum();
    return true;
}

void examineDvqmPair(Examiner& examiner, const Node& object, Contents& contents)
{
    const Fields fields(examiner, object, keys::dvqmPair, nothing);
    for (const Key& key : keys::dvqmPair) {
        const Node* const dvqm = fields[key.name];
        if (dvqm == nullptr || !examineDvqm(examiner, *dvqm, contents)) {
            contents.values += initialSum(keys::dvqm);
        }
    }
}

void examineSingingSkill(Examiner& examiner, const Node& object, std::int32_t noteDuration,
                         Contents& contents)
{
    const auto table = keys::singingSkill(noteDuration);
    const Fields fields(examiner, object, table, nothing);
    contents.values += fields.sum();
    if (const Node* const weight = fields["weight"]) {
        contents.values += Fields(examiner, *weight, keys::weight, nothing).sum();
    } else {
        contents.values += initialSum(keys::weight);
    }
}

bool holds(const Node* object, std::string_view key, std::int32_t number)
{
    const Node* const value =
        object != nullptr && object->kind == Kind::object ? memberOf(*object, key) : nullptr;
    return value == nullptr || (value->kind == Kind::integer && value->integer == number);
}

// What every saved note has. Not to read it loses nothing.
bool isInitialSkill(const Node& object)
{
    const Node* const weight = memberOf(object, "weight");
    return holds(&object, "duration", 0) && holds(weight, "pre", 64) && holds(weight, "post", 64);
}

void examineAttackAndRelease(Examiner& examiner, const Fields& note, Contents& contents)
{
    if (const Node* const pair = note["dvqm"]) {
        examineDvqmPair(examiner, *pair, contents);
    } else {
        contents.values += 2 * initialSum(keys::dvqm);
    }
}

void examineSkill(Examiner& examiner, const Fields& note, Contents& contents)
{
    const Node* const skill = note["singingSkill"];
    if (skill != nullptr && note.present("dvqm") == nullptr) {
        examineSingingSkill(examiner, *skill, note["duration"]->integer, contents);
        return;
    }
    contents.values += initialSum(keys::weight);
    if (skill != nullptr && !isInitialSkill(*skill)) {
        examiner.reportKey(*skill, Reason::notLookedAt, R"(is not looked at beside "dvqm")",
                           {Effect::dropped, "it has its defaults"});
    }
}

bool isWithin(Examiner& examiner, const Node* value, std::int32_t maximum)
{
    if (value == nullptr || (0 <= value->integer && value->integer <= maximum)) {
        return true;
    }
    examiner.report(*value, Reason::outOfRange, "is not in 0 to " + std::to_string(maximum),
                    vibratoEnds);
    return false;
}

void examineVibrato(Examiner& examiner, const Node& object, std::int32_t noteDuration,
                    Contents& contents)
{
    const Fields fields(examiner, object, keys::vibrato, nothing);
    const Node* const type = fields["type"];
    if (!isWithin(examiner, type, keys::lastVibratoType)) {
        return;
    }
    contents.values += type != nullptr ? type->integer * millionths : 0;
    const Node* const duration = fields["duration"];
    if (!isWithin(examiner, duration, noteDuration)) {
        return;
    }
    const std::int32_t end = duration != nullptr ? duration->integer : 0;
    contents.values += end * millionths;
    const PointRule rule{keys::point(0, end, 0, keys::lastVibratoValue), pointDropped};
    for (const std::string_view curve : {"depths", "rates"}) {
        if (const Node* const array = fields[curve]) {
            const Points points = examinePoints(examiner, *array, rule);
            contents.vibratoPoints += points.count;
            contents.values += points.sum;
        }
    }
}

// The values of one of a note's objects, which may not be there.
std::int64_t examineValues(Examiner& examiner, const Node* object, std::span<const Key> table)
{
    return object != nullptr ? Fields(examiner, *object, table, nothing).sum() : initialSum(table);
}

void examineNote(Examiner& examiner, const Node& element, Contents& contents)
{
    const Fields fields(examiner, element, keys::note, noteDropped);
    if (!fields.complete() || !fits(examiner, fields)) {
        return;
    }
    ++contents.notes;
    contents.values += fields.sum();
    contents.values += examineValues(examiner, fields["exp"], keys::expression);
    contents.values += examineValues(examiner, fields["aiExp"], keys::aiExpression);
    examineAttackAndRelease(examiner, fields, contents);
    examineSkill(examiner, fields, contents);
    if (const Node* const object = fields["vibrato"]) {
        examineVibrato(examiner, *object, fields["duration"]->integer, contents);
    }
}

} // namespace

void examineNotes(Examiner& examiner, const Node& array, Contents& contents)
{
    for (const Node& element : Children(array)) {
        if (isObject(examiner, element, noteDropped)) {
            examineNote(examiner, element, contents);
        }
    }
}

} // namespace plxclip::check
