#include "core/score_size.h"

#include "core/names.h"

namespace melvane {

void ScoreSize::changeBy(int sign) {
    const auto& setup = studio_.Form3;
    const double total = leadingNumber(setup.Text1.text()) + sign * leadingNumber(setup.Text2.text());
    if (total >= Grid::mostColumns) {
        studio_.form1.StatusText.set("A score cannot have so many notes.");
        return;
    }
    auto& last = studio_.score.NumNotes;
    assign(last, total);
    settings_.save("NumNotes", last);
    score_.resizeGrids(last);
    studio_.Form3.Text1.set(std::to_string(last));
    page_.Form_Resize();
}

void ScoreSize::listNames(NameTables& tables) {
    tables.operations.add("Form3", "Command1_Click", this, &ScoreSize::Command1_Click);
    tables.operations.add("Form3", "Command4_Click", this, &ScoreSize::Command4_Click);
}

}  // namespace melvane
