#include "shell/setup_configuration_panel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>

#include "shell/engine.h"
#include "ui/qt_bindings.h"
#include "ui/qt_panel_parts.h"

namespace melvane {

namespace {

constexpr int space = 4, captionSpace = 8, groupSpace = 24, boxWidth = 72, barWidth = 140;  // pixels

// Columns of the page: two groups, each of captions and controls.
constexpr int captions = 0, controls = 1, gap = 3, laterCaptions = 4, laterControls = 5;

QLineEdit* makeBox(const char* name, const char* tip, QWidget* parent) {
    auto* const box = new QLineEdit(parent);
    box->setObjectName(name);
    box->setToolTip(tip);
    box->setAccessibleName(tip);
    box->setAlignment(Qt::AlignRight);
    box->setFixedWidth(boxWidth);
    return box;
}

QPushButton* makeButton(const char* name, const char* text, const char* tip, QWidget* parent) {
    auto* const button = new QPushButton(text, parent);
    button->setObjectName(name);
    button->setToolTip(tip);
    return button;
}

}  // namespace

SetupConfigurationPanel::SetupConfigurationPanel(Studio& studio, Engine& engine, QWidget* parent)
    : QWidget(parent) {
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(captionSpace);
    grid->setVerticalSpacing(space);
    addSize(studio.Form3, engine, *grid);
    addLines(studio.Form3, *grid);
    addDevice(studio.Form3, *grid);
    grid->setColumnMinimumWidth(gap, groupSpace);
    grid->setColumnStretch(laterControls + 1, 1);
    grid->setRowStretch(3, 1);
}

void SetupConfigurationPanel::addSize(SetupControls& setup, Engine& engine, QGridLayout& grid) {
    auto* const total = makeBox("Text1", "Total notes currently available", this);
    total->setReadOnly(true);
    total->setProperty("readout", true);
    bindNumber(*total, setup.Text1);
    auto* const count = makeBox("Text2", "How many notes to add or subtract", this);
    bind(*count, setup.Text2);
    auto* const add = makeButton("Command1", "Add new notes", "Lengthen the score by so many notes", this);
    auto* const subtract = makeButton("Command4", "Subtract notes",
                                      "Shorten the score; what lies beyond its new end is lost", this);
    connect(add, &QPushButton::clicked, this, [&engine] { engine.setup.size.Command1_Click(); });
    connect(subtract, &QPushButton::clicked, this, [&engine] { engine.setup.size.Command4_Click(); });
    grid.addWidget(makeCaption("Total notes currently available", this), 0, captions);
    grid.addWidget(total, 0, controls);
    grid.addWidget(makeCaption("Notes to add or subtract", this), 1, captions);
    grid.addWidget(count, 1, controls);
    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(captionSpace);
    buttons->addWidget(add);
    buttons->addWidget(subtract);
    buttons->addStretch();
    grid.addLayout(buttons, 2, captions, 1, 2);
}

void SetupConfigurationPanel::addLines(SetupControls& setup, QGridLayout& grid) {
    auto* const height = makeBox("Text3", "Line spacing", this);
    bindNumber(*height, setup.Text3);
    auto* const bar = new QScrollBar(Qt::Horizontal, this);
    bar->setObjectName("VScroll3");
    bar->setToolTip("Line spacing");
    bar->setAccessibleName("Line spacing");
    bar->setFocusPolicy(Qt::StrongFocus);
    bar->setFixedWidth(barWidth);
    bind(*bar, setup.VScroll3);
    auto* const guides = new QCheckBox("Show Sharp # Notes Guide", this);
    guides->setObjectName("Check1");
    guides->setToolTip("Shade the rows of sharp notes");
    bind(*guides, setup.Check1);
    grid.addWidget(makeCaption("Line spacing", this), 0, laterCaptions);
    auto* const line = new QHBoxLayout;
    line->setSpacing(captionSpace);
    line->addWidget(height);
    line->addWidget(bar);
    line->addStretch();
    grid.addLayout(line, 0, laterControls);
    grid.addWidget(guides, 1, laterControls);
}

void SetupConfigurationPanel::addDevice(SetupControls& setup, QGridLayout& grid) {
    auto* const list = new QComboBox(this);
    list->setObjectName("Combo2");
    list->setToolTip("Midi Device");
    list->setAccessibleName("Midi Device");
    list->setMinimumContentsLength(24);
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    bind(*list, setup.Combo2);
    grid.addWidget(makeCaption("Midi Device", this), 2, laterCaptions);
    grid.addWidget(list, 2, laterControls);
}

}  // namespace melvane
