#include <string_view>

#include "contract/export_table.h"
#include "support/exported.h"
#include "support/properties.h"

namespace contract {
namespace {

// What a getter says of no note, by the kind of the value.
template <class Value>
constexpr std::uint64_t otherwise = smallestBits;
template <>
constexpr std::uint64_t otherwise<bool> = no;
template <>
constexpr std::uint64_t otherwise<float> = half;
template <>
constexpr std::uint64_t otherwise<support::TextPointer> = null;

// The getters and setters of all properties of a note.
void addProperties(std::vector<Export>& exports)
{
    support::forEachProperty<KRT_PLX_NoteBase>([&exports](const auto& property) {
        using Value = decltype(property.get(nullptr));
        const bool isPosition = std::string_view(property.key) == "pos";
        exports.push_back(exported(support::nameOfFunction(property.get), property.get,
                                   isPosition ? largestBits : otherwise<Value>));
        exports.push_back(exported(support::nameOfFunction(property.set), property.set, no));
    });
}

} // namespace

std::vector<Export> noteExports()
{
    std::vector<Export> exports = {
        exported("NoteBase_isMutable", &KRT_PLX_NoteBase_isMutable, no),
        exported("Note_parent", &KRT_PLX_Note_parent, null),
        exported("Note_dvqm", &KRT_PLX_Note_dvqm, null),
        exported("Note_singingSkill", &KRT_PLX_Note_singingSkill, null),
        exported("Note_vibrato", &KRT_PLX_Note_vibrato, null),
        exported("MutableNote_parent", &KRT_PLX_MutableNote_parent, null),
        exported("MutableNote_dvqm", &KRT_PLX_MutableNote_dvqm, null),
        exported("MutableNote_singingSkill", &KRT_PLX_MutableNote_singingSkill, null),
        exported("MutableNote_vibrato", &KRT_PLX_MutableNote_vibrato, null),
        exported("MutableNote_remove", &KRT_PLX_MutableNote_remove, no),
    };
    addProperties(exports);
    return exports;
}

} // namespace contract
