#pragma once
#include <QWidget>

#include "core/studio.h"

namespace melvane {

/// Frame4, the page "Setup": the device, the key scheme and its editing.
class KeyboardSetupPanel : public QWidget {
    Q_OBJECT

 public:
    KeyboardSetupPanel(Studio& studio, QWidget* parent);
};

}  // namespace melvane
