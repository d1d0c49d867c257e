#include "ui/qt_style.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <array>
#include <cmath>

#include "core/qt_pixels.h"
#include "core/track_colours.h"
#include "main_window_fixture.h"
#include "shell/main_toolbar_commands.h"
#include "ui/qt_elided_label.h"
#include "ui/qt_icons.h"

namespace melvane::test {

namespace {

double channel(double value) {
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
    return 0.2126 * channel(colour.redF()) + 0.7152 * channel(colour.greenF()) +
           0.0722 * channel(colour.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const double first = luminance(one) + 0.05, second = luminance(other) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

}  // namespace

TEST(Style, ANumberReadsOnEveryTrackColour) {
    for (const Colour colour : trackColours) {
        const QColor ground = toQt(colour);
        EXPECT_GE(contrast(readableOn(ground), ground), 4.5) << ground.name().toStdString();
    }
}

TEST(Style, TextReadsOnItsGround) {
    EXPECT_GE(contrast(palette::text, palette::ground), 4.5);
    EXPECT_GE(contrast(palette::text, palette::panel), 4.5);
    EXPECT_GE(contrast(palette::secondaryText, palette::panel), 4.5);
    EXPECT_GE(contrast(Qt::white, palette::accent), 4.5);
}

TEST(Style, NoColourIsLeftToTheDesktop) {
    const QPalette ours = QApplication::palette();
    for (int role = 0; role < QPalette::NColorRoles; ++role) {
        if (role == QPalette::NoRole) continue;
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            EXPECT_TRUE(ours.isBrushSet(group, static_cast<QPalette::ColorRole>(role))) << role;
        }
    }
}

TEST(Style, ADarkDesktopChangesNothing) {
    const QPalette ours = QApplication::palette();
    const QPalette dark(QColor(0x30, 0x30, 0x30), QColor(0x20, 0x20, 0x20));
    constexpr std::array kinds{"QMenu",       "QLabel",    "QLineEdit", "QAbstractItemView",
                               "QTextEdit",   "QCheckBox", "QTabBar",   "QMessageBoxLabel",
                               "QToolButton", "QComboBox", "QToolTip"};
    QApplication::setPalette(dark);
    for (const char* const kind : kinds) QApplication::setPalette(dark, kind);
    applyStyle(*qApp);
    EXPECT_EQ(QApplication::palette(), ours);
    for (const char* const kind : kinds) EXPECT_EQ(QApplication::palette(kind), ours) << kind;
}

TEST(Style, EdgesAreDarkerOrLighterThanTheirGround) {
    const QPalette ours = QApplication::palette();
    EXPECT_GT(ours.color(QPalette::Light).lightness(), palette::panel.lightness());
    EXPECT_LT(ours.color(QPalette::Dark).lightness(), palette::panel.lightness());
    EXPECT_GT(ours.color(QPalette::Light).lightness(), ours.color(QPalette::Mid).lightness());
}

TEST(Style, AnIconHasThreeStatesAndIsSharpAtEachRatio) {
    const QIcon play = icon("play");
    const QSize size(24, 24);
    const QImage resting = play.pixmap(size, 1, QIcon::Normal).toImage();
    EXPECT_EQ(resting.size(), size);
    EXPECT_NE(resting, play.pixmap(size, 1, QIcon::Active).toImage());
    EXPECT_NE(resting, play.pixmap(size, 1, QIcon::Disabled).toImage());
    EXPECT_EQ(play.pixmap(size, 2, QIcon::Normal).size(), size * 2);
    EXPECT_TRUE(icon("no such drawing").isNull());
}

TEST(Style, ALabelShortensWhatHasNoRoom) {
    ElidedLabel label;
    label.resize(60, 20);
    label.setText("short");
    const QImage before = label.grab().toImage();
    label.setText("short, and then a good deal more than that");
    EXPECT_NE(label.grab().toImage(), before);
    EXPECT_EQ(label.minimumSizeHint().width(), 0);
}

using ToolbarLook = MainWindowTest;

TEST_F(ToolbarLook, EveryButtonHasItsIcon) {
    for (int index = 0; index < MainToolbarPictures::buttons; ++index) {
        const auto name = "Cmd2(" + std::to_string(index) + ")";
        auto* const button = find<QAbstractButton>(name.c_str());
        EXPECT_FALSE(button->icon().isNull()) << name;
        EXPECT_EQ(button->size(), QSize(36, 36)) << name;
        EXPECT_EQ(button->toolTip().toStdString(), MainToolbarPictures::tip(index)) << name;
    }
}

}  // namespace melvane::test
