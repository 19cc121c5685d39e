#include "fs/win32/folder_reader.h"

#include "fs/fs.h"
#include "fs/win32/system.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

bool isSelfOrParent(StringView name)
{
    return name == L"." || name == L"..";
}

} // namespace

FolderReader::FolderReader(const String& folder)
    : search_(holdsNul(folder) ? INVALID_HANDLE_VALUE
                               : FindFirstFileW(join(folder, L"*").c_str(), &entry_)),
      atFirst_(search_ != INVALID_HANDLE_VALUE)
{
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

// Opening the search has delivered the first entry already.
bool FolderReader::advance()
{
    if (atFirst_) {
        atFirst_ = false;
        return true;
    }
    return search_ != INVALID_HANDLE_VALUE && FindNextFileW(search_, &entry_);
}

} // namespace Korvel::CANTORIS::PLX::fs
