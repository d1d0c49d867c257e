#include "platform/clock.h"

#include <algorithm>
#include <chrono>
#include <ctime>

namespace melvane {

namespace {

bool toLocalTime(std::time_t moment, std::tm& local) {
#ifdef _WIN32
    return localtime_s(&local, &moment) == 0;
#else
    return localtime_r(&moment, &local) != nullptr;
#endif
}

}  // namespace

int Clock::secondOfDay() const {
    constexpr std::int64_t secondsADay = 24 * 60 * 60;
    return static_cast<int>(counter() / frequency() % secondsADay);
}

std::int64_t SteadyClock::counter() const {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}

int SteadyClock::secondOfDay() const {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    if (!toLocalTime(now, local)) return Clock::secondOfDay();
    constexpr int secondsAnHour = 3600, secondsAMinute = 60;
    return local.tm_hour * secondsAnHour + local.tm_min * secondsAMinute + std::min(local.tm_sec, 59);
}

}  // namespace melvane
