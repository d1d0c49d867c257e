#pragma once
#include <QWidget>

#include "ui/qt_frame_painter.h"

class QLabel;
class QToolButton;

namespace melvane {

/// Which buttons a window's title bar has beside the one that closes it.
struct TitleButtons {
    bool minimises = false, maximises = false, helps = false;
};

/// The bar along the top of a window: emblem, title and the title buttons.
class TitleBar : public QWidget {
    Q_OBJECT

 public:
    TitleBar(const QString& title, TitleButtons buttons, QWidget* parent);

    void setLook(FrameLook look);
    /// imgTitleMaxRestore takes the picture of imgTitleRestore or of imgTitleMaximize.
    void setMaximised(bool maximised);
    void setTitle(const QString& title);
    void setHelpEnabled(bool enabled);
    /// From left to right.
    QList<QWidget*> buttons() const;

 Q_SIGNALS:
    void closeWanted();
    void minimiseWanted();
    void maximiseWanted();  ///< or back
    void helpWanted();

 protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
    QToolButton* makeButton(const char* name, const char* tip);
    void showPictures();

    TitleButtons has_;
    FrameLook look_ = FrameLook::flat;
    bool maximised_ = false;
    QLabel* emblem_;
    QLabel* lblTitle_;
    QToolButton* imgTitleHelp_;
    QToolButton* imgTitleMinimize_;
    QToolButton* imgTitleMaxRestore_;
    QToolButton* imgTitleClose_;
    QToolButton* imgTitleMaximize_;  ///< never shown: it holds the picture
    QToolButton* imgTitleRestore_;   ///< the same
};

}  // namespace melvane
