#include "platform/desktop.h"

#include "platform/text.h"

#ifndef _WIN32
#include <array>
#include <thread>

#include <spawn.h>
#include <sys/wait.h>

extern char** environ;  // NOLINT: the system's own
#endif

namespace melvane {

namespace {

std::string entryName(const std::string& section, const std::string& key) {
    return lowerCase(section) + "]" + lowerCase(key);
}

#ifndef _WIN32

constexpr std::size_t mostWords = 2;
using Words = std::array<const char*, mostWords>;

// Those of sound servers first, then those of desktops.
constexpr std::array<Words, 8> mixers{{{"pavucontrol"},
                                       {"pavucontrol-qt"},
                                       {"plasma-open-settings", "kcm_pulseaudio"},
                                       {"gnome-control-center", "sound"},
                                       {"mate-volume-control"},
                                       {"kmix"},
                                       {"qasmixer"},
                                       {"alsamixergui"}}};

/// Starts a program by its name, without waiting for its end.
bool start(const Words& words) {
    std::array<char*, mostWords + 1> arguments{};
    for (std::size_t at = 0; at < words.size(); ++at) arguments[at] = const_cast<char*>(words[at]);
    pid_t child = 0;
    if (posix_spawnp(&child, words[0], nullptr, nullptr, arguments.data(), environ) != 0) return false;
    std::thread([child] { waitpid(child, nullptr, 0); }).detach();
    return true;
}

#endif

}  // namespace

std::string DesktopWithoutEntries::readEntry(const std::string& section, const std::string& key,
                                             const std::string& otherwise) const {
    const auto found = entries_.find(entryName(section, key));
    return found == entries_.end() ? otherwise : found->second;
}

void DesktopWithoutEntries::writeEntry(const std::string& section, const std::string& key,
                                       const std::string& value) {
    entries_[entryName(section, key)] = value;
}

#ifndef _WIN32

bool SystemDesktop::openMixer() {
    for (const Words& words : mixers) {
        if (start(words)) return true;
    }
    return false;
}

#endif

}  // namespace melvane
