// Stores the values of an object in the model, row by row.
#pragma once

#include <functional>
#include <type_traits>
#include <utility>

#include "format/trail.h"
#include "unicode.h"

namespace Korvel::CANTORIS::PLX::format {

class Taker {
public:
    explicit Taker(const Trail& trail) : trail_(trail) {}

    // Stores the accepted values in the target, in the order of the rows. False at the first
    // required row that is missing, of another kind or not accepted. Objects and lists have been
    // stored already; this only checks that required ones are there.
    template <class Of, class Target>
    bool take(const Members& members, Target& target)
    {
        using Places = std::make_index_sequence<std::tuple_size_v<decltype(Of::entries)>>;
        const bool isTaken = takeRows<Of>(members, target, Places());
        if (!isTaken && trail_.isHeard()) {
            tellOfOthers<Of>(members, target, Places());
        }
        return isTaken;
    }

    enum class Outcome : std::uint8_t { taken, missing, wrongKind, notAccepted, told };

    // Stores the value of one row.
    template <class Of, std::size_t place, class Target>
    Outcome takeRow(const Members& members, Target& target)
    {
        constexpr const auto& entry = std::get<place>(Of::entries);
        const Value* const value = members[place];
        const Outcome outcome = value == nullptr ? Outcome::missing : put(entry, *value, target);
        if (outcome != Outcome::taken &&
            (entry.row.need == keys::Need::required || outcome != Outcome::missing)) {
            tell(outcome, members, entry.row, value);
        }
        return outcome;
    }

    // The text in UTF-16, valid until the next call.
    StringView convert(std::string_view utf8)
    {
        text_.clear();
        appendValidUtf16(text_, utf8);
        return text_;
    }

private:
    template <class Of, class Target, std::size_t... places>
    bool takeRows(const Members& members, Target& target, std::index_sequence<places...>)
    {
        return ((takeRow<Of, places>(members, target) == Outcome::taken ||
                 std::get<places>(Of::entries).row.need == keys::Need::optional) &&
                ...);
    }

    // Of the required rows that fail, the first was told of. The object is lost: what is put into it
    // does not count.
    template <class Of, class Target, std::size_t... places>
    void tellOfOthers(const Members& members, Target& target, std::index_sequence<places...>)
    {
        bool isFirst = true;
        (tellOfOther<Of, places>(members, target, isFirst), ...);
    }

    template <class Of, std::size_t place, class Target>
    void tellOfOther(const Members& members, Target& target, bool& isFirst)
    {
        constexpr const auto& entry = std::get<place>(Of::entries);
        if constexpr (entry.row.need == keys::Need::required) {
            const Value* const value = members[place];
            const Outcome outcome =
                value == nullptr ? Outcome::missing : put(entry, *value, target);
            if (outcome != Outcome::taken && !std::exchange(isFirst, false)) {
                tell(outcome, members, entry.row, value);
            }
        }
    }

    // Puts a value, if there is one of the row's kind.
    template <class Put, class Target, class Value>
    static Outcome store(const Put& put, Target& target, const std::optional<Value>& value)
    {
        if (!value) {
            return Outcome::wrongKind;
        }
        if constexpr (std::is_void_v<std::invoke_result_t<const Put&, Target&, Value>>) {
            std::invoke(put, target, *value);
            return Outcome::taken;
        } else {
            return std::invoke(put, target, *value) ? Outcome::taken : Outcome::notAccepted;
        }
    }

    template <class Get, class Put, class Target>
    static Outcome put(const keys::Entry<keys::Kind::integer, Get, Put>& entry, const Value& value,
                       Target& target)
    {
        return store(entry.put, target, value.asInteger());
    }

    template <class Get, class Put, class Target>
    static Outcome put(const keys::Entry<keys::Kind::real, Get, Put>& entry, const Value& value,
                       Target& target)
    {
        return store(entry.put, target, value.asFloat());
    }

    template <class Get, class Put, class Target>
    static Outcome put(const keys::Entry<keys::Kind::flag, Get, Put>& entry, const Value& value,
                       Target& target)
    {
        return store(entry.put, target, value.asFlag());
    }

    template <class Get, class Put, class Target>
    static Outcome put(const keys::Entry<keys::Kind::word, Get, Put>& entry, const Value& value,
                       Target& target)
    {
        return store(entry.put, target, value.asWholeUtf8());
    }

    template <class Get, class Put, class Target>
    Outcome put(const keys::Entry<keys::Kind::text, Get, Put>& entry, const Value& value,
                Target& target)
    {
        const auto whole = value.asWholeUtf8();
        if (!whole) {
            return Outcome::wrongKind;
        }
        const std::string_view utf8 = whole->substr(0, whole->find('\0'));
        const bool isFile = entry.row.rule == keys::TextRule::fileName;
        const bool mayBeEmpty = !isFile && entry.row.rule != keys::TextRule::notEmpty;
        if ((utf8.empty() && !mayBeEmpty) || (isFile && utf8.size() != whole->size())) {
            return Outcome::notAccepted;
        }
        return store(entry.put, target, std::optional(convert(utf8)));
    }

    template <class Target>
    static Outcome put(const keys::ParameterValue&, const Value& value, Target&)
    {
        const bool canBe = value.kind == Value::Kind::integer || value.kind == Value::Kind::real ||
                           value.kind == Value::Kind::text;
        return canBe ? Outcome::taken : Outcome::wrongKind;
    }

    template <class Inner, class Target>
    static Outcome put(const keys::Object<Inner>&, const Value& value, Target&)
    {
        if (value.kind == Value::Kind::refused) {
            return Outcome::told;
        }
        return value.kind == Value::Kind::object ? Outcome::taken : Outcome::wrongKind;
    }

    template <class List, class Target>
    requires(List::kind >= keys::Kind::integers) static Outcome
        put(const List&, const Value& value, Target&)
    {
        return value.kind == Value::Kind::list ? Outcome::taken : Outcome::wrongKind;
    }

    void tell(Outcome outcome, const Members& members, const keys::Row& row,
              const Value* value) const
    {
        if (!trail_.isHeard() || outcome == Outcome::told) {
            return;
        }
        const LossReason reason = outcome == Outcome::missing     ? LossReason::missing
                                  : outcome == Outcome::wrongKind ? LossReason::wrongKind
                                                                  : LossReason::notAccepted;
        trail_.lost(reason, members, row, value);
    }

    const Trail& trail_;
    String text_;
};

} // namespace Korvel::CANTORIS::PLX::format
