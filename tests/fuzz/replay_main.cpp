// Feeds the target each file of a corpus folder, and each beginning of it in 64 steps, as a build without the
// fuzzer's own program.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "fuzz/fuzz_target.h"
#include "platform/files.h"

namespace {

constexpr std::size_t cuts = 64;

void feed(const std::string& bytes, std::size_t length) {
    // A block of exactly this length, so that a sanitizer sees each read past its end.
    const std::vector<std::uint8_t> cut(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length));
    LLVMFuzzerTestOneInput(cut.data(), cut.size());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2 || !std::filesystem::is_directory(argv[1])) {
        std::fprintf(stderr, "usage: %s CORPUS-FOLDER\n", argv[0]);
        return 2;
    }
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
        const auto bytes = melvane::readFile(entry.path().string());
        if (!bytes) continue;
        for (std::size_t part = 0; part <= cuts; ++part) feed(*bytes, bytes->size() * part / cuts);
        ++files;
    }
    std::printf("%d files, each in %zu lengths\n", files, cuts + 1);
    return files > 0 ? 0 : 1;
}
