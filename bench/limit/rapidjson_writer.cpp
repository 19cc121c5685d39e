#include "limit/rapidjson_writer.h"

#include <cstdio>
#include <stdexcept>
#include <vector>

#include <rapidjson/filewritestream.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/writer.h>

#include "alternatives/plain_document.h"

namespace bench {

namespace {

using Stream = rapidjson::FileWriteStream;
using Writer = rapidjson::Writer<Stream, plain::Utf16, rapidjson::UTF8<>>;
using PrettyWriter = rapidjson::PrettyWriter<Stream, plain::Utf16, rapidjson::UTF8<>>;

constexpr std::size_t bufferSize = 65536;

template <class WriterT>
bool writeTree(const plain::Document& tree, std::FILE* file)
{
    std::vector<char> buffer(bufferSize);
    Stream stream(file, buffer.data(), buffer.size());
    WriterT writer(stream);
    return tree.Accept(writer) && std::ferror(file) == 0;
}

} // namespace

struct ReadyDocument::Tree {
    plain::Document document;
};

ReadyDocument::ReadyDocument(const Path& file) : tree_(std::make_unique<Tree>())
{
    if (!plain::parseFile(file, tree_->document)) {
        throw std::runtime_error("no document to write");
    }
}

ReadyDocument::~ReadyDocument() = default;

bool ReadyDocument::write(const Path& path, Layout layout) const
{
    std::FILE* const file = std::fopen(path.c_str(), "wb");
    if (file == nullptr) {
        return false;
    }
    const bool complete = layout == Layout::compact
                              ? writeTree<Writer>(tree_->document, file)
                              : writeTree<PrettyWriter>(tree_->document, file);
    return std::fclose(file) == 0 && complete;
}

} // namespace bench
