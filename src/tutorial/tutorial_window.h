#pragma once
#include <vector>

#include "core/studio.h"
#include "ui/tool_window.h"

class QFrame;
class QPushButton;
class QStackedWidget;

namespace melvane {

class Tutorial;

/// The tutorial: a list of lessons, and the steps of the one in front. Shows studio.Wiz.
class Wiz : public ToolWindow {
    Q_OBJECT

 public:
    Wiz(Studio& studio, Tutorial& tutorial, QWidget* parent);
    ~Wiz() override;

 protected:
    void load() override;
    void comeToFront() override;
    void closeEvent(QCloseEvent* event) override;
    /// Watches the mouse over the lessons.
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    QWidget* makeList();
    QFrame* makeLesson(int index);
    QPushButton* makeStep(int lesson, int step, QWidget* parent);
    QWidget* makeShowTips();
    double labelTop(int lesson, int step) const;

    Studio& studio_;
    Tutorial& tutorial_;
    QStackedWidget* pages_;
    std::vector<QFrame*> frames_;                   ///< by lesson
    std::vector<std::vector<QPushButton*>> steps_;  ///< by lesson and step
};

}  // namespace melvane
