#pragma once
#include "core/picker.h"
#include "core/settings.h"
#include "core/studio.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"

namespace melvane {

struct NameTables;

/// The modal picker FrmInst: a melody list and a percussion list in one window. A window shows
/// studio.FrmInst.
class InstrumentPicker final : public Picker {
 public:
    InstrumentPicker(Studio& studio, Settings& settings, Dialogs& dialogs, EventLoop& loop)
        : studio_(studio), settings_(settings), dialogs_(dialogs), loop_(loop) {}

    void showModal() override;

    /// Fills both lists and selects the instruments in hand.
    void Form_Load();
    /// Empties both lists; what was picked stays.
    void Form_Unload();
    /// Takes the selected melody instrument, for one note while PickingNoteInstrument; also by a double click
    /// on it.
    void CmdOk_Click();
    /// Takes the selected percussion instrument: there is no OK for that list.
    void LstInstruments2_DblClick();
    /// Unloads with MelodyInstrumentName emptied, which the callers take to mean that nothing was chosen.
    void CmdCancel_Click();

    void listNames(NameTables& tables);

 private:
    void hide() { studio_.FrmInst.window.setVisible(false); }

    Studio& studio_;
    Settings& settings_;
    Dialogs& dialogs_;
    EventLoop& loop_;
};

}  // namespace melvane
