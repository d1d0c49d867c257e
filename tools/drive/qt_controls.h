#pragma once
#include <QWidget>
#include <optional>

#include "core/values.h"
#include "drive/drive_host.h"

/// The widgets of a window as controls with names: read as the user sees them, set as the user would.
namespace melvane::drive {

/// The part of `window` with that object name, no case; null when there is none.
QWidget* findWidget(const QWidget& window, const ControlPath& control);

/// What `part` of the control is. Nothing when there is no such widget, or when it is of a kind that shows no
/// value.
std::optional<Value> readWidget(const QWidget& window, const ControlPath& control);

/// A widget that is disabled lets nothing through, as for a user; noControl when there is no widget to act
/// on.
PutResult putWidget(const QWidget& window, const ControlPath& control, const Value& value);

}  // namespace melvane::drive
