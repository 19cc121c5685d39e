// Any bytes as the property document of a user clip: read in one of the encodings, compared with the
// reading in UTF-8, edited, and read again.
#include "folder.h"
#include "walk.h"

namespace fuzz {

namespace {

Folder& propertyFolder()
{
    static Folder one;
    static const bool isFilled = (one.write(dataFile, "{}"), true);
    static_cast<void>(isFilled);
    return one;
}

std::uint64_t digestOf(KRT_PLX_ClipBase* clip)
{
    Walk walk;
    if (clip != nullptr) {
        walk.catalogueClip(clip);
    }
    return walk.digest();
}

std::uint64_t digestOfDocument(std::string_view bytes)
{
    propertyFolder().write(propertyFile, bytes);
    return digestOf(propertyFolder().readUserClip());
}

// Saves new properties and reads them back.
std::uint64_t digestOfEdited(KRT_PLX_ClipBase* clip, std::uint32_t key)
{
    KRT_PLX_PropertyEditor* const editor = KRT_PLX_UserClip_createPropertyEditor(clip);
    const auto text = support::text("Edited");
    require(KRT_PLX_PropertyEditor_setClipName(editor, text.c_str()), "a name can be set");
    require(KRT_PLX_PropertyEditor_addFilterType(editor, text.c_str()), "a type can be added");
    require(KRT_PLX_PropertyEditor_setPartKey(editor, key), "a key can be set");
    require(KRT_PLX_PropertyEditor_save(editor), "what was read can be saved");
    KRT_PLX_ClipBase* const reread = propertyFolder().readUserClip();
    require(reread != nullptr, "what was saved can be read");
    return digestOf(reread);
}

} // namespace

void runPropertyDocument(Bytes input)
{
    Input values(input);
    const EncodedDocument document = takeDocument(values);
    const std::uint64_t digest = digestOfDocument(document.bytes);
    if (document.isComparable) {
        require(digestOfDocument(document.text) == digest, "all encodings read alike");
    }
    if (KRT_PLX_ClipBase* const clip = propertyFolder().readUserClip(); clip != nullptr) {
        const auto key = static_cast<std::uint32_t>(document.bytes.size() % 31);
        const std::uint64_t edited = digestOfEdited(clip, key);
        require(digestOfEdited(KRT_PLX_Manager_userClip(propertyFolder().manager(), 0), key) ==
                    edited,
                "the same edit again changes nothing");
    }
}

} // namespace fuzz
