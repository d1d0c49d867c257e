#include "fuzz/fuzz_target.h"
#include "platform/media_command.h"
#include "platform/text.h"

using namespace melvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = fuzz::asText(data, size);
    const auto command = readMediaCommand(text);
    if (!command) return 0;
    const bool hasAlias = command->verb != MediaVerb::closeAll;
    fuzz::require(command->alias.empty() != hasAlias, "every command but one has an alias");
    fuzz::require(command->alias == lowerCase(command->alias), "an alias is in lower case");
    fuzz::require(command->alias.find(' ') == std::string::npos, "an alias is one word");
    fuzz::require(command->path.find_first_of(std::string_view("\r\n\0", 3)) == std::string::npos,
                  "a path is one line");
    if (command->verb == MediaVerb::setWaveFormat) {
        const bool none = command->format == WaveFormat{0, 0, 0};
        fuzz::require(none || isRecorded(command->format), "a format is one that is recorded, or none");
    }
    return 0;
}
