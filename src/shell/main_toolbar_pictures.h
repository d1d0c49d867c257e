#pragma once
#include "core/flat_buttons.h"
#include "core/studio.h"

namespace melvane {

struct NameTables;

/// The fifteen flat buttons of the main toolbar as they look. Indices 0 to 14; others do nothing. X and Y are
/// of no account.
class MainToolbarPictures {
 public:
    static constexpr int buttons = 15;

    /// Gives the buttons their art and their tips.
    explicit MainToolbarPictures(Studio& studio);

    void ImgPic_MouseMove(int Index, int button, int shift, double X, double Y);
    void Cmd2_MouseUp(int Index, int button, int shift, double X, double Y);
    /// Over anything else of the window.
    void hideButtons() const { row_.hideAll(); }
    /// Button 3 tells what a right press does, by RightClickMode; another number leaves it as it is.
    void showRightClickMode() const;

    void listNames(NameTables& tables);

    /// What the user reads on button `index` at first.
    static const char* tip(int index);

 private:
    Studio& studio_;
    FlatButtons row_;
};

}  // namespace melvane
