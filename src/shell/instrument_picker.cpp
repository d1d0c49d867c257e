#include "shell/instrument_picker.h"

#include <algorithm>

#include "core/instrument_names.h"
#include "core/names.h"

namespace melvane {

void InstrumentPicker::showModal() {
    auto& picker = studio_.FrmInst;
    if (!picker.loaded) Form_Load();
    picker.window.setVisible(true);
    loop_.waitFor([&picker] { return !picker.window.visible(); });
}

void InstrumentPicker::Form_Load() {
    auto& picker = studio_.FrmInst;
    picker.loaded = true;
    picker.placed = false;
    picker.LstInstruments.fill(melodyInstrumentList());
    picker.LstInstruments2.fill(percussionInstrumentList());
    const auto& names = picker.LstInstruments.items();
    const auto named = std::ranges::find(names, studio_.instruments.MelodyInstrumentName);
    if (named != names.end()) picker.LstInstruments.set(static_cast<int>(named - names.begin()));
    picker.LstInstruments.set(studio_.instruments.MelodyInstrument);
    picker.LstInstruments2.set(studio_.instruments.PercussionInstrument - firstPercussionInstrument);
}

void InstrumentPicker::CmdOk_Click() {
    if (!studio_.FrmInst.loaded) Form_Load();
    const auto& list = studio_.FrmInst.LstInstruments;
    auto& in = studio_.instruments;
    const std::string name = list.text();
    if (name.empty()) {
        dialogs_.messageBox(BoxKind::plain, "Melvane", "Make a selection");
        return;
    }
    if (in.PickingNoteInstrument) {
        in.NoteInstrumentName = name;
        in.NoteInstrument = static_cast<Int16>(list.index());
        studio_.form1.Text5.set(name);
    } else {
        in.MelodyInstrumentName = name;
        in.MelodyInstrument = static_cast<Int16>(list.index());
        settings_.save("Intrumentval", in.MelodyInstrument);
        studio_.Form3.LblInst1.set(name);
    }
    hide();
}

void InstrumentPicker::LstInstruments2_DblClick() {
    if (!studio_.FrmInst.loaded) Form_Load();
    const auto& list = studio_.FrmInst.LstInstruments2;
    if (list.index() < 0) return;
    auto& in = studio_.instruments;
    in.PercussionInstrumentName = list.text();
    in.PercussionInstrument = static_cast<Int16>(list.index() + firstPercussionInstrument);
    settings_.save("Intrumentval2", in.PercussionInstrument);
    studio_.Form3.LblInst2.set(list.text());
    studio_.form1.Text5.set(list.text());
    hide();
}

void InstrumentPicker::CmdCancel_Click() {
    studio_.instruments.MelodyInstrumentName.clear();
    Form_Unload();
}

void InstrumentPicker::Form_Unload() {
    auto& picker = studio_.FrmInst;
    picker.loaded = false;
    picker.LstInstruments.fill({});
    picker.LstInstruments2.fill({});
    hide();
}

void InstrumentPicker::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("FrmInst", "Form_Load", this, &InstrumentPicker::Form_Load);
    operations.add("FrmInst", "Form_Unload", this, &InstrumentPicker::Form_Unload);
    operations.add("FrmInst", "CmdOk_Click", this, &InstrumentPicker::CmdOk_Click);
    operations.add("FrmInst", "LstInstruments_DblClick", this, &InstrumentPicker::CmdOk_Click);
    operations.add("FrmInst", "LstInstruments2_DblClick", this, &InstrumentPicker::LstInstruments2_DblClick);
    operations.add("FrmInst", "CmdCancel_Click", this, &InstrumentPicker::CmdCancel_Click);
}

}  // namespace melvane
