#pragma once
#include <vector>

#include "core/studio.h"
#include "ui/framed_window.h"

class QFrame;
class QPushButton;
class QStackedWidget;

namespace melvane {

class Tutorial;

/// The tutorial: a list of lessons, and the steps of the one in front. Shows studio.Wiz.
class Wiz : public FramedWindow {
    Q_OBJECT
    Q_PROPERTY(bool loaded READ loaded)

 public:
    Wiz(Studio& studio, Tutorial& tutorial, QWidget* parent);
    ~Wiz() override;
    bool loaded() const { return studio_.shell.WizardOpen; }

 protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;
    /// Watches the mouse over the lessons.
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    QWidget* makeList();
    QFrame* makeLesson(int index);
    QPushButton* makeStep(int lesson, int step, QWidget* parent);
    QWidget* makeShowTips();
    void tellPlace();
    double labelTop(int lesson, int step) const;

    Studio& studio_;
    Tutorial& tutorial_;
    QStackedWidget* pages_;
    std::vector<QFrame*> frames_;                   ///< by lesson
    std::vector<std::vector<QPushButton*>> steps_;  ///< by lesson and step
};

}  // namespace melvane
