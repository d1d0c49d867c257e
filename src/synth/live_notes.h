#pragma once
#include "platform/clock.h"
#include "platform/event_loop.h"
#include "synth/key_sounds.h"

namespace melvane {

/// The notes of the piano's keys, with their chords. A strum serves events, so that a press or a release may
/// run inside the wait of another: the words are shared, and what sounds next is what they hold then.
class LiveNotes {
 public:
    struct Parts {
        KeySounds& sounds;
        Clock& clock;
        EventLoop& loop;
    };
    LiveNotes(Studio& studio, Parts parts);

    // Key indices are 16-bit; another number does nothing.

    /// Sounds the key and its chord; 44 is no key. Returns when the strum has ended.
    void NoteDown3(int KeyIndex);
    /// Ends them, as the octave, the channel and the chord are now; an index above 43 stands for the key that
    /// was typed last.
    void NoteUp3(int KeyIndex);

    /// The strums that wait now sound nothing more.
    void endStrums() { ++era_; }
    /// The Spacebar is down for polynotes, as Label5 has it.
    bool gateIsOpen() const;

    void listNames(NameTables& tables);

 private:
    bool isHeldStill(int keyIndex) const;
    bool playsChord() const;
    bool strums() const;

    void playChord(int keyIndex);
    void strumChord();
    void playOctave();
    void startStrum();
    bool waitStrum();

    void markReleased(int keyIndex);
    void releaseChord(int keyIndex);
    void resetAfterStrum();

    Studio& studio_;
    Parts parts_;
    unsigned era_ = 0;  ///< counts endStrums()
};

}  // namespace melvane
