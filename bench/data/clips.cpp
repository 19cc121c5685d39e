#include "data/clips.h"

#include <array>
#include <string_view>

namespace bench {

namespace {

constexpr std::array<const char*, 8> sections{"Verse", "Chorus", "Bridge", "Hook",
                                              "Intro", "Outro",  "Ad-lib", "間奏"};
constexpr std::array<const char*, 8> moods{"bright", "静か", "driving", "tender",
                                           "épique", "夏",   "lo-fi",   "wide"};
constexpr std::array<const char*, 6> vendors{"Aoi Sound",    "Studio Märzlicht", "北星音楽",
                                             "Blue Harbour", "Kite & Key",       "Voix du Midi"};
constexpr std::array<const char*, 6> groups{"Soprano voices", "Alto voices", "Tenor voices",
                                            "男声",           "女声",        "Children's choir"};
constexpr std::array<const char*, 8> types{"Lead vocal", "Harmony",         "Backing vocal",
                                           "Phrase",     "Call and answer", "Scat",
                                           "Long tones", "合いの手"};
constexpr std::array<const char*, 8> genres{
    "City Pop", "Alternative Rock", "Ballad", "Modern R&B", "Contemporary Folk",
    "演歌",     "Deep House",       "Ambient"};
constexpr std::array<const char*, 6> singers{"BCXDC6CZLSZHZCB4", "BNXC4WEFM7Y5K3DA",
                                             "BLRGDRE4PTNQ2HKC", "BKMFHT57RWSX9ZEB",
                                             "BDSCLP3NQYV8JXTA", "BHZVNWA6CKTG4MRE"};

template <std::size_t N>
std::vector<std::string> consecutive(Random& random, const std::array<const char*, N>& choices,
                                     std::size_t count)
{
    std::vector<std::string> result;
    const std::size_t first = random.below(N);
    for (std::size_t i = 0; i < count; ++i) {
        result.emplace_back(choices[(first + i) % N]);
    }
    return result;
}

Filter makeFilter(Random& random, const std::string& vendor)
{
    Filter filter;
    filter.singerGroups = consecutive(random, groups, 3);
    filter.vendors = {vendor};
    for (std::int32_t language = 0; language < random.between(1, 4); ++language) {
        filter.languages.push_back(language);
    }
    filter.singerIDs = consecutive(random, singers, 5);
    filter.types = consecutive(random, types, 4);
    filter.genres = consecutive(random, genres, 5);
    return filter;
}

} // namespace

std::string makeID(Random& random)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string id(36, '-');
    for (std::size_t i = 0; i < id.size(); ++i) {
        if (i != 8 && i != 13 && i != 18 && i != 23) {
            id[i] = digits[random.below(digits.size())];
        }
    }
    return id;
}

std::string vendorName(std::size_t vendor)
{
    return std::string(vendors[vendor % vendors.size()]) + " " + std::to_string(vendor);
}

Clip makeClip(std::size_t index)
{
    Random random(index + 1);
    Clip clip;
    clip.id = makeID(random);
    clip.name = std::string(random.oneOf(sections)) + " " + std::to_string(index) + " – " +
                random.oneOf(moods) + ", second take";
    clip.vendorName = vendorName(index / 1000) + " / " + "Vocal phrases and hooks, volume " +
                      std::to_string(index / 50 % 20 + 1);
    clip.partType = 3;
    clip.partKey = random.value(0, 30);
    clip.partTempo = random.value(60, 180) * 100;
    clip.filter = makeFilter(random, clip.vendorName);
    return clip;
}

} // namespace bench
