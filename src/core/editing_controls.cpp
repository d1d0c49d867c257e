#include "core/editing_controls.h"

#include "core/flat_buttons.h"
#include "core/names.h"

namespace melvane {

namespace {

void listFrom(ControlTable& table, const char* name, int first, std::span<PictureControl> controls) {
    for (int index = first; index < static_cast<int>(controls.size()); ++index) {
        table.addMember("Form2", name, index, controls[static_cast<std::size_t>(index)]);
    }
}

void listPictures(ControlTable& table, EditingControls& Form2) {
    listFrom(table, "Cmd2", EditingControls::firstButton, Form2.Cmd2);
    listFrom(table, "ImgPic", EditingControls::firstButton, Form2.ImgPic);
    listFrom(table, "ImgLine", 0, Form2.ImgLine);
    listFrom(table, "ImgLoop", 1, Form2.ImgLoop);
    table.add("Form2", "Imgup", Form2.Imgup);
    table.add("Form2", "Imgdown", Form2.Imgdown);
    listFrom(table, "ImgPicx", EditingControls::firstEditing, Form2.ImgPicx);
    listFrom(table, "ImgPicy", EditingControls::firstEditing, Form2.ImgPicy);
    table.add("Form2", "TransposeBut", Form2.TransposeBut);
    table.add("Form2", "Command7", Form2.Command7);
}

void listFields(ControlTable& table, EditingControls& Form2) {
    table.add("Form2", "Text1", Form2.Text1);
    table.add("Form2", "Text3", Form2.Text3);
    table.add("Form2", "Text4", Form2.Text4);
    table.add("Form2", "Text5", Form2.Text5);
    table.add("Form2", "Label6", Form2.Label6);
    table.add("Form2", "VScroll2", Form2.VScroll2);
    table.add("Form2", "VScroll3", Form2.VScroll3);
    table.add("Form2", "VScroll4", Form2.VScroll4);
    table.add("Form2", "Check1", Form2.Check1);
    table.add("Form2", "Check2", Form2.Check2);
    table.add("Form2", "Check3", Form2.Check3);
    table.add("Form2", "chkgraphics", Form2.chkgraphics);
    table.add("Form2", "loopcheck", Form2.loopcheck);
}

}  // namespace

void listEditingControls(NameTables& tables, EditingControls& Form2) {
    tables.state.add("EditToolState", Form2.EditToolState);
    listArt(tables.state, "Form2.Cmd2", Form2.Cmd2, EditingControls::firstButton);
    listArt(tables.state, "Form2.ImgPic", Form2.ImgPic, EditingControls::firstButton);
    listPictures(tables.controls, Form2);
    listFields(tables.controls, Form2);
    tables.controls.add("Form2", "ToolbCompose", Form2.ToolbCompose);
    tables.controls.add("Form2", "toolbEdit", Form2.toolbEdit);
    tables.controls.add("Form2", "Picture2", Form2.Picture2);
    tables.controls.add("Form2", "Picture5", Form2.Picture5);
    tables.controls.add("Form2", "Picture6", Form2.Picture6);
}

}  // namespace melvane
