#include "tutorial/lesson_actions.h"

#include "core/drag.h"
#include "platform/text.h"

namespace melvane {

namespace {

constexpr std::int64_t pauseMilliseconds = 500;
constexpr int toolSwitch = 11;  // of the Editing toolbar

long long whole(int number) { return number; }

}  // namespace

void LessonActions::run(const LessonAction& action) {
    switch (action.kind) {
        case Kind::none:
            return;
        case Kind::call:
            return callOperation(action);
        case Kind::put:
            return put(action.window, action.name, action.numbers[1], whole(action.numbers[0]));
        case Kind::show:
            parts_.toolWindows.showWindow(action.window);
            return;
        case Kind::wait:
            return pause1();
        case Kind::sample:
            return openSample(action.name);
        case Kind::handOver:
            return handOver(action.name, false);
        case Kind::handOverIfNone:
            return handOver(action.name, true);
        case Kind::takeBack:
            return takeBack(action.name);
        case Kind::draw:
            return drawTool();
        case Kind::select:
            return selectTool();
        case Kind::stroke:
            return stroke(action);
    }
}

void LessonActions::pause1() {
    const auto& clock = parts_.clock;
    parts_.loop.waitUntil(clock.counter() + clock.frequency() * pauseMilliseconds / 1000);
}

// By name

CallResult LessonActions::call(const char* window, const std::string& name,
                               std::vector<Value> arguments) const {
    return parts_.tables.operations.call(window, name, arguments);
}

void LessonActions::callOperation(const LessonAction& action) const {
    std::vector<Value> arguments;
    for (int at = 0; at < action.count; ++at) {
        arguments.emplace_back(whole(action.numbers[static_cast<std::size_t>(at)]));
    }
    call(action.window, action.name, std::move(arguments));
}

void LessonActions::put(const char* window, const char* name, int index, const Value& value) const {
    const auto member = index == lesson::noIndex ? std::nullopt : std::optional(index);
    if (Control* const control = parts_.tables.controls.find(window, name, member)) control->userPut(value);
}

// Samples

std::string LessonActions::samplePath(const char* name) const {
    return (parts_.directories.media() / name).string();
}

std::string LessonActions::installed(const char* name) {
    auto path = samplePath(name);
    if (!parts_.files.FileExists(path)) parts_.files.InstallMediaFiles();
    return path;
}

void LessonActions::openSample(const char* name) {
    const std::string path = installed(name);
    call("form1", "OpenFile", {path});
    takeBack(name);
}

/// The file stays until it is taken back: the recorder plays it from the disk.
void LessonActions::handOver(const char* name, bool keepsOther) {
    const Control* const field = parts_.tables.controls.find("Record", "Text6", std::nullopt);
    if (field == nullptr) return;
    const Value shown = field->shown();
    const auto* const inHand = std::get_if<std::string>(&shown);
    const bool hasOther =
        inHand != nullptr && endsWithNoCase(*inHand, ".mid") && parts_.files.FileExists(*inHand);
    if (!keepsOther || !hasOther) put("Record", "Text6", lesson::noIndex, installed(name));
    put("Record", "Optsourcemid", lesson::noIndex, whole(1));
}

void LessonActions::takeBack(const char* name) {
    const std::string path = samplePath(name);
    if (parts_.files.FileExists(path)) parts_.files.DeleteFileAndWait(path);
}

// The tablet's tools

/// The switch of the Editing toolbar tells the tool only while that is open.
void LessonActions::drawTool() {
    if (studio_.shell.Form2Open && studio_.Form2.EditToolState == 0) {
        call("Form2", "Cmd2_Click", {whole(toolSwitch)});
    }
    if (studio_.selection.EditMode != edit_mode::draw) {
        call("form1", "FunctionBut_Click", {whole(edit_mode::draw)});
    }
}

void LessonActions::selectTool() {
    parts_.toolWindows.showWindow("Form2");
    if (studio_.Form2.EditToolState == 1) call("Form2", "Cmd2_Click", {whole(toolSwitch)});
    if (studio_.selection.EditMode != edit_mode::select) {
        call("form1", "FunctionBut_Click", {whole(edit_mode::select)});
    }
}

// The mouse

/// What went down comes up, whatever happened meanwhile, unless the program has ended.
void LessonActions::stroke(const LessonAction& action) {
    const auto [button, first, last, row, unused] = action.numbers;
    const std::string surface = action.name;
    const int rowHeight = surface == "Beatbox" ? Page::tableauRow : int{studio_.page.LineHeight};
    const Value y = whole(row * rowHeight + rowHeight / 2);
    const auto handle = [&, button = button](const char* event, int column) {
        call(action.window, surface + event,
             {whole(button), whole(0), whole(lesson::columnMiddle(column)), y});
    };
    handle("_MouseDown", first);
    pause1();
    if (!parts_.loop.ended()) handle("_MouseUp", last);
}

}  // namespace melvane
