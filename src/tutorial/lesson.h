#pragma once
#include <array>
#include <cstddef>
#include <span>

#include "core/mouse_buttons.h"

/// What a lesson is made of. A lesson is a table of steps, a step its caption, its tip and its actions; a new
/// lesson needs no code beside its table.
namespace melvane {

/// One thing that a step does to the real windows. Every action calls what the user's own click calls.
struct LessonAction {
    enum class Kind {
        none,
        call,            ///< an operation by its name
        put,             ///< a control takes a value as from the user; a button is pressed by a 1
        show,            ///< loads and shows a window
        wait,            ///< half a second, in which events are served
        sample,          ///< opens a sample score
        handOver,        ///< gives a sample MIDI file to the recorder
        handOverIfNone,  ///< the same, unless the recorder has a MIDI file
        takeBack,        ///< removes a sample file
        draw,            ///< the tablet's tool draws
        select,          ///< the tablet's tool selects
        stroke           ///< the mouse goes down, half a second passes, it comes up
    };
    static constexpr int mostNumbers = 5;

    Kind kind = Kind::none;
    const char* window = "";
    const char* name = "";
    std::array<int, mostNumbers> numbers{};
    int count = 0;  ///< of numbers in use

    /// Whether `name` is that of a sample which the action opens.
    constexpr bool opensSample() const {
        return kind == Kind::sample || kind == Kind::handOver || kind == Kind::handOverIfNone;
    }
};

struct LessonStep {
    static constexpr std::size_t mostLines = 6, mostActions = 26;

    const char* caption;
    std::array<const char*, mostLines> tip{};  ///< its lines; unused ones are null
    std::array<LessonAction, mostActions> actions{};
    const char* heading = "";  ///< stands over the step; no label to be clicked
};

struct Lesson {
    const char* labels;  ///< the given name of its labels, and of their handlers
    const char* title;
    std::span<const LessonStep> steps;
};

/// The words of which tables are written.
namespace lesson {

inline constexpr int noIndex = -1;

template <class... Numbers>
constexpr LessonAction call(const char* window, const char* operation, Numbers... numbers) {
    static_assert(sizeof...(Numbers) <= LessonAction::mostNumbers);
    return {LessonAction::Kind::call, window, operation, {numbers...}, static_cast<int>(sizeof...(Numbers))};
}
/// `value` is a number, an index or a tick.
constexpr LessonAction put(const char* window, const char* control, int value, int index = noIndex) {
    return {LessonAction::Kind::put, window, control, {value, index}, 2};
}
constexpr LessonAction press(const char* window, const char* button) { return put(window, button, 1); }
constexpr LessonAction show(const char* window) { return {LessonAction::Kind::show, window, "", {}, 0}; }
constexpr LessonAction wait() { return {LessonAction::Kind::wait, "", "", {}, 0}; }

/// The main toolbar's button, as the user counts them from 1.
constexpr LessonAction toolbarButton(int number) { return call("form1", "Cmd2_Click", number - 1); }
constexpr LessonAction clearAll() { return toolbarButton(1); }
constexpr LessonAction returnToStart() { return toolbarButton(5); }
constexpr LessonAction play() { return call("form1", "PlayAndStop_Click", 0); }
/// The label of a channel; index 0 to 12 without 9.
constexpr LessonAction channel(int index) { return call("form1", "Label8_Click", index); }
/// A page of the Setup toolbar, from 0.
constexpr LessonAction setupPage(int page) { return put("Form3", "SSTab1", page); }

constexpr LessonAction sample(const char* file) { return {LessonAction::Kind::sample, "", file, {}, 0}; }
constexpr LessonAction handOver(const char* file) { return {LessonAction::Kind::handOver, "", file, {}, 0}; }
constexpr LessonAction handOverIfNone(const char* file) {
    return {LessonAction::Kind::handOverIfNone, "", file, {}, 0};
}
constexpr LessonAction takeBack(const char* file) { return {LessonAction::Kind::takeBack, "", file, {}, 0}; }

constexpr LessonAction drawTool() { return {LessonAction::Kind::draw, "", "", {}, 0}; }
/// While "Static note Test" is ticked a press sounds and writes nothing.
constexpr LessonAction noNoteTest() { return put("form1", "Check4", 0); }
constexpr LessonAction selectTool() { return {LessonAction::Kind::select, "", "", {}, 0}; }

/// On a surface of the main window, from one column of the page to another, on a row of the page.
constexpr LessonAction stroke(const char* surface, int button, int first, int last, int row) {
    return {LessonAction::Kind::stroke, "form1", surface, {button, first, last, row}, 4};
}
constexpr LessonAction note(int first, int last, int row) {
    return stroke("MusicBox", mouse::left, first, last, row);
}
constexpr LessonAction erase(int column, int row) {
    return stroke("MusicBox", mouse::right, column, column, row);
}
constexpr LessonAction selectColumns(int first, int last) {
    return stroke("MusicBox", mouse::left, first, last, 0);
}
constexpr LessonAction beat(int column, int row) {
    return stroke("Beatbox", mouse::left, column, column, row);
}

/// The note selector's strip, at a column of the page.
constexpr int columnMiddle(int column) { return column * 12 + 6; }  // pixels
constexpr LessonAction inspect(int column) {
    return call("form1", "Pic2a_MouseDown", mouse::left, 0, columnMiddle(column), 4);
}
constexpr LessonAction change(int column) {
    return call("form1", "Pic2a_MouseDown", mouse::right, 0, columnMiddle(column), 4);
}
constexpr LessonAction endChange(int column) {
    return call("form1", "Pic2a_MouseUp", mouse::right, 0, columnMiddle(column), 4);
}

}  // namespace lesson
}  // namespace melvane
