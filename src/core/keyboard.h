#pragma once
#include <array>
#include <cstdint>
#include <string>

#include "core/text_list.h"

namespace melvane {

/// What the keyboard window holds for a MIDI channel.
struct LiveChannelRecord {
    std::string Name;  ///< of the instrument, as it is shown
    std::int16_t Instrument = 0, Volume = 0, Pan = 0, Reverb = 0, Chorus = 0, Modulation = 0;
    std::int16_t Sustain = 0, Mute = 0;  ///< flags, 1 and 0; nothing reads Mute
};

/// The metronome's own values. Times in seconds on its stop watch, counts in ticks of the clock.
struct MetronomeState {
    std::int32_t BeatsPerMinute = 120, BeatsPerMeasure = 4;
    double BeatInterval = 0;       ///< seconds between two beats
    double NextBeatTime = 0;       ///< when the next beat is due
    double LastCheckTime = 0;      ///< of the poll before
    std::int32_t CurrentBeat = 0;  ///< from 1 in the measure; 0 when it is stopped
    std::int64_t CounterFrequency = 1, StartCount = 0, StopCount = 0;
    bool WatchRunning = false;
};

/// The instrument at the computer's keys: what is held, what sounds, what was captured. A key is known by its
/// index, 0 to 43 from the lowest up; noKey stands for none.
struct Keyboard {
    static constexpr int keys = 44;
    static constexpr std::int16_t noKey = keys;

    std::int16_t OctaveShift = 0;     ///< semitones over every note
    std::int16_t LiveChannel = 0;     ///< MIDI channel from 0 on which the keys sound
    float StrumDelay = 0;             ///< milliseconds between two strummed notes
    std::int16_t MouseChordType = 0;  ///< chord of a clicked key; stays 0
    std::array<LiveChannelRecord, 16> ChannelTable;

    /// A note number times 256 each: the root, then the chord's upper notes. One set for all keys.
    std::array<std::int16_t, 5> NoteWord{};
    std::int16_t SpaceKeyCode = 0;  ///< 32 while the Spacebar is down
    bool KeyIsDown = false;

    // Key indices as decimal texts.
    std::string PressedKeyText;              ///< the last key struck
    std::string HeldKeyText;                 ///< the key taken to be held; "a" behind it once it was released
    std::array<std::string, 3> HistoryText;  ///< keys clicked before those two, the latest first
    std::string ReleasedKeyText, ReleasedMarkText;  ///< the last key released; "a" behind it in the second
    /// After it no press is taken for the repeat of one before.
    void forgetKeyTexts() {
        for (std::string* text : {&PressedKeyText, &HeldKeyText, &ReleasedKeyText, &ReleasedMarkText})
            text->clear();
        HistoryText.fill({});
    }

    std::string CurrentKeyChar;     ///< the character of the key that is down; "-1" for none
    std::int16_t CurrentRow = 0;    ///< score row of the key struck last
    std::int16_t LastTypedKey = 0;  ///< the key that a typed character meant last
    std::int16_t LastDownKey = 0;   ///< the key that was struck last

    // The capture: item n of List1 and List3 belongs to tick n.
    TextList List1;  ///< RepeatCount by tick
    TextList List3;  ///< row of the last key by tick
    TextList List4;  ///< the performance as it is played: rows, -1 for a rest
    TextList List5;  ///< the score's cells
    std::int32_t RepeatCount = 0;
    std::string FirstKeyChar;
    std::int32_t PerformanceLength = 0;
    std::int32_t ComposerStopWatch = 0;  ///< slot number, from 1; 0 before there is one

    std::string OpenFolder, SaveFolder;  ///< where the file dialogs open next
    std::string ScoreFolder;             ///< where the dialog of a saved performance opens next; empty: songs
    MetronomeState cMetronome1;
};

}  // namespace melvane
