// The functions that codegen_face.cpp and codegen_c.cpp both have: one by the C++ face, the other
// by the C functions. check_codegen.py compares the instructions that the compiler makes of them.
#pragma once

#include <cstdint>

#include <korvel/plx.h>

extern "C" {

std::uint32_t readsANumber(KRT_PLX_NoteBase* note);
bool readsAType(KRT_PLX_PartBase* part);
KRT_PLX_MidiEventBase* walksDown(KRT_PLX_ClipBase* clip);
bool setsANumber(KRT_PLX_NoteBase* note, std::uint32_t value);
bool setsAText(KRT_PLX_NoteBase* note, const KRT_PLX_Char* text);
std::uint64_t counts(KRT_PLX_PartBase* part);
std::int64_t walksNotes(KRT_PLX_PartBase* part);
std::int64_t walksEvents(KRT_PLX_MidiControllerBase* lane);
std::uint64_t walksVibrato(KRT_PLX_NoteBase* note);
}
