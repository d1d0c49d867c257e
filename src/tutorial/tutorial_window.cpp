#include "tutorial/tutorial_window.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>
#include <QStackedWidget>
#include <QStyle>
#include <algorithm>

#include "tutorial/lessons.h"
#include "tutorial/tutorial.h"
#include "ui/qt_bindings.h"

namespace melvane {

namespace {

// Pixels.
constexpr int outerMargin = 12, space = 8, pageMargin = 12, listRowHeight = 28, listMargin = 28;
constexpr int subStepIndent = 20;

constexpr const char* note = "*Click on each step to perform the function";

/// A step inside a numbered one begins with a letter or a bracket.
bool isSubStep(const std::string& caption) {
    return !caption.empty() && (caption[0] < '0' || caption[0] > '9');
}

QLabel* makeText(const QString& text, const char* property, QWidget* parent) {
    auto* const label = new QLabel(text, parent);
    label->setProperty(property, true);
    label->setMouseTracking(true);
    return label;
}

void showMark(QPushButton& button, bool marked) {
    if (button.property("marked").toBool() == marked) return;
    button.setProperty("marked", marked);
    button.style()->unpolish(&button);
    button.style()->polish(&button);
}

}  // namespace

Wiz::Wiz(Studio& studio, Tutorial& tutorial, QWidget* parent)
    : ToolWindow(studio,
                 {.name = "Wiz",
                  .title = "Melvane Wizard",
                  .buttons = {.helps = true},
                  .resizes = false,
                  .kind = Qt::Tool},
                 {studio.Wiz.place, studio.shell.WizardOpen}, parent),
      studio_(studio),
      tutorial_(tutorial),
      pages_(new QStackedWidget(client())) {
    QWidget* const list = makeList();
    for (int lesson = 0; lesson < static_cast<int>(lessons().size()); ++lesson) {
        frames_.push_back(makeLesson(lesson));
        pages_->addWidget(frames_.back());
    }
    pages_->setCurrentIndex(studio.Wiz.SSTab1.index());
    auto* const grid = new QGridLayout(client());
    grid->setContentsMargins(outerMargin, outerMargin, outerMargin, outerMargin);
    grid->setSpacing(space);
    grid->addWidget(list, 0, 0);
    grid->addWidget(pages_, 0, 1);
    grid->addWidget(makeShowTips(), 1, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    tutorial_.labelTop = [this](int lesson, int step) { return labelTop(lesson, step); };
    resize(sizeAround(grid->sizeHint()));
}

Wiz::~Wiz() { tutorial_.labelTop = nullptr; }

// Parts

QWidget* Wiz::makeList() {
    auto& tabs = studio_.Wiz.SSTab1;
    auto* const list = new QListWidget(client());
    list->setObjectName("SSTab1");
    list->setAccessibleName("Lessons");
    list->setToolTip("Choose a lesson");
    int widest = 0;
    for (const auto& title : tabs.items()) {
        const QString text = QString::fromStdString(title);
        widest = std::max(widest, list->fontMetrics().horizontalAdvance(text));
        auto* const item = new QListWidgetItem(text, list);
        item->setSizeHint(QSize(0, listRowHeight));
    }
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setFixedWidth(widest + listMargin);
    list->setMinimumHeight(static_cast<int>(tabs.items().size()) * listRowHeight + space);
    bindShown(*list, tabs, [this, list, &tabs] {
        list->setCurrentRow(tabs.index());
        pages_->setCurrentIndex(tabs.index());
    });
    connect(list, &QListWidget::currentRowChanged, this,
            [&tabs](int row) { tabs.userPut(static_cast<long long>(row)); });
    return list;
}

QFrame* Wiz::makeLesson(int index) {
    auto& lesson = studio_.Wiz.lessons[static_cast<std::size_t>(index)];
    auto* const frame = new QFrame(pages_);
    frame->setObjectName(memberName("FrameStep", index));
    frame->setProperty("panel", true);
    frame->setMouseTracking(true);
    frame->installEventFilter(this);
    bindState(*frame, lesson.FrameStep);
    auto* const rows = new QVBoxLayout(frame);
    rows->setContentsMargins(pageMargin, pageMargin, pageMargin, pageMargin);
    rows->setSpacing(0);
    auto* const title = makeText({}, "heading", frame);
    if (index < titlesWithAName) title->setObjectName(QStringLiteral("Ltit%1").arg(index + 1));
    bind(*title, lesson.title);
    rows->addWidget(title);
    rows->addSpacing(space);
    steps_.emplace_back();
    for (int step = 0; step < static_cast<int>(lesson.steps.size()); ++step) {
        const auto at = static_cast<std::size_t>(step);
        const QString heading = lessons()[static_cast<std::size_t>(index)]->steps[at].heading;
        if (!heading.isEmpty()) {
            rows->addSpacing(space);
            rows->addWidget(makeText(heading, "secondary", frame));
        }
        auto* const row = new QHBoxLayout;
        if (isSubStep(lesson.steps[at].text())) row->addSpacing(subStepIndent);
        row->addWidget(makeStep(index, step, frame));
        rows->addLayout(row);
    }
    rows->addStretch();
    rows->addSpacing(space);
    rows->addWidget(makeText(note, "secondary", frame));
    return frame;
}

QPushButton* Wiz::makeStep(int lesson, int step, QWidget* parent) {
    auto& label = studio_.Wiz.lessons[static_cast<std::size_t>(lesson)].steps[static_cast<std::size_t>(step)];
    auto* const button = new QPushButton(parent);
    button->setObjectName(memberName(lessons()[static_cast<std::size_t>(lesson)]->labels, step));
    button->setProperty("step", true);
    button->setMouseTracking(true);
    button->installEventFilter(this);
    bindShown(*button, label, [button, &label] {
        button->setText(QString::fromStdString(label.text()));
        showMark(*button, label.marked());
    });
    connect(button, &QPushButton::clicked, this, [&label] { label.userPut(1LL); });
    steps_.back().push_back(button);
    return button;
}

QWidget* Wiz::makeShowTips() {
    auto* const box = new QCheckBox("Show Tips", client());
    box->setObjectName("Check1");
    bind(*box, studio_.Wiz.Check1);
    return box;
}

// Events

bool Wiz::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    const bool moved =
        type == QEvent::MouseMove && static_cast<const QMouseEvent&>(*event).buttons() == Qt::NoButton;
    for (std::size_t lesson = 0; lesson < frames_.size(); ++lesson) {
        const auto& buttons = steps_[lesson];
        const auto found = std::ranges::find(buttons, watched);
        if (found != buttons.end() && (moved || type == QEvent::Enter)) {
            tutorial_.mark(static_cast<int>(lesson), static_cast<int>(found - buttons.begin()));
            return moved;  // else it would reach the ground behind
        }
        if (watched == frames_[lesson] && (moved || type == QEvent::Leave)) {
            tutorial_.FrameStep_MouseMove(static_cast<int>(lesson));
        }
    }
    return ToolWindow::eventFilter(watched, event);
}

void Wiz::load() { tutorial_.Form_Load(); }
void Wiz::comeToFront() { tutorial_.Form_Activate(); }

void Wiz::closeEvent(QCloseEvent* event) {
    event->accept();
    if (loaded()) tutorial_.Form_Unload();
}

double Wiz::labelTop(int lesson, int step) const {
    const QPushButton* const label = steps_[static_cast<std::size_t>(lesson)][static_cast<std::size_t>(step)];
    return label->mapTo(this, QPoint(0, 0)).y() * double{twipsAPixel};
}

}  // namespace melvane
