#include "folder.h"

#include <stdexcept>
#include <string>

namespace fuzz {

namespace {

constexpr std::uint8_t withMark = 8;

KRT_PLX_Manager* createManager(const support::Path& folder)
{
    std::filesystem::create_directories(folder / "system");
    const std::string id = folder.filename().string();
    return KRT_PLX_CreateManager(
        support::text(id).c_str(), support::pathText(folder / "system").c_str(),
        support::pathText(folder / "user").c_str(), nullptr, 0, nullptr, 0, nullptr);
}

bool isUtf8(std::string_view text)
{
    try {
        return support::utf8(support::text(text)) == text;
    } catch (const std::invalid_argument&) {
        return false;
    }
}

} // namespace

Folder::Folder() : manager_(createManager(scratch_.path()))
{
    require(manager_ != nullptr, "a manager can be created on a fresh folder");
    std::filesystem::create_directories(clipFolder());
}

Folder::~Folder()
{
    KRT_PLX_Manager_destroy(manager_);
}

void Folder::write(std::string_view name, std::string_view bytes)
{
    support::writeFile(clipFolder() / name, bytes);
}

void Folder::remove(std::string_view name)
{
    std::filesystem::remove(clipFolder() / name);
}

KRT_PLX_ClipBase* Folder::readUserClip()
{
    require(KRT_PLX_Manager_readUserClipFiles(manager_) == KRT_PLX_RESULT_OK,
            "no document spoils a scan");
    std::uint64_t count = 0;
    require(KRT_PLX_Manager_numUserClips(manager_, &count) && count <= 1,
            "one clip file makes no more than one clip");
    return KRT_PLX_Manager_userClip(manager_, 0);
}

EncodedDocument takeDocument(Input& input)
{
    const auto choice = input.number<std::uint8_t>();
    const std::string_view text = input.rest();
    const auto encoding = static_cast<support::Encoding>(choice % withMark);
    const auto mark =
        (choice & withMark) != 0 ? support::ByteOrderMark::with : support::ByteOrderMark::without;
    if (encoding > support::Encoding::utf32BigEndian || !isUtf8(text)) {
        return {text, std::string(text), false};
    }
    // A text with zeros of its own, or with a mark, is not the same document in another encoding.
    const bool isPlain =
        text.find('\0') == std::string_view::npos && !text.starts_with("\xEF\xBB\xBF");
    return {text, support::encode(text, encoding, mark), isPlain && choice != 0};
}

} // namespace fuzz
