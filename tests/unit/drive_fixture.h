#pragma once
#include <gtest/gtest.h>

#include <set>
#include <sstream>

#include "drive/interpreter.h"
#include "platform/text.h"
#include "temporary_folder.h"

namespace melvane::drive {

/// A program of two windows, a few names and no widgets.
class SmallProgram final : public DriveHost {
 public:
    explicit SmallProgram(ScriptedWorld& world) : world_(world) {
        tables_.state.add("Tempo", tempo);
        tables_.state.add("Playing", playing);
        tables_.state.add("StepTime", stepTime);
        tables_.state.add("SaveFileName", fileName);
        tables_.state.add("SetupChannel", setupChannel);
        tables_.state.add("Record.MediaFrames", mediaFrames);
        tables_.state.add("NoteArray", grid);
        tables_.controls.add("form1", "Label7", label);
        tables_.controls.add("form1", "Combo3", list);
        tables_.controls.add("Form3", "TrackHide", hide);
        list.fill({"Single Note", "Major"});
        tables_.operations.add("form1", "Add", this, &SmallProgram::Add);
        tables_.operations.add("form1", "IsOsSupported", this, &SmallProgram::IsOsSupported);
        tables_.operations.add("form1", "WaitForTempo", this, &SmallProgram::WaitForTempo);
        tables_.operations.add("form1", "Ask", this, &SmallProgram::Ask);
        tables_.operations.add("form1", "Quit", this, &SmallProgram::askToEnd);
        tables_.operations.add("form1", "Note", this, &SmallProgram::Note);
        tables_.operations.add("Form3", "Nothing", this, &SmallProgram::Nothing);
    }

    void start() override {
        ++starts;
        running_ = true;
        tempo = 100;
        loaded_ = {"form1"};
        world_.port.midiOutOpen(handle_, -1);
        world_.time.pause(7);
    }
    void finish() override {
        running_ = false;
        loaded_.clear();
    }
    void askToEnd() override {
        running_ = false;
        world_.settings.write("Ended", "1");
        world_.time.end();
    }
    void settle() override { ++settled; }
    bool running() const override { return running_; }
    NameTables& tables() override { return tables_; }
    bool isWindow(std::string_view name) const override {
        return lowerCase(name) == "form1" || lowerCase(name) == "form3";
    }
    bool isLoaded(std::string_view window) const override { return loaded_.contains(lowerCase(window)); }
    std::string loadQuietly(std::string_view window) override {
        loaded_.insert(lowerCase(window));
        return {};
    }
    std::string load(std::string_view window) override {
        calls.push_back("load " + std::string(window));
        return loadQuietly(window);
    }
    std::string unload(std::string_view window) override {
        calls.push_back("unload " + std::string(window));
        loaded_.erase(lowerCase(window));
        if (lowerCase(window) == "form1") askToEnd();
        return {};
    }
    std::string focus(std::string_view window) override {
        calls.push_back("focus " + std::string(window));
        return {};
    }
    std::string resize(std::string_view window, int width, int height) override {
        calls.push_back("resize " + std::string(window) + " " + std::to_string(width) + " " +
                        std::to_string(height));
        return {};
    }
    std::string shot(std::string_view window, const std::string& path) override {
        calls.push_back("shot " + std::string(window) + " " + path);
        return {};
    }
    CallResult callHandler(std::string_view, std::string_view name, std::span<const Value> arguments,
                           bool& known) override {
        known = name == "MusicBox_MouseDown";
        if (known) calls.push_back("mouse " + std::to_string(arguments.size()));
        return {};
    }
    std::optional<Value> readControl(const ControlPath& control) override {
        if (control.name != "Widget" || !isLoaded(control.window)) return std::nullopt;
        return std::string("from the widget");
    }
    PutResult putControl(const ControlPath& control, const Value&) override {
        return control.name == "Widget" ? PutResult::done : PutResult::noControl;
    }

    int starts = 0, settled = 0;
    std::vector<std::string> calls;
    std::int16_t tempo = 0;
    std::int32_t setupChannel = 4, mediaFrames = 300;
    bool playing = false;
    float stepTime = 0.138F;
    std::string fileName = "a \"b\"";
    Grid grid{10};
    TextControl label{"C4"};
    ListControl list;
    std::array<CheckControl, 3> hide;

 private:
    int Add(int left, int right) { return left + right; }
    bool IsOsSupported() const { return true; }
    void WaitForTempo() {
        world_.time.waitFor([this] { return tempo == 1; });
    }
    bool Ask() {
        return world_.dialogs.messageBox(BoxKind::question, "Melvane", "Sure?", BoxButtons::yesNo) ==
               BoxAnswer::yes;
    }
    void Note() { world_.port.midiOutShortMsg(handle_, 0x7F3C90); }
    void Nothing() {}

    ScriptedWorld& world_;
    NameTables tables_;
    std::set<std::string> loaded_;
    MidiPort::Handle handle_ = 0;
    bool running_ = false;
};

class DriveTest : public testing::Test {
 protected:
    /// What the script prints.
    std::string run(const std::string& script) {
        std::istringstream lines(script);
        std::ostringstream output;
        Interpreter interpreter(world, program, output);
        status = interpreter.run(lines);
        return output.str();
    }

    test::TemporaryFolder folder;
    ScriptedWorld world{folder.path(), folder.path()};
    SmallProgram program{world};
    int status = -1;
};

}  // namespace melvane::drive
