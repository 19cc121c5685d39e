// Hosts in other languages may store another byte than 1 for true: 0xFF in Pascal's wide Booleans and
// in Basic, for instance. Every byte but 0 is true, and what is read back is 0 or 1.
#include <array>
#include <cstdint>

#include "support/saving.h"

using support::text;

namespace {

using Byte = unsigned char;

constexpr std::array<Byte, 5> trueBytes = {1, 2, 0x80, 0xFE, 0xFF};

// The exported function as such a host declares it: a byte wherever the header says bool.
template <class Foreign, class Function>
Foreign* as(Function* function)
{
    return reinterpret_cast<Foreign*>(reinterpret_cast<void (*)()>(function));
}

class ForeignBool : public SaveTest {
protected:
    using Setter = Byte(KRT_PLX_NoteBase*, Byte);
    using Getter = Byte(KRT_PLX_NoteBase*);
    using DvqmOf = KRT_PLX_DvqmBase*(KRT_PLX_NoteBase*, Byte);

    // All that is stored, by each byte.
    template <class Function, class Question>
    void expectStored(Function* setter, Question* getter)
    {
        auto* const set = as<Setter>(setter);
        auto* const get = as<Getter>(getter);
        for (const Byte byte : trueBytes) {
            EXPECT_EQ(set(note, byte), 1);
            EXPECT_EQ(get(note), 1) << int{byte};
            EXPECT_EQ(set(note, 0), 1);
            EXPECT_EQ(get(note), 0) << int{byte};
        }
    }

    KRT_PLX_PartBase* part = support::createMidiPart(clip);
    KRT_PLX_NoteBase* note = KRT_PLX_MutableMidiPart_insertNote(part, 0, 480, text("la").c_str(),
                                                                text("l a").c_str(), 0);
};

TEST_F(ForeignBool, IsStoredByANote)
{
    expectStored(&KRT_PLX_MutableNote_setProtected, &KRT_PLX_NoteBase_isProtected);
    expectStored(&KRT_PLX_MutableNote_setFallPort, &KRT_PLX_NoteBase_fallPort);
    expectStored(&KRT_PLX_MutableNote_setRisePort, &KRT_PLX_NoteBase_risePort);
}

TEST_F(ForeignBool, IsStoredByADvqm)
{
    auto* const protect = as<Byte(KRT_PLX_DvqmBase*, Byte)>(&KRT_PLX_MutableDvqm_protect);
    auto* const isProtected = as<Byte(KRT_PLX_DvqmBase*)>(&KRT_PLX_DvqmBase_isProtected);
    KRT_PLX_DvqmBase* const dvqm = KRT_PLX_MutableNote_dvqm(note, true);
    for (const Byte byte : trueBytes) {
        EXPECT_EQ(protect(dvqm, byte), 1) << int{byte};
        EXPECT_EQ(isProtected(dvqm), 1) << int{byte};
        EXPECT_EQ(protect(dvqm, 0), 0) << int{byte};
        EXPECT_EQ(isProtected(dvqm), 0) << int{byte};
    }
}

TEST_F(ForeignBool, ChoosesTheDvqmOfAnEditableNote)
{
    auto* const dvqm = as<DvqmOf>(&KRT_PLX_MutableNote_dvqm);
    ASSERT_NE(dvqm(note, 0), dvqm(note, 1));
    for (const Byte byte : trueBytes) {
        EXPECT_EQ(dvqm(note, byte), dvqm(note, 1)) << int{byte};
    }
}

TEST_F(ForeignBool, ChoosesTheDvqmOfANote)
{
    KRT_PLX_ClipBase* const saved = support::save(clip).clip;
    ASSERT_TRUE(KRT_PLX_Clip_readPart(saved));
    KRT_PLX_NoteBase* const read = KRT_PLX_MidiPart_note(KRT_PLX_Clip_midiPart(saved), 0);
    auto* const dvqm = as<DvqmOf>(&KRT_PLX_Note_dvqm);
    ASSERT_NE(dvqm(read, 0), dvqm(read, 1));
    for (const Byte byte : trueBytes) {
        EXPECT_EQ(dvqm(read, byte), dvqm(read, 1)) << int{byte};
    }
}

TEST_F(ForeignBool, ChoosesTheFormOfTheDocuments)
{
    auto* const save =
        as<KRT_PLX_ClipBase*(KRT_PLX_ClipBase*, const KRT_PLX_Char*, Byte, std::uint32_t*)>(
            &KRT_PLX_MutableClip_save);
    const auto isIndented = [&](Byte formatted) {
        KRT_PLX_ClipBase* const saved = save(clip, text("Name").c_str(), formatted, nullptr);
        return documentsOf(saved).properties.find('\n') != std::string::npos;
    };
    EXPECT_FALSE(isIndented(0));
    for (const Byte byte : trueBytes) {
        EXPECT_TRUE(isIndented(byte)) << int{byte};
    }
}

TEST_F(ForeignBool, IsWrittenAsTrue)
{
    const auto documentsWith = [&](Byte byte) {
        as<Setter> (&KRT_PLX_MutableNote_setProtected)(note, byte);
        as<Setter> (&KRT_PLX_MutableNote_setFallPort)(note, byte);
        return documentsOf(support::save(clip).clip).data;
    };
    EXPECT_EQ(documentsWith(0xFF), documentsWith(1));
}

} // namespace
