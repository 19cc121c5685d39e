// User directories that a host may name in many ways, and all that a host does in them.
#pragma once
#ifdef _WIN32

#    include <windows.h>

#    include "support/saving.h"

class OddPaths : public SaveTest {
protected:
    static constexpr const wchar_t* prefix = LR"(\\?\)";

    // The user directory as a host names it; the folder that it means.
    void expectAllWorks(const support::Text& user, const support::Path& meant)
    {
        SCOPED_TRACE(support::utf8(user));
        const support::OwnedManager own(create(user));
        ASSERT_NE(own.get(), nullptr);
        EXPECT_EQ(support::utf8(KRT_PLX_Manager_userClipDirPath(own.get())), support::utf8(user));
        KRT_PLX_ClipBase* const built = KRT_PLX_Manager_createMutableClip(own.get());
        support::createAudioPart(built, addWaveFile());
        const auto saved = support::save(built);
        ASSERT_EQ(saved.code, KRT_PLX_RESULT_OK);
        expectIn(own.get(), user, meant);
        ASSERT_EQ(KRT_PLX_Manager_readAllClipFiles(own.get()), KRT_PLX_RESULT_OK);
        expectIn(own.get(), user, meant);
        EXPECT_TRUE(KRT_PLX_UserClip_remove(KRT_PLX_Manager_userClip(own.get(), 0)));
        EXPECT_EQ(countEntries(meant), 0);
    }

    // The standard library of this compiler still has the old limit of the path's length.
    static support::Text longForm(const support::Path& path)
    {
        const support::Text& text = path.native();
        if (path.is_relative() || text.starts_with(prefix)) {
            return text;
        }
        const bool isOnServer = text.starts_with(LR"(\\)");
        return isOnServer ? LR"(\\?\UNC)" + text.substr(1) : prefix + text;
    }

    static int countEntries(const support::Path& folder)
    {
        WIN32_FIND_DATAW entry;
        const HANDLE search = FindFirstFileW((longForm(folder) + L"\\*").c_str(), &entry);
        EXPECT_NE(search, INVALID_HANDLE_VALUE);
        int count = 0;
        do {
            const support::Text name = entry.cFileName;
            count += name != L"." && name != L".." ? 1 : 0;
        } while (FindNextFileW(search, &entry));
        FindClose(search);
        return count;
    }

    KRT_PLX_Manager* create(const support::Text& user)
    {
        return KRT_PLX_CreateManager(support::uniqueAppID().c_str(), systemFolder().c_str(),
                                     user.c_str(), nullptr, 0, nullptr, 0, nullptr);
    }

    // The one clip, which can be read and edited.
    static void expectIn(KRT_PLX_Manager* own, const support::Text& user,
                         const support::Path& meant)
    {
        ASSERT_EQ(support::userClipCount(own), 1u);
        KRT_PLX_ClipBase* const clip = KRT_PLX_Manager_userClip(own, 0);
        EXPECT_TRUE(support::Text(KRT_PLX_Clip_path(clip)).starts_with(user + L"\\"));
        const support::Text document = longForm(meant / KRT_PLX_Clip_id(clip) / "property.json");
        EXPECT_NE(GetFileAttributesW(document.c_str()), INVALID_FILE_ATTRIBUTES);
        EXPECT_TRUE(KRT_PLX_Clip_readPart(clip));
        EXPECT_NE(KRT_PLX_Clip_audioPart(clip), nullptr);
        KRT_PLX_PropertyEditor* const editor = KRT_PLX_UserClip_createPropertyEditor(clip);
        EXPECT_TRUE(KRT_PLX_PropertyEditor_setClipName(editor, support::text("new").c_str()));
        EXPECT_TRUE(KRT_PLX_PropertyEditor_save(editor));
    }

    // For paths that depend on it.
    struct CurrentFolder {
        explicit CurrentFolder(const support::Path& folder)
            : before(std::filesystem::current_path())
        {
            std::filesystem::current_path(folder);
        }
        ~CurrentFolder() { std::filesystem::current_path(before); }

        support::Path before;
    };
};

#endif
