#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>

#include "drive/qt_focus.h"
#include "drive/qt_handlers.h"

namespace melvane::drive {

/// A part of a window with handlers of its own.
class Strip : public QWidget {
    Q_OBJECT
 public:
    using QWidget::QWidget;
    Q_INVOKABLE void LblPan_MouseDown(int index, int button, int shift, double X, float Y) {
        seen = index * 10000 + button * 1000 + shift * 100 + static_cast<int>(X) * 10 + static_cast<int>(Y);
    }
    Q_INVOKABLE QString Spell(const QString& text, bool loud) { return loud ? text.toUpper() : text; }
    Q_INVOKABLE bool IsOpen() const { return true; }
    Q_INVOKABLE short Half(short number) { return static_cast<short>(number / 2); }
    Q_INVOKABLE void Put() { seen = 0; }
    Q_INVOKABLE void Put(int number) { seen = number; }
    int seen = -1;
};

class Watched : public QWidget {
    Q_OBJECT
 public:
    std::vector<QEvent::Type> activations;

 protected:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowDeactivate) {
            activations.push_back(event->type());
        }
        return QWidget::event(event);
    }
};

namespace {

class DriveHandlersTest : public testing::Test {
 protected:
    CallResult call(std::string_view name, std::vector<Value> arguments) {
        return callInvokable(window, name, arguments, known);
    }

    QWidget window;
    Strip strip{&window};
    bool known = false;
};

TEST_F(DriveHandlersTest, AHandlerOfAPartIsFoundByNameWithoutCase) {
    EXPECT_EQ(call("lblpan_mousedown", {1LL, 2LL, 0LL, 4LL, 5.0}).error, "");
    EXPECT_TRUE(known);
    EXPECT_EQ(strip.seen, 12045);
}

TEST_F(DriveHandlersTest, WhatAHandlerReturnsIsAValue) {
    EXPECT_EQ(call("Spell", {std::string("abc"), true}).value, Value(std::string("ABC")));
    EXPECT_EQ(call("IsOpen", {}).value, Value(true));
    EXPECT_EQ(call("Half", {9LL}).value, Value(4LL));
    EXPECT_EQ(call("Put", {}).value, Value());
}

TEST_F(DriveHandlersTest, TheFunctionWithAsManyParametersIsTaken) {
    call("Put", {7LL});
    EXPECT_EQ(strip.seen, 7);
    call("Put", {});
    EXPECT_EQ(strip.seen, 0);
}

TEST_F(DriveHandlersTest, ArgumentsThatDoNotFitAreToldAndNothingRuns) {
    EXPECT_EQ(call("Half", {}).error, "takes 1 arguments");
    EXPECT_EQ(call("Half", {40000LL}).error, "an argument is of the wrong kind");
    EXPECT_EQ(call("Put", {std::string("7")}).error, "an argument is of the wrong kind");
    EXPECT_EQ(strip.seen, -1);
}

TEST_F(DriveHandlersTest, TheToolkitsOwnFunctionsAreNoHandlers) {
    call("hide", {});
    EXPECT_FALSE(known);
    call("setVisible", {true});
    EXPECT_FALSE(known);
}

TEST(DriveFocus, OnlyTheScriptMovesTheFocus) {
    FocusKeeper focus;
    Watched first, second;
    first.show();
    second.show();
    first.activateWindow();
    QCoreApplication::processEvents();
    EXPECT_TRUE(first.activations.empty());
    EXPECT_TRUE(second.activations.empty());

    focus.moveTo(&first);
    focus.moveTo(&second);
    QCoreApplication::processEvents();
    EXPECT_EQ(first.activations, (std::vector{QEvent::WindowActivate, QEvent::WindowDeactivate}));
    EXPECT_EQ(second.activations, std::vector{QEvent::WindowActivate});
    EXPECT_EQ(focus.front(), &second);
}

TEST(DriveFocus, FocusingTheWindowInFrontActivatesItOnceMore) {
    FocusKeeper focus;
    Watched window;
    window.show();
    focus.moveTo(&window);
    focus.moveTo(&window);
    EXPECT_EQ(window.activations, (std::vector{QEvent::WindowActivate, QEvent::WindowActivate}));
}

}  // namespace
}  // namespace melvane::drive

#include "qt_drive_handlers_test.moc"
