#include "format/note_writer.h"

#include "format/fields_writer.h"

namespace Korvel::CANTORIS::PLX::format {

namespace {

void writeExpression(Output& out, const NoteBase& note)
{
    out.key(schema::note::keys[schema::note::exp]);
    out.beginObject();
    writeFields(out, schema::expression::fields, note);
    out.endObject();
}

// Only AI voices have these values; for a voice bank every one of them is written as the neutral one,
// whatever the note holds.
void writeAiExpression(Output& out, const NoteBase& note, std::uint32_t partType)
{
    out.key(schema::note::keys[schema::note::aiExp]);
    out.beginObject();
    for (std::size_t place = 0; place < aiExpressionCount; ++place) {
        out.key(schema::ai_expression::keys[place]);
        out.number(partType == part_type::midiAi ? (note.*schema::ai_expression::getters[place])()
                                                 : field::aiExpression.initial);
    }
    out.endObject();
}

void writeSingingSkill(Output& out, const SingingSkillBase& skill)
{
    namespace keys = schema::singing_skill;
    out.key(schema::note::keys[schema::note::singingSkill]);
    out.beginObject();
    out.key(keys::keys[keys::duration]);
    out.integer(skill.duration());
    out.key(keys::keys[keys::weight]);
    out.beginObject();
    writeFields(out, keys::weightFields, skill);
    out.endObject();
    out.endObject();
}

bool isWritten(const DvqmBase& dvqm)
{
    return !isNullOrEmpty(dvqm.compID()) && dvqm.numLevelNames() > 0;
}

void writeDvqm(Output& out, std::string_view name, const DvqmBase& dvqm)
{
    if (!isWritten(dvqm)) {
        return;
    }
    namespace keys = schema::dvqm;
    out.key(name);
    out.beginObject();
    out.key(keys::keys[keys::compID]);
    out.text(dvqm.compID());
    out.key(keys::keys[keys::levelNames]);
    out.beginArray();
    for (std::uint64_t index = 0; index < dvqm.numLevelNames(); ++index) {
        out.text(dvqm.levelName(index));
    }
    out.endArray();
    out.key(keys::keys[keys::isProtected]);
    out.flag(dvqm.isProtected());
    out.key(keys::keys[keys::speed]);
    out.integer(dvqm.speed());
    out.key(keys::keys[keys::topFactor]);
    out.number(dvqm.topFactor());
    out.endObject();
}

void writeDvqmPair(Output& out, MutableNote& note)
{
    const DvqmBase& attack = *note.dvqm(true);
    const DvqmBase& release = *note.dvqm(false);
    if (!isWritten(attack) && !isWritten(release)) {
        return;
    }
    namespace keys = schema::dvqm_pair;
    out.key(schema::note::keys[schema::note::dvqm]);
    out.beginObject();
    writeDvqm(out, keys::keys[keys::attack], attack);
    writeDvqm(out, keys::keys[keys::release], release);
    out.endObject();
}

void writeCurve(Output& out, std::string_view name, const MutableVibrato& vibrato,
                std::uint32_t type)
{
    const auto size = static_cast<std::uint64_t>(vibrato.numParameters(type));
    if (size == 0) {
        return;
    }
    out.key(name);
    out.beginArray();
    for (std::uint64_t index = 0; index < size; ++index) {
        const VibratoParameterBase& point = *vibrato.parameter(type, index);
        writePoint(out, point.pos(), static_cast<std::int32_t>(point.value()));
    }
    out.endArray();
}

void writeVibrato(Output& out, const MutableVibrato& vibrato)
{
    namespace keys = schema::vibrato;
    out.key(schema::note::keys[schema::note::vibrato]);
    out.beginObject();
    out.key(keys::keys[keys::type]);
    out.integer(vibrato.type());
    out.key(keys::keys[keys::duration]);
    out.integer(vibrato.duration());
    for (const auto& curve : keys::curves) {
        writeCurve(out, keys::keys[curve.key], vibrato, curve.type);
    }
    out.endObject();
}

} // namespace

void writePoint(Output& out, std::int32_t pos, std::int32_t value)
{
    namespace keys = schema::point;
    out.beginObject();
    out.key(keys::keys[keys::pos]);
    out.integer(pos);
    out.key(keys::keys[keys::value]);
    out.integer(value);
    out.endObject();
}

void writeNote(Output& out, MutableNote& note, std::uint32_t partType)
{
    out.beginObject();
    writeFields(out, schema::note::fields, note);
    writeExpression(out, note);
    writeAiExpression(out, note, partType);
    writeSingingSkill(out, *note.singingSkill());
    if (partType == part_type::midi) {
        writeDvqmPair(out, note);
    }
    writeVibrato(out, *note.vibrato());
    out.endObject();
}

} // namespace Korvel::CANTORIS::PLX::format
