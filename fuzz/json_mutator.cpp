// Changes documents as trees, so that most stay documents and reach the code behind the parser: values
// are replaced by values that matter, pieces are taken out, repeated, moved and nested, keys are
// exchanged for others of the dictionary. One time in four the bytes are changed blindly.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "json_tree.h"

extern "C" {
std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t capacity);
std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t capacity,
                                    unsigned seed);
std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* first, std::size_t firstSize,
                                      const std::uint8_t* second, std::size_t secondSize,
                                      std::uint8_t* result, std::size_t capacity, unsigned seed);
}

namespace fuzz {

namespace {

// The lines of the form "..." of the dictionary, quotes included: keys, and words with a meaning.
std::vector<std::string> readWords()
{
    std::ifstream file(KRT_PLX_FUZZ_DICTIONARY);
    std::vector<std::string> words;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with('"') && line.size() > 2) {
            words.push_back(line);
        }
    }
    return words;
}

const std::vector<std::string>& words()
{
    static const std::vector<std::string> all = readWords();
    return all;
}

constexpr std::array scalars = {"0",
                                "1",
                                "-1",
                                "4",
                                "5",
                                "16",
                                "17",
                                "24",
                                "25",
                                "30",
                                "31",
                                "63",
                                "64",
                                "-64",
                                "-65",
                                "100",
                                "101",
                                "127",
                                "128",
                                "480",
                                "481",
                                "1999",
                                "2000",
                                "8191",
                                "-8192",
                                "30000",
                                "30001",
                                "2147483646",
                                "2147483647",
                                "2147483648",
                                "-2147483648",
                                "-2147483649",
                                "4294967295",
                                "18446744073709551615",
                                "18446744073709551616",
                                "-99999999999999999999999999999999999999999",
                                "-0",
                                "0e400",
                                "0.00000000001e-2147483639",
                                "0.000e999999999999",
                                "16777217.000000001862645149230957031251",
                                "1.7976931348623159e308",
                                "1e400",
                                "0.0",
                                "-0.0",
                                "0.5",
                                "1.0",
                                "1.0000001",
                                "2.0",
                                "2.5",
                                "1e-46",
                                "3.4028234e38",
                                "3.4028236e38",
                                "-1e300",
                                "true",
                                "false",
                                "null",
                                "\"\"",
                                "\"a\"",
                                "\"0123456789ABCDEF\"",
                                "\"0123456789ABCDEFG\"",
                                "\"\\u0000\"",
                                "\"a\\u0000b\"",
                                "\"midi\\u0000\"",
                                "\"dynamics\\u0000\"",
                                "\"Bypass\\u0000\"",
                                "\"\\uD83D\\uDE00\"",
                                "\"\\uD83D\"",
                                "\"\\uDE00\"",
                                "\"さくら\"",
                                "\"take.wav\"",
                                "\"..\\\\clip.kxclip\"",
                                "[]",
                                "{}"};

class Mutation {
public:
    Mutation(JsonTree& root, unsigned seed) : root_(root), random_(seed) {}

    void run()
    {
        for (std::size_t count = 1 + below(3); count > 0; --count) {
            change(at(below(root_.size())));
        }
    }

    // Puts a piece of another document somewhere.
    void take(JsonTree& other)
    {
        JsonTree* const piece = find(other, below(other.size()));
        insert(at(below(root_.size())), *piece);
    }

private:
    std::size_t below(std::size_t bound) { return random_() % bound; }
    const std::string& word() { return words()[below(words().size())]; }
    JsonTree& at(std::size_t number) { return *find(root_, number); }

    // The node with that number, counted from the root in the order of the text.
    static JsonTree* find(JsonTree& tree, std::size_t number)
    {
        if (number == 0) {
            return &tree;
        }
        --number;
        for (JsonTree& child : tree.children) {
            const std::size_t size = child.size();
            if (number < size) {
                return find(child, number);
            }
            number -= size;
        }
        return &tree;
    }

    static JsonTree makeScalar(std::string text)
    {
        JsonTree tree;
        tree.scalar = std::move(text);
        return tree;
    }

    JsonTree someScalar()
    {
        const std::size_t choice = below(8);
        if (choice == 0) {
            return makeScalar(word());
        }
        if (choice == 1) {
            return makeScalar(std::to_string(static_cast<std::int32_t>(random_()) >> below(32)));
        }
        return makeScalar(scalars[below(scalars.size())]);
    }

    void insert(JsonTree& tree, JsonTree piece)
    {
        if (tree.kind == JsonTree::Kind::scalar) {
            tree = std::move(piece);
            return;
        }
        const auto place = static_cast<std::ptrdiff_t>(below(tree.children.size() + 1));
        if (tree.kind == JsonTree::Kind::object) {
            tree.keys.insert(tree.keys.begin() + place, word());
        }
        tree.children.insert(tree.children.begin() + place, std::move(piece));
    }

    void remove(JsonTree& tree)
    {
        const auto place = static_cast<std::ptrdiff_t>(below(tree.children.size()));
        if (tree.kind == JsonTree::Kind::object) {
            tree.keys.erase(tree.keys.begin() + place);
        }
        tree.children.erase(tree.children.begin() + place);
    }

    void repeat(JsonTree& tree)
    {
        const std::size_t place = below(tree.children.size());
        const std::size_t times = below(6) == 0 ? 1 + below(40) : 1;
        for (std::size_t time = 0; time < times; ++time) {
            JsonTree copy = tree.children[place];
            if (tree.kind == JsonTree::Kind::object) {
                tree.keys.push_back(tree.keys[place]);
            }
            tree.children.push_back(std::move(copy));
        }
    }

    void swapTwo(JsonTree& tree)
    {
        std::swap(tree.children[below(tree.children.size())],
                  tree.children[below(tree.children.size())]);
    }

    void rename(JsonTree& tree)
    {
        if (tree.kind == JsonTree::Kind::object) {
            tree.keys[below(tree.keys.size())] = word();
        }
    }

    void wrap(JsonTree& tree)
    {
        JsonTree outer;
        outer.kind = JsonTree::Kind::array;
        outer.children.push_back(tree);
        tree = std::move(outer);
    }

    void change(JsonTree& tree)
    {
        const std::size_t choice = below(16);
        if (tree.kind == JsonTree::Kind::scalar || choice == 0) {
            tree = someScalar();
        } else if (choice == 1) {
            wrap(tree);
        } else if (tree.children.empty() || choice < 5) {
            insert(tree, choice == 2 ? at(below(root_.size())) : someScalar());
        } else if (choice < 8) {
            remove(tree);
        } else if (choice < 11) {
            repeat(tree);
        } else if (choice < 13) {
            swapTwo(tree);
        } else if (choice < 14) {
            rename(tree);
        } else {
            tree.children[below(tree.children.size())] = someScalar();
        }
    }

    JsonTree& root_;
    std::minstd_rand random_;
};

constexpr std::size_t selectorSize = 1; // see takeDocument()

std::optional<JsonTree> parse(const std::uint8_t* data, std::size_t size)
{
    if (size <= selectorSize || words().empty()) {
        return std::nullopt;
    }
    return JsonTree::parse(
        std::string_view(reinterpret_cast<const char*>(data), size).substr(selectorSize));
}

// Zero when the text is too long.
std::size_t write(const std::string& text, std::uint8_t selector, std::uint8_t* result,
                  std::size_t capacity)
{
    if (text.size() + selectorSize > capacity) {
        return 0;
    }
    *result = selector;
    std::memcpy(result + selectorSize, text.data(), text.size());
    return text.size() + selectorSize;
}

} // namespace
} // namespace fuzz

std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t capacity,
                                    unsigned seed)
{
    std::minstd_rand random(seed);
    random.discard(3);
    auto tree = fuzz::parse(data, size);
    if (tree && random() % 4 != 0) {
        fuzz::Mutation(*tree, seed).run();
        const auto selector = random() % 8 == 0 ? static_cast<std::uint8_t>(random() % 16) : *data;
        if (const std::size_t written = fuzz::write(tree->text(), selector, data, capacity);
            written != 0) {
            return written;
        }
    }
    return LLVMFuzzerMutate(data, size, capacity);
}

std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* first, std::size_t firstSize,
                                      const std::uint8_t* second, std::size_t secondSize,
                                      std::uint8_t* result, std::size_t capacity, unsigned seed)
{
    auto tree = fuzz::parse(first, firstSize);
    auto other = fuzz::parse(second, secondSize);
    if (!tree || !other) {
        return 0;
    }
    fuzz::Mutation(*tree, seed).take(*other);
    return fuzz::write(tree->text(), *first, result, capacity);
}
