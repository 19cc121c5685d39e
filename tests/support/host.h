// A host of the library, for tests: a manager on two fresh folders, and the ways to fill them.
//
//     TEST_F(HostTest, ListsAClip)
//     {
//         addClip(systemFolder() / "a", propertyDocument("ID"), midiDocument());
//         ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
//         EXPECT_EQ(utf8(KRT_PLX_Clip_name(systemClip(0))), "Name of ID");
//     }
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <korvel/plx.h>

#include "support/documents.h"
#include "support/files.h"
#include "support/text.h"

namespace support {

// An application ID that no other test of this process has.
Text uniqueAppID();

// A manager that is destroyed with this object.
class OwnedManager {
public:
    OwnedManager() = default;
    explicit OwnedManager(KRT_PLX_Manager* manager) : manager_(manager) {}
    OwnedManager(OwnedManager&& other) noexcept;
    OwnedManager& operator=(OwnedManager&& other) noexcept;
    ~OwnedManager();

    [[nodiscard]] KRT_PLX_Manager* get() const { return manager_; }
    void destroy();

private:
    KRT_PLX_Manager* manager_ = nullptr;
};

// The folders that a manager is created on.
struct Folders {
    Path system;
    Path user;
    std::vector<Path> furtherSystem;
    std::vector<Path> furtherUser;
};

// A manager of its own application ID; the user folder is made if it is missing. Null when the
// library refuses, for instance because there is no system folder.
OwnedManager createManager(const Folders& folders);

std::uint64_t systemClipCount(KRT_PLX_Manager* manager);
std::uint64_t userClipCount(KRT_PLX_Manager* manager);

// The IDs of the listed clips, in their order.
std::vector<std::string> systemClipIDs(KRT_PLX_Manager* manager);
std::vector<std::string> userClipIDs(KRT_PLX_Manager* manager);

// The clip with that ID, or null: the order of files in a folder is the file system's.
KRT_PLX_ClipBase* findSystemClip(KRT_PLX_Manager* manager, std::string_view id);
KRT_PLX_ClipBase* findUserClip(KRT_PLX_Manager* manager, std::string_view id);

// Writes "property.json" and "clip.kxclip" into the folder, which is made if it is missing; a
// document that is not given is not written. Returns the path of the clip file.
Path addClip(const Path& folder, std::optional<std::string_view> propertyDocument,
             std::optional<std::string_view> dataDocument);

// The same for an audio clip, with a wave file "take.wav" that the data document names.
Path addAudioClip(const Path& folder, std::string_view id);

} // namespace support

// A manager on empty folders "system" and "user". The manager is created when it is first asked for,
// so a test can fill or replace the folders before.
class HostTest : public testing::Test {
protected:
    HostTest();

    [[nodiscard]] const support::Path& scratch() const { return scratch_.path(); }
    [[nodiscard]] support::Path systemFolder() const { return scratch() / "system"; }
    [[nodiscard]] support::Path userFolder() const { return scratch() / "user"; }

    KRT_PLX_Manager* manager();

    // Reads all clip files; the result is the library's code.
    std::uint32_t read();

    KRT_PLX_ClipBase* systemClip(std::uint64_t index);
    KRT_PLX_ClipBase* userClip(std::uint64_t index);

    // Puts one clip into the system folder or the user folder, reads everything and returns it.
    // Null when it was not listed. Clips that were read before die.
    KRT_PLX_ClipBase* readSystemClip(std::optional<std::string_view> propertyDocument,
                                     std::optional<std::string_view> dataDocument);
    KRT_PLX_ClipBase* readUserClip(std::optional<std::string_view> propertyDocument,
                                   std::optional<std::string_view> dataDocument);

    // The part that a data document gives: made a system clip, read, and its part read. Null when
    // reading the part fails.
    KRT_PLX_PartBase* readMidiPart(std::string_view dataDocument);

    // An empty editable clip of the manager.
    KRT_PLX_ClipBase* createMutableClip();

private:
    support::ScratchFolder scratch_;
    support::OwnedManager manager_;
};
