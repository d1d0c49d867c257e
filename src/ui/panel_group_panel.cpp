#include "ui/panel_group_panel.h"

#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

#include "ui/qt_bindings.h"

namespace melvane {

namespace {

constexpr int panelMargin = 12, rowSpace = 4, columnSpace = 8, rowHeight = 24;  // pixels

}  // namespace

PanelGroup::PanelGroup(const char* heading, QWidget* parent) : QFrame(parent), rows_(new QVBoxLayout(this)) {
    setProperty("panel", true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    rows_->setContentsMargins(panelMargin, panelMargin - rowSpace, panelMargin, panelMargin);
    rows_->setSpacing(rowSpace);
    rows_->setAlignment(Qt::AlignTop);
    auto* const title = new QLabel(heading, this);
    title->setProperty("heading", true);
    title->setMinimumHeight(rowHeight);
    rows_->addWidget(title);
}

void PanelGroup::addRow(std::initializer_list<QWidget*> widgets) {
    auto* const row = new QHBoxLayout;
    row->setSpacing(columnSpace);
    for (QWidget* const widget : widgets) row->addWidget(widget);
    row->addStretch();
    rows_->addLayout(row);
}

QCheckBox* makeTick(const char* name, const char* text, const char* tip, CheckControl& tick,
                    QWidget* parent) {
    auto* const box = new QCheckBox(text, parent);
    box->setObjectName(name);
    box->setToolTip(tip);
    bind(*box, tick);
    return box;
}

QRadioButton* makeOption(const QString& name, const QString& text, const QString& tip, CheckControl& option,
                         QWidget* parent) {
    auto* const button = new QRadioButton(text, parent);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setAutoExclusive(false);  // which one is ticked is for the program to say
    bind(*button, option);
    return button;
}

}  // namespace melvane
