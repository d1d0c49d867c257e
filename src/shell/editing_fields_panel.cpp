#include "shell/editing_fields_panel.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

#include "ui/flat_button_panel.h"
#include "ui/qt_bindings.h"
#include "ui/spin_bar_panel.h"

namespace melvane {

namespace {

// Pixels.
constexpr int margin = 12, space = 8, rowSpace = 4, labelSpace = 4, fieldWidth = 38;

constexpr int spacesButton = 16, duplicateButton = 17;

QCheckBox* makeCheck(const char* name, const char* caption, CheckControl& check, QWidget* parent) {
    auto* const box = new QCheckBox(caption, parent);
    box->setObjectName(name);
    bind(*box, check);
    return box;
}

QVBoxLayout* makeRows(QWidget& ground) {
    auto* const rows = new QVBoxLayout(&ground);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(rowSpace);
    return rows;
}

QHBoxLayout* makeFieldRow() {
    auto* const row = new QHBoxLayout;
    row->setSpacing(labelSpace);
    return row;
}

}  // namespace

EditingFieldsPanel::EditingFieldsPanel(Studio& studio, MakeButton makeButton, QWidget* parent)
    : QFrame(parent), toolbar_(studio.Form2), makeButton_(std::move(makeButton)) {
    setObjectName("Picture2");
    setProperty("panel", true);
    bindState(*this, toolbar_.Picture2);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(margin, margin, margin, margin);
    row->setSpacing(2 * space);
    row->addWidget(makeDuplication());
    auto* const line = new QFrame(this);
    line->setProperty("divider", true);
    line->setFixedWidth(1);
    row->addWidget(line);
    row->addWidget(makeSpaces());
}

QWidget* EditingFieldsPanel::makeGround(const char* name, AreaControl& area) {
    auto* const ground = new QWidget(this);
    ground->setObjectName(name);
    bindState(*ground, area);
    return ground;
}

QWidget* EditingFieldsPanel::makeDuplication() {
    auto* const ground = makeGround("Picture6", toolbar_.Picture6);
    auto* const rows = makeRows(*ground);
    auto* const fields = makeFieldRow();
    addField(*fields, 0, "Text3", toolbar_.Text3);
    addBar(*fields, "VScroll2", toolbar_.VScroll2, toolbar_.Text3);
    fields->addSpacing(space);
    addField(*fields, 1, "Text4", toolbar_.Text4);
    addBar(*fields, "VScroll4", toolbar_.VScroll4, toolbar_.Text4);
    fields->addSpacing(space);
    addField(*fields, 2, "Text5", toolbar_.Text5);
    addBar(*fields, "VScroll3", toolbar_.VScroll3, toolbar_.Text5);
    rows->addLayout(fields);
    rows->addLayout(makeChannels());
    return ground;
}

/// Which channels are duplicated, and the button for it.
QBoxLayout* EditingFieldsPanel::makeChannels() {
    auto* const row = new QHBoxLayout;
    row->setSpacing(2 * space);
    row->addWidget(makeCheck("Check2", "Melody", toolbar_.Check2, this));
    row->addWidget(makeCheck("Check1", "Percussion", toolbar_.Check1, this));
    row->addStretch();
    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(0);
    buttons->addWidget(makeButton_(duplicateButton));
    buttons->addWidget(makeIdleButton("Command7", toolbar_.Command7, this));
    row->addLayout(buttons);
    return row;
}

QWidget* EditingFieldsPanel::makeSpaces() {
    auto* const ground = makeGround("Picture5", toolbar_.Picture5);
    auto* const rows = makeRows(*ground);
    auto* const field = makeFieldRow();
    addField(*field, 3, "Text1", toolbar_.Text1);
    rows->addLayout(field);
    rows->addWidget(makeButton_(spacesButton), 0, Qt::AlignRight);
    return ground;
}

void EditingFieldsPanel::addField(QBoxLayout& row, std::size_t label, const char* name, TextControl& text) {
    auto& caption = toolbar_.Label6[label];
    auto* const words = new QLabel(this);
    words->setObjectName(memberName("Label6", static_cast<int>(label)));
    bind(*words, caption);
    auto* const field = new QLineEdit(this);
    field->setObjectName(name);
    field->setAccessibleName(QString::fromStdString(caption.text()));
    field->setMaxLength(static_cast<int>(text.longest()));
    field->setFixedWidth(fieldWidth);
    bind(*field, text);
    words->setBuddy(field);
    row.addWidget(words);
    row.addWidget(field);
}

void EditingFieldsPanel::addBar(QBoxLayout& row, const char* name, ScrollControl& bar,
                                const TextControl& text) {
    auto* const arrows = new SpinBar(bar, this);
    arrows->setObjectName(name);
    arrows->setToolTip(QString::fromStdString(text.tip()));
    arrows->setAccessibleName(arrows->toolTip());
    row.addWidget(arrows);
}

}  // namespace melvane
