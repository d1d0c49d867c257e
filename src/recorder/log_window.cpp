#include "recorder/log_window.h"

#include <QCloseEvent>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QVBoxLayout>

#include "ui/qt_bindings.h"
#include "ui/qt_text_page.h"

namespace melvane {

namespace {

constexpr int outerMargin = 12, usualWidth = 480, usualHeight = 320;  // pixels

}  // namespace

frmLog::frmLog(Studio& studio, RecorderWindowCommands& commands, QWidget* parent)
    : FramedWindow(studio, {.name = "frmLog", .title = "Recording Log", .resizes = true, .kind = Qt::Tool},
                   parent),
      studio_(studio),
      commands_(commands) {
    auto* const box = new QVBoxLayout(client());
    box->setContentsMargins(outerMargin, outerMargin, outerMargin, outerMargin);
    auto* const page = new QPlainTextEdit(client());
    page->setObjectName("Text1");
    page->setAccessibleName("Recording Log");
    page->setReadOnly(true);
    page->setTabChangesFocus(true);
    keepTextInPlace(*page);
    page->setPlaceholderText("Nothing was recorded yet.");
    bindShown(*page, studio.frmLog.Text1, [page, &studio] {
        page->setPlainText(QString::fromStdString(studio.frmLog.Text1.text()));
        page->verticalScrollBar()->setValue(page->verticalScrollBar()->maximum());
    });
    box->addWidget(page);
    resize(sizeAround({usualWidth, usualHeight}));
}

void frmLog::showEvent(QShowEvent* event) {
    FramedWindow::showEvent(event);
    if (!loaded()) commands_.loadLog();
}

void frmLog::closeEvent(QCloseEvent* event) {
    event->accept();
    studio_.frmLog.loaded = false;
}

}  // namespace melvane
