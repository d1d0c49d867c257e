#pragma once
#include <optional>

#include "core/main_frame.h"
#include "core/studio.h"
#include "synth/keyboard_commands.h"
#include "synth/qt_key_preview.h"
#include "ui/framed_window.h"

class QTabWidget;

namespace melvane {

class KeyboardToolbar;
class PanicBarPanel;
class PianoView;

/// The keyboard window: an instrument at the computer's keys over a panel of four pages. It is loaded when it
/// is shown first; closing it ends the program.
class frmsynth : public FramedWindow, public MainFrame {
    Q_OBJECT
    Q_PROPERTY(bool loaded READ loaded)

 public:
    frmsynth(Studio& studio, KeyboardCommands& commands);
    ~frmsynth() override;
    bool loaded() const { return studio_.frmsynth.loaded; }

    double screenWidth() const override { return roomWidth(); }
    double screenHeight() const override { return roomHeight(); }
    WindowPlace place() const override { return placeInTwips(); }
    void setPlace(const WindowPlace& place) override { placeWholly(place); }
    void ApplySkin() override { FramedWindow::ApplySkin(); }
    void show() override { QWidget::show(); }
    void hide() override { QWidget::hide(); }
    void unload() override { close(); }

 protected:
    void showEvent(QShowEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    QSize usualSize() const;
    QWidget* makePages();
    void addPage(QWidget* page, const QString& title, const QString& tip);
    void attachKeys();
    void tellPlace();
    void followPages();
    int spareKeys() const;
    void followSize();
    void layOut();
    void layOutFrames();
    int pagesHeight(int outerWidth) const;

    Studio& studio_;
    KeyboardCommands& commands_;
    KeyboardToolbar* toolbar_;
    PanicBarPanel* Label4_;
    PianoView* Picture5_;
    QTabWidget* SSTab1_ = nullptr;
    QWidget* Picture2_;
    std::optional<int> fullHeight_;  ///< pixels, of the window with its pages while they are away
    KeyPreview keyPreview_;
};

}  // namespace melvane
