#pragma once
#include <array>

#include "core/controls.h"
#include "core/main_frame.h"
#include "core/values.h"

namespace melvane {

struct NameTables;

/// The Editing toolbar. Its controls keep what they hold while it is closed. Buttons and their pictures are
/// used from index 1; over each button lies the picture with its index, which is what the user sees until the
/// mouse comes near.
struct EditingControls {
    static constexpr int firstButton = 1, lastButton = 17;
    static constexpr int firstEditing = 12;  ///< from here on buttons work on the selection
    static constexpr std::size_t buttons = lastButton + 1;
    static constexpr std::size_t fieldLength = 3;  ///< characters
    /// Ends the name of a picture that shows the drawing of the rest of the name as disabled.
    static constexpr const char* disabledArt = "/disabled";

    WindowPlace place;               ///< twips; the size is set by the window
    std::int16_t EditToolState = 1;  ///< 1 draw, 0 select

    std::array<PictureControl, buttons> Cmd2, ImgPic;
    std::array<PictureControl, 2> TransposeBut;  ///< without action
    PictureControl Command7;                     ///< "Copy notes", without action

    // Art that the buttons take; never shown itself.
    std::array<PictureControl, 2> ImgLine;                 ///< the position is shown, or not
    std::array<PictureControl, 3> ImgLoop;                 ///< from 1: the song repeats, or not
    PictureControl Imgup, Imgdown;                         ///< draw, select
    std::array<PictureControl, buttons> ImgPicx, ImgPicy;  ///< from firstEditing: disabled, enabled

    TextControl Text3{"60", fieldLength};        ///< "Notes", columns
    TextControl Text4{"12", fieldLength};        ///< "Repeat", columns
    TextControl Text5{"12", fieldLength};        ///< "Beats", columns
    TextControl Text1{"1", fieldLength};         ///< "Spaces", columns
    std::array<TextControl, 4> Label6;           ///< the names of the fields, in this order
    ScrollControl VScroll2, VScroll4, VScroll3;  ///< beside "Notes", "Repeat" and "Beats"
    CheckControl Check2{true};                   ///< "Melody"
    CheckControl Check1{true};                   ///< "Percussion"
    CheckControl Check3;                         ///< down: the current track only
    CheckControl chkgraphics{true}, loopcheck;   ///< as the buttons 9 and 10; not shown

    // The grounds; Picture2 holds the fields.
    AreaControl ToolbCompose, toolbEdit, Picture2, Picture5, Picture6;
};

/// Lists the controls and EditToolState; the art of a button is "Form2.ImgPic(9).Picture".
void listEditingControls(NameTables& tables, EditingControls& Form2);

}  // namespace melvane
