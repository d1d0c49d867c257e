#pragma once
#include <string>

#include "core/file_operations.h"
#include "core/main_frame.h"
#include "core/names.h"
#include "core/studio.h"
#include "platform/clock.h"
#include "platform/event_loop.h"
#include "tutorial/lesson.h"

namespace melvane {

/// Does the actions of the steps. Operations and controls are found by their names, so that an action is what
/// a click of the user's is; a name that the program does not have, or a value that does not fit, is passed
/// over. User-interface thread; waits serve events.
class LessonActions {
 public:
    struct Parts {
        FileOperations& files;
        ToolWindows& toolWindows;
        Clock& clock;
        EventLoop& loop;
        const Directories& directories;
        const NameTables& tables;
    };
    LessonActions(Studio& studio, Parts parts) : studio_(studio), parts_(parts) {}

    void run(const LessonAction& action);
    /// Half a second in which events are served.
    void pause1();

 private:
    using Kind = LessonAction::Kind;

    CallResult call(const char* window, const std::string& name, std::vector<Value> arguments) const;
    void callOperation(const LessonAction& action) const;
    void put(const char* window, const char* name, int index, const Value& value) const;

    std::string samplePath(const char* name) const;
    std::string installed(const char* name);
    void openSample(const char* name);
    void handOver(const char* name, bool keepsOther);
    void takeBack(const char* name);

    void drawTool();
    void selectTool();
    void stroke(const LessonAction& action);

    Studio& studio_;
    Parts parts_;
};

}  // namespace melvane
