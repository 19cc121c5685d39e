#include <algorithm>
#include <array>

#include "calls.h"
#include "savable_clips.h"

namespace fuzz {

namespace {

constexpr std::string_view factoryProperties =
    R"({"id": "factory", "name": "Factory", "part": {"type": "midi", "key": 3, "tempo": 12000}})";
constexpr std::string_view factoryData = R"({"midi": {"duration": 960,
    "voice": {"compID": "ABCDEFGHIJKLMNOP", "langID": 0},
    "notes": [{"pos": 0, "duration": 480, "lyric": "la", "phoneme": "l a", "number": 60,
               "velocity": 64,
               "vibrato": {"duration": 480, "depths": [{"pos": 0, "value": 1}], "rates": []}}],
    "controllers": [{"name": "pitchBend", "events": [{"pos": 0, "value": -8192}]}],
    "midiEffects": [{"id": "m", "parameters": [{"name": "p", "value": 1.5}]}],
    "audioEffects": [{"id": "a", "parameters": [{"name": "Bypass", "value": 1}]}]}})";

// The folder is made once; what an input leaves in the user's folder is cleared for the next.
class Place {
public:
    Place()
    {
        support::writeFile(system() / "clip" / "property.json", factoryProperties);
        support::writeFile(system() / "clip" / "clip.kxclip", factoryData);
        support::writeFile(scratch_.path() / "take.wav", "RIFF");
        for (const char* const name : {"take.wav", "user", "nothing"}) {
            paths_.push_back(support::pathText(scratch_.path() / name));
        }
    }

    [[nodiscard]] support::Path system() const { return scratch_.path() / "system"; }
    [[nodiscard]] support::Path user() const { return scratch_.path() / "user"; }
    [[nodiscard]] const std::vector<support::Text>& paths() const { return paths_; }

    void clear() const
    {
        if (std::filesystem::exists(user())) {
            std::filesystem::remove_all(user());
        }
    }

private:
    support::ScratchFolder scratch_;
    std::vector<support::Text> paths_;
};

const Place& place()
{
    static const Place one;
    return one;
}

} // namespace

Session::Session()
{
    place().clear();
    createManager("first");
    for (KRT_PLX_ClipBase* const clip : createSavableClips(managers_.front(), paths().front())) {
        add(clip);
    }
    update();
}

Session::~Session()
{
    for (KRT_PLX_Manager* const manager : managers_) {
        KRT_PLX_Manager_destroy(manager);
    }
}

const std::vector<support::Text>& Session::paths() const
{
    return place().paths();
}

std::size_t Session::userEntries() const
{
    return static_cast<std::size_t>(
        std::distance(std::filesystem::directory_iterator(place().user()),
                      std::filesystem::directory_iterator()));
}

KRT_PLX_Manager* Session::createManager(std::string_view appID)
{
    KRT_PLX_Manager* const manager = KRT_PLX_CreateManager(
        support::text(appID).c_str(), support::pathText(place().system()).c_str(),
        support::pathText(place().user()).c_str(), nullptr, 0, nullptr, 0, nullptr);
    require(manager != nullptr, "a manager can be created on good folders");
    add(manager);
    return manager;
}

void Session::add(KRT_PLX_Manager* manager)
{
    if (std::ranges::find(managers_, manager) == managers_.end()) {
        managers_.push_back(manager);
    }
}

void Session::forget(KRT_PLX_Manager* manager)
{
    std::erase(managers_, manager);
    forgetEditors();
    if (managers_.empty()) {
        createManager("next");
    }
}

bool Session::isAlive(KRT_PLX_ClipBase* mutableClip) const
{
    return std::ranges::any_of(managers_, [=](KRT_PLX_Manager* manager) {
        return KRT_PLX_Manager_hasMutableClip(manager, mutableClip);
    });
}

void Session::update()
{
    std::erase_if(mutableClips_, [this](KRT_PLX_ClipBase* clip) { return !isAlive(clip); });
    std::ranges::sort(mutableClips_);
    mutableClips_.erase(std::unique(mutableClips_.begin(), mutableClips_.end()),
                        mutableClips_.end());
    Walk walk(Addresses::counted);
    for (KRT_PLX_Manager* const manager : managers_) {
        walk.manager(manager);
    }
    for (KRT_PLX_ClipBase* const clip : mutableClips_) {
        walk.mutableClip(clip);
    }
    digest_ = walk.digest();
    living_ = std::move(walk.handles());
    std::get<Living<KRT_PLX_PropertyEditor>>(living_).editable = editors_;
}

} // namespace fuzz
