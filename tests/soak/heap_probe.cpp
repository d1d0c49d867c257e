// Preloaded into the sanitized program by tests/soak/run: writes each second how much it has allocated and
// not freed. What is resident would tell less, since the sanitizers keep books of their own that grow with
// every new way to an allocation.
#include <unistd.h>

#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>

/// Of the sanitizers' runtime, whose header the compiler does not bring.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();

namespace {

void write(const std::string& name) {
    const std::string next = name + ".next";
    std::FILE* const file = std::fopen(next.c_str(), "w");
    if (file == nullptr) return;
    std::fprintf(file, "%d %zu\n", static_cast<int>(getpid()), __sanitizer_get_current_allocated_bytes());
    std::fclose(file);
    std::rename(next.c_str(), name.c_str());
}

/// Programs that the program starts are not watched.
__attribute__((constructor)) void begin() {
    const char* const name = std::getenv("MELVANE_SOAK_HEAP");
    unsetenv("LD_PRELOAD");
    if (name == nullptr) return;
    std::thread([name = std::string(name)] {
        for (;;) {
            write(name);
            std::this_thread::sleep_for(std::chrono::seconds(1));
        }
    }).detach();
}

}  // namespace
