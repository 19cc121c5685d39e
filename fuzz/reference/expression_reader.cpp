#include "reference/note_reader.h"
#include "reference/point_reader.h"

namespace Korvel::CANTORIS::PLX::reference {

namespace {

// The level names of a Dvqm object, or none at all when their number is not right.
std::vector<String> readLevelNames(const Value* value)
{
    std::vector<String> names;
    if (asArray(value) == nullptr) {
        return names;
    }
    for (const auto& element : value->GetArray()) {
        if (auto name = asText(&element)) {
            names.push_back(std::move(*name));
        }
        if (names.size() > maxReadLevelNames) {
            return {};
        }
    }
    return names;
}

void readDvqm(const Value& object, DvqmBaseImpl& dvqm)
{
    namespace keys = schema::dvqm;
    const Members members(object, keys::keys);
    const auto compID = asText(members[keys::compID]);
    const auto levelNames = readLevelNames(members[keys::levelNames]);
    if (!compID || compID->empty() || levelNames.empty()) {
        return;
    }
    dvqm.assignCompID(*compID);
    for (const String& name : levelNames) {
        dvqm.appendLevelName(name);
    }
    if (const auto flag = asFlag(members[keys::isProtected])) {
        dvqm.assignProtected(*flag);
    }
    if (const auto speed = asInteger(members[keys::speed])) {
        dvqm.assignSpeed(static_cast<std::uint32_t>(*speed));
    }
    if (const auto factor = asFloat(members[keys::topFactor])) {
        dvqm.assignTopFactor(*factor);
    }
}

// False when the key is there with a number that is refused: reading the vibrato ends at it.
template <class Assign>
bool acceptedIfPresent(const Value* value, Assign assign)
{
    const auto number = asInteger(value);
    return !number || assign(*number);
}

} // namespace

void readExpression(const Value& object, NoteBaseImpl& note)
{
    readFields(schema::expression::fields, Members(object, schema::expression::keys), note);
}

void readAiExpression(const Value& object, NoteBaseImpl& note)
{
    const Members members(object, schema::ai_expression::keys);
    for (std::size_t place = 0; place < aiExpressionCount; ++place) {
        if (const auto value = asFloat(members[place])) {
            note.assignAi(static_cast<AiExpression>(place), *value);
        }
    }
}

void readDvqmPair(const Value& object, NoteImpl& note)
{
    const Members members(object, schema::dvqm_pair::keys);
    if (const Value* const attack = asObject(members[schema::dvqm_pair::attack])) {
        readDvqm(*attack, *note.dvqm(true));
    }
    if (const Value* const release = asObject(members[schema::dvqm_pair::release])) {
        readDvqm(*release, *note.dvqm(false));
    }
}

void readSingingSkill(const Value& object, SingingSkillBaseImpl& skill)
{
    const Members members(object, schema::singing_skill::keys);
    if (const auto duration = asInteger(members[schema::singing_skill::duration])) {
        skill.assignDuration(*duration);
    }
    if (const Value* const weight = asObject(members[schema::singing_skill::weight])) {
        readFields(schema::singing_skill::weightFields,
                   Members(*weight, schema::singing_skill::weightKeys), skill);
    }
}

void readVibrato(const Value& object, VibratoImpl& vibrato)
{
    namespace keys = schema::vibrato;
    const Members members(object, keys::keys);
    const bool goesOn =
        acceptedIfPresent(members[keys::type],
                          [&](std::int32_t type) {
                              return vibrato.assignType(static_cast<std::uint32_t>(type));
                          }) &&
        acceptedIfPresent(members[keys::duration],
                          [&](std::int32_t duration) { return vibrato.assignDuration(duration); });
    if (!goesOn) {
        return;
    }
    const auto accepts = [&vibrato](std::int32_t pos, std::int32_t value) {
        return vibrato.acceptsPosition(pos) &&
               field::vibratoValue.accepts(static_cast<std::uint32_t>(value));
    };
    for (const auto& curve : keys::curves) {
        if (const Value* const array = asArray(members[curve.key])) {
            auto points = readPoints(*array, accepts);
            vibrato.buildCurve(curve.type, points);
        }
    }
}

} // namespace Korvel::CANTORIS::PLX::reference
