#include "support/host.h"

#include <atomic>
#include <utility>

namespace support {
namespace {

std::vector<const KRT_PLX_Char*> pointers(const std::vector<Text>& texts)
{
    std::vector<const KRT_PLX_Char*> result;
    for (const Text& text : texts) {
        result.push_back(text.c_str());
    }
    return result;
}

std::vector<Text> pathTexts(const std::vector<Path>& paths)
{
    std::vector<Text> result;
    for (const Path& path : paths) {
        result.push_back(pathText(path));
    }
    return result;
}

using ClipAt = KRT_PLX_ClipBase* (*)(KRT_PLX_Manager*, std::uint64_t);

std::vector<std::string> clipIDs(KRT_PLX_Manager* manager, std::uint64_t count, ClipAt clipAt)
{
    std::vector<std::string> ids;
    for (std::uint64_t i = 0; i < count; ++i) {
        ids.push_back(utf8(KRT_PLX_Clip_id(clipAt(manager, i))));
    }
    return ids;
}

KRT_PLX_ClipBase* findClip(KRT_PLX_Manager* manager, ClipAt clipAt, std::string_view id)
{
    for (std::uint64_t i = 0;; ++i) {
        KRT_PLX_ClipBase* clip = clipAt(manager, i);
        if (clip == nullptr || utf8(KRT_PLX_Clip_id(clip)) == id) {
            return clip;
        }
    }
}

} // namespace

Text uniqueAppID()
{
    static std::atomic<unsigned> last = 0;
    return text("test " + std::to_string(++last));
}

OwnedManager::OwnedManager(OwnedManager&& other) noexcept
    : manager_(std::exchange(other.manager_, nullptr))
{
}

OwnedManager& OwnedManager::operator=(OwnedManager&& other) noexcept
{
    std::swap(manager_, other.manager_);
    return *this;
}

OwnedManager::~OwnedManager()
{
    destroy();
}

void OwnedManager::destroy()
{
    KRT_PLX_Manager_destroy(std::exchange(manager_, nullptr));
}

OwnedManager createManager(const Folders& folders)
{
    const std::vector<Text> system = pathTexts(folders.furtherSystem);
    const std::vector<Text> user = pathTexts(folders.furtherUser);
    return OwnedManager(KRT_PLX_CreateManager(
        uniqueAppID().c_str(), pathText(folders.system).c_str(), pathText(folders.user).c_str(),
        pointers(system).data(), static_cast<std::int32_t>(system.size()), pointers(user).data(),
        static_cast<std::int32_t>(user.size()), nullptr));
}

std::uint64_t systemClipCount(KRT_PLX_Manager* manager)
{
    std::uint64_t count = 0;
    EXPECT_TRUE(KRT_PLX_Manager_numSystemClips(manager, &count));
    return count;
}

std::uint64_t userClipCount(KRT_PLX_Manager* manager)
{
    std::uint64_t count = 0;
    EXPECT_TRUE(KRT_PLX_Manager_numUserClips(manager, &count));
    return count;
}

std::vector<std::string> systemClipIDs(KRT_PLX_Manager* manager)
{
    return clipIDs(manager, systemClipCount(manager), KRT_PLX_Manager_systemClip);
}

std::vector<std::string> userClipIDs(KRT_PLX_Manager* manager)
{
    return clipIDs(manager, userClipCount(manager), KRT_PLX_Manager_userClip);
}

KRT_PLX_ClipBase* findSystemClip(KRT_PLX_Manager* manager, std::string_view id)
{
    return findClip(manager, KRT_PLX_Manager_systemClip, id);
}

KRT_PLX_ClipBase* findUserClip(KRT_PLX_Manager* manager, std::string_view id)
{
    return findClip(manager, KRT_PLX_Manager_userClip, id);
}

Path addClip(const Path& folder, std::optional<std::string_view> propertyDocument,
             std::optional<std::string_view> dataDocument)
{
    std::filesystem::create_directories(folder);
    if (propertyDocument) {
        writeFile(folder / "property.json", *propertyDocument);
    }
    if (dataDocument) {
        writeFile(folder / "clip.kxclip", *dataDocument);
    }
    return folder / "clip.kxclip";
}

Path addAudioClip(const Path& folder, std::string_view id)
{
    writeFile(folder / "audio" / "take.wav", "RIFF");
    return addClip(folder, propertyDocument(id, "audio"), audioDocument("take.wav"));
}

} // namespace support

HostTest::HostTest()
{
    std::filesystem::create_directory(systemFolder());
    std::filesystem::create_directory(userFolder());
}

KRT_PLX_Manager* HostTest::manager()
{
    if (manager_.get() == nullptr) {
        manager_ = support::createManager({systemFolder(), userFolder(), {}, {}});
        EXPECT_NE(manager_.get(), nullptr);
    }
    return manager_.get();
}

std::uint32_t HostTest::read()
{
    return KRT_PLX_Manager_readAllClipFiles(manager());
}

KRT_PLX_ClipBase* HostTest::systemClip(std::uint64_t index)
{
    return KRT_PLX_Manager_systemClip(manager(), index);
}

KRT_PLX_ClipBase* HostTest::userClip(std::uint64_t index)
{
    return KRT_PLX_Manager_userClip(manager(), index);
}

KRT_PLX_ClipBase* HostTest::readSystemClip(std::optional<std::string_view> propertyDocument,
                                           std::optional<std::string_view> dataDocument)
{
    std::filesystem::remove_all(systemFolder() / "one");
    support::addClip(systemFolder() / "one", propertyDocument, dataDocument);
    EXPECT_EQ(read(), KRT_PLX_RESULT_OK);
    return systemClip(0);
}

KRT_PLX_ClipBase* HostTest::readUserClip(std::optional<std::string_view> propertyDocument,
                                         std::optional<std::string_view> dataDocument)
{
    std::filesystem::remove_all(userFolder() / "one");
    support::addClip(userFolder() / "one", propertyDocument, dataDocument);
    EXPECT_EQ(read(), KRT_PLX_RESULT_OK);
    return userClip(0);
}

KRT_PLX_PartBase* HostTest::readMidiPart(std::string_view dataDocument)
{
    KRT_PLX_ClipBase* clip = readSystemClip(support::propertyDocument("part"), dataDocument);
    return KRT_PLX_Clip_readPart(clip) ? KRT_PLX_Clip_midiPart(clip) : nullptr;
}

KRT_PLX_ClipBase* HostTest::createMutableClip()
{
    return KRT_PLX_Manager_createMutableClip(manager());
}
