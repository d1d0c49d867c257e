#include "drive/printing.h"

#include <array>
#include <charconv>

#include "platform/quoted_text.h"

namespace melvane::drive {

namespace {

template <class Number>
std::string shortest(Number number) {
    std::array<char, 64> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    return {text.data(), end};
}

/// A value that was kept in single precision is printed in it: 0.138, not 0.13799999654293060.
std::string decimalText(double number) {
    const auto single = static_cast<float>(number);
    return static_cast<double>(single) == number ? shortest(single) : shortest(number);
}

struct Shower {
    std::string operator()(std::monostate) const { return {}; }
    std::string operator()(Flag flag) const { return flag.on ? "-1" : "0"; }
    std::string operator()(bool truth) const { return truth ? "true" : "false"; }
    std::string operator()(long long number) const { return std::to_string(number); }
    std::string operator()(double number) const { return decimalText(number); }
    std::string operator()(const std::string& text) const { return quoted(text); }
};

}  // namespace

std::string shownValue(const Value& value) { return std::visit(Shower(), value); }

void Output::line(const std::string& text) {
    if (!failed_) stream_ << text << '\n' << std::flush;
}

void Output::lines(const std::vector<std::string>& texts) {
    for (const std::string& text : texts) line(text);
}

void Output::fail(const std::string& text) {
    line(text);
    failed_ = true;
}

}  // namespace melvane::drive
