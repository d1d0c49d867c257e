#pragma once
#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace melvane::soak {

/// Resident memory of the process, in kilobytes; 0 when it is gone.
long residentKilobytes(pid_t process);

/// Also while nobody has asked for its end: it still has its place in /proc then.
bool hasEnded(pid_t process);

/// Memory over time: flat after the first minutes, or not.
class MemoryWatch {
 public:
    /// `minute` from the start, `kilobytes` resident then.
    void add(double minute, long kilobytes) { samples_.push_back({minute, kilobytes}); }
    /// The greatest in the span, in kilobytes; 0 without samples there.
    long greatest(double fromMinute, double toMinute) const;
    /// Growth by the least squares of the samples from `fromMinute` on, in kilobytes an hour.
    double growth(double fromMinute) const;
    std::string table() const;

 private:
    struct Sample {
        double minute;
        long kilobytes;
    };
    std::vector<Sample> samples_;
};

/// The user's scores, MIDI files, encoded recordings and key schemes. Each that was seen once has to stay,
/// under its name or, when the user moved it, under another. Samples come and go, and so does a recording
/// (.wav) that is encoded.
class FileWatch {
 public:
    explicit FileWatch(std::filesystem::path folder) : folder_(std::move(folder)) {}
    void look();
    /// What is gone or empty and should not be.
    const std::vector<std::string>& losses() const { return losses_; }
    std::size_t seen() const { return seen_.size(); }

 private:
    struct File {
        std::uintmax_t size;    // bytes
        std::uintmax_t number;  // the file system's, which a move keeps
        bool missed = false;    // at the last look: it may be in the middle of being replaced
    };
    static std::map<std::string, File> filesIn(const std::filesystem::path& folder);
    bool wasMoved(const File& file, const std::map<std::string, File>& now) const;

    std::filesystem::path folder_;
    std::map<std::string, File> seen_;
    std::vector<std::string> losses_;
};

}  // namespace melvane::soak
