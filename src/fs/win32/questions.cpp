#include "fs/win32/open.h"

namespace Korvel::CANTORIS::PLX::fs {

bool exists(const Path& path)
{
    return sortAt(SystemPath{path}).has_value();
}

bool isMissing(const Path& path)
{
    return !sortAt(SystemPath{path}) && saysMissing(GetLastError());
}

bool isDirectory(const Path& path)
{
    return sortAt(SystemPath{path}) == Sort::folder;
}

bool isPlainFile(const Path& path)
{
    return sortAt(SystemPath{path}) == Sort::file;
}

} // namespace Korvel::CANTORIS::PLX::fs
