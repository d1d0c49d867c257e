#pragma once
#include <string>

#include "core/studio.h"

namespace melvane {

struct NameTables;

/// The rows of options that say how high and as what chord the keys sound. An index out of range does
/// nothing.
class KeyboardChoices {
 public:
    explicit KeyboardChoices(Studio& studio);

    /// By so many octaves: -2 to 3 for index 0 to 5. The octave's slider stays where it is; of the two the
    /// one that moved last counts.
    void Option5_Click(int Index);
    /// The chord of that number, 0 to 10.
    void optChord_Click(int Index);
    /// The chord's name, which may be empty; its option is the one that is ticked from now on.
    std::string ShowChordName(int index);
    /// A tool tip and no more.
    void OptOct_MouseMove(int Index, int Button, int Shift, double X, double Y);

    void listNames(NameTables& tables);

 private:
    Studio& studio_;
};

}  // namespace melvane
