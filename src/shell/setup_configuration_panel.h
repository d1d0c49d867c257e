#pragma once
#include <QWidget>

#include "core/studio.h"

class QGridLayout;

namespace melvane {

class Engine;

/// How many columns the score has, how the tablet's rows look, and where the sound goes.
class SetupConfigurationPanel : public QWidget {
    Q_OBJECT

 public:
    SetupConfigurationPanel(Studio& studio, Engine& engine, QWidget* parent);

 private:
    void addSize(SetupControls& setup, Engine& engine, QGridLayout& grid);
    void addLines(SetupControls& setup, QGridLayout& grid);
    void addDevice(SetupControls& setup, QGridLayout& grid);
};

}  // namespace melvane
