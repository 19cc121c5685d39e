#include "reference/document.h"

#include "format/encoding.h"

namespace Korvel::CANTORIS::PLX::reference {

namespace {

// The values of a property document, and of a small data document, fit into the first; larger ones
// take more by the chunk.
constexpr std::size_t poolBufferSize = std::size_t{32} * 1024;
constexpr std::size_t poolChunkSize = std::size_t{64} * 1024;
constexpr std::size_t stackCapacity = 1024;

} // namespace

Document::Document()
    : poolBuffer_(poolBufferSize, '\0'),
      pool_(poolBuffer_.data(), poolBuffer_.size(), poolChunkSize, &memory_),
      tree_(&pool_, stackCapacity, &memory_)
{
}

const Value* Document::parse(std::string& bytes)
{
    tree_.SetNull();
    pool_.Clear();
    if (!makeUtf8(bytes)) {
        return nullptr;
    }
    // RapidJSON takes a NUL for the end of the text: whatever stands behind it was not looked at.
    Text text(bytes.data());
    try {
        tree_.ParseStream<parseFlags>(text);
    } catch (const DocumentDefect&) {
        return nullptr;
    }
    const bool isWhole = !tree_.HasParseError() && text.Tell() == bytes.size();
    return isWhole && tree_.IsObject() ? &tree_ : nullptr;
}

} // namespace Korvel::CANTORIS::PLX::reference
