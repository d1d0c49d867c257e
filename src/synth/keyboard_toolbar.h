#pragma once
#include <QWidget>

#include "core/studio.h"

namespace melvane {

/// The row of six flat buttons at the top of the keyboard window.
class KeyboardToolbar : public QWidget {
    Q_OBJECT

 public:
    static constexpr int height = 44;  ///< pixels
    KeyboardToolbar(Studio& studio, QWidget* parent);
};

}  // namespace melvane
