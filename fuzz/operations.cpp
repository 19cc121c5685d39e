#include <array>
#include <bit>
#include <cstdint>
#include <deque>
#include <limits>
#include <tuple>
#include <type_traits>

#include "calls.h"
#include "exported_functions.h"
#include "require_property.h"

namespace fuzz {

namespace {

using support::Text;
using TextView = std::basic_string_view<KRT_PLX_Char>;

// --- Arguments ------------------------------------------------------------------------------------------

constexpr std::array<std::int64_t, 34> numbers = {
    0,    1,    2,    3,    4,     5,     10,    11,    12,         16,        17,  24,
    25,   30,   31,   63,   64,    -64,   -65,   100,   101,        127,       128, 480,
    1999, 2000, 8191, 8192, -8192, -8193, 30000, 30001, 2147483646, 2147483647};

constexpr std::array floats = {0.0F,
                               -0.0F,
                               0.5F,
                               1.0F,
                               1.0000001F,
                               2.0F,
                               2.0000002F,
                               -0.0000001F,
                               std::numeric_limits<float>::denorm_min(),
                               std::numeric_limits<float>::min(),
                               std::numeric_limits<float>::max(),
                               std::numeric_limits<float>::lowest(),
                               std::numeric_limits<float>::infinity(),
                               -std::numeric_limits<float>::infinity(),
                               std::numeric_limits<float>::quiet_NaN()};

// Lives as long as the call that its texts and counts are for.
class Arguments {
public:
    Arguments(Session& session, Input& input, bool isMutable)
        : session_(session), input_(input), isMutable_(isMutable)
    {
    }

    template <class Argument>
    Argument make()
    {
        if constexpr (std::is_same_v<Argument, const KRT_PLX_Char*>) {
            return text();
        } else if constexpr (std::is_same_v<Argument, float>) {
            return real();
        } else if constexpr (std::is_same_v<Argument, bool>) {
            return input_.below(2) == 1;
        } else if constexpr (std::is_same_v<Argument, std::uint64_t>) {
            return index();
        } else if constexpr (std::is_integral_v<Argument>) {
            return integer<Argument>();
        } else if constexpr (std::is_same_v<Argument, std::uint64_t*>) {
            return input_.below(8) == 0 ? nullptr : &count_;
        } else if constexpr (std::is_same_v<Argument, std::uint32_t*>) {
            return input_.below(8) == 0 ? nullptr : &code_;
        } else {
            return session_.some<std::remove_pointer_t<Argument>>(input_, isMutable_);
        }
    }

private:
    const KRT_PLX_Char* keep(Text text) { return texts_.emplace_back(std::move(text)).c_str(); }

    Text units()
    {
        Text text;
        for (std::size_t length = input_.below(24); text.size() < length;) {
            text += static_cast<KRT_PLX_Char>(input_.number<std::uint16_t>());
        }
        return text;
    }

    const KRT_PLX_Char* text()
    {
        static const std::array samples = {support::text(""),
                                           support::text("a"),
                                           support::text("b"),
                                           support::text("さくら"),
                                           support::text("0123456789ABCDEF"),
                                           support::text("0123456789ABCDEFG")};
        const std::size_t choice = input_.below(16);
        if (choice == 0) {
            return nullptr;
        }
        if (choice == 1) {
            return keep(units());
        }
        if (choice == 2) {
            return keep(Text(5000, input_.number<std::uint8_t>()));
        }
        if (choice == 3) {
            return keep(input_.oneOf(session_.paths()));
        }
        return keep(samples[choice % samples.size()]);
    }

    float real()
    {
        const std::size_t choice = input_.below(floats.size() + 1);
        return choice < floats.size() ? floats[choice] : input_.number<float>();
    }

    std::uint64_t index()
    {
        const auto choice = input_.number<std::uint8_t>();
        if (choice < 0xF0) {
            return choice % 8;
        }
        return std::numeric_limits<std::uint64_t>::max() >> (choice - 0xF0);
    }

    template <class Number>
    Number integer()
    {
        const std::size_t choice = input_.below(numbers.size() + 3);
        if (choice < numbers.size()) {
            return static_cast<Number>(numbers[choice]);
        }
        return choice == numbers.size() ? static_cast<Number>(0x80000000U)
                                        : input_.number<Number>();
    }

    Session& session_;
    Input& input_;
    bool isMutable_;
    std::deque<Text> texts_;
    std::uint64_t count_ = 0;
    std::uint32_t code_ = 0;
};

// --- Names ----------------------------------------------------------------------------------------------

std::string_view classOf(std::string_view name)
{
    return name.substr(0, name.find('_'));
}

std::string_view operationOf(std::string_view name)
{
    return name.substr(name.find('_') + 1);
}

bool beginsWithAny(std::string_view text, std::initializer_list<std::string_view> beginnings)
{
    for (const std::string_view beginning : beginnings) {
        if (text.starts_with(beginning)) {
            return true;
        }
    }
    return false;
}

bool mayChange(std::string_view name)
{
    return beginsWithAny(operationOf(name), {"set", "add", "insert", "remove", "move", "create",
                                             "destroy", "save", "read", "protect"});
}

// Managers and editors of properties are kept with what can be changed.
bool takesMutable(std::string_view name)
{
    return beginsWithAny(classOf(name), {"Mutable", "Manager", "HasManager", "PropertyEditor"});
}

// --- The model ------------------------------------------------------------------------------------------

template <class Value>
constexpr bool isValue = std::is_arithmetic_v<Value> || std::is_same_v<Value, const KRT_PLX_Char*>;

template <class Value>
bool isSame(Value stored, Value given)
{
    if constexpr (std::is_same_v<Value, float>) {
        return std::bit_cast<std::uint32_t>(stored) == std::bit_cast<std::uint32_t>(given);
    } else if constexpr (std::is_pointer_v<Value>) {
        return TextView(stored) == (given == nullptr ? TextView() : TextView(given));
    } else {
        return stored == given;
    }
}

// Whether an object is of the kind that has the properties of the list.
template <class Handle>
bool hasProperties(Handle*)
{
    return true;
}

bool hasProperties(KRT_PLX_PartBase* part)
{
    return KRT_PLX_PartBase_type(part) != KRT_PLX_PART_AUDIO;
}

// What a setter has to say to a value, asked before it is called.
template <class Handle, class Value>
class Expectation {
public:
    Expectation(bool (*setter)(Handle*, Value), Handle* handle, Value value, bool isEditable)
    {
        support::forEachProperty<Handle, Value>([&](const auto& property) {
            if (property.set == setter && handle != nullptr && isEditable) {
                property_ = &property;
                accepts_ = hasProperties(handle) && property.accepts(handle, value);
                succeeds_ = accepts_ && property.succeeds(value);
            }
        });
    }

    void check(bool result, Handle* handle, Value value) const
    {
        if (property_ != nullptr) {
            requireOf(*property_, result == succeeds_, "takes the values in its range, no others");
            requireOf(*property_, !accepts_ || isSame(property_->get(handle), value),
                      "stores what it takes");
        }
    }

private:
    const support::Property<Handle, Value>* property_ = nullptr;
    bool accepts_ = false;
    bool succeeds_ = false;
};

// --- Calls ----------------------------------------------------------------------------------------------

template <class Result, class Handle, class... Rest>
Result call(Session& session, Result (*function)(Handle*, Rest...), Handle* handle,
            const std::tuple<Rest...>& rest)
{
    const auto run = [&] {
        return std::apply([&](Rest... each) { return function(handle, each...); }, rest);
    };
    if constexpr (std::is_same_v<Result, bool> && (isValue<Rest> && ...) && sizeof...(Rest) == 1) {
        const auto value = std::get<0>(rest);
        const Expectation expectation(function, handle, value, session.isEditable(handle));
        const bool result = run();
        expectation.check(result, handle, value);
        return result;
    } else {
        return run();
    }
}

// What the session cannot see by itself.
template <class Result, class Handle>
void follow(Session& session, std::string_view name, Result result, Handle* handle)
{
    if constexpr (std::is_same_v<Handle, KRT_PLX_Manager>) {
        if (name == "Manager_destroy" && handle != nullptr) {
            session.forget(handle);
        } else if (operationOf(name).starts_with("read")) {
            session.forgetEditors();
        }
    } else if constexpr (std::is_same_v<Handle, KRT_PLX_ClipBase>) {
        if (classOf(name) == "UserClip") {
            session.forgetEditors();
        }
    }
    if constexpr (std::is_same_v<Result, KRT_PLX_PropertyEditor*> ||
                  std::is_same_v<Result, KRT_PLX_ClipBase*>) {
        if (result != nullptr && operationOf(name).starts_with("create")) {
            session.add(result);
        }
    }
}

template <class Result>
bool isRefusal(std::string_view name, Result result)
{
    if constexpr (std::is_pointer_v<Result> || std::is_same_v<Result, bool>) {
        return !result && operationOf(name) != "protect";
    } else {
        return false;
    }
}

template <class Result, class Handle>
void conclude(Session& session, std::string_view name, Result result, Handle* handle)
{
    if (!mayChange(name)) {
        return;
    }
    const std::uint64_t before = session.digest();
    follow(session, name, result, handle);
    session.update();
    require(!isRefusal(name, result) || session.digest() == before, "a refusal changes nothing");
}

// A clip that was saved is whole, and alone in its folder; of one that was not, nothing is left.
void checkSaved(KRT_PLX_ClipBase* saved, std::size_t entriesBefore, std::size_t entries)
{
    require(entries == entriesBefore + (saved == nullptr ? 0 : 1),
            "a save makes a folder or nothing");
    require(saved == nullptr || KRT_PLX_Clip_readPart(saved), "what was saved can be read");
}

template <class Result, class Handle, class... Rest>
Operation operation(std::string_view name, Result (*function)(Handle*, Rest...))
{
    return [name, function](Session& session, Input& input) {
        const bool isMutable = takesMutable(name);
        Arguments arguments(session, input, isMutable);
        Handle* const handle = session.some<Handle>(input, isMutable);
        const std::tuple<Rest...> rest{arguments.template make<Rest>()...};
        if constexpr (std::is_void_v<Result>) {
            call(session, function, handle, rest);
            conclude(session, name, true, handle);
        } else if constexpr (std::is_same_v<Result, KRT_PLX_ClipBase*>) {
            const bool saves = name == "MutableClip_save";
            const std::size_t entries = saves ? session.userEntries() : 0;
            const Result clip = call(session, function, handle, rest);
            if (saves) {
                checkSaved(clip, entries, session.userEntries());
            }
            conclude(session, name, clip, handle);
        } else {
            conclude(session, name, call(session, function, handle, rest), handle);
        }
    };
}

// The one function whose first argument is no handle.
Operation operation(std::string_view,
                    KRT_PLX_Manager* (*function)(const KRT_PLX_Char*, const KRT_PLX_Char*,
                                                 const KRT_PLX_Char*, const KRT_PLX_Char* const*,
                                                 std::int32_t, const KRT_PLX_Char* const*,
                                                 std::int32_t, std::uint32_t*))
{
    return [function](Session& session, Input& input) {
        if (input.below(2) == 0) {
            session.createManager(input.below(2) == 0 ? "first" : "second");
        } else {
            Arguments arguments(session, input, true);
            const auto* const id = arguments.make<const KRT_PLX_Char*>();
            const auto* const user = session.paths().back().c_str();
            KRT_PLX_Manager* const manager =
                function(id, user, user, &id, input.number<std::int8_t>() % 2, &user, -1,
                         arguments.make<std::uint32_t*>());
            require(manager == nullptr, "no manager on a folder that is not there");
        }
        session.update();
    };
}

std::vector<Operation> makeOperations()
{
    constexpr std::string_view prefix = "KRT_PLX_";
    std::vector<Operation> all;
    forEachExportedFunction([&](const char* name, auto* function) {
        all.push_back(operation(std::string_view(name).substr(prefix.size()), function));
    });
    return all;
}

} // namespace

const std::vector<Operation>& operations()
{
    static const std::vector<Operation> all = makeOperations();
    return all;
}

} // namespace fuzz
