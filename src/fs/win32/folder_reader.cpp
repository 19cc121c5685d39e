#include "fs/win32/folder_reader.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

bool isSelfOrParent(StringView name)
{
    return name == L"." || name == L"..";
}

} // namespace

FolderReader::FolderReader(const SystemPath& folder)
    : search_(folder.isEmpty() ? INVALID_HANDLE_VALUE : begin(folder)),
      atFirst_(search_ != INVALID_HANDLE_VALUE)
{
}

// Does not ask for short names, which are not used, and asks for many entries in each answer.
HANDLE FolderReader::begin(const SystemPath& folder)
{
    return FindFirstFileExW(folder.of(L"*").c_str(), FindExInfoBasic, &entry_,
                            FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
}

FolderReader::~FolderReader()
{
    if (search_ != INVALID_HANDLE_VALUE) {
        FindClose(search_);
    }
}

const WIN32_FIND_DATAW* FolderReader::next()
{
    while (advance()) {
        if (!isSelfOrParent(entry_.cFileName)) {
            return &entry_;
        }
    }
    return nullptr;
}

// Opening the search has already returned the first entry.
bool FolderReader::advance()
{
    if (atFirst_) {
        atFirst_ = false;
        return true;
    }
    return search_ != INVALID_HANDLE_VALUE && FindNextFileW(search_, &entry_);
}

} // namespace Korvel::CANTORIS::PLX::fs
