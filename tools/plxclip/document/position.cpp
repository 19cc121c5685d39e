#include "document/position.h"

namespace plxclip::document {

Position behind(std::string_view text, Position position)
{
    for (const char byte : text) {
        const bool isContinuation = (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
        if (byte == '\n') {
            ++position.line;
            position.column = 1;
        } else if (!isContinuation) {
            ++position.column;
        }
    }
    return position;
}

} // namespace plxclip::document
