#include "platform/system_midi_ports.h"

#include <RtMidi.h>
#include <unistd.h>

namespace melvane {

namespace {

constexpr const char* clientName = "Melvane";
constexpr const char* sequencerDevice = "/dev/snd/seq";

// With a callback the library neither throws nor prints once it is constructed; its state tells what
// happened.
void keepQuiet(RtMidiError::Type, const std::string&, void*) {}

/// Null where the sequencer is missing. The library would print that at each call, so it is not even asked
/// then.
std::unique_ptr<RtMidiOut> connectToSequencer() {
    if (access(sequencerDevice, R_OK | W_OK) != 0) return nullptr;
    try {
        auto client = std::make_unique<RtMidiOut>(RtMidi::LINUX_ALSA, clientName);
        client->setErrorCallback(&keepQuiet, nullptr);
        return client;
    } catch (const RtMidiError&) {
        return nullptr;
    }
}

class AlsaOutput final : public SystemMidiOutput {
 public:
    explicit AlsaOutput(std::unique_ptr<RtMidiOut> client) : client_(std::move(client)) {}

    bool send(std::span<const std::uint8_t> bytes) override {
        try {
            client_->sendMessage(bytes.data(), bytes.size());
            return true;
        } catch (const RtMidiError&) {
            return false;
        }
    }

 private:
    std::unique_ptr<RtMidiOut> client_;
};

}  // namespace

std::vector<std::string> SystemMidiPorts::names() {
    std::vector<std::string> found;
    const auto client = connectToSequencer();
    if (!client) return found;
    try {
        const unsigned count = client->getPortCount();
        for (unsigned port = 0; port < count; ++port) found.push_back(client->getPortName(port));
    } catch (const RtMidiError&) {
        // A port that went while it was listed: those before it are still true.
    }
    return found;
}

std::unique_ptr<SystemMidiOutput> SystemMidiPorts::open(std::size_t index) {
    auto client = connectToSequencer();
    if (!client) return nullptr;
    try {
        if (index >= client->getPortCount()) return nullptr;
        client->openPort(static_cast<unsigned>(index), clientName);
        if (!client->isPortOpen()) return nullptr;
    } catch (const RtMidiError&) {
        return nullptr;
    }
    return std::make_unique<AlsaOutput>(std::move(client));
}

}  // namespace melvane
