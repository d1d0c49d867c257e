#include "core/tablet_tools.h"

#include "core/drag.h"
#include "core/names.h"

namespace melvane {

TabletTools::TabletTools(Studio& studio, Surfaces& surfaces) : studio_(studio), surfaces_(surfaces) {
    auto& buttons = studio_.form1.FunctionBut;
    for (std::size_t index = 0; index < buttons.size(); ++index) {
        buttons[index].setTip("Start/Insertion Position");
        buttons[index].acted = [this, index] { FunctionBut_Click(static_cast<int>(index)); };
    }
}

void TabletTools::FunctionBut_Click(int Index) {
    if (Index < edit_mode::draw || Index > edit_mode::select) return;
    studio_.selection.EditMode = static_cast<Int16>(Index);
    surfaces_.setPointer(Area::tablet,
                         Index == edit_mode::draw ? DrawingPointer::arrow : DrawingPointer::cross);
}

void TabletTools::listNames(NameTables& tables) {
    tables.operations.add("form1", "FunctionBut_Click", this, &TabletTools::FunctionBut_Click);
}

}  // namespace melvane
