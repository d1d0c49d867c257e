#include "window_ruler.h"

#include <QApplication>
#include <QCheckBox>
#include <QRadioButton>
#include <QTemporaryDir>
#include <filesystem>
#include <stdexcept>

#include "drive/qt_studio_host.h"

namespace melvane::e2e {

namespace {

constexpr int indicatorMiddle = 10;  // pixels from the left edge of a tick box or an option

QPoint clickedIn(const QWidget& control) {
    const bool isTick = qobject_cast<const QCheckBox*>(&control) != nullptr;
    const bool isOption = qobject_cast<const QRadioButton*>(&control) != nullptr;
    return isTick || isOption ? QPoint(indicatorMiddle, control.height() / 2) : control.rect().center();
}

}  // namespace

class WindowRuler::Studio {
 public:
    // The studio goes to its own folder, which is gone at the end.
    ~Studio() { std::filesystem::current_path(before); }

    std::filesystem::path before = std::filesystem::current_path();
    QTemporaryDir folder;
    drive::ScriptedWorld world{folder.path().toStdString(), folder.path().toStdString()};
    drive::StudioHost host{world, MELVANE_RESOURCES};
};

WindowRuler::WindowRuler() : studio_(std::make_unique<Studio>()) { studio_->host.start(); }

WindowRuler::~WindowRuler() { studio_->host.finish(); }

QWidget& WindowRuler::open(const std::string& window) {
    if (!studio_->host.isLoaded(window)) studio_->host.load(window);
    studio_->host.settle();
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        if (widget->objectName().toStdString() == window) return *widget;
    }
    throw std::invalid_argument("there is no window " + window);
}

std::string WindowRuler::titleOf(const std::string& window) {
    return open(window).windowTitle().toStdString();
}

std::optional<PlaceInWindow> WindowRuler::placeOf(const std::string& window, const std::string& control,
                                                  int width, int height) {
    QWidget& opened = open(window);
    opened.resize(width, height);
    studio_->host.settle();
    const auto* const found = opened.findChild<QWidget*>(QString::fromStdString(control));
    if (found == nullptr || found->size().isEmpty()) return std::nullopt;
    const QPoint place = found->mapTo(&opened, clickedIn(*found));
    if (!opened.rect().contains(place)) return std::nullopt;
    return PlaceInWindow{place.x(), place.y()};
}

}  // namespace melvane::e2e
