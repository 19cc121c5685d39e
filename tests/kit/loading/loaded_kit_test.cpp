// The kit in a host that loads the library: this program does not link it.
#include <string>

#include <gtest/gtest.h>

#include <korvel/plx_kit.h>
#include <korvel/plx_loader.h>

#include "support/files.h"
#include "support/library_file.h"
#include "support/text.h"

namespace {

using support::pathText;
using support::text;
using support::utf8;

class LoadedKit : public testing::Test {
protected:
    LoadedKit()
    {
        const support::Path library =
            support::place(support::libraryFile(KRT_PLX_TEST_LIBRARY_FILE));
        const support::Path clips =
            support::place(KRT_PLX_TEST_SOURCE_FOLDER) / "examples" / "library";
        EXPECT_TRUE(KRT_PLX_load(&plx, library.c_str(), nullptr, nullptr));
        manager = plx.KRT_PLX_CreateManager(
            text("loaded").c_str(), pathText(clips / "system").c_str(),
            pathText(scratch.path() / "user").c_str(), nullptr, 0, nullptr, 0, nullptr);
        EXPECT_EQ(plx.KRT_PLX_Manager_readAllClipFiles(manager), KRT_PLX_RESULT_OK);
    }
    LoadedKit(const LoadedKit&) = delete;
    LoadedKit& operator=(const LoadedKit&) = delete;
    ~LoadedKit() override { EXPECT_TRUE(KRT_PLX_unload(&plx)); }

    support::ScratchFolder scratch;
    KRT_PLX_Api plx = {};
    KRT_PLX_Manager* manager = nullptr;
};

TEST_F(LoadedKit, FindsCopiesChangesAndRenamesAClip)
{
    const support::Text words = text("FREUDE");
    KRT_PLX_KitQuery query = KRT_PLX_Kit_anyClip();
    KRT_PLX_KitReport report = {nullptr, nullptr, 0};
    std::uint64_t place = 0;
    query.name = words.c_str();
    KRT_PLX_ClipBase* const found = KRT_PLX_Kit_find(&plx, manager, &query, &place);
    ASSERT_NE(found, nullptr);

    KRT_PLX_ClipBase* const copy = KRT_PLX_Kit_edit(&plx, found, KRT_PLX_NO_LANGUAGE, &report);
    KRT_PLX_PartBase* const part = plx.KRT_PLX_MutableClip_midiPart(copy);
    const std::uint32_t number =
        plx.KRT_PLX_NoteBase_number(plx.KRT_PLX_MutableMidiPart_note(part, 0));
    ASSERT_TRUE(KRT_PLX_Kit_transpose(&plx, part, 2, &report));
    ASSERT_TRUE(KRT_PLX_Kit_cut(&plx, part, 0, 1920, nullptr));
    ASSERT_TRUE(KRT_PLX_Kit_move(&plx, part, 480, nullptr));
    KRT_PLX_ClipBase* const saved =
        plx.KRT_PLX_MutableClip_save(copy, text("Higher").c_str(), false, nullptr);
    ASSERT_TRUE(plx.KRT_PLX_Clip_readPart(saved));
    KRT_PLX_NoteBase* const note = plx.KRT_PLX_MidiPart_note(plx.KRT_PLX_Clip_midiPart(saved), 0);
    EXPECT_EQ(plx.KRT_PLX_NoteBase_number(note), number + 2);
    EXPECT_EQ(plx.KRT_PLX_NoteBase_pos(note), 480);

    KRT_PLX_PropertyEditor* const editor =
        KRT_PLX_Kit_editProperties(&plx, saved, KRT_PLX_KIT_KEEP_ALL);
    plx.KRT_PLX_PropertyEditor_setClipName(editor, text("Renamed").c_str());
    EXPECT_TRUE(plx.KRT_PLX_PropertyEditor_save(editor));
    EXPECT_EQ(utf8(plx.KRT_PLX_Clip_name(saved)), "Renamed");
    EXPECT_EQ(plx.KRT_PLX_ClipBase_partTempo(saved), plx.KRT_PLX_ClipBase_partTempo(found));
    EXPECT_EQ(report.count, 0u);
}

TEST_F(LoadedKit, DoesNothingWithAnEmptyTable)
{
    const KRT_PLX_Api empty = {};
    EXPECT_EQ(KRT_PLX_Kit_edit(&empty, plx.KRT_PLX_Manager_systemClip(manager, 0), 0, nullptr),
              nullptr);
}

} // namespace
