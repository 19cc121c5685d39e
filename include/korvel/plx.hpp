/**
 * @file plx.hpp
 * The C++ face of the clip library: C++17, header only, over the functions of plx.h.
 *
 * Each class of the C functions is a class here, `KRT_PLX_MidiPart_note(part, index)` is
 * `part.note(index)`, and the C header says what it does. On top of that there are
 *
 * - conversions: a handle converts to the bases of its class; `as...()` goes the other way and gives
 *   a null handle when the object is of another class;
 * - texts as string views, and toUtf8() and fromUtf8(). A text argument is a literal or pointer that
 *   ends with a NUL, a String, or a StringView, which is copied;
 * - ranges: `for (auto note : part.notes())`;
 * - enumerations for types and codes; a ResultCode, such as `clip.save(name).code`, is a Result wherever
 *   one is expected;
 * - std::optional where a "no value" exists: where a living object may lack a value (a language, a tempo,
 *   a value of a type), and where the property has a mark of its own for a null handle (a key, the type
 *   of a vibrato). Other numbers are for a null handle what the C function returns;
 * - edit(), transpose(), find() and their like (kit.hpp), for hosts that also link `krt_plx_kit`.
 *
 * The functions are called by their names: a host links `krt_plx`, or `krt_plx_loaded` (plx_loaded.h) if it
 * loads the library at run time.
 *
 * A handle is a pointer: it owns nothing, is copied freely, and dies when plx.h says so. A manager
 * has to be destroyed as in C.
 *
 * @code{.cpp}
 * #include <iostream>
 *
 * #include <korvel/plx.hpp>
 *
 * void listClips(korvel::plx::Manager manager)
 * {
 *     manager.readAllClipFiles();
 *     for (auto clip : manager.systemClips()) {
 *         clip.readPart();
 *         std::cout << korvel::plx::toUtf8(clip.name()) << '\n';
 *         for (auto note : clip.midiPart().notes()) {
 *             std::cout << note.pos() << ' ' << korvel::plx::toUtf8(note.lyric()) << '\n';
 *         }
 *     }
 * }
 * @endcode
 */
#ifndef KORVEL_PLX_HPP
#define KORVEL_PLX_HPP

#include <korvel/face/kit.hpp>
#include <korvel/face/manager.hpp>
#include <korvel/plx.h>

#endif
