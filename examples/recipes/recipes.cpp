#include "recipes.hpp"

namespace recipes {

// [change]
plx::SaveResult saveReworded(plx::Clip clip, const plx::String& lyric, const plx::String& phonemes,
                             const plx::String& name)
{
    const plx::MutableClip copy = plx::edit(clip).clip;
    const plx::MutableNote note = copy.midiPart().note(0);
    note.setLyric(lyric);
    note.setPhoneme(phonemes);
    copy.setPartTempo(9000); // hundredths of a beat per minute
    const plx::SaveResult saved = copy.save(name);
    copy.destroy();
    return saved;
}
// [change]

// [vibrato]
bool addVibrato(plx::MutableNote note)
{
    const plx::MutableVibrato vibrato = note.vibrato();
    const std::int32_t length = note.duration() / 2;
    // The duration comes first, because no point may lie beyond it.
    return vibrato.setDuration(length) &&
           vibrato.insertParameter(plx::VibratoPointKind::depth, 0, 0) &&
           vibrato.insertParameter(plx::VibratoPointKind::depth, length, 60) &&
           vibrato.insertParameter(plx::VibratoPointKind::rate, 0, 64);
}
// [vibrato]

// [phrase]
plx::SaveResult savePhrase(plx::Clip clip, std::int32_t begin, std::int32_t end,
                           const plx::String& name)
{
    plx::SaveResult saved = {};
    const plx::MutableClip copy = plx::edit(clip).clip;
    if (plx::cut(copy.midiPart(), begin, end)) {
        saved = copy.save(name);
    }
    copy.destroy();
    return saved;
}
// [phrase]

// [transpose]
plx::SaveResult saveTransposed(plx::Clip clip, std::int32_t semitones, const plx::String& name)
{
    plx::SaveResult saved = {};
    const plx::MutableClip copy = plx::edit(clip).clip;
    if (plx::transpose(copy.midiPart(), semitones)) {
        saved = copy.save(name);
    }
    copy.destroy();
    return saved;
}
// [transpose]

// [rename]
bool renameClip(plx::UserClip clip, const plx::String& name)
{
    const plx::PropertyEditor editor = clip.createPropertyEditor();
    const bool isSaved = editor.fill(clip) && editor.setClipName(name) && editor.save();
    clip.destroyPropertyEditor(editor);
    return isSaved;
}
// [rename]

// [find]
std::vector<plx::Clip> findSlowClips(plx::Manager manager, const plx::String& words,
                                     const plx::String& genre)
{
    plx::Query query;
    query.name = words;
    query.ignoreAccents = true;
    query.genres = {genre};
    query.lowestTempo = 2000;
    query.highestTempo = 8000;
    return plx::find(manager, query);
}
// [find]

// [errors]
std::string saveAndTell(plx::Clip clip, const plx::String& name)
{
    const auto [copy, notices] = plx::edit(clip);
    const plx::SaveResult saved = copy.save(name);
    copy.destroy();
    std::string text;
    for (const plx::Notice& notice : notices) {
        text += "- " + notice.text + '\n';
    }
    const plx::Result code = copy ? saved.code : plx::Result::noPart;
    return text + "Saving: " + std::string(plx::textOf(code)) + '\n';
}
// [errors]

// [background]
std::future<plx::Manager> loadInBackground(const plx::String& appID,
                                           const plx::String& systemFolder,
                                           const plx::String& userFolder)
{
    return std::async(std::launch::async, [=] {
        const plx::Manager manager = plx::createManager(appID, systemFolder, userFolder).manager;
        manager.readAllClipFiles();
        return manager; // from now on it belongs to the thread that takes it from the future
    });
}
// [background]

} // namespace recipes
