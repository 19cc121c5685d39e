#pragma once

#include <array>
#include <memory>
#include <string_view>

#include "format/point_list.h"
#include "format/taking.h"
#include "model/note_impl.h"

namespace Korvel::CANTORIS::PLX::format {

// Makes a note from an object that the walk goes through. Values that depend on the note's
// duration, or on whether there is a Dvqm, wait for the end of the object, because its keys may be
// in any order.
class NoteBuilder {
public:
    NoteBuilder(const Trail& trail, Taker& taker) : trail_(trail), taker_(taker) {}

    void begin(MidiPartBase& part) { note_ = std::make_unique<NoteImpl>(part); }
    // Null when the note is refused.
    std::unique_ptr<NoteImpl> end();

    // Called for the objects in the note, and for their lists.
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
    bool isSkillInitial() const;
    template <class Point, std::size_t place>
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
