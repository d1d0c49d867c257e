#pragma once
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <stop_token>
#include <thread>

namespace melvane {

/// A thread that does a piece of work again and again, for what the audio callback must not do itself. The
/// work is done by one thread at a time.
class MediaWorker {
 public:
    static constexpr std::chrono::milliseconds pause{20};

    explicit MediaWorker(std::function<void()> work) : work_(std::move(work)) {}

    /// One thread starts and stops it.
    void start() {
        if (thread_.joinable()) return;
        thread_ = std::jthread([this](const std::stop_token& ended) { run(ended); });
    }
    /// Returns once the thread has ended.
    void stop() {
        thread_.request_stop();
        if (thread_.joinable()) thread_.join();
    }
    /// Does the work now, on the calling thread.
    void doNow() {
        const std::lock_guard lock(working_);
        work_();
    }
    /// Does something else while no work is done.
    template <typename Action>
    void between(Action action) {
        const std::lock_guard lock(working_);
        action();
    }

 private:
    void run(const std::stop_token& ended) {
        std::unique_lock lock(working_);
        while (!ended.stop_requested()) {
            work_();
            changed_.wait_for(lock, ended, pause, [] { return false; });
        }
    }

    std::function<void()> work_;
    std::mutex working_;
    std::condition_variable_any changed_;
    std::jthread thread_;
};

}  // namespace melvane
