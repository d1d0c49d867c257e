#include "drive/qt_studio_host.h"

#include <QApplication>
#include <QEvent>
#include <QPixmap>
#include <algorithm>
#include <array>

#include "drive/qt_controls.h"
#include "drive/qt_handlers.h"
#include "platform/text.h"

namespace melvane::drive {

namespace {

constexpr std::array<const char*, 11> windowNames{"form1",   "Form2",   "Form3",  "Form5",
                                                  "FrmInst", "Frmmenu", "Record", "frmsynth",
                                                  "Wiz",     "frminfo", "frmLog"};

/// The given name, spelt as the program spells it; empty when it is no window's.
std::string givenName(std::string_view name) {
    const std::string wanted = lowerCase(name);
    const auto found =
        std::ranges::find_if(windowNames, [&](const char* given) { return lowerCase(given) == wanted; });
    return found == windowNames.end() ? std::string() : *found;
}

void serveToolkit() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

}  // namespace

StudioHost::StudioHost(ScriptedWorld& world, const std::filesystem::path& resources)
    : world_(world),
      outside_{world.time,    world.time,     world.port,    world.media,
               world.desktop, world.settings, world.dialogs, {world.program, resources}},
      menus_(world.menus) {
    world.time.serveToolkit = serveToolkit;
    qApp->installEventFilter(this);
}

StudioHost::~StudioHost() {
    takeDown();
    world_.time.serveToolkit = nullptr;
}

void StudioHost::start() {
    program_ = std::make_unique<Program>(outside_);
    program_->start();
    serveToolkit();
    focus_.moveTo(&program_->window());
    serveToolkit();
}

void StudioHost::finish() {
    if (running()) askToEnd();
    takeDown();
}

void StudioHost::takeDown() {
    focus_.forget();
    program_.reset();
    closed_.clear();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void StudioHost::settle() {
    serveToolkit();
    // Outside a loop of its own Qt keeps what was closed; nothing is on the stack here that could still use
    // it.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void StudioHost::askToEnd() { program_->window().unload(); }

bool StudioHost::running() const { return program_ != nullptr && !world_.time.ended(); }

NameTables& StudioHost::tables() { return program_->engine().tables; }

bool StudioHost::isWindow(std::string_view name) const { return !givenName(name).empty(); }

bool StudioHost::eventFilter(QObject* watched, QEvent* event) {
    if (watched->isWidgetType() && event->type() == QEvent::Close && closed_.insert(watched).second) {
        connect(watched, &QObject::destroyed, this, [this](QObject* gone) { closed_.erase(gone); });
    }
    if (watched->isWidgetType() && event->type() == QEvent::Show) closed_.erase(watched);
    return QObject::eventFilter(watched, event);
}

/// A window that outlives its being loaded tells it by a property.
bool StudioHost::isOpen(const QWidget& window) const {
    const QVariant loaded = window.property("loaded");
    return loaded.isValid() ? loaded.toBool() : window.isVisible() || !closed_.contains(&window);
}

QWidget* StudioHost::find(std::string_view window) const {
    const QString name = QString::fromStdString(givenName(window));
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == name && isOpen(*widget)) return widget;
    }
    return nullptr;
}

bool StudioHost::isLoaded(std::string_view window) const { return find(window) != nullptr; }

std::string StudioHost::loadQuietly(std::string_view window) {
    const std::string name = givenName(window);
    return program_->toolWindows().showWindow(name.c_str()) ? std::string() : name + " cannot be loaded";
}

std::string StudioHost::load(std::string_view window) {
    if (QWidget* hidden = find(window)) {
        hidden->show();
        return {};
    }
    std::string error = loadQuietly(window);
    if (QWidget* loaded = find(window)) focus_.moveTo(loaded);
    return error;
}

std::string StudioHost::unload(std::string_view window) {
    QWidget* widget = find(window);
    const bool wasInFront = widget == focus_.front();
    widget->close();
    const bool mainIsLeft = running() && widget != &program_->window();
    if (mainIsLeft && wasInFront) focus_.moveTo(&program_->window());
    return {};
}

std::string StudioHost::focus(std::string_view window) {
    focus_.moveTo(find(window));
    return {};
}

std::string StudioHost::resize(std::string_view window, int width, int height) {
    find(window)->resize(width, height);
    serveToolkit();
    return {};
}

std::string StudioHost::shot(std::string_view window, const std::string& path) {
    QWidget* widget = find(window);
    serveToolkit();
    return widget->grab().save(QString::fromStdString(path)) ? std::string() : "the picture cannot be saved";
}

CallResult StudioHost::callHandler(std::string_view window, std::string_view name,
                                   std::span<const Value> arguments, bool& known) {
    known = false;
    QWidget* widget = find(window);
    return widget != nullptr ? callInvokable(*widget, name, arguments, known) : CallResult{};
}

std::optional<Value> StudioHost::readControl(const ControlPath& control) {
    const QWidget* window = find(control.window);
    return window != nullptr ? readWidget(*window, control) : std::nullopt;
}

PutResult StudioHost::putControl(const ControlPath& control, const Value& value) {
    const QWidget* window = find(control.window);
    return window != nullptr ? putWidget(*window, control, value) : PutResult::noControl;
}

}  // namespace melvane::drive
