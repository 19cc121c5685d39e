// The only place that converts paths for the system.
#pragma once

#include "fs/fs.h"

namespace Korvel::CANTORIS::PLX::fs {

// The path of an entry of a folder, both with the prefix: in such a path separators must not be
// doubled.
String entryPath(StringView folder, StringView name);

// A path with the prefix that makes the system use it as it is: up to 32,766 units long, with names
// that end in blanks and dots, and with names that would mean a device without the prefix.
//
// The part that the host has passed is completed by the system first, once: relative paths, the
// current directory of a drive, slashes, "." and "..", blanks and dots at the end. The path of a
// device is refused. The names after that part stay as they are; only "." and ".." among them,
// which documents may contain, are resolved.
//
// Empty for a path that leads nowhere, and for one that is longer: the system might use its beginning.
class SystemPath {
public:
    explicit SystemPath(const Path& path);

    [[nodiscard]] bool isEmpty() const { return text_.empty(); }
    [[nodiscard]] unsigned long error() const { return error_; } // why it is empty
    [[nodiscard]] const Char* text() const { return text_.c_str(); }
    [[nodiscard]] std::size_t length() const { return text_.size(); }

    // Up to the separator after the drive or the share. These cannot be made or removed.
    [[nodiscard]] std::size_t rootLength() const { return rootLength_; }

    // Whether it ends with a separator, which only the path of a folder may.
    [[nodiscard]] bool namesFolder() const { return namesFolder_; }

    // The path of an entry of the folder, and the first part of this path, up to a length.
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

// Adds the prefix to a path that the system has completed; empty for a device.
String withPrefix(StringView full);

} // namespace Korvel::CANTORIS::PLX::fs
