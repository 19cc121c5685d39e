#include "fs/fs.h"

namespace Korvel::CANTORIS::PLX::fs {

StringView parentPath(StringView path)
{
    const auto last = path.rfind(separator);
    return last == StringView::npos ? StringView{} : path.substr(0, last);
}

StringView fileName(StringView path)
{
    const auto last = path.rfind(separator);
    return last == StringView::npos ? StringView{} : path.substr(last + 1);
}

StringView extension(StringView path)
{
    const auto dot = path.rfind(static_cast<Char>('.'));
    return dot == StringView::npos ? StringView{} : path.substr(dot);
}

String join(StringView folder, StringView name)
{
    String path;
    path.reserve(folder.size() + 1 + name.size());
    path += folder;
    path += separator;
    path += name;
    return path;
}

} // namespace Korvel::CANTORIS::PLX::fs
