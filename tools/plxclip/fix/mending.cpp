#include "fix/mending.h"

#include <algorithm>
#include <array>

#include <fmt/format.h>

#include "check/words.h"
#include "document/order.h"
#include "fix/numbers.h"
#include "format/keys.h"
#include "letters.h"
#include "model/codes.h"

namespace plxclip::fix {

namespace {

namespace own = Korvel::CANTORIS::PLX;
namespace format = own::format;
using document::Document;
using document::Node;
using format::Loss;
using format::LossReason;
using RowKind = keys::Kind;

bool isTempo(const Loss& loss)
{
    return loss.shape->id == keys::Shape::Id::partHeader && loss.row != nullptr &&
           loss.row->key == "tempo";
}

// A number that is written as another kind, or a tempo in beats a minute.
std::optional<std::string> otherNumber(const Loss& loss, std::string_view number)
{
    constexpr int hundredths = 2; // as a power of ten
    const RowKind kind = loss.row->kind;
    if (kind == RowKind::real) {
        return realIn(loss.row->range, number);
    }
    if (kind != RowKind::integer && kind != RowKind::integers) {
        return std::nullopt;
    }
    const auto whole = wholeIn(loss.row->range, number);
    return whole || !isTempo(loss) ? whole : wholeIn(loss.row->range, number, hundredths);
}

// The name of a controller that differs in its capital letters alone.
std::optional<std::string> controllerLike(const std::string& name)
{
    for (const own::controller::Type& type : own::controller::types) {
        if (lowerCase(name) == lowerCase(std::string(type.name))) {
            return document::quote(type.name);
        }
    }
    return std::nullopt;
}

// A value as it is written, if that is short.
std::string excerptOf(const Node& node)
{
    constexpr std::size_t longest = 40;
    const std::string& text = node.first->text;
    return node.first != node.last || text.size() > longest ? std::string() : text + ' ';
}

std::string parentOf(const std::string& pointer)
{
    return pointer.substr(0, pointer.rfind('/'));
}

// A step of a JSON pointer.
std::string escaped(const std::string& key)
{
    std::string text;
    for (const char letter : key) {
        text += letter == '~' ? "~0" : letter == '/' ? "~1" : std::string(1, letter);
    }
    return text;
}

std::string stepTo(const Node& node)
{
    if (node.outer->isObject()) {
        return escaped(document::unquote(node.key->text));
    }
    const auto at = std::ranges::find_if(node.outer->inner,
                                         [&node](const Node& each) { return &each == &node; });
    return std::to_string(std::distance(node.outer->inner.begin(), at));
}

std::string pointerTo(const Node& node)
{
    return node.outer == nullptr ? std::string() : pointerTo(*node.outer) + '/' + stepTo(node);
}

} // namespace

// One look at the text, and the changes that follow from it.
class Mending::Round {
public:
    explicit Round(Mending& whole) : mending(whole), document(whole.text)
    {
        heard.take(whole.text);
    }

    // True if something was changed.
    bool run()
    {
        removeCommas();
        if (isChanged) {
            return finish();
        }
        mending.world.read(heard);
        mending.isDocument = !heard.whyUnreadable();
        auto losses = heard.lossesThatMatter();
        std::ranges::stable_sort(losses, {}, &Loss::place);
        for (const Loss& loss : losses) {
            mend(loss);
        }
        // After a change there is another look, which finds what is left.
        mending.left = lossesIn(heard);
        return finish();
    }

private:
    bool finish()
    {
        if (isChanged) {
            mending.text = document.text();
        }
        return isChanged;
    }

    // Fast for places in ascending order.
    document::Position positionOf(std::size_t place)
    {
        const std::string_view text = mending.text;
        if (place < lastPlace) {
            lastPlace = 0;
            lastPosition = {1, 1};
        }
        lastPosition = document::behind(text.substr(lastPlace, place - lastPlace), lastPosition);
        lastPlace = place;
        return lastPosition;
    }

    void changed(std::string pointer, std::size_t place, std::string message)
    {
        mending.changes.push_back({std::move(pointer), positionOf(place), std::move(message)});
        isChanged = true;
    }

    void removeCommas()
    {
        if (document.root() != nullptr) {
            for (const std::size_t comma : document.removeTrailingCommas()) {
                changed({}, comma, "the comma behind the last element is removed");
            }
        }
    }

    bool mend(const Loss& loss)
    {
        if (document.root() == nullptr) {
            return false;
        }
        switch (loss.reason) {
        case LossReason::missing:
            return insert(loss);
        case LossReason::wrongKind:
        case LossReason::notAccepted:
            return replace(loss);
        case LossReason::unknownKey:
            return rename(loss);
        default:
            return false;
        }
    }

    std::optional<std::string> valueFor(const Loss& loss, const Node& node)
    {
        const std::string& written = node.first->text;
        if (node.first->kind == document::Kind::number) {
            const auto number = otherNumber(loss, written);
            if (number && *number != written) {
                return number;
            }
        }
        if (loss.row->rule == keys::TextRule::controllerName) {
            return controllerLike(document::unquote(written));
        }
        return mending.world.supply(loss);
    }

    bool replace(const Loss& loss)
    {
        Node* const node = document.at(loss.place);
        const auto json = node != nullptr ? valueFor(loss, *node) : std::nullopt;
        if (!json || *json == Document::textOf(*node)) {
            return false;
        }
        const std::string before = excerptOf(*node);
        document.set(*node, *json);
        changed(loss.path, loss.place, fmt::format("{}becomes {}", before, *json));
        return true;
    }

    bool insert(const Loss& loss)
    {
        Node* const object = objectOf(loss);
        if (object == nullptr) {
            return false;
        }
        Node* const misspelt = misspeltIn(*object, loss);
        if (misspelt != nullptr && rename(*misspelt, pointerTo(*misspelt), loss.key)) {
            return true;
        }
        const auto json = mending.world.supply(loss);
        if (!json) {
            return false;
        }
        document.insert(*object, loss.key, *json,
                        document::neighbourOf(*object, *loss.shape, loss.key));
        changed(loss.path, loss.place, fmt::format("is added: {}", *json));
        return true;
    }

    // The object that lacks a key. Its place is known, unless it ended before its loss was told.
    Node* objectOf(const Loss& loss)
    {
        Node* const node = document.at(loss.place);
        const bool isIt =
            node != nullptr && node->isObject() && pointerTo(*node) == parentOf(loss.path);
        return isIt ? node : nullptr;
    }

    // A member whose key was probably meant to be the one that is missing.
    static Node* misspeltIn(Node& object, const Loss& loss)
    {
        for (Node& member : object.inner) {
            const std::string key = document::unquote(member.key->text);
            const bool isKnown =
                std::ranges::find(loss.shape->rows, key, &keys::Row::key) != loss.shape->rows.end();
            if (!isKnown && check::nearestKey(*loss.shape, key) == loss.key) {
                return &member;
            }
        }
        return nullptr;
    }

    bool rename(const Loss& loss)
    {
        Node* const node = document.at(loss.place);
        const std::string_view nearest = check::nearestKey(*loss.shape, loss.key);
        return node != nullptr && node->outer != nullptr && !nearest.empty() &&
               rename(*node, loss.path, nearest);
    }

    bool rename(Node& node, const std::string& pointer, std::string_view nearest)
    {
        if (Document::member(node.outer, nearest) != nullptr) {
            return false;
        }
        const std::string key = document::unquote(node.key->text);
        const std::size_t place = node.key->place;
        const bool isSame = lowerCase(key) == lowerCase(std::string(nearest));
        if (!isSame && !isWanted(pointer, place, nearest)) {
            return false;
        }
        document.rename(node, nearest);
        changed(pointer, place, fmt::format("is renamed to \"{}\"", nearest));
        return true;
    }

    bool isWanted(const std::string& pointer, std::size_t place, std::string_view nearest)
    {
        if (std::ranges::find(mending.refused, pointer) != mending.refused.end()) {
            return false;
        }
        const document::Position position = positionOf(place);
        const bool isAgreed = mending.world.ask(
            fmt::format("{}:{}:{}: {} is no key. Rename it to \"{}\"? [y/N] ", mending.world.name,
                        position.line, position.column, pointer, nearest));
        if (!isAgreed) {
            mending.refused.push_back(pointer);
        }
        return isAgreed;
    }

    Mending& mending;
    Document document;
    check::Document heard{std::string_view()}; // the keys of the losses stand in it
    std::size_t lastPlace = 0;
    document::Position lastPosition{1, 1};
    bool isChanged = false;
};

void Mending::run()
{
    constexpr int most = 50; // each makes something visible that was hidden before
    for (int round = 0; round < most && Round(*this).run(); ++round) {}
}

bool Mending::set(std::string_view object, std::string_view key, const std::string& json,
                  const std::string& why)
{
    Document document(text);
    Node* const node = Document::member(Document::member(document.root(), object), key);
    if (node == nullptr) {
        return false;
    }
    const std::size_t place = node->first->place;
    const std::string before = Document::textOf(*node);
    document.set(*node, json);
    changes.push_back({fmt::format("/{}/{}", object, key),
                       document::behind(std::string_view(text).substr(0, place)),
                       fmt::format("{} becomes {}{}", before, json, why)});
    text = document.text();
    return true;
}

std::vector<check::Finding> lossesIn(const check::Document& document)
{
    std::vector<check::Finding> found = document.findings();
    std::erase_if(found, [](const auto& each) { return each.effect == check::effect::noted; });
    return found;
}

} // namespace plxclip::fix
