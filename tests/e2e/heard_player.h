#pragma once
#include <string>
#include <vector>

#include "private_sound_server.h"
#include "recorder_user.h"
#include "sound_files.h"
#include "tune.h"

namespace melvane::e2e {

/// Has the recorder play the file in its hand and listens to the server. Empty when each chord is heard in
/// its turn, about as loud as the file has it; else what is wrong. The file was recorded with `recordedRate`
/// frames a second: it has all of them, and plays more slowly where it tells fewer.
std::string heardFaults(const sound_test::PrivateSoundServer& server, RecorderUser& recorder,
                        const Sound& file, int recordedRate, const std::vector<Chord>& chords);

}  // namespace melvane::e2e
