#include "fluid_reader.h"

#include <fluidsynth.h>

#include <array>
#include <memory>

namespace melvane::test {

namespace {

template <class Object, auto remove>
struct Removed {
    void operator()(Object* object) const { remove(object); }
};
template <class Object, auto remove>
using Owned = std::unique_ptr<Object, Removed<Object, remove>>;

constexpr int firstMessage = 0x80, programChange = 0xC0;
constexpr int blockFrames = 64;
constexpr int mostBlocks = 44100 / blockFrames * 3600;  // an hour

struct Listening {
    FluidReading& reading;
    fluid_player_t* player = nullptr;
};

int takeEvent(void* data, fluid_midi_event_t* event) {
    auto& listening = *static_cast<Listening*>(data);
    const int type = fluid_midi_event_get_type(event);
    if (type < firstMessage) return FLUID_OK;  // the tempo
    const int status = type | fluid_midi_event_get_channel(event);
    // The player's tick is that of the block that it renders, up to one tick later than the event's.
    const int tick = fluid_player_get_current_tick(listening.player);
    if (type == programChange)
        listening.reading.events.push_back({tick, status, fluid_midi_event_get_program(event), 0});
    else
        listening.reading.events.push_back(
            {tick, status, fluid_midi_event_get_key(event), fluid_midi_event_get_velocity(event)});
    return FLUID_OK;
}

void takeComplaint(int, const char* message, void* data) {
    static_cast<FluidReading*>(data)->complaints.emplace_back(message);
}

/// The library's log goes to one reading for as long as this lives.
class LogOf {
 public:
    explicit LogOf(FluidReading& reading) {
        for (std::size_t level = 0; level < before_.size(); ++level)
            before_[level] = fluid_set_log_function(static_cast<int>(level), takeComplaint, &reading);
    }
    ~LogOf() {
        for (std::size_t level = 0; level < before_.size(); ++level)
            fluid_set_log_function(static_cast<int>(level), before_[level], nullptr);
    }
    LogOf(const LogOf&) = delete;
    LogOf& operator=(const LogOf&) = delete;

 private:
    std::array<fluid_log_function_t, FLUID_INFO> before_{};  // panic, error, warning
};

}  // namespace

FluidReading readWithFluid(const std::string& path) {
    FluidReading reading;
    const LogOf log(reading);
    const Owned<fluid_settings_t, delete_fluid_settings> settings(new_fluid_settings());
    fluid_settings_setint(settings.get(), "synth.reverb.active", 0);
    fluid_settings_setint(settings.get(), "synth.chorus.active", 0);
    const Owned<fluid_synth_t, delete_fluid_synth> synth(new_fluid_synth(settings.get()));
    const Owned<fluid_player_t, delete_fluid_player> player(new_fluid_player(synth.get()));
    Listening listening{reading, player.get()};
    fluid_player_set_playback_callback(player.get(), takeEvent, &listening);
    if (fluid_player_add(player.get(), path.c_str()) != FLUID_OK) return reading;
    fluid_player_play(player.get());
    std::array<float, blockFrames> left{}, right{};
    for (int block = 0; block < mostBlocks && fluid_player_get_status(player.get()) != FLUID_PLAYER_DONE;
         ++block) {
        fluid_synth_write_float(synth.get(), blockFrames, left.data(), 0, 1, right.data(), 0, 1);
        if (block == 0) reading.microseconds = fluid_player_get_midi_tempo(player.get());
    }
    reading.lastTick = fluid_player_get_total_ticks(player.get());
    reading.finished = fluid_player_get_status(player.get()) == FLUID_PLAYER_DONE;
    return reading;
}

}  // namespace melvane::test
