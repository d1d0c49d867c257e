#pragma once
#include <QIcon>
#include <QString>

namespace melvane {

/// The icon ":/icons/NAME.svg" in its states: resting, hovered or pressed in the accent, and disabled. A name
/// that there is no drawing for gives an empty icon.
QIcon icon(const QString& name);

/// The program's emblem in the sizes that a desktop asks for.
QIcon programIcon();

}  // namespace melvane
