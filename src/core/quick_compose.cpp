#include "core/quick_compose.h"

#include "core/names.h"

namespace melvane {

void QuickCompose::ResetAll() {
    for (int slider = 0; slider < PanelSliders::count; ++slider) {
        sliders_.rest(static_cast<PanelSliders::Slider>(slider));
    }
    studio_.form1.Combo3.set(0);
    instruments_.Combo1_Click();
}

void QuickCompose::Check1_Click() {
    const bool ticked = studio_.form1.Check1.ticked();
    studio_.form1.Combo3.setEnabled(ticked);
    studio_.form1.Text5.setEnabled(ticked);
    studio_.form1.CmdInst.setEnabled(ticked);
    studio_.form1.Picture7.setEnabled(ticked);
    studio_.form1.Picture9.setEnabled(ticked);
}

void QuickCompose::listNames(NameTables& tables) {
    tables.operations.add("form1", "ResetAll", this, &QuickCompose::ResetAll);
    tables.operations.add("form1", "Check1_Click", this, &QuickCompose::Check1_Click);
}

}  // namespace melvane
