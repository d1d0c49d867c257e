#include "soak/watch.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <iomanip>
#include <sstream>

namespace melvane::soak {

namespace fs = std::filesystem;

Memory memoryOf(pid_t process, const fs::path& heapFile) {
    Memory memory;
    std::ifstream file("/proc/" + std::to_string(process) + "/statm");
    long total = 0, pages = 0;
    if (file >> total >> pages) memory.resident = pages * (sysconf(_SC_PAGESIZE) / 1024);
    std::ifstream heap(heapFile);
    pid_t owner = 0;
    long bytes = 0;
    if (heap >> owner >> bytes && owner == process) memory.allocated = bytes / 1024;
    return memory;
}

bool hasEnded(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string line;
    std::getline(file, line);
    const auto name = line.rfind(") ");  // a name may have blanks and brackets itself
    return name == std::string::npos || line[name + 2] == 'Z' || line[name + 2] == 'X';
}

MemoryWatch::Kind MemoryWatch::judged() const {
    return measure(&Memory::allocated) > 0 ? &Memory::allocated : &Memory::resident;
}

long MemoryWatch::greatest(Kind kind, double fromMinute, double toMinute) const {
    long most = 0;
    for (const Sample& sample : samples_) {
        if (sample.minute >= fromMinute && sample.minute <= toMinute)
            most = std::max(most, sample.memory.*kind);
    }
    return most;
}

bool MemoryWatch::isFlat() const {
    constexpr double mostGrowth = 0.05;
    return static_cast<double>(latest(judged())) <= static_cast<double>(measure(judged())) * (1 + mostGrowth);
}

double MemoryWatch::growth(Kind kind) const {
    double count = 0, minutes = 0, sizes = 0, squares = 0, products = 0;
    for (const Sample& sample : samples_) {
        if (sample.minute < warmUpMinutes) continue;
        const auto size = static_cast<double>(sample.memory.*kind);
        count += 1;
        minutes += sample.minute;
        sizes += size;
        squares += sample.minute * sample.minute;
        products += sample.minute * size;
    }
    const double spread = count * squares - minutes * minutes;
    return spread <= 0 ? 0 : (count * products - minutes * sizes) / spread * 60;
}

std::string MemoryWatch::summary(const char* name, Kind kind) const {
    std::ostringstream text;
    text << "  " << name << ": greatest of its minutes 10 to 20: " << measure(kind) / 1024
         << " MB; of its last ten: " << latest(kind) / 1024 << " MB; growth " << std::fixed
         << std::setprecision(1) << growth(kind) / 1024 << " MB an hour\n";
    return text.str();
}

std::string MemoryWatch::report() const {
    std::ostringstream text;
    text << "memory from minute " << static_cast<int>(start_) << " on:\n" << table();
    if (!isLong()) return text.str() + "  too short to be judged\n";
    return text.str() + summary("allocated", &Memory::allocated) + summary("resident", &Memory::resident);
}

std::string MemoryWatch::table() const {
    std::ostringstream text;
    double next = 0;
    for (const Sample& sample : samples_) {
        if (sample.minute < next) continue;
        text << "  minute " << static_cast<int>(sample.minute) << ": " << sample.memory.allocated / 1024
             << " MB allocated, " << sample.memory.resident / 1024 << " MB resident\n";
        next = sample.minute + 5;
    }
    return text.str();
}

std::map<std::string, FileWatch::File> FileWatch::filesIn(const fs::path& folder) {
    std::map<std::string, File> files;
    std::error_code error;
    for (fs::recursive_directory_iterator at(folder, error), end; at != end; at.increment(error)) {
        if (error) break;
        const fs::path& path = at->path();
        struct stat status {};
        if (path.parent_path().filename() == "media" || stat(path.c_str(), &status) != 0) continue;
        files[path.string()] = {static_cast<std::uintmax_t>(status.st_size), status.st_ino};
    }
    return files;
}

bool FileWatch::isKept(const std::string& name) {
    constexpr std::array<std::string_view, 4> kept{".sng", ".mid", ".mp3", ".key"};
    return std::ranges::any_of(kept, [&name](std::string_view ending) { return name.ends_with(ending); });
}

bool FileWatch::wasMoved(const File& file, const std::map<std::string, File>& now) const {
    return std::ranges::any_of(now, [&](const auto& other) { return other.second.number == file.number; });
}

void FileWatch::look() {
    auto now = filesIn(folder_);
    for (const auto& [name, file] : seen_) {
        if (!isKept(name)) continue;
        const auto found = now.find(name);
        if (found != now.end()) {
            if (found->second.size == 0 && file.size > 0 && !name.ends_with(".mp3"))
                losses_.push_back(name + " is empty");
            continue;
        }
        if (wasMoved(file, now)) continue;
        if (file.missed)
            losses_.push_back(name + " is gone");
        else
            now[name] = {file.size, file.number, true};
    }
    seen_ = std::move(now);
}

}  // namespace melvane::soak
