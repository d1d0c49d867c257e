#pragma once
#include <set>
#include <vector>

#include "synth/live_notes.h"

namespace melvane {

/// The keys of the computer. A label is found by its character: letters and digits by the code of their key,
/// every other character when it was typed. While Check1 is ticked no key does anything.
class LiveKeys {
 public:
    LiveKeys(Studio& studio, LiveNotes& notes) : studio_(studio), notes_(notes) {}

    /// KeyCode: the upper-case character of letters and digits, 32 for the Spacebar; a code outside 45 to 90
    /// counts as a typed character too. A held key that repeats itself comes in each time.
    void Form_KeyDown(int KeyCode, int Shift);
    /// A character as it was typed, 8-bit or Unicode (characterOf). It follows the press of its key.
    void Form_KeyPress(int KeyAscii);
    void Form_KeyUp(int KeyCode, int Shift);
    /// The keys no longer reach the window: each one that is held is released as if it had come up.
    void releaseHeldKeys();
    /// As the window is loaded: nothing is held, no word is set.
    void forget();

    void listNames(NameTables& tables);

 private:
    /// A key of the computer that is down, and the keys of the piano that it has struck: one as a rule, more
    /// when what it types has changed meanwhile.
    struct HeldKey {
        int code;
        std::set<int> struck;
    };

    bool isEditing() const { return studio_.frmsynth.Check1.ticked(); }
    bool isRepeat(int keyIndex) const;
    void hold(int code);
    void strike(int keyIndex);
    void releaseHeld(const HeldKey& held);
    void pressSpace();
    void releaseSpace();

    Studio& studio_;
    LiveNotes& notes_;
    std::vector<HeldKey> heldKeys_;
    int lastCode_ = 0;  ///< of the key that went down last
};

}  // namespace melvane
