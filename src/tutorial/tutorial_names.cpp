// The tutorial's operations and controls under their names.
#include "core/names.h"
#include "tutorial/lessons.h"
#include "tutorial/tutorial.h"

namespace melvane {

namespace {

/// Answers the number behind an operation's name that takes `count` numbers, of which the first is an index.
std::optional<int> indexOf(std::span<const Value> arguments, std::size_t count) {
    if (arguments.size() != count) return std::nullopt;
    for (const Value& argument : arguments) {
        if (!fromValue<double>(argument)) return std::nullopt;
    }
    return fromValue<int>(arguments[0]);
}

/// `handle` takes the index; `count` includes it.
OperationTable::Call byIndex(std::size_t count, std::function<void(int)> handle) {
    return [count, handle = std::move(handle)](std::span<const Value> arguments) -> CallResult {
        const auto index = indexOf(arguments, count);
        if (!index) return {{}, "takes " + std::to_string(count) + " numbers"};
        handle(*index);
        return {};
    };
}

constexpr std::size_t mouseMove = 5;  ///< index, button, shift, X and Y

StateTable::Entry marks(const Lesson& lesson, std::deque<StepLabel>& labels) {
    const auto has = [&labels](int index) {
        return index >= 0 && static_cast<std::size_t>(index) < labels.size();
    };
    return {std::string("Wiz.") + lesson.labels + ".Marked", 1,
            [&labels, has](StateTable::Indices at) -> std::optional<Value> {
                if (!has(at[0])) return std::nullopt;
                return Flag{labels[static_cast<std::size_t>(at[0])].marked()};
            },
            [](StateTable::Indices, const Value&) { return false; }};
}

}  // namespace

void Tutorial::listLesson(NameTables& tables, int index) {
    const auto at = static_cast<std::size_t>(index);
    const Lesson& lesson = *lessons()[at];
    auto& controls = studio_.Wiz.lessons[at];
    const std::string labels = lesson.labels;
    tables.operations.addCall("Wiz", labels + "_Click",
                              byIndex(1, [this, index](int step) { click(index, step); }));
    tables.operations.addCall("Wiz", labels + "_MouseMove",
                              byIndex(mouseMove, [this, index](int step) { mark(index, step); }));
    for (std::size_t step = 0; step < controls.steps.size(); ++step) {
        tables.controls.addMember("Wiz", labels, static_cast<int>(step), controls.steps[step]);
    }
    tables.state.add(marks(lesson, controls.steps));
    tables.controls.addMember("Wiz", "FrameStep", index, controls.FrameStep);
    if (index < titlesWithAName) {
        tables.controls.add("Wiz", "Ltit" + std::to_string(index + 1), controls.title);
    }
}

void Tutorial::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("Wiz", "Form_Load", this, &Tutorial::Form_Load);
    operations.add("Wiz", "Form_Activate", this, &Tutorial::Form_Activate);
    operations.add("Wiz", "Form_Unload", this, &Tutorial::Form_Unload);
    operations.add("Wiz", "pause1", &actions_, &LessonActions::pause1);
    operations.addCall("Wiz", "FrameStep_MouseMove",
                       byIndex(mouseMove, [this](int lesson) { FrameStep_MouseMove(lesson); }));
    for (int lesson = 0; lesson < static_cast<int>(lessons().size()); ++lesson) listLesson(tables, lesson);
    tables.controls.add("Wiz", "SSTab1", studio_.Wiz.SSTab1);
    tables.controls.add("Wiz", "Check1", studio_.Wiz.Check1);
    tables.state.add("WizOpen", studio_.shell.WizardOpen);
    tip.listNames(tables);
}

}  // namespace melvane
