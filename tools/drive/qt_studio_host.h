#pragma once
#include <QObject>
#include <memory>
#include <set>
#include <string>
#include <string_view>

#include "app/program.h"
#include "drive/drive_host.h"
#include "drive/qt_focus.h"
#include "drive/qt_menus.h"
#include "drive/scripted_world.h"
#include "platform/outside.h"

namespace melvane::drive {

/// The real program: its engine and its windows, in a scripted world. One at a time.
class StudioHost final : public QObject, public DriveHost {
 public:
    /// `resources` holds the samples that come with the program.
    StudioHost(ScriptedWorld& world, const std::filesystem::path& resources);
    ~StudioHost() override;

    void start() override;
    void finish() override;
    void askToEnd() override;
    void settle() override;
    bool running() const override;
    NameTables& tables() override;
    bool isWindow(std::string_view name) const override;
    bool isLoaded(std::string_view window) const override;
    std::string loadQuietly(std::string_view window) override;
    std::string load(std::string_view window) override;
    std::string unload(std::string_view window) override;
    std::string focus(std::string_view window) override;
    std::string resize(std::string_view window, int width, int height) override;
    std::string shot(std::string_view window, const std::string& path) override;
    CallResult callHandler(std::string_view window, std::string_view name, std::span<const Value> arguments,
                           bool& known) override;
    std::optional<Value> readControl(const ControlPath& control) override;
    PutResult putControl(const ControlPath& control, const Value& value) override;

 protected:
    /// Watches which windows are closed and shown again.
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    QWidget* find(std::string_view window) const;
    bool isOpen(const QWidget& window) const;
    void takeDown();

    ScriptedWorld& world_;
    Outside outside_;
    MenuWatcher menus_;
    FocusKeeper focus_;
    std::unique_ptr<Program> program_;
    std::set<const QObject*> closed_;  ///< windows that were closed and not shown since
};

}  // namespace melvane::drive
