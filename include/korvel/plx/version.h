/**
 * @file version.h
 * The version of the headers that a host is compiled against.
 *
 * The numbers follow Semantic Versioning: what may change between two versions, and how a host asks
 * for the version of the library that it meets at run time, is told on the page "Versioning" of the
 * manual.
 *
 * This header is the only place where the version is written; the name of the shared object, the
 * CMake package, the pkg-config file and the version resource of the DLL are made from it. A
 * resource script can include it too: it then holds nothing but macros.
 */
#ifndef KORVEL_PLX_VERSION_H
#define KORVEL_PLX_VERSION_H

#if !defined(RC_INVOKED)
#    include "common.h"
#endif

/** Counts the changes after which hosts may have to be changed; 0 until the interface is settled. */
#define KRT_PLX_VERSION_MAJOR 0

/** Counts the additions within a major version; below 1.0 also the changes. */
#define KRT_PLX_VERSION_MINOR 1

/** Counts the corrections within a minor version. */
#define KRT_PLX_VERSION_PATCH 0

/**
 * The version as text, `"MAJOR.MINOR.PATCH"`: a literal of ordinary `char`, which can be joined to
 * others.
 */
#define KRT_PLX_VERSION \
    KRT_PLX_VERSION_TEXT(KRT_PLX_VERSION_MAJOR, KRT_PLX_VERSION_MINOR, KRT_PLX_VERSION_PATCH)

/**
 * True when the headers are of the given version or of a later one; can be used in `#if`.
 *
 * A host that is to be compiled against older headers too tests with it for what they lack. Where
 * this macro itself may be missing, test for KRT_PLX_VERSION_MAJOR first.
 */
#define KRT_PLX_VERSION_AT_LEAST(major, minor, patch) \
    (KRT_PLX_VERSION_MAJOR > (major) ||               \
        (KRT_PLX_VERSION_MAJOR == (major) &&          \
            (KRT_PLX_VERSION_MINOR > (minor) ||       \
                (KRT_PLX_VERSION_MINOR == (minor) && KRT_PLX_VERSION_PATCH >= (patch)))))

/** @cond INTERNAL */
#define KRT_PLX_VERSION_TEXT(major, minor, patch) KRT_PLX_VERSION_QUOTED(major.minor.patch)
#define KRT_PLX_VERSION_QUOTED(text) #text
/** @endcond */

#endif
