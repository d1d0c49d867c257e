#pragma once
#include "core/names.h"
#include "core/studio.h"

namespace melvane {

/// Lists every value of the state, and the controls of form1, Form3 and Form5, under their names.
void listStudio(NameTables& tables, Studio& studio);

}  // namespace melvane
