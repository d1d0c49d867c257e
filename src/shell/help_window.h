#pragma once
#include "ui/framed_window.h"

class QLineEdit;
class QListWidget;
class QTextBrowser;

namespace melvane {

/// The help: a list of topics, a search that leaves those with all its words, and the topic that is read.
class HelpWindow : public FramedWindow {
    Q_OBJECT

 public:
    HelpWindow(Studio& studio, QWidget* parent);
    /// By its file's name, such as "20-notes.md"; nothing when there is no such topic.
    void showTopic(const QString& file);

 protected:
    void keyPressEvent(QKeyEvent* event) override;

 private:
    QWidget* makeContents();
    void search();
    void showPage();

    QLineEdit* words_;
    QListWidget* topics_;
    QTextBrowser* page_;
};

}  // namespace melvane
