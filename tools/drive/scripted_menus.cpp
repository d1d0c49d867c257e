#include "drive/scripted_menus.h"

namespace melvane::drive {

namespace {

std::string shownEntry(const MenuEntry& entry) {
    return std::string(entry.checked ? "*" : "") + (entry.enabled ? "" : "-") + entry.caption;
}

}  // namespace

std::optional<std::size_t> ScriptedMenus::choose(const std::string& name,
                                                 const std::vector<MenuEntry>& entries) {
    lines_.push_back("menu " + name);
    for (const MenuEntry& entry : entries) lines_.push_back(shownEntry(entry));
    if (picks_.empty()) return std::nullopt;
    const std::string caption = std::move(picks_.front());
    picks_.pop_front();
    for (std::size_t index = 0; index < entries.size(); ++index) {
        if (entries[index].caption == caption && entries[index].enabled) return index;
    }
    return std::nullopt;
}

}  // namespace melvane::drive
