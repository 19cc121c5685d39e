#include "edit/tag_change.h"

#include <algorithm>

#include "document/document.h"
#include "document/order.h"
#include "format/keys.h"
#include "model/codes.h"
#include "plain.h"

namespace plxclip::editing {

namespace {

namespace own = Korvel::CANTORIS::PLX;
namespace keys = own::format::keys;
using document::Document;
using document::Node;

// The same tag may be written in several ways.
bool isSame(const Node& node, const std::string& json)
{
    const std::string& written = node.first->text;
    return written == json ||
           (json.starts_with('"') && document::unquote(written) == document::unquote(json) &&
            node.first->kind == document::Kind::text);
}

// The tag that a user means, by the rule of the filters, but always all of it.
bool isLike(const Node& node, const std::string& json)
{
    return json.starts_with('"') && node.first->kind == document::Kind::text
               ? isSameText(document::unquote(node.first->text), document::unquote(json))
               : isSame(node, json);
}

class Editing {
public:
    explicit Editing(const std::string& text) : document(text) {}

    bool isObject() { return document.root() != nullptr && document.root()->isObject(); }
    std::string text() const { return document.text(); }

    Node& root() { return *document.root(); }

    // A member whose value is an object or a list, which is made if there is none.
    Node& container(Node& object, const keys::Shape& shape, std::string_view key,
                    std::string_view empty)
    {
        Node* const found = Document::member(&object, key);
        if (found == nullptr) {
            return document.insert(object, key, empty, document::neighbourOf(object, shape, key));
        }
        if (found->first->text != empty.substr(0, 1)) {
            document.set(*found, empty);
        }
        return *found;
    }

    void set(Node& object, const keys::Shape& shape, std::string_view key, const std::string& json)
    {
        Node* const found = Document::member(&object, key);
        if (found == nullptr) {
            document.insert(object, key, json, document::neighbourOf(object, shape, key));
        } else if (!isSame(*found, json)) {
            document.set(*found, json);
        }
    }

    void change(const TagChange& change, std::vector<std::string>& missing)
    {
        Node* const filter = Document::member(document.root(), "filter");
        Node* const list = Document::member(filter, change.key);
        if (change.isCleared && list != nullptr) {
            document.set(*list, "[]");
        }
        for (const std::string& tag : change.removed) {
            if (!remove(list, tag)) {
                missing.push_back(tag);
            }
        }
        for (const std::string& tag : change.added) {
            add(change.key, tag);
        }
    }

private:
    bool remove(Node* list, const std::string& tag)
    {
        bool isFound = false;
        while (Node* const node = find(list, tag, isLike)) {
            document.remove(*node);
            isFound = true;
        }
        return isFound;
    }

    static Node* find(Node* list, const std::string& tag,
                      bool (*isEqual)(const Node&, const std::string&))
    {
        if (list == nullptr || !list->isList()) {
            return nullptr;
        }
        const auto found =
            std::ranges::find_if(list->inner, [&](const Node& each) { return isEqual(each, tag); });
        return found == list->inner.end() ? nullptr : &*found;
    }

    void add(std::string_view key, const std::string& tag)
    {
        Node& filter = container(root(), keys::shape<keys::PropertyDocument>, "filter", "{}");
        Node& list = container(filter, keys::shape<keys::FilterTable>, key, "[]");
        if (find(&list, tag, isSame) == nullptr) {
            document.append(list, tag);
        }
    }

    Document document;
};

// An audio clip has neither key nor tempo: they would not be looked at.
bool isAudio(const Node* part)
{
    const Node* const type = Document::member(const_cast<Node*>(part), "type");
    return type != nullptr &&
           document::unquote(type->first->text) == own::part_type::name(KRT_PLX_PART_AUDIO);
}

void changePart(Editing& editing, const Changes& changes)
{
    Node* const part = Document::member(&editing.root(), "part");
    if (part == nullptr || !part->isObject() || isAudio(part)) {
        return;
    }
    const keys::Shape& shape = keys::shape<keys::PartHeader>;
    if (changes.key) {
        editing.set(*part, shape, "key", std::to_string(*changes.key));
    }
    if (changes.tempo) {
        editing.set(*part, shape, "tempo", std::to_string(*changes.tempo));
    }
}

} // namespace

bool Changes::isEmpty() const
{
    return !name && !vendor && !key && !tempo && std::ranges::all_of(tags, &TagChange::isEmpty);
}

std::optional<std::string> changed(const std::string& text, const Changes& changes,
                                   const std::optional<std::string>& name,
                                   std::vector<std::string>& missing)
{
    Editing editing(text);
    if (!editing.isObject()) {
        return std::nullopt;
    }
    const keys::Shape& shape = keys::shape<keys::PropertyDocument>;
    if (name) {
        editing.set(editing.root(), shape, "name", document::quote(*name));
    }
    if (changes.vendor) {
        editing.set(editing.root(), shape, "vendor", document::quote(*changes.vendor));
    }
    for (const TagChange& change : changes.tags) {
        editing.change(change, missing);
    }
    changePart(editing, changes);
    return editing.text();
}

} // namespace plxclip::editing
