#pragma once
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

/// What a target defines: it reads the bytes as its reader would, requires what the reader promises, and
/// returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace melvane::fuzz {

inline std::string_view asText(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

/// Ends the program, which the fuzzer counts as a find, when a promise is broken.
inline void require(bool holds, const char* promise) {
    if (holds) return;
    std::fprintf(stderr, "broken: %s\n", promise);
    std::abort();
}

}  // namespace melvane::fuzz
