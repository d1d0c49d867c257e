#include "core/numbers.h"

#include <charconv>

#include "platform/text.h"

namespace melvane {

namespace {

bool isDigit(char letter) { return letter >= '0' && letter <= '9'; }

std::size_t skipDigits(std::string_view text, std::size_t at) {
    while (at < text.size() && isDigit(text[at])) ++at;
    return at;
}

/// Where the number that begins at `at` ends; `at` itself when there is none.
std::size_t numberEnd(std::string_view text, std::size_t at) {
    const std::size_t sign = at;
    if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
    const std::size_t whole = skipDigits(text, at);
    std::size_t end = whole;
    if (end < text.size() && text[end] == '.') end = skipDigits(text, end + 1);
    const bool hasDigits = whole > at || end > whole + 1;
    return hasDigits ? end : sign;
}

double parse(std::string_view number) {
    if (!number.empty() && number.front() == '+') number.remove_prefix(1);
    double value = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range) return number.front() == '-' ? -HUGE_VAL : HUGE_VAL;
    return result.ec == std::errc() ? value : 0;
}

}  // namespace

double leadingNumber(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return 0;
    const auto end = numberEnd(text, first);
    return end == first ? 0 : parse(text.substr(first, end - first));
}

std::optional<double> wholeNumberText(std::string_view text) {
    const std::string bare = trimmed(text);
    if (bare.empty() || numberEnd(bare, 0) != bare.size()) return std::nullopt;
    return parse(bare);
}

std::optional<bool> booleanText(std::string_view text) {
    const std::string bare = lowerCase(trimmed(text));
    if (bare == "true") return true;
    if (bare == "false") return false;
    const auto number = wholeNumberText(bare);
    if (!number) return std::nullopt;
    return *number != 0;
}

std::string booleanName(bool value) { return value ? "True" : "False"; }

}  // namespace melvane
