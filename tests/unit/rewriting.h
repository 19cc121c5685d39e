// Documents for tests of rewriting.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "support/text.h"

namespace rewriting {

constexpr support::Encoding encodings[] = {
    support::Encoding::utf8, support::Encoding::utf16LittleEndian,
    support::Encoding::utf16BigEndian, support::Encoding::utf32LittleEndian,
    support::Encoding::utf32BigEndian};

constexpr support::ByteOrderMark marks[] = {support::ByteOrderMark::without,
                                            support::ByteOrderMark::with};

// One in each encoding in which a document may be stored, and an empty file.
inline std::vector<std::string> oldDocuments()
{
    std::vector<std::string> documents = {""};
    for (const support::Encoding encoding : encodings) {
        for (const support::ByteOrderMark mark : marks) {
            documents.push_back(support::encode(R"({"old": "さくら"})", encoding, mark));
        }
    }
    return documents;
}

// As the library writes them: shorter than the old one, of the same length and longer, by all
// numbers of bytes that a unit can be short of.
inline std::vector<std::string> newDocuments(const std::string& old)
{
    std::vector<std::string> documents;
    for (const int difference : {-100, -3, -1, 0, 1, 2, 3, 4, 5, 100}) {
        const int size = std::max(static_cast<int>(old.size()) + difference, 2);
        documents.push_back("{" + std::string(static_cast<std::size_t>(size) - 2, 'n') + "}");
    }
    return documents;
}

// Whether the bytes are that document, followed only by blanks in its encoding.
inline bool isWhole(std::string_view bytes, std::string_view document, const std::string& blank)
{
    if (!bytes.starts_with(document)) {
        return false;
    }
    for (bytes.remove_prefix(document.size()); bytes.starts_with(blank);) {
        bytes.remove_prefix(blank.size());
    }
    return bytes.empty();
}

} // namespace rewriting
