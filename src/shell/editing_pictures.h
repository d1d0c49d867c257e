#pragma once
#include "core/flat_buttons.h"
#include "core/studio.h"

namespace melvane {

struct NameTables;

/// The pictures of the two toggles follow the playback's flags, whoever sets those.
void showPlayingPosition(Studio& studio);
void showLoopSong(Studio& studio);

/// The flat buttons of the Editing toolbar: a button is hidden until the mouse comes near, and its picture is
/// what the user sees. Indices 1 to 17; others do nothing. X and Y are of no account.
class EditingPictures {
 public:
    /// Gives the buttons their tips and the banks their art.
    explicit EditingPictures(Studio& studio);

    void ImgPic_MouseMove(int Index, int button, int shift, double X, double Y);
    /// Over anything else of the window.
    void hideButtons() const { row_.hideAll(); }
    void Label6_MouseMove(int, int, int, double, double) const { hideButtons(); }
    void Cmd2_MouseUp(int Index, int button, int shift, double X, double Y);

    /// The draw/select switch and the six editing buttons, which are disabled while notes are drawn.
    void showTool(bool selects);

    void listNames(NameTables& tables);

 private:
    Studio& studio_;
    FlatButtons row_;
};

}  // namespace melvane
