#include "shell/help_window.h"

#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QSplitter>
#include <QTextBrowser>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/qt_style.h"
#include "ui/qt_text_page.h"

namespace melvane {

namespace {

constexpr QSize usualSize(760, 520);
constexpr int outerMargin = 12, listWidth = 180, listMargin = 12, pageMargin = 12, space = 8;  // pixels
const QString folder = ":/help/";

QString textOf(const QString& file) {
    QFile topic(folder + file);
    return topic.open(QIODevice::ReadOnly) ? QString::fromUtf8(topic.readAll()) : QString();
}

/// A topic's first line is its heading.
QString headingOf(const QString& text) { return text.section('\n', 0, 0).remove('#').trimmed(); }

QStringList wordsOf(const QLineEdit& field) { return field.text().split(' ', Qt::SkipEmptyParts); }

bool hasAll(const QString& text, const QStringList& words) {
    return std::ranges::all_of(
        words, [&text](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
}

QList<QTextEdit::ExtraSelection> placesOf(const QStringList& words, QTextDocument& document) {
    QList<QTextEdit::ExtraSelection> places;
    for (const QString& word : words) {
        for (auto found = document.find(word); !found.isNull(); found = document.find(word, found)) {
            QTextEdit::ExtraSelection place;
            place.cursor = found;
            place.format.setBackground(palette::accent);
            place.format.setForeground(Qt::white);
            places.append(place);
        }
    }
    return places;
}

}  // namespace

HelpWindow::HelpWindow(Studio& studio, QWidget* parent)
    : FramedWindow(studio, {.name = "Help", .title = "Melvane Help"}, parent),
      words_(new QLineEdit),
      topics_(new QListWidget),
      page_(new QTextBrowser) {
    auto* const parts = new QSplitter(client());
    parts->setChildrenCollapsible(false);
    parts->addWidget(makeContents());
    parts->addWidget(page_);
    parts->setSizes({listWidth, usualSize.width() - listWidth});
    parts->setStretchFactor(1, 1);
    auto* const column = new QVBoxLayout(client());
    column->setContentsMargins(outerMargin, outerMargin, outerMargin, outerMargin);
    column->addWidget(parts);
    page_->setObjectName("page");
    page_->setAccessibleName("Topic");
    page_->setOpenLinks(false);
    page_->document()->setDocumentMargin(pageMargin);
    keepTextInPlace(*page_);
    connect(page_, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) { showTopic(link.path()); });
    topics_->setCurrentRow(0);
    resize(sizeAround(usualSize));
}

QWidget* HelpWindow::makeContents() {
    auto* const contents = new QWidget;
    auto* const column = new QVBoxLayout(contents);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(space);
    words_->setObjectName("words");
    words_->setPlaceholderText("Search");
    words_->setClearButtonEnabled(true);
    words_->setAccessibleName("Search the help");
    words_->setToolTip("Leaves the topics that have all these words");
    column->addWidget(words_);
    column->addWidget(topics_);
    topics_->setAccessibleName("Topics");
    topics_->setToolTip("Topics");
    for (const QString& file : QDir(folder).entryList({"*.md"}, QDir::Files, QDir::Name)) {
        auto* const item = new QListWidgetItem(headingOf(textOf(file)), topics_);
        item->setData(Qt::UserRole, file);
    }
    topics_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    topics_->setTextElideMode(Qt::ElideRight);
    topics_->setMinimumWidth(topics_->sizeHintForColumn(0) + listMargin);
    connect(topics_, &QListWidget::currentItemChanged, this, [this] { showPage(); });
    connect(words_, &QLineEdit::textChanged, this, [this] { search(); });
    return contents;
}

void HelpWindow::showPage() {
    const auto* const item = topics_->currentItem();
    page_->setMarkdown(item == nullptr ? QString() : textOf(item->data(Qt::UserRole).toString()));
    page_->setExtraSelections(placesOf(wordsOf(*words_), *page_->document()));
}

void HelpWindow::search() {
    const QStringList words = wordsOf(*words_);
    QListWidgetItem* first = nullptr;
    for (int row = 0; row < topics_->count(); ++row) {
        auto* const item = topics_->item(row);
        item->setHidden(!hasAll(textOf(item->data(Qt::UserRole).toString()), words));
        if (first == nullptr && !item->isHidden()) first = item;
    }
    const auto* const current = topics_->currentItem();
    if (current == nullptr || current->isHidden()) topics_->setCurrentItem(first);
    showPage();
}

/// A topic that is asked for is shown, whatever was searched for.
void HelpWindow::showTopic(const QString& file) {
    words_->clear();
    for (int row = 0; row < topics_->count(); ++row) {
        if (topics_->item(row)->data(Qt::UserRole).toString() == file) topics_->setCurrentRow(row);
    }
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
    event->key() == Qt::Key_Escape ? static_cast<void>(close()) : QWidget::keyPressEvent(event);
}

}  // namespace melvane
