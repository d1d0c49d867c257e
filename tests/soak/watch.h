#pragma once
#include <sys/types.h>

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace melvane::soak {

/// Kilobytes of a process.
struct Memory {
    long allocated = 0;  ///< and not freed; 0 where nobody tells it
    long resident = 0;
};
/// `heapFile` is what heap_probe.cpp writes.
Memory memoryOf(pid_t process, const std::filesystem::path& heapFile);

/// Also while nobody has asked for its end: it still has its place in /proc then.
bool hasEnded(pid_t process);

/// Memory of one life of the program over time: flat after the first minutes, or not.
class MemoryWatch {
 public:
    /// `start` is the life's first minute, counted like those of the samples.
    explicit MemoryWatch(double start) : start_(start) {}
    /// What it was at `minute`, which is not before any other.
    void add(double minute, Memory memory) { samples_.push_back({minute - start_, memory}); }
    /// Minutes from the life's start to the last sample.
    double length() const { return samples_.empty() ? 0 : samples_.back().minute; }
    /// Long enough to be judged: the first ten minutes are the program's own, ten more are the measure, and
    /// the last ten are held against it.
    bool isLong() const { return length() >= warmUpMinutes * 3; }
    /// Whether at most a twentieth more than the measure was allocated in the last ten minutes. What is
    /// resident counts where nobody tells that: the sanitizers' own books are in it, and grow.
    bool isFlat() const;
    std::string report() const;

 private:
    static constexpr double warmUpMinutes = 10;

    using Kind = long Memory::*;
    struct Sample {
        double minute;  ///< from the life's start
        Memory memory;
    };

    Kind judged() const;
    long greatest(Kind kind, double fromMinute, double toMinute) const;  ///< 0 without samples there
    long measure(Kind kind) const { return greatest(kind, warmUpMinutes, warmUpMinutes * 2); }
    long latest(Kind kind) const { return greatest(kind, length() - warmUpMinutes, length()); }
    double growth(Kind kind) const;  ///< an hour, by the least squares of the samples after the warm-up
    std::string summary(const char* name, Kind kind) const;
    std::string table() const;

    double start_;
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
    static bool isKept(const std::string& name);
    bool wasMoved(const File& file, const std::map<std::string, File>& now) const;

    std::filesystem::path folder_;
    std::map<std::string, File> seen_;
    std::vector<std::string> losses_;
};

}  // namespace melvane::soak
