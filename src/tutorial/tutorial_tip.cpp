#include "tutorial/tutorial_tip.h"

#include "core/names.h"

namespace melvane {

namespace {

constexpr std::int64_t loadSeconds = 1;
constexpr std::int64_t longestWait = 500;  // milliseconds, for the session to give the focus back

}  // namespace

void TutorialTip::showModal(const std::string& text) {
    auto& tip = studio_.frminfo;
    const bool loads = !tip.loaded;
    tip.loaded = true;
    tip.Label1.set(text);
    tip.window.setVisible(true);
    toolWindows_.showWindow("frminfo");
    if (loads) Form_Load();
    loop_.waitFor([&tip] { return !tip.window.visible(); });
    waitForFocus();
}

/// A main window that comes to the front for a moment would end the playback that the step begins.
void TutorialTip::waitForFocus() {
    const auto isBack = [this] { return !focusIsBack || focusIsBack(); };
    if (isBack()) return;
    bool isLate = false;
    const int timer = loop_.startTimer(longestWait, [&isLate] { isLate = true; });
    loop_.waitFor([&] { return isLate || isBack(); });
    loop_.stopTimer(timer);
}

void TutorialTip::Form_Load() {
    studio_.frminfo.loaded = true;
    loop_.waitUntil(clock_.counter() + clock_.frequency() * loadSeconds);
}

void TutorialTip::Form_Unload() {
    studio_.frminfo.loaded = false;
    studio_.frminfo.window.setVisible(false);
}

void TutorialTip::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("frminfo", "Form_Load", this, &TutorialTip::Form_Load);
    for (const char* const closes :
         {"Form_Unload", "Label1_DblClick", "imgTitleClose_Click", "imgTitleClose_DblClick"}) {
        operations.add("frminfo", closes, this, &TutorialTip::Form_Unload);
    }
    tables.controls.add("frminfo", "Label1", studio_.frminfo.Label1);
}

}  // namespace melvane
