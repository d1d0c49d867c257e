#include "shell/help_window.h"

#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QListWidget>
#include <QSplitter>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace melvane {

namespace {

constexpr QSize usualSize(760, 520);
constexpr int outerMargin = 12, listWidth = 180, pageMargin = 12;  // pixels
const QString folder = ":/help/";

QString textOf(const QString& file) {
    QFile topic(folder + file);
    return topic.open(QIODevice::ReadOnly) ? QString::fromUtf8(topic.readAll()) : QString();
}

/// A topic's first line is its heading.
QString headingOf(const QString& text) { return text.section('\n', 0, 0).remove('#').trimmed(); }

}  // namespace

HelpWindow::HelpWindow(Studio& studio, QWidget* parent)
    : FramedWindow(studio, {"Help", "Melvane Help"}, parent),
      topics_(new QListWidget),
      page_(new QTextBrowser) {
    auto* const parts = new QSplitter(client());
    parts->setChildrenCollapsible(false);
    parts->addWidget(topics_);
    parts->addWidget(page_);
    parts->setSizes({listWidth, usualSize.width() - listWidth});
    parts->setStretchFactor(1, 1);
    auto* const column = new QVBoxLayout(client());
    column->setContentsMargins(outerMargin, outerMargin, outerMargin, outerMargin);
    column->addWidget(parts);
    topics_->setAccessibleName("Topics");
    topics_->setToolTip("Topics");
    page_->setAccessibleName("Topic");
    page_->setOpenLinks(false);
    page_->document()->setDocumentMargin(pageMargin);
    for (const QString& file : QDir(folder).entryList({"*.md"}, QDir::Files, QDir::Name)) {
        auto* const item = new QListWidgetItem(headingOf(textOf(file)), topics_);
        item->setData(Qt::UserRole, file);
    }
    connect(topics_, &QListWidget::currentItemChanged, this, [this](const QListWidgetItem* item) {
        if (item != nullptr) page_->setMarkdown(textOf(item->data(Qt::UserRole).toString()));
    });
    connect(page_, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) { showTopic(link.path()); });
    topics_->setCurrentRow(0);
    resize(sizeAround(usualSize));
}

void HelpWindow::showTopic(const QString& file) {
    for (int row = 0; row < topics_->count(); ++row) {
        if (topics_->item(row)->data(Qt::UserRole).toString() == file) topics_->setCurrentRow(row);
    }
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
    event->key() == Qt::Key_Escape ? static_cast<void>(close()) : QWidget::keyPressEvent(event);
}

}  // namespace melvane
