#pragma once
#include "core/studio.h"
#include "ui/framed_window.h"

class QListWidget;

namespace melvane {

class InstrumentPicker;

/// The instrument picker: a list of melody instruments beside one of percussion sounds. Shown while
/// studio.FrmInst says so, in front of all other windows.
class FrmInst : public FramedWindow {
    Q_OBJECT
    Q_PROPERTY(bool loaded READ loaded)

 public:
    FrmInst(Studio& studio, InstrumentPicker& picker, QWidget* parent);
    bool loaded() const { return studio_.FrmInst.loaded; }

 protected:
    /// Shown by another than the engine, it is loaded without a wait for its end.
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    QListWidget* makeList(const char* name, const char* title, ListControl& list);
    void follow();
    void centre();

    Studio& studio_;
    InstrumentPicker& picker_;
    QListWidget* LstInstruments_ = nullptr;
    QListWidget* LstInstruments2_ = nullptr;
};

}  // namespace melvane
