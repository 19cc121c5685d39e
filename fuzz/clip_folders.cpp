// Any bytes as what lies in a user folder: documents with holes and of all sizes, several clip files
// beside one property document, one clip in two places, links, and names that are taken by something
// else. It is read twice; then clips are edited and removed. What lies outside stays as it is.
#include <array>
#include <fstream>
#include <map>
#include <string>
#include <system_error>

#include "folder.h"
#include "walk.h"

namespace fuzz {

namespace {

using support::Path;

constexpr std::array<std::string_view, 4> places = {"", "a", "a/deep", "b"};
constexpr std::array<std::string_view, 8> names = {"property.json", "one.kxclip", "two.kxclip",
                                                   ".kxclip",       "audio",      "audio/take.wav",
                                                   "x.KXCLIP",      "deep"};

struct Target {
    bool isOutside; // in the folder of which nothing may change, as no clip lies in it
    std::string_view path;
};
constexpr std::array<Target, 10> targets = {{{false, "nowhere"},
                                             {false, ".."},
                                             {false, "."},
                                             {false, "one.kxclip"},
                                             {false, "a"},
                                             {false, "../b/property.json"},
                                             {true, "property"},
                                             {true, "data"},
                                             {true, "take.wav"},
                                             {true, ""}}};

constexpr std::array<std::string_view, 6> documents = {
    R"({"id": "ID", "name": "Name", "part": {"type": "midi"}})",
    R"({"id": "ID", "name": "Name", "part": {"type": "audio"}, "filter": {"types": ["T"]}})",
    R"({"id": "TWIN", "name": "Twin", "midi": {"duration": 480, "voice": {"compID": "0123456789abcdef", "langID": 1}}})",
    R"({"id": "ID", "name": "Data", "audio": {"wavFileName": "take.wav"}})",
    R"({"id": "LEADS OUT", "name": "N", "audio": {"wavFileName": "..\\..\\b\\take.wav"}})",
    R"({"midi": {"duration": 1)"};

// Around the blocks in which files are read, around the limits, and far beyond.
constexpr std::array<std::uintmax_t, 10> sizes = {0,
                                                  1,
                                                  16383,
                                                  16384,
                                                  16385,
                                                  300000,
                                                  KRT_PLX_PROPERTY_DOCUMENT_LIMIT,
                                                  KRT_PLX_PROPERTY_DOCUMENT_LIMIT +
                                                      std::uintmax_t{1},
                                                  KRT_PLX_DATA_DOCUMENT_LIMIT + std::uintmax_t{1},
                                                  std::uintmax_t{1} << 40};

class ClipFolders {
public:
    ClipFolders();

    // Replaces the user folder by what the input says.
    void fill(Input& input);

    // Reads the lists and looks at everything, twice.
    void read();

    void change(Input& input);

    void expectNothingOutside() const;

private:
    using Shown = std::map<std::string, std::string>; // names by paths

    void step(Input& input);
    [[nodiscard]] Path placeFrom(Input& input) const;
    [[nodiscard]] std::uint64_t digestOfAll() const;
    [[nodiscard]] std::uint64_t count() const;
    [[nodiscard]] KRT_PLX_ClipBase* clipAt(const std::string& path) const;
    void edit(KRT_PLX_ClipBase* clip);
    void remove(KRT_PLX_ClipBase* clip);
    void scan() const;

    Folder folder_;
    Path user_ = std::filesystem::canonical(folder_.clipFolder().parent_path());
    Path outside_ = user_.parent_path() / "outside";
};

ClipFolders::ClipFolders()
{
    support::writeFile(outside_ / "property", documents[0]);
    support::writeFile(outside_ / "data", documents[2]);
    support::writeFile(outside_ / "take.wav", "RIFF");
}

void ClipFolders::expectNothingOutside() const
{
    require(support::readFile(outside_ / "property") == documents[0] &&
                support::readFile(outside_ / "data") == documents[2] &&
                support::readFile(outside_ / "take.wav") == "RIFF",
            "nothing is written or deleted through a link");
    require(std::distance(std::filesystem::directory_iterator(outside_), {}) == 3,
            "nothing is made through a link");
}

Path ClipFolders::placeFrom(Input& input) const
{
    const Path place = user_ / input.oneOf(places);
    return (place / input.oneOf(names)).lexically_normal();
}

// What lies behind a link may be what has to stay as it is.
bool isBehindLink(const Path& file)
{
    std::error_code error;
    return std::filesystem::weakly_canonical(file.parent_path(), error) != file.parent_path();
}

bool isLink(const Path& file)
{
    std::error_code error;
    return std::filesystem::is_symlink(file, error);
}

void moveTo(const Path& file, const Path& place)
{
    std::error_code ignored;
    if (!isBehindLink(place)) {
        std::filesystem::rename(file, place, ignored);
    }
}

void makeLink(const Path& file, const Path& target)
{
    std::error_code ignored;
    std::filesystem::create_symlink(target, file, ignored);
}

// What cannot be done (a file where a folder is wanted, a link on a system without links) is left out.
void ClipFolders::step(Input& input)
{
    enum Kind { write, lengthen, link, folder, erase, move, kinds };
    const auto kind = static_cast<Kind>(input.below(kinds));
    const Path file = placeFrom(input);
    if (isBehindLink(file)) {
        return;
    }
    std::error_code ignored;
    std::filesystem::create_directories(file.parent_path(), ignored);
    if (kind == write && !isLink(file)) {
        std::ofstream(file, std::ios::binary) << input.oneOf(documents);
    } else if (kind == lengthen && !isLink(file)) {
        std::filesystem::resize_file(file, input.oneOf(sizes), ignored);
    } else if (kind == link) {
        const Target& target = input.oneOf(targets);
        makeLink(file, target.isOutside ? outside_ / target.path : Path(target.path));
    } else if (kind == folder) {
        std::filesystem::create_directories(file, ignored);
    } else if (kind == erase) {
        std::filesystem::remove_all(file, ignored);
    } else if (kind == move) {
        moveTo(file, placeFrom(input));
    }
}

void ClipFolders::fill(Input& input)
{
    constexpr std::size_t mostSteps = 24;
    std::filesystem::remove_all(user_);
    std::filesystem::create_directories(user_);
    for (std::size_t steps = input.below(mostSteps); steps > 0; --steps) {
        step(input);
    }
}

void ClipFolders::scan() const
{
    require(KRT_PLX_Manager_readUserClipFiles(folder_.manager()) == KRT_PLX_RESULT_OK,
            "nothing in the folders spoils a scan");
}

std::uint64_t ClipFolders::count() const
{
    std::uint64_t number = 0;
    require(KRT_PLX_Manager_numUserClips(folder_.manager(), &number), "clips can be counted");
    return number;
}

std::uint64_t ClipFolders::digestOfAll() const
{
    Walk walk;
    walk.manager(folder_.manager());
    for (std::uint64_t i = 0; i < count(); ++i) {
        KRT_PLX_ClipBase* const clip = KRT_PLX_Manager_userClip(folder_.manager(), i);
        KRT_PLX_Clip_readPart(clip);
        walk.readPart(clip);
    }
    return walk.digest();
}

void ClipFolders::read()
{
    scan();
    const std::uint64_t digest = digestOfAll();
    scan();
    require(digestOfAll() == digest, "what nobody has changed reads alike");
}

KRT_PLX_ClipBase* ClipFolders::clipAt(const std::string& path) const
{
    for (std::uint64_t i = 0; i < count(); ++i) {
        KRT_PLX_ClipBase* const clip = KRT_PLX_Manager_userClip(folder_.manager(), i);
        if (support::utf8(KRT_PLX_Clip_path(clip)) == path) {
            return clip;
        }
    }
    return nullptr;
}

void ClipFolders::edit(KRT_PLX_ClipBase* clip)
{
    const std::string path = support::utf8(KRT_PLX_Clip_path(clip));
    const std::string id = support::utf8(KRT_PLX_Clip_id(clip));
    const std::string oldName = support::utf8(KRT_PLX_Clip_name(clip));
    KRT_PLX_PropertyEditor* const editor = KRT_PLX_UserClip_createPropertyEditor(clip);
    require(KRT_PLX_PropertyEditor_setClipName(editor, support::text("Edited").c_str()),
            "a name can be set");
    const bool isSaved = KRT_PLX_PropertyEditor_save(editor);
    scan();
    KRT_PLX_ClipBase* const again = clipAt(path);
    if (again != nullptr && support::utf8(KRT_PLX_Clip_id(again)) == id) {
        require(support::utf8(KRT_PLX_Clip_name(again)) == (isSaved ? "Edited" : oldName),
                "an edit says whether it has happened");
    } else {
        require(isSaved && count() > 0, "an edit loses no clip");
    }
}

void ClipFolders::remove(KRT_PLX_ClipBase* clip)
{
    const std::string path = support::utf8(KRT_PLX_Clip_path(clip));
    const std::uint64_t before = count();
    const bool isRemoved = KRT_PLX_UserClip_remove(clip);
    require(count() == before - (isRemoved ? 1 : 0), "a removed clip leaves the list");
    // The folder of a clip is removed with it when nothing else is left there, even if it is this one.
    std::filesystem::create_directories(user_);
    scan();
    require(!isRemoved || clipAt(path) == nullptr, "a removed clip is gone");
}

void ClipFolders::change(Input& input)
{
    constexpr int mostChanges = 4;
    for (int changes = 0; changes < mostChanges && count() > 0; ++changes) {
        KRT_PLX_ClipBase* const clip = KRT_PLX_Manager_userClip(
            folder_.manager(), input.below(static_cast<std::size_t>(count())));
        if (input.below(2) == 0) {
            edit(clip);
        } else {
            remove(clip);
        }
        expectNothingOutside();
    }
}

} // namespace

void runClipFolders(Bytes input)
{
    static ClipFolders folders;
    Input values(input);
    folders.fill(values);
    folders.read();
    folders.change(values);
}

} // namespace fuzz
