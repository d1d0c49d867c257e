#pragma once
#include <optional>

#include "private_sound_server.h"

namespace melvane::sound_test {

/// Plays a file with a click through the server, and watches the server's monitor and the player's position
/// meanwhile. How far the position was ahead of the click when the monitor brought it, in milliseconds; the
/// monitor itself is up to 20 ms late. No value when the click was not heard once.
std::optional<double> positionAheadOfSound(const PrivateSoundServer& server);

}  // namespace melvane::sound_test
