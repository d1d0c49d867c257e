#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>

#include "drive/qt_controls.h"

namespace melvane::drive {
namespace {

class DriveControlsTest : public testing::Test {
 protected:
    DriveControlsTest() { window.show(); }

    template <class Widget>
    Widget& add(const char* name) {
        auto* widget = new Widget(&window);
        widget->setObjectName(name);
        widget->show();
        return *widget;
    }
    static ControlPath path(const std::string& text) { return *asControl(*parsePath("Form3." + text)); }
    std::optional<Value> read(const std::string& text) { return readWidget(window, path(text)); }
    PutResult put(const std::string& text, const Value& value) {
        return putWidget(window, path(text), value);
    }
    static Value whole(long long number) { return number; }
    static Value text(const char* shown) { return std::string(shown); }

    QWidget window;
};

TEST_F(DriveControlsTest, EachKindOfWidgetShowsWhatItHas) {
    add<QLabel>("Label7").setText("C4");
    add<QLineEdit>("Text1").setText("1000");
    add<QCheckBox>("TrackHide(2)").setChecked(true);
    add<QScrollBar>("VScroll3").setValue(12);
    add<QPushButton>("Command1").setText("Open");
    add<QComboBox>("Combo3").addItems({"Major", "Minor"});
    EXPECT_EQ(read("Label7"), text("C4"));
    EXPECT_EQ(read("text1"), text("1000"));
    EXPECT_EQ(read("TrackHide(2)"), whole(1));
    EXPECT_EQ(read("VScroll3"), whole(12));
    EXPECT_EQ(read("Command1"), text("Open"));
    EXPECT_EQ(read("Combo3"), whole(0));
    EXPECT_EQ(read("Combo3.count"), whole(2));
    EXPECT_EQ(read("Combo3(1)"), text("Minor"));
    EXPECT_EQ(read("Combo3(2)"), std::nullopt);
    EXPECT_EQ(read("Label7.index"), std::nullopt);
    EXPECT_EQ(read("Nothing"), std::nullopt);
}

TEST_F(DriveControlsTest, EnabledAndVisibleAreTheControlsOwn) {
    auto& panel = add<QGroupBox>("Panel");
    auto& field = add<QLineEdit>("Text1");
    field.setParent(&panel);
    field.show();
    panel.setEnabled(false);
    panel.hide();
    EXPECT_EQ(read("Panel.enabled"), whole(0));
    EXPECT_EQ(read("Panel.visible"), whole(0));
    EXPECT_EQ(read("Text1.enabled"), whole(1));
    EXPECT_EQ(read("Text1.visible"), whole(1));
    field.setToolTip("Columns");
    EXPECT_EQ(read("Text1.tip"), text("Columns"));
}

TEST_F(DriveControlsTest, ATextBoxIsTypedIntoInOneChange) {
    QStringList typed;
    auto& field = add<QLineEdit>("Text1");
    QObject::connect(&field, &QLineEdit::textEdited, [&](const QString& now) { typed << now; });
    EXPECT_EQ(put("Text1", whole(250)), PutResult::done);
    EXPECT_EQ(put("Text1", text("a b")), PutResult::done);
    EXPECT_EQ(typed, (QStringList{"250", "a b"}));
    EXPECT_EQ(put("Text1", Value(0.5)), PutResult::refused);
}

TEST_F(DriveControlsTest, ATickIsClickedOnlyWhenItChanges) {
    int clicks = 0;
    auto& tick = add<QCheckBox>("Check1");
    QObject::connect(&tick, &QCheckBox::clicked, [&] { ++clicks; });
    put("Check1", whole(1));
    put("Check1", whole(1));
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(tick.isChecked());
    EXPECT_EQ(put("Check1", text("on")), PutResult::refused);
}

TEST_F(DriveControlsTest, AChoiceInAListRunsItsHandlerEvenWhenItIsTheSame) {
    std::vector<int> chosen;
    auto& combo = add<QComboBox>("Combo3");
    combo.addItems({"Major", "Minor"});
    QObject::connect(&combo, &QComboBox::activated, [&](int index) { chosen.push_back(index); });
    auto& list = add<QListWidget>("List4");
    list.addItems({"a", "b"});
    int clicked = 0;
    QObject::connect(&list, &QListWidget::itemClicked, [&] { ++clicked; });
    put("Combo3", whole(1));
    put("Combo3", whole(1));
    put("List4", whole(1));
    EXPECT_EQ(chosen, (std::vector<int>{1, 1}));
    EXPECT_EQ(clicked, 1);
    EXPECT_EQ(read("List4.index"), whole(1));
    EXPECT_EQ(put("Combo3", whole(2)), PutResult::refused);
    EXPECT_EQ(put("Combo3", whole(-1)), PutResult::refused);
}

TEST_F(DriveControlsTest, PagesAreAListOfTheirTitles) {
    auto& pages = add<QTabWidget>("SSTab1");
    pages.addTab(new QWidget, "Setup");
    pages.addTab(new QWidget, "Sound");
    EXPECT_EQ(read("SSTab1"), whole(0));
    EXPECT_EQ(put("SSTab1", whole(1)), PutResult::done);
    EXPECT_EQ(pages.currentIndex(), 1);
    EXPECT_EQ(read("SSTab1.count"), whole(2));
    EXPECT_EQ(read("SSTab1(1)"), text("Sound"));
    EXPECT_EQ(put("SSTab1", whole(2)), PutResult::refused);
}

TEST_F(DriveControlsTest, AScrollBarTakesItsRangeOnly) {
    auto& bar = add<QScrollBar>("VScroll3");
    bar.setRange(8, 20);
    EXPECT_EQ(put("VScroll3", whole(20)), PutResult::done);
    EXPECT_EQ(put("VScroll3", whole(21)), PutResult::refused);
    EXPECT_EQ(bar.value(), 20);
}

TEST_F(DriveControlsTest, ADisabledWidgetLetsNothingThrough) {
    auto& tick = add<QCheckBox>("Check1");
    tick.setEnabled(false);
    EXPECT_EQ(put("Check1", whole(1)), PutResult::done);
    EXPECT_FALSE(tick.isChecked());
    EXPECT_EQ(put("Nothing", whole(1)), PutResult::noControl);
}

}  // namespace
}  // namespace melvane::drive
