#include "data/parts.h"

#include <array>

#include "data/random.h"

namespace bench {

namespace {

struct Syllable {
    const char* lyric;
    const char* phoneme;
};

constexpr std::array<Syllable, 16> syllables{{{"さ", "s a"},
                                              {"く", "k M"},
                                              {"ら", "4 a"},
                                              {"春", "h a 4 M"},
                                              {"きょ", "k' o"},
                                              {"夢", "j M m e"},
                                              {"ん", "N"},
                                              {"ー", "-"},
                                              {"사", "s_h a"},
                                              {"랑", "r a N"},
                                              {"月", "y E_r"},
                                              {"ché", "k e"},
                                              {"für", "f y 6"},
                                              {"día", "d i a"},
                                              {"la", "l a"},
                                              {"oh", "@U"}}};

constexpr std::array<std::int32_t, 6> durations{120, 180, 240, 360, 480, 960};

// Every fourth value is untouched by the musician.
float aiValue(Random& random)
{
    return random.oneIn(4) ? 0.5F : static_cast<float>(random.between(0, 1000)) / 1000.0F;
}

std::vector<Point> points(Random& random, std::int32_t duration)
{
    std::vector<Point> result;
    for (std::int32_t i = 0; i < 3; ++i) {
        result.push_back({duration * i / 3, random.value(0, 127)});
    }
    return result;
}

Vibrato vibrato(Random& random, std::int32_t noteDuration)
{
    Vibrato result{random.value(1, 16), noteDuration * 2 / 3, {}, {}};
    result.depths = points(random, result.duration);
    result.rates = points(random, result.duration);
    return result;
}

Dvqm dvqm(Random& random)
{
    return {"BNXC4WEFM7Y5K3DA",
            {"Tender", "Breathy mid"},
            random.oneIn(4),
            random.value(20, 80),
            static_cast<float>(random.between(50, 150)) / 100.0F};
}

void addOrnament(Note& note, Ornament ornament, Random& random)
{
    if (ornament != Ornament::singingSkill) {
        note.attack = dvqm(random);
        note.release = dvqm(random);
    }
    if (ornament != Ornament::dvqm) {
        note.singingSkill = {note.duration / 2, random.value(0, 127), random.value(0, 127)};
    }
}

Note makeNote(std::int32_t pos, Ornament ornament, Random& random)
{
    const Syllable& syllable = random.oneOf(syllables);
    Note note;
    note.lyric = syllable.lyric;
    note.phoneme = syllable.phoneme;
    note.langID = random.value(0, 4);
    note.isProtected = random.oneIn(16);
    note.pos = pos;
    note.duration = random.oneOf(durations);
    note.number = random.value(48, 84);
    note.velocity = random.value(40, 110);
    note.accent = random.value(0, 100);
    note.bendDepth = random.value(0, 30);
    note.bendLength = random.value(0, 60);
    note.decay = random.value(0, 100);
    note.fallPort = random.oneIn(8);
    note.risePort = random.oneIn(8);
    note.opening = random.value(90, 127);
    for (float& value : note.aiValues) {
        value = aiValue(random);
    }
    note.vibrato = vibrato(random, note.duration);
    addOrnament(note, ornament, random);
    return note;
}

// Walks up and down as a drawn curve does.
Lane lane(Random& random, std::uint32_t type, std::int32_t step, std::int32_t end,
          std::int32_t most)
{
    Lane result{type, {}};
    std::int32_t value = most / 2;
    for (std::int32_t pos = 0; pos < end; pos += step) {
        value += random.between(-most / 16, most / 16);
        value = std::clamp(value, 0, most);
        result.events.push_back({pos, value});
    }
    return result;
}

void addLanes(Part& part, Random& random)
{
    part.lanes.push_back(lane(random, 0, 120, part.duration, 127));
    part.lanes.push_back(lane(random, 3, 240, part.duration, 8191));
    part.lanes.push_back(lane(random, 5, 480, part.duration, 127));
}

// The parameters stand in the order of their names, as a part lists them.
void addEffects(Part& part)
{
    part.audioEffects.push_back({"reverb.hall",
                                 {{"Bypass", std::int32_t{0}},
                                  {"Decay", 0.75F},
                                  {"Mix", 0.30000001F},
                                  {"Preset", std::string{"Ōkii hall"}},
                                  {"Size", 1.5F}}});
    part.audioEffects.push_back({"compressor", {{"Ratio", 4.0F}, {"Threshold", -18.5F}}});
    part.midiEffects.push_back(
        {"robot", {{"Amount", std::int32_t{12}}, {"Mode", std::string{"soft"}}}});
}

} // namespace

Part makePart(const PartShape& shape, std::uint64_t seed)
{
    Random random(seed);
    Part part;
    part.styleName = "Ballad – 静か";
    part.stylePresetID = "c4a1d9e2-7f30-4b55-8e11-2b6a90d3f7c8";
    part.voiceBankID = "BCXDC6CZLSZHZCB4";
    part.langID = 1;
    std::int32_t pos = 0;
    for (std::size_t i = 0; i < shape.notes; ++i) {
        part.notes.push_back(makeNote(pos, shape.ornament, random));
        pos += part.notes.back().duration + (random.oneIn(8) ? 240 : 0);
    }
    part.duration = pos + 480;
    if (shape.hasLanes) {
        addLanes(part, random);
    }
    if (shape.hasEffects) {
        addEffects(part);
    }
    return part;
}

} // namespace bench
