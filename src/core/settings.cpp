#include "core/settings.h"

namespace melvane {

void Settings::listNames(NameTables& tables) {
    tables.operations.add("form1", "GetSetting", this, &Settings::GetSetting);
    tables.operations.add("form1", "SaveSetting", this, &Settings::SaveSetting);
}

}  // namespace melvane
