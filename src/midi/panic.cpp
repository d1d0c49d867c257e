#include "midi/panic.h"

#include "core/names.h"

namespace melvane {

void Panic::StopSound() {
    studio_.player.Playing = false;
    output_.Device_Click(0);
    instruments_.Combo1_Click();
}

void Panic::listNames(NameTables& tables) {
    tables.operations.add("form1", "StopSound", this, &Panic::StopSound);
    tables.operations.add("form1", "Command32_Click", this, &Panic::Command32_Click);
}

}  // namespace melvane
