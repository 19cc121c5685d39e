// The power goes between any two changes that saving, editing and removing make to the disk. What has
// been reported as saved is whole, an edited clip is the old or the new one, and every other clip is as
// it was.

#include <algorithm>
#include <map>
#include <optional>

#include <gtest/gtest.h>

#include "figures.h"
#include "power_cut.h"
#include "world.h"

namespace {

using faults::lib;
using faults::PowerCut;
using faults::World;
using support::text;

using Seen = std::map<std::string, std::string>;

// What one program does, from the start of the recording on. After each call that reported success it
// says so.
class Session {
public:
    explicit Session(World& world) : world_(world) {}

    World& world() { return world_; }

    void start(std::string_view userFolder = "user")
    {
        userFolder_ = userFolder;
        before_ = support::treeOf(root());
        reports_ = {{0, see()}};
        std::filesystem::remove_all(world_.folder("new")); // which the other host has made
        faults::recordChanges();
    }

    void report() { reports_.push_back({faults::changesSoFar().size(), see()}); }

    // What was to be seen when that many changes had been made: at the start, and after each call.
    struct Report {
        std::size_t changes;
        Seen seen;
    };
    [[nodiscard]] const std::vector<Report>& reports() const { return reports_; }

    // What another host sees, with all parts read.
    [[nodiscard]] Seen see() const
    {
        return world_.whatAnotherHostSees(faults::Parts::read, userFolder_);
    }

    [[nodiscard]] support::Path root() const { return world_.folder("user").parent_path(); }
    [[nodiscard]] const support::Tree& before() const { return before_; }

private:
    World& world_;
    std::string userFolder_;
    support::Tree before_;
    std::vector<Report> reports_;
};

// --- What programs do -------------------------------------------------------------------------------

void save(Session& session, const faults::Operations& part, const support::Path& wave)
{
    World& world = session.world();
    KRT_PLX_ClipBase* const clip = faults::build(world.manager, part, wave);
    const support::Text name = text("Saved");
    EXPECT_NE(lib(KRT_PLX_MutableClip_save, clip, name.c_str(), false, &world.code), nullptr);
    session.report();
}

void saveMidi(Session& session)
{
    session.world().scan();
    session.start();
    save(session, faults::midiOperations(), {});
}

void saveAudio(Session& session)
{
    session.world().scan();
    session.start();
    save(session, faults::audioOperations(), session.world().wave());
}

void saveLongAudio(Session& session)
{
    const support::Path wave = session.world().folder("long.wav");
    std::string bytes;
    for (int i = 0; i < 20000; ++i) {
        bytes += std::to_string(i) + ";";
    }
    support::writeFile(wave, bytes);
    session.world().scan();
    session.start();
    save(session, faults::audioOperations(), wave);
}

void saveInANewFolder(Session& session)
{
    session.start("new/and/deep");
    session.world().createManager("new/and/deep");
    save(session, faults::aiOperations(), {});
}

void saveThrice(Session& session)
{
    session.world().scan();
    session.start();
    save(session, faults::midiOperations(), {});
    save(session, faults::audioOperations(), session.world().wave());
    save(session, faults::aiOperations(), {});
}

// The clip whose document is edited; with its notes, the document is no help to it.
support::Path documentOf(World& world, std::string_view name)
{
    world.scan();
    return world.folder(world.folderOf(world.userClip(name))) / "property.json";
}

// An editor knows nothing of the edits before: each writes all that it has.
void edit(Session& session, std::size_t length)
{
    World& world = session.world();
    KRT_PLX_PropertyEditor* const editor = lib(KRT_PLX_UserClip_createPropertyEditor, world.clip);
    const support::Text name = text(std::string(length, 'n') + std::to_string(length));
    EXPECT_TRUE(lib(KRT_PLX_PropertyEditor_setClipName, editor, name.c_str()));
    EXPECT_TRUE(lib(KRT_PLX_PropertyEditor_save, editor));
    session.report();
}

template <std::size_t... Lengths>
void editInTurn(Session& session)
{
    World& world = session.world();
    world.scan();
    world.clip = world.userClip("Midi");
    session.start();
    (edit(session, Lengths), ...);
}

// From a length to the same, whatever the clip's tags are.
void editEqual(Session& session)
{
    World& world = session.world();
    world.scan();
    world.clip = world.userClip("Midi");
    KRT_PLX_PropertyEditor* const editor = KRT_PLX_UserClip_createPropertyEditor(world.clip);
    KRT_PLX_PropertyEditor_setClipName(editor, text("m1").c_str());
    EXPECT_TRUE(KRT_PLX_PropertyEditor_save(editor));
    session.start();
    edit(session, 1);
}

template <support::Encoding Form, support::ByteOrderMark Mark, std::size_t... Lengths>
void editEncoded(Session& session)
{
    const support::Path document = documentOf(session.world(), "Midi");
    support::writeDocument(document, support::readFile(document), Form, Mark);
    editInTurn<Lengths...>(session);
}

// The clip is not listed without it.
template <std::size_t Length>
void editMissing(Session& session)
{
    const support::Path document = documentOf(session.world(), "Midi");
    session.world().clip = session.world().userClip("Midi");
    std::filesystem::remove(document);
    session.start();
    edit(session, Length);
}

// The clip is listed by its clip file alone.
void editWithoutDocument(Session& session)
{
    World& world = session.world();
    support::addClip(world.folder("user") / "alone too", std::nullopt,
                     support::midiDocumentWithID("alone too"));
    world.scan();
    world.clip = world.userClip("Name of alone too");
    session.start();
    edit(session, 40);
    edit(session, 3);
}

template <char Kind>
void remove(Session& session)
{
    World& world = session.world();
    world.scan();
    world.clip = world.userClip(Kind == 'm' ? "Midi" : "Audio");
    EXPECT_TRUE(lib(KRT_PLX_Clip_readPart, world.clip));
    session.start();
    EXPECT_TRUE(lib(KRT_PLX_UserClip_remove, world.clip));
    session.report();
}

void editAndRemove(Session& session)
{
    editInTurn<300>(session);
    EXPECT_TRUE(lib(KRT_PLX_UserClip_remove, session.world().clip));
    session.report();
    save(session, faults::midiOperations(), {});
}

using support::ByteOrderMark;
using support::Encoding;

struct Program {
    const char* name;
    void (*run)(Session& session);
};

constexpr Program programs[] = {
    {"save_a_MIDI_clip", saveMidi},
    {"save_an_audio_clip", saveAudio},
    {"save_a_long_audio_clip", saveLongAudio},
    {"save_in_a_new_user_folder", saveInANewFolder},
    {"save_three_clips", saveThrice},
    {"edit_to_a_longer_document", editInTurn<400>},
    {"edit_to_a_shorter_document", editInTurn<1>},
    {"edit_to_an_equal_length", editEqual},
    {"edit_in_turn", editInTurn<700, 3, 300, 20, 1000>},
    {"edit_across_a_page", editInTurn<6000, 3, 9000, 5000>},
    {"edit_UTF_16", editEncoded<Encoding::utf16LittleEndian, ByteOrderMark::with, 3>},
    {"edit_UTF_16_to_longer", editEncoded<Encoding::utf16BigEndian, ByteOrderMark::without, 1500>},
    {"edit_UTF_32", editEncoded<Encoding::utf32LittleEndian, ByteOrderMark::with, 1801>},
    {"edit_a_missing_document", editMissing<30>},
    {"edit_a_long_missing_document", editMissing<6000>},
    {"edit_a_clip_without_document", editWithoutDocument},
    {"remove_a_MIDI_clip", remove<'m'>},
    {"remove_an_audio_clip", remove<'a'>},
    {"edit_remove_save", editAndRemove},
};

// --- What is left -----------------------------------------------------------------------------------

std::string descriptionIn(const Seen& seen, const std::string& id)
{
    const auto place = seen.find(id);
    return place == seen.end() ? "" : place->second;
}

class PowerCutTest : public testing::TestWithParam<Program> {
protected:
    void record()
    {
        GetParam().run(session_);
        const faults::Changes changes = faults::changesSoFar();
        faults::stopDisturbing();
        world_.destroyManager();
        ASSERT_EQ(session_.reports().back().changes, changes.size())
            << "changes after the last call";
        ASSERT_FALSE(changes.empty());
        disk_.emplace(session_.root(), session_.before(), changes);
        writer_.emplace(session_.root());
    }

    // All that can be left while the program goes from one report to the next.
    void cutBetween(const Session::Report& from, const Session::Report& to)
    {
        disk_->forget();
        for (std::size_t count = from.changes; count < to.changes && !HasFailure(); ++count) {
            cutAfter(count, from.seen, to.seen);
        }
        addRemoved(from.seen, to.seen);
        disk_->forget();
        cutAfter(to.changes, to.seen, to.seen);
    }

    void cutAfter(std::size_t count, const Seen& old, const Seen& next)
    {
        const PowerCut::Sample sample =
            faults::isExhaustive() ? PowerCut::Sample{4096, true} : PowerCut::Sample{24, false};
        const std::size_t states =
            disk_->forEachState(count, sample, random_, [&](const PowerCut::State& state) {
                if (!HasFailure()) {
                    SCOPED_TRACE(state.description);
                    look(state, old, next);
                }
            });
        const std::string name = GetParam().name;
        faults::count("power cuts: " + name.substr(0, name.find('_')), static_cast<long>(states));
    }

    void look(const PowerCut::State& state, const Seen& old, const Seen& next)
    {
        writer_->write(state.tree);
        const Seen now = session_.see();
        Seen all = old;
        all.insert(next.begin(), next.end());
        all.insert(now.begin(), now.end());
        for (const auto& [id, any] : all) {
            if (isTorn(state, id)) {
                faults::count("power cuts within the write of a document above 4,096 bytes");
            } else {
                expectOneOf(id, descriptionIn(now, id), descriptionIn(old, id),
                            descriptionIn(next, id));
            }
        }
    }

    void expectOneOf(const std::string& id, const std::string& now, const std::string& old,
                     const std::string& next)
    {
        const auto removed = removed_.find(id);
        if (removed != removed_.end()) {
            EXPECT_TRUE(now.empty() || removed->second.starts_with(now)) << id << ": " << now;
        } else if (old.empty() != next.empty()) {
            EXPECT_TRUE(now.empty() || (old + next).starts_with(now)) << id << ": " << now;
        } else {
            EXPECT_TRUE(now == old || now == next) << id << ": " << now;
        }
    }

    [[nodiscard]] static bool isTorn(const PowerCut::State& state, const std::string& id)
    {
        return std::any_of(state.torn.begin(), state.torn.end(), [&](const std::string& path) {
            return path.find("/" + id + "/") != std::string::npos;
        });
    }

    // A removal is not waited for: the clip can be there again, with or without its part.
    void addRemoved(const Seen& old, const Seen& next)
    {
        for (const auto& [id, description] : old) {
            if (!next.contains(id)) {
                removed_.emplace(id, description);
            }
        }
    }

    World world_;
    Session session_{world_};
    Seen removed_;
    std::optional<PowerCut> disk_;
    std::optional<faults::DiskWriter> writer_;
    support::Random random_{11};
};

TEST_P(PowerCutTest, LeavesWhatWasReported)
{
    ASSERT_NO_FATAL_FAILURE(record());
    const std::vector<Session::Report>& reports = session_.reports();
    for (std::size_t i = 1; i < reports.size() && !HasFailure(); ++i) {
        cutBetween(reports[i - 1], reports[i]);
    }
}

INSTANTIATE_TEST_SUITE_P(Programs, PowerCutTest, testing::ValuesIn(programs),
                         [](const auto& program) { return std::string(program.param.name); });

} // namespace
