#include "fs/win32/path.h"

#include <algorithm>

#include <windows.h>

namespace Korvel::CANTORIS::PLX::fs {

namespace {

constexpr StringView prefix = LR"(\\?\)";
constexpr StringView prefixOfShares = LR"(\\?\UNC\)";
constexpr StringView prefixOfDevices = LR"(\\.\)";
constexpr StringView separators = LR"(\/)";

// Calls of the system count the bytes of a path in 16 bits, with a zero at the end.
constexpr std::size_t longest = 0x7FFE;

bool isLetter(Char unit)
{
    return (unit >= L'A' && unit <= L'Z') || (unit >= L'a' && unit <= L'z');
}

bool beginsWithDrive(StringView path)
{
    return path.size() >= 2 && isLetter(path[0]) && path[1] == L':';
}

String joinedTo(StringView first, StringView second)
{
    String text(first);
    text += second;
    return text;
}

// Completes a path; in a loop, because the current folder may change between two calls.
String complete(const String& given)
{
    String full;
    DWORD length = GetFullPathNameW(given.c_str(), 0, nullptr, nullptr);
    while (length > full.size()) {
        full.resize(length);
        length =
            GetFullPathNameW(given.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    }
    full.resize(length);
    return full;
}

// A host that passes a path with the prefix wants it to be used as it is.
String systemForm(StringView given)
{
    return given.starts_with(prefix) ? String(given) : withPrefix(complete(String(given)));
}

// The end of the drive, the volume or the share.
std::size_t endOfRoot(StringView system)
{
    std::size_t end = prefix.size();
    const int names = system.starts_with(prefixOfShares) ? 3 : 1;
    for (int i = 0; i < names && end < system.size(); ++i) {
        end = std::min(system.find(separator, end), system.size() - 1) + 1;
    }
    return end;
}

bool isUsable(StringView path, StringView given)
{
    return !given.empty() && path.find(Char{}) == StringView::npos;
}

} // namespace

String withPrefix(StringView full)
{
    if (full.starts_with(prefix)) {
        return String(full);
    }
    if (full.starts_with(prefixOfDevices)) {
        const StringView name = full.substr(prefixOfDevices.size());
        return beginsWithDrive(name) ? joinedTo(prefix, name) : String();
    }
    if (full.starts_with(LR"(\\)")) {
        return joinedTo(prefixOfShares, full.substr(2));
    }
    return beginsWithDrive(full) ? joinedTo(prefix, full) : String();
}

String entryPath(StringView folder, StringView name)
{
    return folder.ends_with(separator) ? joinedTo(folder, name) : join(folder, name);
}

SystemPath::SystemPath(const Path& path) : error_(ERROR_PATH_NOT_FOUND)
{
    const StringView given = path.text.substr(0, path.givenLength);
    if (!isUsable(path.text, given)) {
        return;
    }
    SetLastError(ERROR_PATH_NOT_FOUND); // unless the system sets a better error
    text_ = systemForm(given);
    if (text_.size() <= prefix.size()) {
        error_ = GetLastError();
        text_.clear();
        return;
    }
    namesFolder_ = separators.find(path.text.back()) != StringView::npos;
    if (endOfRoot(text_) == text_.size() && text_.back() != separator) {
        text_ += separator;
    }
    rootLength_ = endOfRoot(text_);
    while (text_.size() > rootLength_ && text_.back() == separator) {
        text_.pop_back();
    }
    appendNames(path.text.substr(given.size()));
    if (text_.size() > longest) {
        error_ = ERROR_FILENAME_EXCED_RANGE;
        text_.clear();
    }
}

void SystemPath::appendNames(StringView names)
{
    while (!names.empty()) {
        const std::size_t end = std::min(names.find_first_of(separators), names.size());
        append(names.substr(0, end));
        names.remove_prefix(std::min(end + 1, names.size()));
    }
}

void SystemPath::append(StringView name)
{
    if (name == L"..") {
        const std::size_t last = text_.rfind(separator);
        text_.resize(std::max(last, rootLength_));
    } else if (!name.empty() && name != L".") {
        text_ = of(name);
    }
}

} // namespace Korvel::CANTORIS::PLX::fs
