// Prints the table of keys as JSON, for check_bounds.py: every object of both documents, once, by the
// path to it, with its rows; and the controllers.
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "format/keys.h"

namespace {

using namespace Korvel::CANTORIS::PLX;
namespace keys = format::keys;

const char* nameOf(keys::Kind kind)
{
    switch (kind) {
    case keys::Kind::integer:
        return "integer";
    case keys::Kind::real:
        return "real";
    case keys::Kind::flag:
        return "flag";
    case keys::Kind::text:
        return "text";
    case keys::Kind::word:
        return "word";
    case keys::Kind::value:
        return "value";
    case keys::Kind::object:
        return "object";
    case keys::Kind::integers:
        return "integers";
    case keys::Kind::texts:
        return "texts";
    case keys::Kind::objects:
        return "objects";
    }
    return "";
}

void printString(const char* key, std::string_view text)
{
    std::printf("\"%s\": \"%.*s\"", key, static_cast<int>(text.size()), text.data());
}

void printNumber(const char* key, double number)
{
    std::printf(", \"%s\": %.17g", key, number);
}

bool isOptional(const keys::Row& row)
{
    return row.need == keys::Need::optional;
}

void printRange(const keys::Row& row)
{
    if (row.kind != keys::Kind::integers) {
        printNumber("initial", row.range.initial);
    }
    if (row.kind != keys::Kind::flag) {
        printNumber("minimum", row.range.minimum);
        printNumber("maximum", row.range.maximum);
    }
    if (row.range.takesZero) {
        printNumber("also", 0);
    }
}

// In UTF-16 units; of a list of texts that of each.
void printLengths(const keys::Row& row)
{
    const bool isVoice = row.rule == keys::TextRule::voiceBank;
    const bool isVoiceOrEmpty = row.rule == keys::TextRule::voiceBankOrEmpty;
    if (isVoice || isVoiceOrEmpty) {
        printNumber("shortest", voiceBankIdLength);
        printNumber("longest", voiceBankIdLength);
    } else {
        printNumber("shortest", row.rule == keys::TextRule::any ? 0 : 1);
    }
    if (isVoiceOrEmpty) {
        printNumber("also", 0);
    }
}

void printNumberOfElements(const keys::Row& row)
{
    if (row.most != keys::anyNumber) {
        printNumber("fewest", static_cast<double>(row.fewest));
        printNumber("most", static_cast<double>(row.most));
    }
}

void printBounds(const keys::Row& row)
{
    switch (row.kind) {
    case keys::Kind::integer:
    case keys::Kind::real:
    case keys::Kind::flag:
    case keys::Kind::integers:
        return printRange(row);
    case keys::Kind::text:
    case keys::Kind::texts:
        printLengths(row);
        return printNumberOfElements(row);
    default:
        return;
    }
}

// In the order in which they are met; each under the first path to it.
using Objects = std::vector<std::pair<const keys::Shape*, std::string>>;

const std::string* pathOf(const Objects& objects, const keys::Shape* shape)
{
    for (const auto& [known, path] : objects) {
        if (known == shape) {
            return &path;
        }
    }
    return nullptr;
}

void gather(const keys::Shape& shape, const std::string& path, Objects& objects)
{
    if (pathOf(objects, &shape) != nullptr) {
        return;
    }
    objects.emplace_back(&shape, path);
    for (const keys::Row& row : shape.rows) {
        if (row.inner != nullptr) {
            const char* const ending = row.kind == keys::Kind::objects ? "[]" : "";
            gather(*row.inner, path + "." + std::string(row.key) + ending, objects);
        }
    }
}

void printRow(const keys::Row& row, const Objects& objects)
{
    printString("key", row.key);
    std::printf(", ");
    printString("kind", nameOf(row.kind));
    std::printf(", \"required\": %s", isOptional(row) ? "false" : "true");
    printBounds(row);
    if (row.inner != nullptr) {
        std::printf(", ");
        printString("inner", *pathOf(objects, row.inner));
    }
}

// Prints one after the other, with commas between them.
template <class List, class Print>
void printAll(const List& list, Print print)
{
    const char* comma = "";
    for (const auto& each : list) {
        std::printf("%s\n", comma);
        print(each);
        comma = ",";
    }
}

void printObjects()
{
    Objects objects;
    gather(keys::shape<keys::PropertyDocument>, "property", objects);
    gather(keys::shape<keys::DataDocument>, "data", objects);
    printAll(objects, [&](const auto& object) {
        std::printf("\"%s\": [", object.second.c_str());
        printAll(object.first->rows, [&](const keys::Row& row) {
            std::printf("{");
            printRow(row, objects);
            std::printf("}");
        });
        std::printf("]");
    });
}

void printControllers()
{
    printAll(controller::types, [](const controller::Type& type) {
        std::printf("{");
        printString("name", type.name);
        printNumber("code", type.code);
        printNumber("minimum", type.minimum);
        printNumber("maximum", type.maximum);
        std::printf("}");
    });
}

void printPartTypes()
{
    printAll(part_type::types, [](const part_type::Type& type) {
        std::printf("\"%.*s\"", static_cast<int>(type.name.size()), type.name.data());
    });
}

} // namespace

int main()
{
    std::printf("{\"objects\": {");
    printObjects();
    std::printf("},\n\"controllers\": [");
    printControllers();
    std::printf("],\n\"part types\": [");
    printPartTypes();
    std::printf("],\n\"most edited level names\": %zu}\n", maxEditedLevelNames);
    return 0;
}
