#include "ui/qt_text_page.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QTextBrowser>

namespace melvane {

namespace {

/// Takes the selection away before a press could find it.
template <class Page>
class SelectionEnder : public QObject {
 public:
    explicit SelectionEnder(Page& page) : QObject(&page), page_(page) {
        page.viewport()->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::MouseButtonPress) endSelection(static_cast<const QMouseEvent&>(*event));
        return QObject::eventFilter(watched, event);
    }

 private:
    /// With Shift a press makes the selection longer.
    void endSelection(const QMouseEvent& press) {
        if (press.button() != Qt::LeftButton || press.modifiers().testFlag(Qt::ShiftModifier)) return;
        if (page_.textCursor().hasSelection())
            page_.setTextCursor(page_.cursorForPosition(press.position().toPoint()));
    }

    Page& page_;
};

}  // namespace

void keepTextInPlace(QTextEdit& page) { new SelectionEnder(page); }
void keepTextInPlace(QPlainTextEdit& page) { new SelectionEnder(page); }

}  // namespace melvane
