#pragma once
#include <QWidget>
#include <span>
#include <string_view>

#include "core/names.h"

namespace melvane::drive {

/// Calls the invokable function `name` (no case) of the window or of one of its parts, with the arguments
/// converted to its parameters. `known` tells whether any of them has a function of that name.
CallResult callInvokable(QWidget& window, std::string_view name, std::span<const Value> arguments,
                         bool& known);

}  // namespace melvane::drive
