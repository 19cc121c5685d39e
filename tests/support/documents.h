// The smallest documents that the library accepts, for tests that are about something else.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace support {

// Every how many places tests damage a document that they damage anywhere. An emulated Windows takes
// ten times as long to make and open a file, and what reads documents is the same on both systems. No
// divisor of a character's width, so that characters are cut at each of their bytes.
#ifdef _WIN32
inline constexpr std::size_t everyHowMany = 7;
#else
inline constexpr std::size_t everyHowMany = 1;
#endif

// A property document. The members, if any, go in at its end: R"(, "vendor": "Studio")".
std::string propertyDocument(std::string_view id, std::string_view type = "midi",
                             std::string_view members = {});

// A data document with an empty part of type 3, and the same with an ID and a name, which can stand
// without a property document. The members go into the part's object.
std::string midiDocument(std::string_view partMembers = {});
std::string midiDocumentWithID(std::string_view id, std::string_view partMembers = {});

// A data document with an empty part of type 2.
std::string midiAiDocument(std::string_view partMembers = {});

// A data document with an audio part; the file has to stand in the folder "audio" beside it.
std::string audioDocument(std::string_view waveFileName, std::string_view partMembers = {});

} // namespace support
