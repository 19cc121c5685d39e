// The recipes of the manual in C++17.
#ifndef EXAMPLES_RECIPES_HPP
#define EXAMPLES_RECIPES_HPP

#include <future>
#include <string>
#include <vector>

#include <korvel/plx.hpp>

namespace recipes {

namespace plx = korvel::plx;

// Saves a clip as a new user clip, with other words on its first note and 90 beats per minute.
plx::SaveResult saveReworded(plx::Clip clip, const plx::String& lyric, const plx::String& phonemes,
                             const plx::String& name);

// Gives the second half of a note a vibrato that grows.
bool addVibrato(plx::MutableNote note);

// Saves the notes from one tick to another as a clip of its own.
plx::SaveResult savePhrase(plx::Clip clip, std::int32_t begin, std::int32_t end,
                           const plx::String& name);

// Saves a clip as a new user clip, higher or lower.
plx::SaveResult saveTransposed(plx::Clip clip, std::int32_t semitones, const plx::String& name);

// Gives a user clip another name.
bool renameClip(plx::UserClip clip, const plx::String& name);

// Lists slow clips of a genre that have these words in their name.
std::vector<plx::Clip> findSlowClips(plx::Manager manager, const plx::String& words,
                                     const plx::String& genre);

// Saves a copy of a clip, and returns what the user has to know.
std::string saveAndTell(plx::Clip clip, const plx::String& name);

// Opens a clip library and reads its catalogue in a thread of its own.
std::future<plx::Manager> loadInBackground(const plx::String& appID,
                                           const plx::String& systemFolder,
                                           const plx::String& userFolder);

} // namespace recipes

#endif
