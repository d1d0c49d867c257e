#pragma once
#include <cstdint>

namespace melvane {

/// The one source of time. Real back end: the system's monotonic clock; scripted back end: a virtual clock.
/// Every function may be called from any thread.
class Clock {
 public:
    virtual ~Clock() = default;

    /// The high-resolution counter, in ticks of frequency(). Never goes back.
    virtual std::int64_t counter() const = 0;
    /// Counter ticks a second; above 0 and constant.
    virtual std::int64_t frequency() const = 0;
    /// Whole milliseconds since an arbitrary start.
    virtual std::int64_t tickCount() const = 0;
    /// Whole seconds since midnight on the user's clock, 0 to 86399; of a clock that has no day, since its
    /// start.
    virtual int secondOfDay() const;
};

/// The machine's monotonic clock, in nanoseconds.
class SteadyClock final : public Clock {
 public:
    std::int64_t counter() const override;
    std::int64_t frequency() const override { return 1'000'000'000; }
    std::int64_t tickCount() const override { return counter() / 1'000'000; }
    int secondOfDay() const override;
};

}  // namespace melvane
