#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <memory>

#include "main_window_fixture.h"
#include "ui/qt_bindings.h"

namespace melvane::test {

namespace {

QString widgetName(const ControlTable::Named& entry) {
    const QString name = QString::fromStdString(entry.name);
    return entry.index ? memberName(entry.name.c_str(), *entry.index) : name;
}

/// What a widget shows, as its control would say it; nothing for a widget without contents.
std::optional<Value> contents(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) return label->text().toStdString();
    if (const auto* field = qobject_cast<const QLineEdit*>(&widget)) return field->text().toStdString();
    if (const auto* list = qobject_cast<const QComboBox*>(&widget)) {
        return static_cast<long long>(list->currentIndex());
    }
    if (const auto* bar = qobject_cast<const QScrollBar*>(&widget))
        return static_cast<long long>(bar->value());
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        if (widget.objectName().startsWith("Label8")) return button->text().toStdString();
        return static_cast<long long>(button->isChecked());
    }
    return std::nullopt;
}

}  // namespace

class BindingsTest : public MainWindowTest {
 protected:
    /// Compares every control of the main window that is on the screen with its widget.
    int compareAll() {
        int compared = 0;
        for (const auto& entry : engine.tables.controls.all()) {
            if (entry.window != "form1") continue;
            const auto* const widget = window.findChild<QWidget*>(widgetName(entry));
            if (widget == nullptr) continue;
            EXPECT_EQ(!widget->isHidden(), entry.control->visible()) << entry.name;
            EXPECT_EQ(widget->isEnabledTo(&window), entry.control->enabled()) << entry.name;
            const auto shown = contents(*widget);
            if (!shown || dynamic_cast<AreaControl*>(entry.control) != nullptr) continue;
            if (const auto* const art = dynamic_cast<PictureControl*>(entry.control)) {
                const QIcon icon = qobject_cast<const QAbstractButton*>(widget)->icon();
                EXPECT_EQ(!icon.isNull(), !art->picture().empty()) << entry.name;
                ++compared;
                continue;
            }
            EXPECT_EQ(*shown, entry.control->shown()) << widgetName(entry).toStdString();
            ++compared;
        }
        return compared;
    }
};

TEST_F(BindingsTest, EveryControlShowsItsModel) {
    EXPECT_GE(compareAll(), 45);
    engine.files.OpenPoliFile(std::string(MELVANE_RESOURCES) + "/scores/demo.sng");
    engine.channels.Label8_Click(3);
    studio.form1.Combo3.set(4);
    studio.form1.LblInst.set("Harp");
    studio.form1.T2.set("-12");
    studio.form1.Check1.set(true);
    studio.form1.StatusText.set("No sound output was found");
    EXPECT_GE(compareAll(), 45);
}

TEST_F(BindingsTest, AControlTellsTheWidgetWithoutBeingAnswered) {
    int acted = 0;
    ListControl list;
    CheckControl check;
    list.acted = check.acted = [&acted] { ++acted; };
    QComboBox box;
    QAbstractButton& tick = *find<QAbstractButton>("Check4");
    bind(box, list);
    studio.form1.Check4.acted = [&acted] { ++acted; };
    list.fill({"one", "two"});
    list.set(1);
    studio.form1.Check4.set(true);
    EXPECT_EQ(box.currentText(), "two");
    EXPECT_TRUE(tick.isChecked());
    EXPECT_EQ(acted, 0);
}

TEST_F(BindingsTest, WhatTheUserDoesReachesTheControl) {
    int acted = 0;
    studio.form1.Check4.acted = [&acted] { ++acted; };
    QTest::mouseClick(find("Check4"), Qt::LeftButton, {}, QPoint(6, 12));
    EXPECT_TRUE(studio.form1.Check4.ticked());
    EXPECT_EQ(acted, 1);
    auto* const list = find<QComboBox>("Combo3");
    EXPECT_FALSE(list->isEnabled()) << "without the effects there is nothing to choose";
    QTest::mouseClick(find("Check1"), Qt::LeftButton, {}, QPoint(6, 12));
    ASSERT_TRUE(list->isEnabled());
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(studio.form1.Combo3.index(), 1);
    find<QScrollBar>("HScroll1")->setValue(70);
    EXPECT_EQ(studio.form1.HScroll1.value(), 70);
    EXPECT_EQ(studio.page.FirstColumn, 70 - studio.page.HalfPageColumns);
}

TEST_F(BindingsTest, AFieldGivesItsControlWhatIsTyped) {
    TextControl text("100");
    QLineEdit field;
    bind(field, text);
    EXPECT_EQ(field.text(), "100");
    field.selectAll();
    QTest::keyClicks(&field, "87");
    EXPECT_EQ(text.text(), "87");
}

TEST_F(BindingsTest, AControlWhoseWidgetIsGoneIsLeftAlone) {
    TextControl text;
    {
        auto label = std::make_unique<QLabel>();
        bind(*label, text);
        text.set("shown");
        EXPECT_EQ(label->text(), "shown");
    }
    text.set("not shown");
    EXPECT_EQ(text.text(), "not shown");
}

TEST_F(BindingsTest, VisibilityEnabledStateAndTipFollow) {
    studio.form1.LblInst.setVisible(false);
    studio.form1.Combo3.setEnabled(false);
    studio.form1.Label8[4].setTip("Another tip");
    EXPECT_TRUE(find("LblInst")->isHidden());
    EXPECT_FALSE(find("Combo3")->isEnabled());
    EXPECT_EQ(find("Label8(4)")->toolTip(), "Another tip");
    studio.form1.Label8[4].setTip("");
    EXPECT_EQ(find("Label8(4)")->toolTip(), "");
    EXPECT_EQ(find("LblInst")->toolTip(), "Instrument") << "a tip of the widget's own stays";
}

}  // namespace melvane::test
