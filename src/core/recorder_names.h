#pragma once

namespace melvane {

struct NameTables;
struct Studio;

/// Lists the recorder's state and the controls of its windows `Record` and `frmLog`.
void listRecorder(NameTables& tables, Studio& studio);

}  // namespace melvane
