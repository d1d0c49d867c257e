#include "tutorial/tutorial.h"

#include <filesystem>
#include <system_error>

#include "tutorial/lessons.h"

namespace melvane {

namespace {

/// Twips, of the place of a first start. At the screen's edge, where the recorder in the middle of a small
/// screen leaves the steps to be read.
constexpr double fromTop = 1500;

constexpr const char* closingLine =
    "Close this window to continue. (Double-click on it or click the X button).This step will then be "
    "performed "
    "automatically.";

/// Null where there is no such step.
const LessonStep* stepAt(int lesson, int step) {
    const auto all = lessons();
    if (lesson < 0 || static_cast<std::size_t>(lesson) >= all.size()) return nullptr;
    const auto& steps = all[static_cast<std::size_t>(lesson)]->steps;
    return step < 0 || static_cast<std::size_t>(step) >= steps.size()
               ? nullptr
               : &steps[static_cast<std::size_t>(step)];
}

/// Also when the step is over before its turn comes.
bool isDoneInAnyCase(const LessonAction& action) { return action.kind == LessonAction::Kind::takeBack; }

std::string tipText(const LessonStep& step) {
    std::string text;
    for (const char* const line : step.tip) {
        if (line != nullptr) text += std::string(line) + "\n";
    }
    return text + closingLine;
}

}  // namespace

Tutorial::Tutorial(Studio& studio, Parts parts)
    : tip(studio, parts.toolWindows, parts.clock, parts.loop),
      studio_(studio),
      parts_(parts),
      actions_(studio,
               {parts.files, parts.toolWindows, parts.clock, parts.loop, parts.directories, parts.tables}) {
    fillLessons();
    studio.Wiz.Check1.setTip("Explain each step before it is performed");
    studio.Wiz.Check1.acted = [this] { saveShowTips(); };
}

void Tutorial::fillLessons() {
    std::vector<std::string> titles;
    for (const Lesson* const lesson : lessons()) {
        const int index = static_cast<int>(titles.size());
        titles.emplace_back(lesson->title);
        auto& controls = studio_.Wiz.lessons.emplace_back();
        controls.title.set(lesson->title);
        for (const auto& step : lesson->steps) {
            const int at = static_cast<int>(controls.steps.size());
            auto& label = controls.steps.emplace_back();
            label.set(step.caption);
            label.setTip("Click to perform this step");
            label.acted = [this, index, at] { click(index, at); };
        }
    }
    studio_.Wiz.SSTab1.fill(std::move(titles));
    studio_.Wiz.SSTab1.set(0);
}

// Loading and closing

void Tutorial::Form_Load() {
    ++loads_;
    readPlace();
    studio_.shell.WizardOpen = true;
    if (!studio_.shell.Ending) renewSamples();
    Int16 shows = studio_.Wiz.Check1.ticked() ? 1 : 0;
    parts_.settings.read("Show tips", Int16{1}, shows);
    studio_.Wiz.Check1.set(shows == 1);
}

void Tutorial::readPlace() {
    auto& place = studio_.Wiz.place;
    parts_.settings.read("Wiz left", parts_.frame.screenWidth() - place.width, place.left);
    parts_.settings.read("Wiz top", fromTop, place.top);
}

/// At once: a window that is being loaded does not wait for the file system.
void Tutorial::renewSamples() {
    for (const Lesson* const lesson : lessons()) {
        for (const auto& step : lesson->steps) {
            for (const auto& action : step.actions) {
                if (!action.opensSample()) continue;
                std::error_code failed;
                std::filesystem::remove(parts_.directories.media() / action.name, failed);
            }
        }
    }
    parts_.files.InstallMediaFiles();
}

void Tutorial::Form_Activate() { studio_.shell.markActive(&Shell::WizActive); }

void Tutorial::Form_Unload() {
    ++loads_;
    studio_.shell.WizardOpen = false;
    const auto& place = studio_.Wiz.place;
    if (const auto left = narrowed<std::int32_t>(place.left)) parts_.settings.save("Wiz left", *left);
    if (const auto top = narrowed<std::int32_t>(place.top)) parts_.settings.save("Wiz top", *top);
    tip.Form_Unload();
}

void Tutorial::saveShowTips() {
    parts_.settings.SaveSetting("Show tips", studio_.Wiz.Check1.ticked() ? "1" : "0");
}

// Steps

void Tutorial::click(int lesson, int step) {
    const LessonStep* const clicked = stepAt(lesson, step);
    if (clicked == nullptr) return;
    std::error_code failed;  // without it, only relative names of the user's would lie elsewhere
    std::filesystem::current_path(parts_.directories.program, failed);
    const int load = loads_;
    const auto isOver = [this, load] {
        return parts_.loop.ended() || studio_.shell.Ending || !studio_.shell.WizardOpen || loads_ != load;
    };
    if (isOver()) return;
    if (studio_.Wiz.Check1.ticked()) explain(lesson, step);
    // The player of files lets the output go, and the main window takes it back only when it comes to the
    // front.
    if (!isOver()) parts_.output.openUnlessOpen();
    for (const auto& action : clicked->actions) {
        if (!isOver() || isDoneInAnyCase(action)) actions_.run(action);
    }
}

void Tutorial::explain(int lesson, int step) {
    const auto& place = studio_.Wiz.place;
    auto& shown = studio_.frminfo;
    shown.besideLeft = place.left;
    shown.besideWidth = place.width;
    shown.top = place.top + (labelTop ? labelTop(lesson, step) : 0);
    tip.showModal(tipText(*stepAt(lesson, step)));
}

void Tutorial::mark(int lesson, int step) {
    if (stepAt(lesson, step) == nullptr) return;
    auto& labels = studio_.Wiz.lessons[static_cast<std::size_t>(lesson)].steps;
    for (std::size_t at = 0; at < labels.size(); ++at) labels[at].setMarked(static_cast<int>(at) == step);
}

void Tutorial::FrameStep_MouseMove(int lesson) {
    if (stepAt(lesson, 0) == nullptr) return;
    for (auto& label : studio_.Wiz.lessons[static_cast<std::size_t>(lesson)].steps) label.setMarked(false);
}

}  // namespace melvane
