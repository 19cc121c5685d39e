#include "format/clip_builder.h"

#include <array>

namespace Korvel::CANTORIS::PLX::format {

namespace {

using keys::DataDocument;
using keys::Id;
using keys::place;
using keys::PropertyDocument;

struct PartPlace {
    std::uint32_t type;
    std::size_t place;
};

template <class Part>
constexpr PartPlace placeOfPart()
{
    return {Part::type, place<DataDocument>(part_type::name(Part::type))};
}

// Of several parts the first one counts.
constexpr std::array<PartPlace, 3> parts = {placeOfPart<keys::AudioPartTable>(),
                                            placeOfPart<keys::MidiAiPartTable>(),
                                            placeOfPart<keys::MidiVoicePartTable>()};

// The other keys.
Members withoutParts(Members document)
{
    for (const PartPlace& part : parts) {
        document.present &= ~(1U << part.place);
    }
    return document;
}

std::uint32_t partTypeOf(const Members& document)
{
    for (const PartPlace& part : parts) {
        if (document[part.place] != nullptr) {
            return part.type;
        }
    }
    return KRT_PLX_PART_NONE;
}

} // namespace

void ClipBuilder::begin(const Wanted& wanted)
{
    wanted_ = &wanted;
    hasProperties_ = false;
    partType_ = KRT_PLX_PART_NONE;
    part_.reset(wanted.clip);
}

std::unique_ptr<PartBase> ClipBuilder::releasePart(const fs::Path& clipDirectory)
{
    return part_.release(partType_, clipDirectory);
}

// --- Beginnings ---------------------------------------------------------------------------------------

bool ClipBuilder::beginObject(const keys::Shape& shape)
{
    switch (shape.id) {
    case Id::filter:
        return wanted_->properties != nullptr;
    case Id::audioPart:
        return beginPart(KRT_PLX_PART_AUDIO);
    case Id::midiAiPart:
        return beginPart(KRT_PLX_PART_MIDI_AI);
    case Id::midiPart:
        return beginPart(KRT_PLX_PART_MIDI);
    case Id::audioEffect:
        part_.beginAudioEffect();
        return true;
    case Id::midiEffect:
        part_.beginMidiEffect();
        return true;
    case Id::note:
        part_.beginNote();
        return true;
    default:
        return true;
    }
}

bool ClipBuilder::beginPart(std::uint32_t type)
{
    if (partTypeOf(trail_.top().members()) != type) {
        return false; // one that precedes it in this order was found already
    }
    if (type == KRT_PLX_PART_AUDIO) {
        part_.beginAudio();
    } else {
        part_.beginMidi(type);
    }
    return true;
}

bool ClipBuilder::beginList(const keys::Row& row)
{
    if (row.inner == nullptr) {
        tags_.beginList();
        part_.notes().beginLevelNames();
        return true;
    }
    switch (row.inner->id) {
    case Id::event:
        return part_.beginEvents();
    case Id::rate:
        part_.notes().beginCurve(KRT_PLX_VIBRATO_RATE);
        return true;
    case Id::depth:
        part_.notes().beginCurve(KRT_PLX_VIBRATO_DEPTH);
        return true;
    default:
        return true;
    }
}

// --- Lists --------------------------------------------------------------------------------------------

bool ClipBuilder::addElement(const keys::Shape& owner, const Value& value)
{
    if (trail_.top().list->kind == keys::Kind::integers) {
        const auto number = value.asInteger();
        if (number) {
            tags_.addLanguage(*number);
        }
        return number.has_value();
    }
    const auto text = value.asUtf8();
    if (text && owner.id == Id::filter) {
        tags_.addText(*text);
    } else if (text) {
        part_.notes().addLevelName(*text);
    }
    return text.has_value();
}

void ClipBuilder::element(const Value& value)
{
    const keys::Shape& owner = *trail_.outer().shape;
    if (!addElement(owner, value)) {
        trail_.lostElement(LossReason::wrongKind, value.at);
    } else if (trail_.isHeard() && owner.id == Id::filter) {
        tags_.tellOfLoss(*trail_.top().list, trail_, value);
    }
}

void ClipBuilder::endList()
{
    const keys::Shape& owner = *trail_.outer().shape;
    const keys::Row& row = *trail_.top().list;
    if (owner.id == Id::filter) {
        tags_.endList(row, wanted_->properties->filter);
    } else if (row.inner != nullptr && row.inner->id == Id::note) {
        part_.endNotes();
    }
}

// --- Ends ---------------------------------------------------------------------------------------------

bool ClipBuilder::endObject()
{
    switch (trail_.top().shape->id) {
    case Id::propertyDocument:
        return endPropertyDocument();
    case Id::partHeader:
        return endPartHeader();
    case Id::filter:
        return taker_.take<keys::FilterTable>(trail_.top().members(), *wanted_->properties);
    case Id::dataDocument:
        return endDataDocument();
    case Id::audioPart:
        return part_.endAudio();
    case Id::midiAiPart:
        return part_.endMidi<keys::MidiAiPartTable>();
    case Id::midiPart:
        return part_.endMidi<keys::MidiVoicePartTable>();
    default:
        return endInPart();
    }
}

bool ClipBuilder::endInPart()
{
    switch (trail_.top().shape->id) {
    case Id::voice:
        return part_.endVoice();
    case Id::aiVoice:
        return part_.endAiVoice();
    case Id::aiLanguage:
        return part_.endAiLanguage();
    case Id::audioEffect:
        return part_.endAudioEffect();
    case Id::midiEffect:
        return part_.endMidiEffect();
    case Id::audioParameter:
        return part_.endAudioParameter();
    case Id::midiParameter:
        return part_.endMidiParameter();
    case Id::controller:
        return part_.endController();
    case Id::event:
        return part_.endEvent();
    case Id::note:
        return part_.endNote();
    default:
        return endInNote();
    }
}

bool ClipBuilder::endInNote()
{
    NoteBuilder& note = part_.notes();
    switch (trail_.top().shape->id) {
    case Id::expression:
        return note.endExpression();
    case Id::aiExpression:
        return note.endAiExpression();
    case Id::singingSkill:
        return note.endSingingSkill();
    case Id::weight:
        return note.endWeight();
    case Id::dvqmPair:
        return note.endDvqmPair();
    case Id::attack:
        return note.endDvqm<keys::Attack>();
    case Id::release:
        return note.endDvqm<keys::Release>();
    case Id::vibrato:
        return note.endVibrato();
    case Id::rate:
        return note.endPoint<keys::Rate>(KRT_PLX_VIBRATO_RATE);
    case Id::depth:
        return note.endPoint<keys::Depth>(KRT_PLX_VIBRATO_DEPTH);
    default:
        return false;
    }
}

// If a document has a filter, the clip's vendor name becomes a vendor tag, even the empty one.
void ClipBuilder::addVendorTag(bool hasFilter)
{
    if (hasFilter) {
        tags_.setVendor(wanted_->properties->vendorName, wanted_->properties->filter);
    }
}

// Only parts with notes have a key and a tempo.
bool ClipBuilder::endPartHeader()
{
    const Members members = trail_.top().members();
    ClipProperties& properties = *wanted_->properties;
    if (!taker_.take<keys::AudioHeader>(members, properties)) {
        return false;
    }
    const auto& rows = keys::rows<keys::PartHeader>;
    constexpr std::size_t type = place<keys::PartHeader>("type");
    trail_.took(rows[type], *members[type]);
    if (part_type::isMidi(properties.partType)) {
        return taker_.take<keys::PartHeader>(members, properties);
    }
    for (std::size_t other = type + 1; other < rows.size(); ++other) {
        if (members[other] != nullptr) {
            trail_.lost(LossReason::notLookedAt, members, rows[other], members[other]);
        }
    }
    return true;
}

bool ClipBuilder::endPropertyDocument()
{
    const Members members = trail_.top().members();
    hasProperties_ = taker_.take<PropertyDocument>(members, *wanted_->properties);
    tookId<PropertyDocument>(members);
    addVendorTag(members.hasObject(place<PropertyDocument>("filter")));
    return hasProperties_;
}

template <class Document>
void ClipBuilder::tookId(const Members& document) const
{
    constexpr std::size_t id = place<Document>("id");
    if (hasProperties_) {
        trail_.took(keys::rows<Document>[id], *document[id]);
    }
}

// Reports the other parts, if there is a listener, and a part that is missing or of another kind.
void ClipBuilder::tellOfParts(const Members& document) const
{
    if (partType_ == KRT_PLX_PART_NONE) {
        trail_.lost(LossReason::missing, document, keys::rows<DataDocument>[parts.back().place],
                    nullptr);
    }
    for (const PartPlace& part : parts) {
        const Value* const value = document[part.place];
        const keys::Row& row = keys::rows<DataDocument>[part.place];
        if (value != nullptr && part.type != partType_) {
            trail_.lost(LossReason::notLookedAt, document, row, value);
        } else if (value != nullptr && value->kind != Value::Kind::object &&
                   value->kind != Value::Kind::refused) {
            trail_.lost(LossReason::wrongKind, document, row, value);
        }
    }
}

bool ClipBuilder::endDataDocument()
{
    const Members members = trail_.top().members();
    partType_ = partTypeOf(members);
    if (wanted_->properties != nullptr) {
        hasProperties_ = taker_.take<DataDocument>(withoutParts(members), *wanted_->properties);
        tookId<DataDocument>(members);
        addVendorTag(members.hasObject(place<DataDocument>("filter")));
    }
    tellOfParts(members);
    return true;
}

} // namespace Korvel::CANTORIS::PLX::format
