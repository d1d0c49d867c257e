#pragma once
#ifdef _WIN32
#include "platform/windows_desktop.h"
#else
#include "platform/desktop.h"
#endif

namespace melvane {

/// The one place that chooses the desktop: that of Windows, else that of a free system.
#ifdef _WIN32
using DesktopSystem = WindowsDesktop;
#else
using DesktopSystem = SystemDesktop;
#endif

}  // namespace melvane
