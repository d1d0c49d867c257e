#pragma once
#include "core/main_frame.h"
#include "platform/dialogs.h"

namespace melvane {

/// A main window that is only a place on a screen.
class NullFrame final : public MainFrame {
 public:
    double screenWidth() const override { return 1280 * twipsAPixel; }
    double screenHeight() const override { return 720 * twipsAPixel; }
    WindowPlace place() const override { return place_; }
    void setPlace(const WindowPlace& place) override { place_ = place; }
    void ApplySkin() override {}
    void show() override {}
    void hide() override {}
    void unload() override {}

 private:
    WindowPlace place_;
};

class NullToolWindows final : public ToolWindows {
 public:
    void setShown(Window, bool) override {}
    void setEnabled(Window, bool) override {}
    bool showWindow(const char*) override { return false; }
    void unloadWindow(const char*) override {}
    void unloadAll() override {}
};

/// Dialogs that nobody sees: file dialogs are cancelled, boxes take their harmless answer.
class NullDialogs : public Dialogs {
 public:
    FileChoice openFile(const FileQuestion&) override { return {}; }
    FileChoice saveFile(const FileQuestion&) override { return {}; }
    BoxAnswer messageBox(BoxKind, const std::string&, const std::string&, BoxButtons buttons) override {
        if (buttons == BoxButtons::yesNo) return BoxAnswer::no;
        return buttons == BoxButtons::okCancel ? BoxAnswer::cancel : BoxAnswer::ok;
    }
};

}  // namespace melvane
