#pragma once
#include <QWidget>

#include "core/studio.h"

namespace melvane {

class Engine;

/// Volume and effects of the whole channel that is selected.
class SetupSoundPanel : public QWidget {
    Q_OBJECT

 public:
    SetupSoundPanel(Studio& studio, Engine& engine, QWidget* parent);
};

}  // namespace melvane
