// Writes objects by the table of keys, row by row.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string_view>
#include <tuple>
#include <type_traits>

#include "format/keys.h"
#include "format/output.h"

namespace Korvel::CANTORIS::PLX::format {

// Output that writes an object or a list only if something is in it: its first value opens it.
class SparseOutput {
public:
    explicit SparseOutput(Output& out) : out_(out) {}

    void openObject(std::string_view key) { open({key, true}); }
    void openList(std::string_view key) { open({key, false}); }
    void openElement() { open({{}, true}); }

    // Whether it was written.
    bool close()
    {
        const Opening& opening = levels_[--depth_];
        if (depth_ >= shown_) {
            return false;
        }
        --shown_;
        if (opening.isObject) {
            out_.endObject();
        } else {
            out_.endArray();
        }
        return true;
    }

    // The place of the next value: after a key, or in the innermost list.
    Output& member(std::string_view key)
    {
        show();
        out_.key(key);
        return out_;
    }
    Output& element()
    {
        show();
        return out_;
    }

private:
    struct Opening {
        std::string_view key; // empty for the document and for an element of a list
        bool isObject;
    };

    void open(const Opening& opening) { levels_[depth_++] = opening; }

    void show()
    {
        while (shown_ < depth_) {
            const Opening& opening = levels_[shown_++];
            if (!opening.key.empty()) {
                out_.key(opening.key);
            }
            if (opening.isObject) {
                out_.beginObject();
            } else {
                out_.beginArray();
            }
        }
    }

    Output& out_;
    std::array<Opening, keys::mostLevels> levels_;
    std::size_t depth_ = 0;
    std::size_t shown_ = 0; // levels that are written; the others wait for a first value
};

// A tag that says which table an object is written by, for choosing among overloads.
template <class Of>
struct As {
};

// Goes through the rows of an object. `Writer`, the class that derives from this one, says for each
// object and list what it contains:
//     write(As<Inner>, source)     writes the rows of an object, if it is written at all
//     elements(As<Inner>, source)  writes the elements of a list of objects
template <class Writer>
class RowWriter {
public:
    explicit RowWriter(Output& out) : out_(out) {}

protected:
    template <class Of, class Source>
    void rows(Source& source)
    {
        std::apply([&](const auto&... entry) { (row(entry, source), ...); }, Of::entries);
    }

    // An element of a list.
    template <class Of, class Source>
    void object(As<Of> as, Source& source)
    {
        out_.openElement();
        self().write(as, source);
        out_.close();
    }

    SparseOutput& out() { return out_; }

private:
    Writer& self() { return static_cast<Writer&>(*this); }

    template <keys::Kind kind, class Put, class Source>
    void row(const keys::Entry<kind, keys::NotWritten, Put>&, Source&)
    {
    }

    template <keys::Kind kind, class Get, class Put, class Source>
    void row(const keys::Entry<kind, Get, Put>& entry, Source& source)
    {
        const auto value = std::invoke(entry.get, source);
        if (entry.row.written == keys::Written::always || !isEmpty(value)) {
            put<kind>(out_.member(entry.row.key), value);
        }
    }

    template <class Inner, class Source>
    void row(const keys::Object<Inner>& entry, Source& source)
    {
        out_.openObject(entry.row.key);
        self().write(As<Inner>(), source);
        out_.close();
    }

    template <class Inner, class Source>
    void row(const keys::Objects<Inner>& entry, Source& source)
    {
        out_.openList(entry.row.key);
        self().elements(As<Inner>(), source);
        out_.close();
    }

    template <class Count, class At, class What, class Source>
    void row(const keys::Texts<Count, At, What>& entry, Source& source)
    {
        out_.openList(entry.row.key);
        const std::uint64_t count = std::invoke(entry.count, source);
        for (std::uint64_t index = 0; index < count; ++index) {
            out_.element().text(viewOrEmpty(std::invoke(entry.at, source, index)));
        }
        out_.close();
    }

    template <class Count, class At, class Source>
    void row(const keys::Integers<Count, At>& entry, Source& source)
    {
        out_.openList(entry.row.key);
        const std::uint64_t count = std::invoke(entry.count, source);
        for (std::uint64_t index = 0; index < count; ++index) {
            const std::int32_t number = std::invoke(entry.at, source, index);
            if (number >= entry.row.range.minimum) {
                out_.element().integer(number);
            }
        }
        out_.close();
    }

    template <class Source>
    void row(const keys::ParameterValue& entry, Source& source)
    {
        self().value(out_.member(entry.row.key), source);
    }

    static StringView view(const Char* text) { return viewOrEmpty(text); }
    static StringView view(StringView text) { return text; }

    template <class Value>
    static bool isEmpty(const Value& value)
    {
        if constexpr (std::is_arithmetic_v<Value>) {
            return value == 0;
        } else if constexpr (std::is_pointer_v<Value>) {
            return isNullOrEmpty(value);
        } else {
            return value.empty();
        }
    }

    template <keys::Kind kind, class Value>
    static void put(Output& out, const Value& value)
    {
        if constexpr (kind == keys::Kind::integer) {
            out.integer(value);
        } else if constexpr (kind == keys::Kind::real) {
            out.number(value);
        } else if constexpr (kind == keys::Kind::flag) {
            out.flag(value);
        } else if constexpr (kind == keys::Kind::word) {
            out.ascii(value);
        } else {
            out.text(view(value));
        }
    }

    SparseOutput out_;
};

} // namespace Korvel::CANTORIS::PLX::format
