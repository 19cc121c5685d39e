#include "model/audio_part_impl.h"

#include "fs/fs.h"

namespace Korvel::CANTORIS::PLX {

bool MutableAudioPartImpl::setWavFilePath(const Char* path)
{
    if (path == nullptr) {
        return false;
    }
    String wanted = path;
    if (!fs::exists(wanted)) {
        return false;
    }
    assignWavFilePath(std::move(wanted));
    return true;
}

} // namespace Korvel::CANTORIS::PLX
