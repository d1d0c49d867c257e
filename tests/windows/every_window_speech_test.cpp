// What a screen reader finds in each window.
#include <QAbstractButton>
#include <QAccessible>
#include <algorithm>
#include <functional>

#include "every_window.h"
#include "main_window_fixture.h"
#include "shell/channel_labels_panel.h"
#include "ui/slider_panel.h"

namespace melvane::test {

namespace {

constexpr std::array interactive{QAccessible::Button,       QAccessible::CheckBox, QAccessible::RadioButton,
                                 QAccessible::EditableText, QAccessible::ComboBox, QAccessible::Slider,
                                 QAccessible::ScrollBar,    QAccessible::PageTab,  QAccessible::PageTabList,
                                 QAccessible::List,         QAccessible::ListItem, QAccessible::SpinBox,
                                 QAccessible::ButtonMenu,   QAccessible::Link};

using Visit = std::function<void(QAccessibleInterface&)>;

void walk(QAccessibleInterface& node, const Visit& visit) {
    visit(node);
    for (int at = 0; at < node.childCount(); ++at) {
        QAccessibleInterface* const child = node.child(at);
        if (child != nullptr && !child->state().invisible) walk(*child, visit);
    }
}

std::string told(QAccessibleInterface& node) {
    const QObject* const part = node.object();
    return std::string(part == nullptr ? "?" : part->objectName().toStdString()) + " role " +
           std::to_string(node.role()) + " name " + node.text(QAccessible::Name).toStdString() +
           (part == nullptr ? "" : part->metaObject()->className());
}

}  // namespace

class EveryWindowsSpeech : public EveryWindow {
 protected:
    static QAccessibleInterface& spoken(QObject& part) {
        return *QAccessible::queryAccessibleInterface(&part);
    }
};

TEST_P(EveryWindowsSpeech, NothingThatActsIsNameless) {
    walk(spoken(*window), [](QAccessibleInterface& node) {
        if (std::ranges::count(interactive, node.role()) == 0) return;
        EXPECT_FALSE(node.text(QAccessible::Name).isEmpty()) << told(node);
    });
}

TEST_P(EveryWindowsSpeech, EachControlIsInTheTreeAsWhatItIs) {
    std::vector<QObject*> found;
    walk(spoken(*window), [&found](QAccessibleInterface& node) { found.push_back(node.object()); });
    for (QWidget* const part : controls()) {
        EXPECT_EQ(std::ranges::count(found, part), 1) << called(*part);
        QAccessibleInterface& node = spoken(*part);
        EXPECT_NE(node.role(), QAccessible::Client) << called(*part);
        EXPECT_EQ(node.state().disabled, !part->isEnabled()) << called(*part);
        const auto* const button = qobject_cast<QAbstractButton*>(part);
        if (button == nullptr) continue;
        const auto* const label = qobject_cast<ChannelLabel*>(part);
        EXPECT_EQ(node.state().checkable, button->isCheckable() || label != nullptr) << called(*part);
        EXPECT_EQ(node.state().checked, label != nullptr ? label->isCurrent() : button->isChecked())
            << called(*part);
    }
}

TEST_P(EveryWindowsSpeech, ASliderTellsItsNumber) {
    for (QWidget* const part : controls()) {
        const auto* const track = qobject_cast<SliderTrack*>(part);
        if (track == nullptr) continue;
        QAccessibleInterface& node = spoken(*part);
        EXPECT_EQ(node.role(), QAccessible::Slider) << called(*part);
        auto* const value = node.valueInterface();
        ASSERT_NE(value, nullptr) << called(*part);
        EXPECT_EQ(value->currentValue().toInt(), track->control().number()) << called(*part);
        EXPECT_EQ(value->minimumValue().toInt(), track->control().lowest());
        EXPECT_EQ(value->maximumValue().toInt(), track->control().highest());
    }
}

INSTANTIATE_TEST_SUITE_P(All, EveryWindowsSpeech, testing::ValuesIn(windowStates()), nameOf);

class MainWindowsSpeech : public MainWindowTest {
 protected:
    QAccessibleInterface& spoken(const char* name) {
        return *QAccessible::queryAccessibleInterface(find(name));
    }
};

TEST_F(MainWindowsSpeech, TheCurrentChannelIsTheChosenOne) {
    EXPECT_TRUE(spoken("Label8(0)").state().checked);
    spoken("Label8(3)").actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(studio.tracks.CurrentTrack, 3);
    EXPECT_TRUE(spoken("Label8(3)").state().checked);
    EXPECT_FALSE(spoken("Label8(0)").state().checked);
    EXPECT_EQ(spoken("Label8(3)").role(), QAccessible::RadioButton);
}

TEST_F(MainWindowsSpeech, ASliderIsMovedBySpeechWithinItsRange) {
    studio.form1.Check1.userPut(Value(true));
    auto* const slider = spoken("LblReverb").valueInterface();
    slider->setCurrentValue(40);
    EXPECT_EQ(studio.form1.T3.text(), "40");
    EXPECT_EQ(slider->currentValue().toInt(), 40);
    slider->setCurrentValue(4000);
    EXPECT_EQ(slider->currentValue(), slider->maximumValue());
    find("LblReverb")->setEnabled(false);
    slider->setCurrentValue(2);
    EXPECT_EQ(slider->currentValue(), slider->maximumValue());
}

}  // namespace melvane::test
