#include "format/note_builder.h"

namespace Korvel::CANTORIS::PLX::format {

namespace {

using keys::NoteTable;
using keys::place;
using keys::VibratoTable;

} // namespace

std::unique_ptr<NoteImpl> NoteBuilder::end()
{
    const Members members = trail_.top().members();
    if (!taker_.take<NoteTable>(members, *note_)) {
        return nullptr;
    }
    takeSingingSkill();
    if (members.hasObject(place<NoteTable>("vibrato"))) {
        takeVibrato();
    }
    return std::move(note_);
}

bool NoteBuilder::endExpression()
{
    return taker_.take<keys::Expression>(trail_.top().members(), *note_);
}

bool NoteBuilder::endAiExpression()
{
    return taker_.take<keys::AiExpressionTable>(trail_.top().members(), *note_);
}

// --- Singing skill ------------------------------------------------------------------------------------

bool NoteBuilder::endWeight()
{
    weight_.keep(trail_.top().members());
    return true;
}

bool NoteBuilder::endSingingSkill()
{
    singingSkill_.keep(trail_.top().members());
    return true;
}

namespace {

// Whether the integers of an object are what they would be without it.
bool areInitial(const Members& members, std::span<const keys::Row> rows)
{
    for (std::size_t place = 0; place < rows.size(); ++place) {
        const Value* const value = members[place];
        if (rows[place].kind == keys::Kind::integer && value != nullptr &&
            value->asInteger() != static_cast<std::int32_t>(rows[place].range.initial)) {
            return false;
        }
    }
    return true;
}

} // namespace

// Every note that was saved has a singing skill. Where it says nothing, nothing is lost.
bool NoteBuilder::isSkillInitial() const
{
    using Skill = keys::SingingSkillTable;
    const Members skill = singingSkill_.members({});
    return areInitial(skill, keys::rows<Skill>) &&
           (!skill.hasObject(place<Skill>("weight")) ||
            areInitial(weight_.members({}), keys::rows<keys::Weight>));
}

// If the note has a Dvqm key, valid or not, the singing skill is ignored.
void NoteBuilder::takeSingingSkill()
{
    constexpr std::size_t own = place<NoteTable>("singingSkill");
    const Members members = trail_.top().members();
    if (members[own] == nullptr) {
        return;
    }
    if (members[place<NoteTable>("dvqm")] != nullptr) {
        if (members.hasObject(own) && trail_.isHeard() && !isSkillInitial()) {
            trail_.lost(LossReason::notLookedAt, members, keys::rows<NoteTable>[own], members[own]);
        }
        return;
    }
    if (!members.hasObject(own)) {
        return;
    }
    SingingSkillImpl& skill = *note_->singingSkill();
    const Members kept = singingSkill_.members("/singingSkill");
    taker_.take<keys::SingingSkillTable>(kept, skill);
    if (kept.hasObject(place<keys::SingingSkillTable>("weight"))) {
        taker_.take<keys::Weight>(weight_.members("/singingSkill/weight"), skill);
    }
}

// --- Dvqm ---------------------------------------------------------------------------------------------

void NoteBuilder::addLevelName(std::string_view utf8)
{
    if (levelNameCount_ < levelNames_.size()) {
        levelNames_[levelNameCount_] = utf8;
    }
    ++levelNameCount_;
}

bool NoteBuilder::hasLevelNames(const Members& members, const keys::Row& row) const
{
    const Value* const list = members[place<keys::Attack>("levelNames")];
    if (list == nullptr || list->kind != Value::Kind::list) {
        const auto reason = list == nullptr ? LossReason::missing : LossReason::wrongKind;
        trail_.lost(reason, members, row, list);
        return false;
    }
    const bool isTooFew = levelNameCount_ < row.fewest;
    if (isTooFew || levelNameCount_ > row.most) {
        trail_.lost(isTooFew ? LossReason::tooFew : LossReason::tooMany, members, row, list);
        return false;
    }
    return true;
}

// Takes all names or none: they are counted before anything is stored.
template <class Of>
bool NoteBuilder::endDvqm()
{
    const Members members = trail_.top().members();
    DvqmImpl& dvqm = *note_->dvqm(Of::id == keys::Id::attack);
    if (!hasLevelNames(members, keys::rows<Of>[place<Of>("levelNames")]) ||
        !taker_.take<Of>(members, dvqm)) {
        return false;
    }
    for (std::size_t index = 0; index < levelNameCount_; ++index) {
        dvqm.appendLevelName(taker_.convert(levelNames_[index]));
    }
    return true;
}

template bool NoteBuilder::endDvqm<keys::Attack>();
template bool NoteBuilder::endDvqm<keys::Release>();

bool NoteBuilder::endDvqmPair()
{
    return taker_.take<keys::DvqmPair>(trail_.top().members(), *note_);
}

// --- Vibrato ------------------------------------------------------------------------------------------

bool NoteBuilder::endVibrato()
{
    vibrato_.keep(trail_.top().members());
    return true;
}

// An integer that is refused ends the reading of a vibrato; what was read before it stays. A value
// of another kind does not.
void NoteBuilder::takeVibrato()
{
    const Members members = vibrato_.members("/vibrato");
    VibratoImpl& vibrato = *note_->vibrato();
    const auto type = taker_.takeRow<VibratoTable, place<VibratoTable>("type")>(members, vibrato);
    if (type == Taker::Outcome::notAccepted) {
        return;
    }
    const auto duration =
        taker_.takeRow<VibratoTable, place<VibratoTable>("duration")>(members, vibrato);
    if (duration == Taker::Outcome::notAccepted) {
        return;
    }
    takeCurve<keys::Rate, place<VibratoTable>("rates")>(members, KRT_PLX_VIBRATO_RATE,
                                                        "/vibrato/rates");
    takeCurve<keys::Depth, place<VibratoTable>("depths")>(members, KRT_PLX_VIBRATO_DEPTH,
                                                          "/vibrato/depths");
}

template <class Point, std::size_t place>
void NoteBuilder::takeCurve(const Members& members, std::uint32_t curve, std::string_view path)
{
    VibratoImpl& vibrato = *note_->vibrato();
    taker_.takeRow<VibratoTable, place>(members, vibrato);
    if (!members.hasList(place)) {
        return;
    }
    constexpr auto most = static_cast<std::int32_t>(field::vibratoValue.maximum);
    const PointRule rule{keys::shape<Point>, within(vibrato.duration()), within(most)};
    vibrato.buildCurve(curve, curves_[curve].keepAccepted(rule, trail_, path));
}

} // namespace Korvel::CANTORIS::PLX::format
