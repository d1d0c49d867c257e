#pragma once
#include <filesystem>

#include "program_fixture.h"
#include "tutorial/lessons.h"

namespace melvane::test {

/// The tutorial, loaded, and a user who closes each tip and picks in each picker after a moment.
class TutorialTest : public ProgramTest {
 protected:
    void SetUp() override {
        start();
        engine.tutorial.Form_Load();
        userId_ = time.startTimer(20, [this] { actAsUser(); });
    }
    void TearDown() override {
        time.stopTimer(userId_);
        std::filesystem::current_path(folderBefore_);
    }

    void setTips(bool on) { studio.Wiz.Check1.set(on); }
    /// By the lesson's labels ("L1E").
    static int lessonIndex(std::string_view labels) {
        const auto all = lessons();
        const auto found =
            std::ranges::find_if(all, [&](const Lesson* lesson) { return lesson->labels == labels; });
        return static_cast<int>(found - all.begin());
    }
    static int stepCount(int lesson) {
        return static_cast<int>(lessons()[static_cast<std::size_t>(lesson)]->steps.size());
    }
    std::vector<int> cells(int track, int last) const {
        std::vector<int> row;
        for (int column = 0; column <= last; ++column) row.push_back(studio.score.noteCell(track, column));
        return row;
    }

    std::vector<std::string> tips;  ///< the texts that were closed

 private:
    void actAsUser() {
        if (studio.FrmInst.window.visible()) pick();
        if (!studio.frminfo.window.visible()) return;
        tips.push_back(studio.frminfo.Label1.text());
        engine.tutorial.tip.Form_Unload();
    }
    void pick() {
        studio.FrmInst.LstInstruments.set(40);
        studio.FrmInst.LstInstruments2.set(5);
        if (studio.tracks.CurrentTrack >= 8) return engine.picker.LstInstruments2_DblClick();
        engine.picker.CmdOk_Click();
    }

    int userId_ = 0;
    std::filesystem::path folderBefore_ = std::filesystem::current_path();
};

}  // namespace melvane::test
