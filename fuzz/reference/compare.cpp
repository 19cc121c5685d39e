// Reads random documents with the library's reader and with the reference, and compares all that came
// of them: compare CORPUS COUNT [SEED]
//
// CORPUS is the folder of inputs of a document's fuzzer. The documents are made from those by the
// fuzzers' own changes, by members in another order and by numbers that are hard to read. The current
// folder must hold audio/take.wav. Prints each document that is read differently; fails if any is.
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "format/read.h"
#include "json_tree.h"
#include "reference/describe.h"
#include "reference/load.h"
#include "support/text.h"

extern "C" {
std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t capacity);
std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t capacity,
                                    unsigned seed);
std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* first, std::size_t firstSize,
                                      const std::uint8_t* second, std::size_t secondSize,
                                      std::uint8_t* result, std::size_t capacity, unsigned seed);
}

namespace {

namespace plx = Korvel::CANTORIS::PLX;
using plx::reference::describe;

std::mt19937& engine()
{
    static std::mt19937 one;
    return one;
}

unsigned someSeed()
{
    return static_cast<unsigned>(engine()());
}

std::size_t below(std::size_t bound)
{
    return engine()() % bound;
}

constexpr std::size_t capacity = 6000;

// --- Documents ------------------------------------------------------------------------------------

std::string digits(std::size_t most)
{
    std::string text;
    for (std::size_t count = 1 + below(most); count > 0; --count) {
        text += static_cast<char>('0' + below(10));
    }
    return text;
}

// Mostly by the letter of the grammar.
std::string someNumber()
{
    std::string text = below(3) == 0 ? "-" : "";
    text += below(2) == 0 ? "0" : digits(below(4) == 0 ? 22 : 3);
    if (below(4) != 0) {
        text += '.' + digits(below(4) == 0 ? 40 : 9);
    }
    if (below(3) == 0) {
        text += below(2) == 0 ? "e" : "E";
        text += below(2) == 0 ? "-" : "";
        text += digits(below(8) == 0 ? 12 : 2);
    }
    return text;
}

void rearrange(fuzz::JsonTree& tree)
{
    for (fuzz::JsonTree& child : tree.children) {
        rearrange(child);
    }
    if (tree.kind == fuzz::JsonTree::Kind::scalar) {
        if (below(40) == 0) {
            tree.scalar = someNumber();
        }
        return;
    }
    for (std::size_t last = tree.children.size(); last > 1 && below(2) == 0; --last) {
        const std::size_t other = below(last);
        std::swap(tree.children[other], tree.children[last - 1]);
        if (tree.kind == fuzz::JsonTree::Kind::object) {
            std::swap(tree.keys[other], tree.keys[last - 1]);
        }
    }
}

std::string mutated(const std::string& input)
{
    std::vector<std::uint8_t> bytes(capacity);
    std::memcpy(bytes.data(), input.data(), input.size());
    const std::size_t size =
        LLVMFuzzerCustomMutator(bytes.data(), input.size(), capacity, someSeed());
    return {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size)};
}

std::string crossed(const std::string& first, const std::string& second)
{
    std::vector<std::uint8_t> bytes(capacity);
    const std::size_t size = LLVMFuzzerCustomCrossOver(
        reinterpret_cast<const std::uint8_t*>(first.data()), first.size(),
        reinterpret_cast<const std::uint8_t*>(second.data()), second.size(), bytes.data(), capacity,
        someSeed());
    return size == 0 ? first
                     : std::string(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
}

std::string someInput(const std::vector<std::string>& inputs)
{
    std::string input = inputs[below(inputs.size())];
    if (below(3) == 0) {
        input = crossed(input, inputs[below(inputs.size())]);
    }
    if (const auto tree = fuzz::JsonTree::parse(std::string_view(input).substr(1));
        tree && below(2) == 0) {
        fuzz::JsonTree changed = *tree;
        rearrange(changed);
        input.replace(1, std::string::npos, changed.text());
    }
    for (std::size_t count = below(4); count > 0; --count) {
        if (input.size() < capacity) {
            input = mutated(input);
        }
    }
    return input;
}

// In one of the encodings, with or without a mark; bytes that are no text stay as they are.
std::string encoded(std::string_view text)
{
    const std::size_t choice = below(10);
    try {
        return support::encode(text, static_cast<support::Encoding>(choice / 2),
                               static_cast<support::ByteOrderMark>(choice % 2));
    } catch (const std::invalid_argument&) {
        return std::string(text);
    }
}

// --- Readings -------------------------------------------------------------------------------------

const plx::String& folder()
{
    static const plx::String text = [] {
        plx::String path;
        for (const char letter : std::filesystem::current_path().string()) {
            path += static_cast<plx::Char>(letter);
        }
        return path;
    }();
    return text;
}

struct Reading {
    bool hasProperties = false;
    bool isClip = false;
    std::string properties;
    std::string clip;
    std::string part;

    bool operator==(const Reading&) const = default;
};

template <class Properties, class Clip, class Part>
Reading readWith(const std::string& bytes, Properties properties, Clip clip, Part part)
{
    const plx::fs::Path directory{folder(), folder().size()};
    Reading reading;
    std::string copy = bytes;
    plx::ClipProperties values;
    reading.hasProperties = properties(copy, values);
    reading.properties = reading.hasProperties ? describe(values) : "";
    copy = bytes;
    plx::format::LoadedClip loaded;
    reading.isClip = clip(copy, directory, loaded);
    reading.clip =
        reading.isClip ? describe(loaded.properties) + describe(loaded.part.get()) : "";
    copy = bytes;
    reading.part = describe(part(copy, directory).get());
    return reading;
}

class Silent final : public plx::format::Listener {
public:
    void lost(const plx::format::Loss& loss) override { total += loss.place + loss.path.size(); }

    std::size_t total = 0;
};

// One time in two with a listener, which must change nothing.
Reading readNew(const std::string& bytes)
{
    static plx::format::DocumentReader reader;
    static Silent silent;
    plx::format::Listener* const listener = below(2) == 0 ? &silent : nullptr;
    return readWith(
        bytes, [&](auto& copy, auto& to) { return reader.readProperties(copy, to, listener); },
        [&](auto& copy, const auto& place, auto& to) {
            return reader.readClip(copy, place, nullptr, to, listener);
        },
        [&](auto& copy, const auto& place) {
            return reader.readPart(copy, place, nullptr, listener);
        });
}

Reading readReference(const std::string& bytes)
{
    return readWith(
        bytes,
        [](auto& copy, auto& to) { return plx::reference::readProperties(copy, to); },
        [](auto& copy, const auto& place, auto& to) {
            return plx::reference::readClip(copy, place, nullptr, to);
        },
        [](auto& copy, const auto& place) {
            return plx::reference::readPart(copy, place, nullptr);
        });
}

std::vector<std::string> readInputs(const std::filesystem::path& corpus)
{
    std::vector<std::string> inputs;
    for (const auto& entry : std::filesystem::directory_iterator(corpus)) {
        std::ifstream file(entry.path(), std::ios::binary);
        std::string input{std::istreambuf_iterator<char>(file), {}};
        if (!input.empty() && input.size() < capacity) {
            inputs.push_back(std::move(input));
        }
    }
    return inputs;
}

} // namespace

std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t capacity)
{
    for (std::size_t count = 1 + below(3); count > 0; --count) {
        if (size > 1 && below(3) == 0) {
            const std::size_t place = below(size);
            std::memmove(data + place, data + place + 1, size - place - 1);
            --size;
        } else if (size < capacity && below(2) == 0) {
            const std::size_t place = below(size + 1);
            std::memmove(data + place + 1, data + place, size - place);
            constexpr std::string_view marks("{}[]\",:0123456789.eE+-\\u \n\t\0tfn", 34);
            data[place] = static_cast<std::uint8_t>(marks[below(marks.size())]);
            ++size;
        } else if (size != 0) {
            data[below(size)] = static_cast<std::uint8_t>(someSeed());
        }
    }
    return size;
}

int main(int argumentCount, char** arguments)
{
    if (argumentCount < 3) {
        std::cerr << "compare CORPUS COUNT [SEED]\n";
        return 2;
    }
    const std::vector<std::string> inputs = readInputs(arguments[1]);
    const std::size_t count = std::stoul(arguments[2]);
    engine().seed(argumentCount > 3 ? static_cast<unsigned>(std::stoul(arguments[3])) : 1);
    std::size_t different = 0;
    std::size_t taken = 0;
    for (std::size_t number = 0; number < count && different < 10; ++number) {
        const std::string bytes = encoded(std::string_view(someInput(inputs)).substr(1));
        const Reading now = readNew(bytes);
        const Reading then = readReference(bytes);
        taken += !then.part.empty() || then.hasProperties ? 1 : 0;
        if (now != then) {
            ++different;
            std::cout << "--- " << number << " is read differently:\n"
                      << bytes << "\n--- reference: " << then.hasProperties << then.isClip << '\n'
                      << then.properties << then.clip << then.part << "\n--- library: "
                      << now.hasProperties << now.isClip << '\n'
                      << now.properties << now.clip << now.part << '\n';
        }
    }
    std::cout << count << " documents, " << taken << " of them taken, " << different
              << " read differently\n";
    return different == 0 ? 0 : 1;
}
