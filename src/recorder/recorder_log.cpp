#include "recorder/recorder_log.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace melvane {

namespace {

/// Beyond it the first lines of the log go.
constexpr std::size_t longestLog = 1'000'000;  // bytes

std::string twoDigits(std::int64_t number) {
    std::string digits = std::to_string(number);
    return digits.size() < 2 ? "0" + digits : digits;
}

}  // namespace

std::string convertTime(std::int64_t seconds) {
    constexpr std::int64_t anHour = 3600, aMinute = 60;
    return twoDigits(seconds / anHour) + ":" + twoDigits(seconds % anHour / aMinute) + ":" +
           twoDigits(seconds % aMinute);
}

std::string minutesText(std::int64_t seconds) {
    return twoDigits(seconds / 60) + ":" + twoDigits(seconds % 60);
}

std::string percentText(double part, double whole) {
    const double percent = std::floor(part / whole * 100 + 0.5);
    std::array<char, 400> digits{};
    if (percent != 0 && std::isfinite(percent)) std::snprintf(digits.data(), digits.size(), "%.0f", percent);
    return std::string(digits.data()) + " %";
}

void RecorderLog::add(const std::string& message) {
    std::string log = studio_.Record.Text2.text();
    log += convertTime(clock_.secondOfDay()) + "  " + message + "\n";
    if (log.size() > longestLog) log.erase(0, log.find('\n', log.size() - longestLog) + 1);
    studio_.Record.Text2.set(std::move(log));
}

}  // namespace melvane
