#include "platform/windows_desktop.h"

#ifdef _WIN32
#include <windows.h>
// After it, whose types it needs.
#include <shellapi.h>

#include <array>

namespace melvane {

namespace {

struct Mixer {
    DWORD platform;    ///< its identifier
    const char* path;  ///< behind the Windows directory
};
constexpr std::array<Mixer, 2> mixers{
    {{VER_PLATFORM_WIN32_WINDOWS, "\\SndVol32.exe"}, {VER_PLATFORM_WIN32_NT, "\\System32\\SndVol32.exe"}}};

/// Without a backslash at its end; empty when the system does not tell it.
std::string windowsDirectory() {
    std::array<char, 255> path{};
    const UINT length = GetWindowsDirectoryA(path.data(), static_cast<UINT>(path.size()));
    return length < path.size() ? std::string(path.data(), length) : std::string();
}

/// 0 when the system does not tell it.
DWORD platformIdentifier() {
    OSVERSIONINFOA version{};
    version.dwOSVersionInfoSize = sizeof version;
    return GetVersionExA(&version) != 0 ? version.dwPlatformId : 0;
}

/// Starts a program in a normal window, by the shell.
bool start(const std::string& path) {
    constexpr INT_PTR lastError = 32;
    const HINSTANCE started = ShellExecuteA(nullptr, "open", path.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(started) > lastError;
}

}  // namespace

bool WindowsDesktop::openMixer() {
    const DWORD platform = platformIdentifier();
    for (const Mixer& mixer : mixers) {
        if (mixer.platform == platform) return start(windowsDirectory() + mixer.path);
    }
    return false;
}

}  // namespace melvane
#endif
