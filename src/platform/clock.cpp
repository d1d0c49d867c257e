#include "platform/clock.h"

#include <chrono>

namespace melvane {

std::int64_t SteadyClock::counter() const {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}

}  // namespace melvane
