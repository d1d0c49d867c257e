#pragma once

class QWidget;

namespace melvane {

class Engine;

/// The keys that reach the program's commands from anywhere in the main window.
void addKeys(QWidget& window, Engine& engine);

}  // namespace melvane
