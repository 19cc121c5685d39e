#pragma once

#include <array>
#include <memory>
#include <string_view>

#include "format/point_list.h"
#include "format/taking.h"
#include "model/note_impl.h"

namespace Korvel::CANTORIS::PLX::format {

// Makes a note of an object that the walk goes through. What depends on the note's duration, or on
// there being a Dvqm, waits for the object's end: its keys may stand in any order.
class NoteBuilder {
public:
    NoteBuilder(const Trail& trail, Taker& taker) : trail_(trail), taker_(taker) {}

    void begin(MidiPartBase& part) { note_ = std::make_unique<NoteImpl>(part); }
    // Null when the note is not taken.
    std::unique_ptr<NoteImpl> end();

    // The objects in it, and their lists.
    bool endExpression();
    bool endAiExpression();
    bool endWeight();
    bool endSingingSkill();
    void beginLevelNames() { levelNameCount_ = 0; }
    void addLevelName(std::string_view utf8);
    template <class Of>
    bool endDvqm();
    bool endDvqmPair();
    void beginCurve(std::uint32_t curve) { curves_[curve].clear(); }
    template <class Of>
    bool endPoint(std::uint32_t curve)
    {
        return curves_[curve].append<Of>(trail_, taker_);
    }
    bool endVibrato();

private:
    void takeSingingSkill();
    void takeVibrato();
    template <std::size_t place>
    void takeCurve(const Members& members, std::uint32_t curve, std::string_view path);
    bool hasLevelNames(const Members& members, const keys::Row& row) const;

    const Trail& trail_;
    Taker& taker_;
    std::unique_ptr<NoteImpl> note_;
    Kept<keys::SingingSkillTable> singingSkill_;
    Kept<keys::Weight> weight_;
    Kept<keys::VibratoTable> vibrato_;
    std::array<PointList, vibratoCurves> curves_;
    std::array<std::string_view, maxReadLevelNames> levelNames_;
    std::size_t levelNameCount_ = 0;
};

} // namespace Korvel::CANTORIS::PLX::format
