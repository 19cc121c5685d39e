// What the fuzzers run, and the replaying of their corpora in every build: a function that takes any
// bytes and throws when the library breaks a promise. A crash shows itself.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace fuzz {

using Bytes = std::span<const std::uint8_t>;

void runPropertyDocument(Bytes input);
void runDataDocument(Bytes input);
void runExportedCalls(Bytes input);
void runClipFolders(Bytes input);

struct Harness {
    std::string_view name; // also of its folder of inputs
    void (*run)(Bytes input);
};

inline constexpr std::array<Harness, 4> harnesses = {{{"property_document", runPropertyDocument},
                                                      {"data_document", runDataDocument},
                                                      {"exported_calls", runExportedCalls},
                                                      {"clip_folders", runClipFolders}}};

// Throws std::logic_error unless the condition holds.
void require(bool condition, const char* promise);

} // namespace fuzz
