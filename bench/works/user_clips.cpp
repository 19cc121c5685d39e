#include <map>
#include <memory>
#include <string>
#include <vector>

#include "alternatives/nlohmann.h"
#include "data/clips.h"
#include "data/documents.h"
#include "data/generate.h"
#include "data/random.h"
#include "host/catalogue.h"
#include "limit/changes.h"
#include "support/contest.h"
#include "works/works.h"

namespace bench {

namespace {

// Some of the clips of a larger catalogue, in no order.
std::vector<Clip> chosenClips(const DataFolder& data)
{
    std::vector<std::size_t> indexes(data.size().userClips);
    for (std::size_t i = 0; i < indexes.size(); ++i) {
        indexes[i] = i;
    }
    Random(8).shuffle(indexes);
    indexes.resize(data.size().editedClips);
    std::vector<Clip> clips;
    for (const std::size_t index : indexes) {
        clips.push_back(makeUserClip(index));
    }
    return clips;
}

Path folderOf(const DataFolder& data, const Clip& clip)
{
    return data.user() / clip.id;
}

// The library's view of the chosen clips.
class UserCatalogue {
public:
    UserCatalogue(const DataFolder& data, std::vector<Clip> chosen)
        : manager_({data.emptyFolder()}, data.user()), chosen_(std::move(chosen))
    {
    }

    void read()
    {
        manager_.read();
        std::map<std::string, KRT_PLX_ClipBase*> byID;
        for (std::uint64_t i = 0; i < manager_.userClipCount(); ++i) {
            auto* const clip = manager_.userClip(i);
            byID.emplace(support::utf8(KRT_PLX_Clip_id(clip)), clip);
        }
        handles_.clear();
        for (const Clip& clip : chosen_) {
            handles_.push_back(byID.at(clip.id));
        }
    }

    [[nodiscard]] const std::vector<KRT_PLX_ClipBase*>& handles() const { return handles_; }

private:
    Manager manager_;
    std::vector<Clip> chosen_;
    std::vector<KRT_PLX_ClipBase*> handles_;
};

struct Texts {
    Text name = support::text("Renamed – 新しい");
    Text types[2] = {support::text("Lead vocal"), support::text("Phrase")};
    Text genres[2] = {support::text("City Pop"), support::text("演歌")};
};

void edit(KRT_PLX_ClipBase* clip, const Texts& texts)
{
    auto* const editor = KRT_PLX_UserClip_createPropertyEditor(clip);
    KRT_PLX_PropertyEditor_setClipName(editor, texts.name.c_str());
    for (const Text& type : texts.types) {
        KRT_PLX_PropertyEditor_addFilterType(editor, type.c_str());
    }
    for (const Text& genre : texts.genres) {
        KRT_PLX_PropertyEditor_addFilterGenre(editor, genre.c_str());
    }
    KRT_PLX_PropertyEditor_setPartKey(editor, 7);
    KRT_PLX_PropertyEditor_setPartTempo(editor, 12800);
    require(KRT_PLX_PropertyEditor_save(editor), "a property edit could not be saved");
    KRT_PLX_UserClip_destroyPropertyEditor(clip, editor);
}

Clip edited(Clip clip)
{
    clip.name = "Renamed – 新しい";
    clip.filter.types = {"Lead vocal", "Phrase"};
    clip.filter.genres = {"City Pop", "演歌"};
    clip.partKey = 7;
    clip.partTempo = 12800;
    return clip;
}

std::string numbered(const char* before, const DataFolder& data, const char* after)
{
    return before + std::to_string(data.size().editedClips) + after;
}

// What the bare works need of a clip, made beforehand.
struct ClipFiles {
    Path folder;
    std::vector<Path> files;
    std::string properties;
};

std::vector<ClipFiles> filesOf(const DataFolder& data, const std::vector<Clip>& clips)
{
    std::vector<ClipFiles> result;
    for (const Clip& clip : clips) {
        const Path folder = folderOf(data, clip);
        result.push_back({folder,
                          {folder / (clip.id + ".kxclip"), folder / "property.json"},
                          propertyDocument(edited(clip))});
    }
    return result;
}

void writeAll(const DataFolder& data, const std::vector<Clip>& clips)
{
    for (const Clip& clip : clips) {
        writeUserClip(data, clip);
    }
}

} // namespace

void editProperties(Run& run)
{
    const DataFolder& data = run.data;
    const std::vector<Clip> clips = chosenClips(data);
    const auto catalogue = std::make_shared<UserCatalogue>(data, clips);
    catalogue->read();
    const auto editAll = [catalogue, texts = Texts{}] {
        for (auto* const clip : catalogue->handles()) {
            edit(clip, texts);
        }
    };
    const auto rewriteAll = [files = filesOf(data, clips)] {
        for (const ClipFiles& clip : files) {
            require(rewriteBare(clip.files.back(), clip.properties),
                    "a file could not be rewritten");
        }
    };
    const auto saveAll = [&] {
        for (const Clip& clip : clips) {
            require(
                with_nlohmann::saveProperties(folderOf(data, clip) / "property.json", edited(clip)),
                "nlohmann could not save");
        }
    };
    Contest contest(numbered("edit and save the properties of ", data, " clips"), run.rounds);
    contest.add({.name = "library", .run = editAll});
    contest.add({.name = "limit: bare rewrite", .run = rewriteAll});
    contest.add({.name = "filesystem + nlohmann", .run = saveAll});
    contest.run(run.clock, run.table);
    writeAll(data, clips);
}

void removeClips(Run& run)
{
    const DataFolder& data = run.data;
    const std::vector<Clip> clips = chosenClips(data);
    const auto catalogue = std::make_shared<UserCatalogue>(data, clips);
    const auto prepare = [&] {
        writeAll(data, clips);
        catalogue->read();
    };
    const auto removeAll = [&] {
        for (auto* const clip : catalogue->handles()) {
            require(KRT_PLX_UserClip_remove(clip), "a clip could not be removed");
        }
    };
    const auto removeAllBare = [files = filesOf(data, clips)] {
        for (const ClipFiles& clip : files) {
            require(removeBare(clip.folder, clip.files), "a folder could not be removed");
        }
    };
    Contest contest(numbered("remove ", data, " clips of ") + std::to_string(data.size().userClips),
                    run.rounds);
    contest.add({.name = "library", .run = removeAll, .before = prepare});
    contest.add({.name = "limit: bare removal", .run = removeAllBare, .before = [&] {
                     writeAll(data, clips);
                 }});
    contest.run(run.clock, run.table);
    writeAll(data, clips);
}

} // namespace bench
