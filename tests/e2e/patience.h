#pragma once
#include <chrono>
#include <thread>

namespace melvane::e2e {

/// Looks every few milliseconds; false when it has not come true after `seconds`.
template <typename Condition>
bool comesTrue(double seconds, Condition condition) {
    using namespace std::chrono;
    const auto end = steady_clock::now() + duration<double>(seconds);
    while (!condition()) {
        if (steady_clock::now() >= end) return false;
        std::this_thread::sleep_for(milliseconds(5));
    }
    return true;
}

inline void rest(double seconds) { std::this_thread::sleep_for(std::chrono::duration<double>(seconds)); }

}  // namespace melvane::e2e
