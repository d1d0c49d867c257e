#include <sstream>

#include "fuzz/fuzz_target.h"
#include "platform/text.h"
#include "synth/key_characters.h"
#include "synth/key_scheme_file.h"

using namespace melvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::istringstream file{std::string(fuzz::asText(data, size))};
    const KeyLabels labels = readKeyScheme(file);
    std::istringstream written(keySchemeText(labels));
    const KeyLabels again = readKeyScheme(written);
    for (std::size_t key = 0; key < labels.size(); ++key) {
        fuzz::require(isUtf8(labels[key]), "a label is UTF-8");
        fuzz::require(labels[key].find_first_of("\r\n") == std::string::npos, "a label is one line");
        fuzz::require(again[key] == trimmed(labels[key]), "a written label is read as it was");
    }
    return 0;
}
