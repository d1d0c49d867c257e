#pragma once
#include <string>
#include <vector>

namespace melvane {

/// The General MIDI SoundFonts that a system may have, the best first. Only names; none need exist.
std::vector<std::string> soundFontCandidates();

/// Those of `candidates` that exist as readable files, in the same order.
std::vector<std::string> installedSoundFonts(const std::vector<std::string>& candidates);

/// Whether the file begins as a SoundFont does and is not cut short. What lies further inside is not looked
/// at.
bool looksLikeSoundFont(const std::string& path);

}  // namespace melvane
