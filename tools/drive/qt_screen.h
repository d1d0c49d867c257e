#pragma once
#include <filesystem>

namespace melvane::drive {

/// Makes Qt draw without a display, on one screen of 1280 by 1024 pixels at 96 dots an inch. Before the
/// application is made; `folder` takes the description of the screen and must stay until the end.
void prepareScreen(const std::filesystem::path& folder);

/// The font that every run has, whatever the machine prefers. Once the application is there.
void setBenchFont();

}  // namespace melvane::drive
