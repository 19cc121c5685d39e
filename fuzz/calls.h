// The exported functions as operations that take what they need from an input.
#pragma once

#include <algorithm>
#include <functional>
#include <string_view>
#include <vector>

#include "input.h"
#include "support/files.h"
#include "walk.h"

namespace fuzz {

// What is alive, and what it holds: managers on a scratch folder, and all that comes of them. In the
// beginning that is one manager, with a clip of each kind that can be saved as it is.
class Session {
public:
    Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session();

    [[nodiscard]] std::uint64_t digest() const { return digest_; }

    // Some living object, most often of the variant that is asked for; now and then none.
    template <class Handle>
    Handle* some(Input& input, bool isMutable);

    template <class Handle>
    [[nodiscard]] bool isEditable(Handle* handle) const;

    // Looks at everything anew. It has to follow each call that may have changed anything.
    void update();

    // What no walk would find.
    void add(KRT_PLX_Manager* manager);
    void add(KRT_PLX_ClipBase* mutableClip) { mutableClips_.push_back(mutableClip); }
    void add(KRT_PLX_PropertyEditor* editor) { editors_.push_back(editor); }
    void forget(KRT_PLX_Manager* manager);
    void forgetEditors() { editors_.clear(); }

    // Paths of a wave file, of a folder, of nothing.
    [[nodiscard]] const std::vector<support::Text>& paths() const;

    // How many entries the user's folder has.
    [[nodiscard]] std::size_t userEntries() const;

    KRT_PLX_Manager* createManager(std::string_view appID);

private:
    [[nodiscard]] bool isAlive(KRT_PLX_ClipBase* mutableClip) const;

    std::vector<KRT_PLX_Manager*> managers_;
    std::vector<KRT_PLX_ClipBase*> mutableClips_;
    std::vector<KRT_PLX_PropertyEditor*> editors_;
    LivingHandles living_;
    std::uint64_t digest_ = 0;
};

using Operation = std::function<void(Session&, Input&)>;

// One for each exported function, by name.
const std::vector<Operation>& operations();

template <class Handle>
Handle* Session::some(Input& input, bool isMutable)
{
    const auto& living = std::get<Living<Handle>>(living_);
    const auto choice = input.number<std::uint8_t>();
    const bool isOther = choice % 16 == 1;
    const auto& list = isMutable != isOther ? living.editable : living.readOnly;
    return list.empty() || choice == 0 ? nullptr : list[choice / 16 % list.size()];
}

template <class Handle>
bool Session::isEditable(Handle* handle) const
{
    const auto& editable = std::get<Living<Handle>>(living_).editable;
    return std::ranges::find(editable, handle) != editable.end();
}

} // namespace fuzz
