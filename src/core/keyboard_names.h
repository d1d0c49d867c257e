#pragma once

namespace melvane {

struct NameTables;
struct Studio;

/// Lists the keyboard's state and the controls of its window `frmsynth`.
void listKeyboard(NameTables& tables, Studio& studio);

}  // namespace melvane
