#pragma once
#include <QCursor>

namespace melvane {

/// The pointer while a note is being drawn: a pencil whose point is the place that counts.
QCursor pencilPointer();

}  // namespace melvane
