// The recipes of the manual, in C and in C++, on the example library.
#include <cstdio>

#include "recipes.hpp"
#include "support/host.h"

extern "C" {
#include "recipes.h"
}

namespace {

namespace plx = korvel::plx;
using support::pathText;
using support::text;
using support::utf8;
using testing::ElementsAre;

constexpr const char* ode = "voralin.lieder.an-die-freude";

class Recipes : public testing::Test {
protected:
    Recipes()
    {
        manager_ = support::createManager({clips_ / "system", user(), {}, {}});
        EXPECT_EQ(manager().readAllClipFiles(), plx::Result::ok);
        EXPECT_TRUE(clip().readPart());
    }

    [[nodiscard]] support::Path user() const { return scratch_.path() / "user"; }
    [[nodiscard]] plx::Manager manager() const { return plx::Manager(manager_.get()); }
    [[nodiscard]] plx::Clip clip(const char* id = ode) const
    {
        return plx::Clip(support::findSystemClip(manager_.get(), id));
    }

    // The clip that was saved last, with its part.
    [[nodiscard]] plx::UserClip saved() const
    {
        const auto clips = manager().userClips();
        EXPECT_FALSE(clips.empty());
        EXPECT_TRUE(clips.back().readPart());
        return clips.back();
    }

    const support::Path clips_ =
        support::sourceFolder(KRT_PLX_TEST_SOURCE_FOLDER) / "examples" / "library";

private:
    support::ScratchFolder scratch_;
    support::OwnedManager manager_;
};

std::string wordsOf(plx::Clip clip, std::uint64_t most)
{
    std::string words;
    for (const plx::Note note : clip.midiPart().notes()) {
        if (most-- == 0) {
            break;
        }
        words += plx::toUtf8(note.lyric()) + "[" + plx::toUtf8(note.phoneme()) + "] ";
    }
    return words;
}

std::vector<std::int64_t> numbersOf(plx::Clip clip, std::int64_t shift = 0)
{
    std::vector<std::int64_t> numbers;
    for (const plx::Note note : clip.midiPart().notes()) {
        numbers.push_back(note.number() + shift);
    }
    return numbers;
}

struct Point {
    std::int32_t pos;
    std::uint32_t value;
    bool operator==(const Point&) const = default;
};

template <typename Points>
std::vector<Point> pointsOf(const Points& points)
{
    std::vector<Point> result;
    for (const auto point : points) {
        result.push_back({point.pos(), point.value()});
    }
    return result;
}

TEST_F(Recipes, ChangeAClip)
{
    EXPECT_EQ(
        save_reworded(clip().raw(), text("la").c_str(), text("l a").c_str(), text("La").c_str()),
        KRT_PLX_RESULT_OK);
    EXPECT_EQ(wordsOf(saved(), 2),
              "la[l a] " + wordsOf(clip(), 2).substr(wordsOf(clip(), 1).size()));
    EXPECT_EQ(utf8(saved().name().data()), "La");
    EXPECT_EQ(saved().partTempo(), 9000u);
    EXPECT_EQ(saved().partKey(), clip().partKey());

    const plx::SaveResult again =
        recipes::saveReworded(clip(), text("lo"), text("l o"), text("Lo"));
    EXPECT_EQ(again.code, plx::Result::ok);
    EXPECT_EQ(wordsOf(saved(), 1), "lo[l o] ");
    EXPECT_EQ(saved().partTempo(), 9000u);
    EXPECT_EQ(manager().numUserClips(), 2u);
    EXPECT_EQ(save_reworded(nullptr, text("la").c_str(), text("l a").c_str(), text("La").c_str()),
              KRT_PLX_RESULT_NO_PART);
}

TEST_F(Recipes, AddVibrato)
{
    const plx::MutableClip copy = plx::edit(clip()).clip;
    const plx::MutableNote first = copy.midiPart().note(0);
    const plx::MutableNote second = copy.midiPart().note(1);
    ASSERT_TRUE(add_vibrato(first.raw()));
    ASSERT_TRUE(recipes::addVibrato(second));
    for (const plx::MutableNote note : {first, second}) {
        EXPECT_EQ(note.vibrato().duration(), 240);
        EXPECT_THAT(pointsOf(note.vibrato().depths()), ElementsAre(Point{0, 0}, Point{240, 60}));
        EXPECT_THAT(pointsOf(note.vibrato().rates()), ElementsAre(Point{0, 64}));
    }
    ASSERT_TRUE(copy.save(text("Trembling")));
    EXPECT_THAT(pointsOf(saved().midiPart().note(1).vibrato().depths()),
                ElementsAre(Point{0, 0}, Point{240, 60}));
    EXPECT_FALSE(add_vibrato(nullptr));
    EXPECT_FALSE(recipes::addVibrato(plx::MutableNote()));
}

TEST_F(Recipes, CopyAPhrase)
{
    EXPECT_EQ(save_phrase(clip().raw(), 960, 2880, text("Phrase").c_str()), KRT_PLX_RESULT_OK);
    EXPECT_EQ(saved().midiPart().duration(), 1920);
    EXPECT_THAT(numbersOf(saved()), ElementsAre(67, 69, 69, 67));
    EXPECT_EQ(saved().midiPart().note(0).pos(), 0);
    EXPECT_EQ(recipes::savePhrase(clip(), 1920, 2880, text("Words")).code, plx::Result::ok);
    EXPECT_THAT(numbersOf(saved()), ElementsAre(69, 67));
    EXPECT_EQ(save_phrase(clip().raw(), 5, 5, text("Phrase").c_str()), KRT_PLX_RESULT_NO_PART);
    EXPECT_FALSE(recipes::savePhrase(clip(), 5, 5, text("Phrase")));
}

TEST_F(Recipes, Transpose)
{
    EXPECT_EQ(save_transposed(clip().raw(), 2, text("Higher").c_str()), KRT_PLX_RESULT_OK);
    EXPECT_EQ(numbersOf(saved()), numbersOf(clip(), 2));
    EXPECT_EQ(recipes::saveTransposed(clip(), -12, text("Lower")).code, plx::Result::ok);
    EXPECT_EQ(numbersOf(saved()), numbersOf(clip(), -12));
    EXPECT_EQ(save_transposed(clip().raw(), 100, text("Far").c_str()), KRT_PLX_RESULT_NO_PART);
    EXPECT_FALSE(recipes::saveTransposed(clip(), 100, text("Far")));
    EXPECT_EQ(manager().numUserClips(), 2u);
}

TEST_F(Recipes, RenameAndKeepTheRest)
{
    ASSERT_EQ(save_transposed(clip().raw(), 0, text("Old").c_str()), KRT_PLX_RESULT_OK);
    const std::uint64_t genres = saved().filter().genres().size();
    EXPECT_TRUE(rename_clip(saved().raw(), text("New").c_str()));
    EXPECT_EQ(utf8(saved().name().data()), "New");
    EXPECT_TRUE(recipes::renameClip(saved(), text("Newer")));
    EXPECT_EQ(utf8(saved().name().data()), "Newer");
    EXPECT_EQ(saved().partTempo(), clip().partTempo());
    EXPECT_EQ(saved().filter().genres().size(), genres);
    EXPECT_GT(genres, 0u);
    EXPECT_FALSE(rename_clip(saved().raw(), text("").c_str()));
    EXPECT_FALSE(rename_clip(clip().raw(), text("New").c_str())); // a system clip
    EXPECT_FALSE(recipes::renameClip(saved(), text("")));
}

TEST_F(Recipes, FindClips)
{
    KRT_PLX_ClipBase* found[9] = {};
    const auto words = text("E MOBILE");
    const auto genre = text("classical");
    ASSERT_EQ(find_slow_clips(manager().raw(), words.c_str(), genre.c_str(), found, 9), 1u);
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(found[0])), "La donna è mobile (opening)");
    const std::vector<plx::Clip> same = recipes::findSlowClips(manager(), words, genre);
    ASSERT_EQ(same.size(), 1u);
    EXPECT_EQ(same[0].raw(), found[0]);
    EXPECT_EQ(find_slow_clips(manager().raw(), text("").c_str(), genre.c_str(), found, 9), 2u);
    EXPECT_EQ(find_slow_clips(manager().raw(), text("").c_str(), genre.c_str(), found, 1), 1u);
    EXPECT_EQ(recipes::findSlowClips(manager(), text("sailor"), genre).size(), 0u);
}

TEST_F(Recipes, TellWhatTheUserHasToKnow)
{
    const support::Path file = user().parent_path() / "told.txt";
    const auto tell = [&](plx::Clip clip, const char* name) {
        std::FILE* const output = std::fopen(file.string().c_str(), "wb");
        const std::uint32_t code = save_and_tell(clip.raw(), text(name).c_str(), output);
        std::fclose(output);
        return std::to_string(code) + "\n" + support::readFile(file);
    };
    const plx::Clip lost = clip("wild.wave-missing-but-listed");
    EXPECT_EQ(tell(lost, "Found"), "13\n- part: cannot be read\nSaving: the clip has no part\n");
    EXPECT_EQ(recipes::saveAndTell(lost, text("Found")),
              "- part: cannot be read\nSaving: the clip has no part\n");
    EXPECT_EQ(tell(clip(), ""), "10\nSaving: the name is empty\n");
    EXPECT_EQ(recipes::saveAndTell(clip(), text("")), "Saving: the name is empty\n");
    EXPECT_EQ(recipes::saveAndTell(clip(), text("Copy")), "Saving: done\n");
}

TEST_F(Recipes, LoadInTheBackground)
{
    auto loading = recipes::loadInBackground(support::uniqueAppID(), pathText(clips_ / "system"),
                                             pathText(user()));
    const plx::Manager loaded = loading.get();
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded.numSystemClips(), manager().numSystemClips());
    EXPECT_TRUE(plx::Clip(support::findSystemClip(loaded.raw(), ode)).readPart());
    EXPECT_TRUE(loaded.destroy());
    EXPECT_FALSE(recipes::loadInBackground(support::uniqueAppID(), pathText(user() / "none"),
                                           pathText(user()))
                     .get());
}

} // namespace
