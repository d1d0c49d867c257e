#pragma once
#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace melvane::drive {

struct MenuEntry {
    std::string caption;
    bool checked = false, enabled = true;
};

/// Popup menus, written down and answered from a queue instead of by the user.
class ScriptedMenus {
 public:
    /// A menu named `name` shows these entries. Answers the index of the entry that is chosen; nothing when
    /// the menu is to close at once, or does not have the queued entry, or has it disabled.
    std::optional<std::size_t> choose(const std::string& name, const std::vector<MenuEntry>& entries);

    void queuePick(std::string caption) { picks_.push_back(std::move(caption)); }
    /// `menu NAME` and the entries of each menu since the last call.
    std::vector<std::string> take() { return std::exchange(lines_, {}); }

 private:
    std::deque<std::string> picks_;
    std::vector<std::string> lines_;
};

}  // namespace melvane::drive
