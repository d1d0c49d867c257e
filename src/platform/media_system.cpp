#include "platform/media_system.h"

#include <utility>

namespace melvane {

#ifdef _WIN32

// The system's device has streams of its own.
MediaSystem::MediaSystem(const Clock& /*clock*/, Synthesizer& /*synthesizer*/, MediaSurroundings /*around*/) {
}
std::vector<SoundSource*> MediaSystem::sources() { return {}; }
std::vector<SoundTap*> MediaSystem::taps() { return {}; }
void MediaSystem::noteOutput() {}

#else

MediaSystem::MediaSystem(const Clock& clock, Synthesizer& synthesizer, MediaSurroundings around)
    : device_(clock, synthesizer,
              {.soundsElsewhere = std::move(around.soundsElsewhere),
               .recordingsFolder = std::move(around.recordingsFolder)}) {}
std::vector<SoundSource*> MediaSystem::sources() { return {&device_.voices()}; }
std::vector<SoundTap*> MediaSystem::taps() { return {&device_.tap()}; }
void MediaSystem::noteOutput() { device_.noteOutput(); }

#endif

}  // namespace melvane
