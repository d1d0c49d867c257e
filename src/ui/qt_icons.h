#pragma once
#include <QIcon>
#include <QString>

namespace melvane {

/// The icon ":/icons/NAME.svg" in its states: resting, hovered or pressed in the accent, and disabled. A name
/// that there is no drawing for gives an empty icon.
QIcon icon(const QString& name);

/// The drawing as it looks on something disabled, in every state.
QIcon disabledIcon(const QString& name);

/// The same drawing in one colour in every state, the filled area included.
QIcon iconInOneColour(const QString& name, const QColor& colour);

/// The program's emblem in the sizes that a desktop asks for.
QIcon programIcon();

}  // namespace melvane
