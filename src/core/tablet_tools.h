#pragma once
#include "core/studio.h"
#include "core/surfaces.h"

namespace melvane {

struct NameTables;

/// The three tools of the tablet, of which one is in hand.
class TabletTools {
 public:
    TabletTools(Studio& studio, Surfaces& surfaces);

    /// Takes the tool `Index` (EditMode: 0 draw, 1 insertion position, 2 select) in hand, its pointer with
    /// it. Any other number does nothing.
    void FunctionBut_Click(int Index);

    void listNames(NameTables& tables);

 private:
    Studio& studio_;
    Surfaces& surfaces_;
};

}  // namespace melvane
