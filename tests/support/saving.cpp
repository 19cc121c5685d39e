#include "support/saving.h"

namespace support {
namespace {

std::string generic(const Path& path)
{
    const std::u8string text = path.generic_u8string();
    return {text.begin(), text.end()};
}

void add(Tree& tree, const Path& folder, const std::filesystem::directory_entry& entry)
{
    const std::string name = generic(entry.path().lexically_relative(folder));
    if (entry.is_symlink()) {
        tree.emplace(name, "link to " + generic(std::filesystem::read_symlink(entry.path())));
    } else if (entry.is_directory()) {
        tree.emplace(name + "/", "");
    } else {
        tree.emplace(name, readFile(entry.path()));
    }
}

} // namespace

Tree treeOf(const Path& folder)
{
    Tree tree;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        add(tree, folder, entry);
    }
    return tree;
}

KRT_PLX_PartBase* createMidiPart(KRT_PLX_ClipBase* clip)
{
    KRT_PLX_PartBase* const part = KRT_PLX_MutableClip_createMidiPart(clip);
    EXPECT_TRUE(KRT_PLX_MutableMidiPart_setVoiceBankID(part, text(voiceBankID).c_str()));
    EXPECT_TRUE(KRT_PLX_MutableMidiPart_setLangID(part, 0));
    return part;
}

KRT_PLX_PartBase* createMidiAiPart(KRT_PLX_ClipBase* clip)
{
    KRT_PLX_PartBase* const part = KRT_PLX_MutableClip_createMidiAiPart(clip);
    EXPECT_TRUE(KRT_PLX_MutableMidiPart_setAiVoiceBankID(part, text(voiceBankID).c_str()));
    EXPECT_TRUE(KRT_PLX_MutableMidiPart_addAiLangID(part, 0));
    return part;
}

KRT_PLX_PartBase* createAudioPart(KRT_PLX_ClipBase* clip, const Path& waveFile)
{
    KRT_PLX_PartBase* const part = KRT_PLX_MutableClip_createAudioPart(clip);
    EXPECT_TRUE(KRT_PLX_MutableAudioPart_setWavFilePath(part, pathText(waveFile).c_str()));
    return part;
}

Text units(std::initializer_list<unsigned> values)
{
    Text result;
    for (const unsigned value : values) {
        result += static_cast<KRT_PLX_Char>(value);
    }
    return result;
}

SaveResult save(KRT_PLX_ClipBase* clip, const Text& name, Form form)
{
    SaveResult result{nullptr, KRT_PLX_RESULT_NO_MANAGER};
    result.clip =
        KRT_PLX_MutableClip_save(clip, name.c_str(), form == Form::indented, &result.code);
    return result;
}

SaveResult save(KRT_PLX_ClipBase* clip, std::string_view name, Form form)
{
    return save(clip, text(name), form);
}

std::string replaced(std::string text, std::string_view part, std::string_view replacement)
{
    for (std::size_t at = text.find(part); at != std::string::npos;
         at = text.find(part, at + replacement.size())) {
        text.replace(at, part.size(), replacement);
    }
    return text;
}

} // namespace support

support::Path SaveTest::addWaveFile(std::string_view name, std::string_view bytes)
{
    const support::Path file = scratch() / "waves" / support::place(name);
    support::writeFile(file, bytes);
    return file;
}

support::Path SaveTest::folderOf(KRT_PLX_ClipBase* savedClip)
{
    return userFolder() / support::place(support::utf8(KRT_PLX_Clip_id(savedClip)));
}

SaveTest::Documents SaveTest::documentsOf(KRT_PLX_ClipBase* savedClip)
{
    const std::string id = support::utf8(KRT_PLX_Clip_id(savedClip));
    const support::Path folder = folderOf(savedClip);
    return {support::replaced(support::readFile(folder / "property.json"), id, "ID"),
            support::replaced(support::readFile(folder / (id + ".kxclip")), id, "ID")};
}

SaveTest::Documents SaveTest::save(support::Form form)
{
    const auto [saved, code] = support::save(clip, "Name", form);
    EXPECT_EQ(code, KRT_PLX_RESULT_OK);
    EXPECT_NE(saved, nullptr);
    return saved == nullptr ? Documents{} : documentsOf(saved);
}

void SaveTest::expectRefused(std::uint32_t code, const support::Text& name)
{
    const support::Tree before = support::treeOf(scratch());
    const std::vector<std::string> listed = support::userClipIDs(manager());
    const auto [saved, actual] = support::save(clip, name);
    EXPECT_EQ(saved, nullptr);
    EXPECT_EQ(actual, code);
    EXPECT_EQ(support::treeOf(scratch()), before);
    EXPECT_EQ(support::userClipIDs(manager()), listed);
    EXPECT_TRUE(KRT_PLX_Manager_hasMutableClip(manager(), clip));
}
