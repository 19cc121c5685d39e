#include <string_view>
#include <unordered_set>

#include "check/examination.h"
#include "check/values.h"

namespace plxclip::check {

namespace {

constexpr Loss documentRefused{Effect::refused, "the document gives no clip"};
constexpr Loss tagDropped{Effect::dropped, "the tag is left out"};

constexpr Key anyText{.name = "", .type = Type::text, .rule = TextRule::notEmpty};
constexpr Key anyLanguage{.name = "", .type = Type::integer, .minimum = 0};

// The tags of one list that are taken: the good ones, each once.
std::size_t examineTags(Examiner& examiner, const Node& array, const Key& element)
{
    std::unordered_set<std::string_view> texts;
    std::unordered_set<std::int32_t> numbers;
    for (const Node& tag : Children(array)) {
        if (const auto problem = problemOf(tag, element)) {
            examiner.report(tag, problem->reason, problem->text, tagDropped);
            continue;
        }
        const bool isNew = element.type == Type::text ? texts.insert(tag.text).second
                                                      : numbers.insert(tag.integer).second;
        if (!isNew) {
            examiner.report(tag, Reason::repeated, "is there already", tagDropped);
        }
    }
    return texts.size() + numbers.size();
}

// With the vendor's tag, which every filter brings.
std::size_t examineFilter(Examiner& examiner, const Node& object)
{
    const Fields fields(examiner, object, keys::filter, tagDropped);
    std::size_t tags = 1;
    for (const Key& key : keys::filter) {
        if (const Node* const array = fields[key.name]) {
            tags +=
                examineTags(examiner, *array, key.name == keys::languages ? anyLanguage : anyText);
        }
    }
    return tags;
}

Identity identityOf(Examiner& examiner, const Fields& fields)
{
    const Node* const id = fields["id"];
    const Node* const filter = fields["filter"];
    return {std::string(id->text), id, filter != nullptr ? examineFilter(examiner, *filter) : 0};
}

bool isMidi(const Node* type)
{
    return type != nullptr && type->kind == Kind::text && type->whole != keys::parts.front();
}

bool examineHeader(Examiner& examiner, const Node& header)
{
    if (isMidi(memberOf(header, "type"))) {
        return Fields(examiner, header, keys::midiHeader, documentRefused).complete();
    }
    return Fields(examiner, header, keys::partHeader, documentRefused).complete();
}

} // namespace

bool isObject(Examiner& examiner, const Node& element, const Loss& loss)
{
    if (element.kind == Kind::object) {
        return true;
    }
    std::string text = "is ";
    text += describe(element.kind);
    text += ", but must be an object";
    examiner.report(element, Reason::wrongType, text, loss);
    return false;
}

std::optional<Identity> examineProperties(Examiner& examiner, const Node& root)
{
    if (!isObject(examiner, root, documentRefused)) {
        return std::nullopt;
    }
    const Fields fields(examiner, root, keys::property, documentRefused);
    const Node* const header = fields["part"];
    const bool goodHeader = header != nullptr && examineHeader(examiner, *header);
    if (!fields.complete() || !goodHeader) {
        return std::nullopt;
    }
    return identityOf(examiner, fields);
}

std::optional<Identity> examineIdentity(Examiner& examiner, const Node& root)
{
    if (root.kind != Kind::object) {
        return std::nullopt; // whoever asks for the part says so
    }
    const Fields fields(examiner, root, keys::data, documentRefused);
    return fields.complete() ? std::optional(identityOf(examiner, fields)) : std::nullopt;
}

} // namespace plxclip::check
