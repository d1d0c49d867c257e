#pragma once
#include <cmath>
#include <concepts>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

/// Arithmetic as the score keeps it: 16-bit values, ties rounded to even, and "does not fit" as "not
/// assigned".
namespace melvane {

/// Rounded to the nearest whole number, ties to even; the value itself when it is not finite.
inline double roundTiesToEven(double value) {
    const double floor = std::floor(value);
    const double fraction = value - floor;
    if (fraction < 0.5) return floor;
    if (fraction > 0.5) return floor + 1;
    return std::fmod(floor, 2.0) == 0.0 ? floor : floor + 1;
}

/// Rounds (ties to even) and narrows; nothing when the result does not fit `Whole`.
template <std::integral Whole>
std::optional<Whole> narrowed(double value) {
    // A power of two, which is exact where the largest value is not.
    constexpr double end = 2.0 * static_cast<double>(Whole{1} << (std::numeric_limits<Whole>::digits - 1));
    const double whole = roundTiesToEven(value);
    if (!(whole >= static_cast<double>(std::numeric_limits<Whole>::min()) && whole < end))
        return std::nullopt;
    return static_cast<Whole>(whole);
}

inline std::optional<std::int16_t> toInt16(double value) { return narrowed<std::int16_t>(value); }

/// `target` takes `value` when it fits and keeps what it holds otherwise. Answers whether it fitted.
template <std::integral Whole>
bool assign(Whole& target, double value) {
    const auto whole = narrowed<Whole>(value);
    if (whole) target = *whole;
    return whole.has_value();
}

/// The number that `text` begins with: blanks, a sign, digits, a point and digits. 0 when there is none.
double leadingNumber(std::string_view text);

/// The number that the whole of `text` is, blanks around it allowed; nothing for any other text.
std::optional<double> wholeNumberText(std::string_view text);

/// "true" and "false" in any case, or a number (0 is false); nothing for any other text.
std::optional<bool> booleanText(std::string_view text);

/// "True" or "False", as settings store it.
std::string booleanName(bool value);

}  // namespace melvane
