#include "platform/sound_font.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string_view>

#include "platform/files.h"

namespace melvane {

namespace {

constexpr std::array soundFontFolders = {"/usr/share/sounds/sf2/", "/usr/share/soundfonts/",
                                         "/usr/local/share/soundfonts/"};

// The larger ones first: they sound better and cost only memory. Every installation has the small one.
constexpr std::array soundFontNames = {"FluidR3_GM.sf2",  "MuseScore_General_Lite.sf2",
                                       "GeneralUser.sf2", "TimGM6mb.sf2",
                                       "default-GM.sf2",  "default.sf2"};

}  // namespace

std::vector<std::string> soundFontCandidates() {
    std::vector<std::string> candidates;
    for (const char* name : soundFontNames) {
        for (const char* folder : soundFontFolders) candidates.push_back(std::string(folder) + name);
    }
    return candidates;
}

std::vector<std::string> installedSoundFonts(const std::vector<std::string>& candidates) {
    std::vector<std::string> installed;
    for (const std::string& path : candidates) {
        if (fileExists(path)) installed.push_back(path);
    }
    return installed;
}

// A RIFF file: "RIFF", the length of what follows in four bytes, low byte first, then the form "sfbk".
bool looksLikeSoundFont(const std::string& path) {
    std::array<char, 12> head{};
    std::ifstream file(path, std::ios::binary);
    if (!file.read(head.data(), head.size())) return false;
    std::uint64_t length = 0;
    for (std::size_t i = 8; i-- > 4;) length = length << 8 | static_cast<unsigned char>(head[i]);
    std::error_code failed;
    const std::uint64_t size = std::filesystem::file_size(path, failed);
    const std::string_view text(head.data(), head.size());
    return !failed && text.starts_with("RIFF") && text.ends_with("sfbk") && length + 8 <= size;
}

}  // namespace melvane
