#pragma once
#include <array>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "core/controls.h"
#include "core/grid.h"
#include "core/numbers.h"
#include "core/track_array.h"
#include "core/values.h"

/// The tables in which the program's operations, state and controls stand under their names, for scripts and
/// lessons. Names are looked up without regard to case. User-interface thread.
namespace melvane {

/// Turns a script's value into a parameter; nothing when it does not fit.
template <class Parameter>
std::optional<Parameter> fromValue(const Value& value) {
    if constexpr (std::is_same_v<Parameter, std::string>) {
        if (const auto* text = std::get_if<std::string>(&value)) return *text;
        return std::nullopt;
    } else if constexpr (std::is_same_v<Parameter, bool>) {
        const auto whole = wholeNumber(value);
        return whole ? std::optional<bool>(*whole != 0) : std::nullopt;
    } else {
        static_assert(std::is_arithmetic_v<Parameter>);
        if (const auto* decimal = std::get_if<double>(&value)) {
            if constexpr (std::is_floating_point_v<Parameter>)
                return static_cast<Parameter>(*decimal);
            else
                return narrowed<Parameter>(*decimal);
        }
        const auto whole = wholeNumber(value);
        if (!whole) return std::nullopt;
        if constexpr (std::is_floating_point_v<Parameter>)
            return static_cast<Parameter>(*whole);
        else
            return std::in_range<Parameter>(*whole) ? std::optional(static_cast<Parameter>(*whole))
                                                    : std::nullopt;
    }
}

template <class Held>
Value toValue(const Held& held) {
    if constexpr (std::is_same_v<Held, bool>)
        return held;
    else if constexpr (std::is_integral_v<Held>)
        return static_cast<long long>(held);
    else if constexpr (std::is_floating_point_v<Held>)
        return static_cast<double>(held);
    else
        return std::string(held);
}

/// What calling a name came to: `error` is empty when it ran, and `value` holds what it returned, if
/// anything.
struct CallResult {
    Value value;
    std::string error;
};

/// Operations by window and name ("form1", "ClearAll").
class OperationTable {
 public:
    using Call = std::function<CallResult(std::span<const Value>)>;

    void addCall(std::string_view window, std::string_view name, Call call);
    /// `operation` may be any callable; its parameters must be numbers, bool or std::string.
    template <class Owner, class Returned, class... Parameters>
    void add(std::string_view window, std::string_view name, Owner* owner,
             Returned (Owner::*operation)(Parameters...)) {
        addCall(window, name, [owner, operation](std::span<const Value> arguments) {
            return invoke<Returned, std::remove_cvref_t<Parameters>...>(
                [&](auto&&... values) {
                    return (owner->*operation)(std::forward<decltype(values)>(values)...);
                },
                arguments, std::index_sequence_for<Parameters...>());
        });
    }
    template <class Owner, class Returned, class... Parameters>
    void add(std::string_view window, std::string_view name, const Owner* owner,
             Returned (Owner::*operation)(Parameters...) const) {
        addCall(window, name, [owner, operation](std::span<const Value> arguments) {
            return invoke<Returned, std::remove_cvref_t<Parameters>...>(
                [&](auto&&... values) {
                    return (owner->*operation)(std::forward<decltype(values)>(values)...);
                },
                arguments, std::index_sequence_for<Parameters...>());
        });
    }

    template <class Returned, class... Parameters>
    void add(std::string_view window, std::string_view name, Returned (*operation)(Parameters...)) {
        addCall(window, name, [operation](std::span<const Value> arguments) {
            return invoke<Returned, std::remove_cvref_t<Parameters>...>(
                operation, arguments, std::index_sequence_for<Parameters...>());
        });
    }

    /// A mouse handler of a strip that looks at the button and X alone; it takes button, shift, X and Y.
    void addMouse(std::string_view window, std::string_view name,
                  std::function<void(int button, double X)> handler);

    bool has(std::string_view window, std::string_view name) const { return find(window, name) != nullptr; }
    CallResult call(std::string_view window, std::string_view name, std::span<const Value> arguments) const;
    /// All names as "window.name", for lists and tests.
    std::vector<std::string> names() const;

 private:
    const Call* find(std::string_view window, std::string_view name) const;

    template <class Returned, class... Parameters, class Callable, std::size_t... Index>
    static CallResult invoke(const Callable& callable, std::span<const Value> arguments,
                             std::index_sequence<Index...>) {
        if (arguments.size() != sizeof...(Parameters)) {
            return {{}, "takes " + std::to_string(sizeof...(Parameters)) + " arguments"};
        }
        auto values = std::tuple{fromValue<Parameters>(arguments[Index])...};
        if (!(std::get<Index>(values).has_value() && ...)) return {{}, "an argument is of the wrong kind"};
        if constexpr (std::is_void_v<Returned>) {
            callable(*std::get<Index>(values)...);
            return {};
        } else {
            return {toValue(callable(*std::get<Index>(values)...)), {}};
        }
    }

    std::map<std::string, std::pair<std::string, Call>> calls_;
};

/// State by name and indices: "Tempo", "TrackVolume(3)", "NoteArray(0,5)".
class StateTable {
 public:
    using Indices = std::span<const int>;
    struct Entry {
        std::string name;
        std::size_t indices = 0;                           ///< how many the name takes
        std::function<std::optional<Value>(Indices)> get;  ///< nothing when an index is out of range
        std::function<bool(Indices, const Value&)> put;    ///< false when the value does not fit
    };

    void add(Entry entry);
    template <class Held>
    void add(std::string name, Held& held) {
        add({std::move(name), 0, [&held](Indices) { return std::optional(read(held)); },
             [&held](Indices, const Value& value) { return write(held, value); }});
    }
    template <class Held, std::size_t Count>
    void add(std::string name, std::array<Held, Count>& held) {
        add({std::move(name), 1,
             [&held](Indices at) {
                 return inRange(at[0], Count) ? std::optional(read(held[static_cast<std::size_t>(at[0])]))
                                              : std::nullopt;
             },
             [&held](Indices at, const Value& value) {
                 return inRange(at[0], Count) && write(held[static_cast<std::size_t>(at[0])], value);
             }});
    }
    template <class Held, std::size_t Count>
    void add(std::string name, TrackArray<Held, Count>& held) {
        add(std::move(name), held.entries());
    }
    void add(std::string name, Grid& grid);
    void add(std::string name, std::vector<bool>& flags);

    /// Nothing when no such name stands in the table.
    const Entry* find(std::string_view name) const;
    std::vector<std::string> names() const;

 private:
    static bool inRange(int index, std::size_t count) {
        return index >= 0 && static_cast<std::size_t>(index) < count;
    }

    template <class Held>
    static Value read(const Held& held) {
        if constexpr (std::is_same_v<Held, bool>)
            return Flag{held};
        else
            return toValue(held);
    }
    template <class Held>
    static bool write(Held& held, const Value& value) {
        const auto converted = fromValue<Held>(value);
        if (converted) held = *converted;
        return converted.has_value();
    }

    std::map<std::string, Entry> entries_;
};

/// Controls by window, name and index: "Form3.TrackHide(2)" is window "Form3", name "TrackHide", index 2.
class ControlTable {
 public:
    void add(std::string_view window, std::string_view name, Control& control);
    template <class Kind, std::size_t Count>
    void add(std::string_view window, std::string_view name, std::array<Kind, Count>& controls) {
        for (std::size_t index = 0; index < Count; ++index) {
            addMember(window, name, static_cast<int>(index), controls[index]);
        }
    }
    void addMember(std::string_view window, std::string_view name, int index, Control& control);

    /// Nothing when there is none. `index` is left out for a control that is no array member.
    Control* find(std::string_view window, std::string_view name, std::optional<int> index) const;
    struct Named {
        std::string window, name;
        std::optional<int> index;
        Control* control;
    };
    const std::vector<Named>& all() const { return all_; }

 private:
    std::vector<Named> all_;
    std::map<std::string, Control*> byName_;
};

/// The three tables together, as parts list themselves in them.
struct NameTables {
    OperationTable operations;
    StateTable state;
    ControlTable controls;
};

}  // namespace melvane
