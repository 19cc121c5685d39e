// RapidJSON's own writing of a document that is ready.
#pragma once

#include <memory>

#include "data/folder.h"

namespace bench {

enum class Layout { compact, indented };

class ReadyDocument {
public:
    // Throws when the file holds no document.
    explicit ReadyDocument(const Path& file);
    ReadyDocument(const ReadyDocument&) = delete;
    ReadyDocument& operator=(const ReadyDocument&) = delete;
    ~ReadyDocument();

    // Whether all of it was written.
    [[nodiscard]] bool write(const Path& file, Layout layout) const;

private:
    struct Tree;
    std::unique_ptr<Tree> tree_;
};

} // namespace bench
