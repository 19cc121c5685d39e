// The library's catalogue, as a host uses it.
#pragma once

#include <cstdint>
#include <vector>

#include <korvel/plx.h>

#include "data/folder.h"
#include "model/catalogue.h"
#include "support/text.h"

namespace bench {

using support::Text;

// Throws when the condition does not hold: a benchmark of something that failed is none.
void require(bool condition, const char* what);

Text textOf(const Path& path);

// A manager of its own application ID. Its first system folder is the main one.
class Manager {
public:
    Manager(const std::vector<Path>& systemFolders, const Path& userFolder);
    Manager(const Manager&) = delete;
    Manager& operator=(const Manager&) = delete;
    ~Manager() { KRT_PLX_Manager_destroy(handle_); }

    [[nodiscard]] KRT_PLX_Manager* handle() const { return handle_; }

    void read();
    [[nodiscard]] std::uint64_t systemClipCount() const;
    [[nodiscard]] std::uint64_t userClipCount() const;
    [[nodiscard]] KRT_PLX_ClipBase* systemClip(std::uint64_t index) const;
    [[nodiscard]] KRT_PLX_ClipBase* userClip(std::uint64_t index) const;

private:
    KRT_PLX_Manager* handle_ = nullptr;
};

// What the library says about a clip, with the separators of this system in its path.
Clip clipOf(KRT_PLX_ClipBase* clip);

} // namespace bench
