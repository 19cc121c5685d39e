// The one way from a path to the form in which the system gets it.
#pragma once

#include "fs/fs.h"

namespace Korvel::CANTORIS::PLX::fs {

// The path of an entry of a folder, both with the prefix: there no separator may stand beside another.
String entryPath(StringView folder, StringView name);

// A path with the prefix by which the system takes it as it is: of any length up to 32,767 units, with
// names that end in blanks and dots, and with names that would mean a device without the prefix.
//
// What the host has given is completed by the system first, once: relative paths, the current directory of
// a drive, slashes, detours, blanks and dots at the end. A device is no path here. The names behind it
// stay as they are; detours among them, which documents may name, are resolved.
//
// Empty for a path that leads nowhere.
class SystemPath {
public:
    explicit SystemPath(const Path& path);

    [[nodiscard]] bool isEmpty() const { return text_.empty(); }
    [[nodiscard]] unsigned long error() const { return error_; } // why it is empty
    [[nodiscard]] const Char* text() const { return text_.c_str(); }
    [[nodiscard]] std::size_t length() const { return text_.size(); }

    // The drive or the share, with a separator at its end. What lies above it cannot be made or removed.
    [[nodiscard]] std::size_t rootLength() const { return rootLength_; }

    // Whether it ends with a separator, which nothing but a folder may.
    [[nodiscard]] bool namesFolder() const { return namesFolder_; }

    // The path of an entry of the folder, and the part of this path up to a length.
    [[nodiscard]] String of(StringView name) const { return entryPath(text_, name); }
    [[nodiscard]] String upTo(std::size_t length) const { return text_.substr(0, length); }

private:
    void append(StringView name);
    void appendNames(StringView names);

    String text_;
    unsigned long error_;
    std::size_t rootLength_ = 0;
    bool namesFolder_ = false;
};

// The form with the prefix of a path that the system has completed; empty for a device.
String withPrefix(StringView full);

} // namespace Korvel::CANTORIS::PLX::fs
