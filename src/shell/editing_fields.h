#pragma once
#include "core/settings.h"
#include "core/studio.h"

namespace melvane {

/// The fields, spin bars and boxes of the Editing toolbar, and the values that they feed. "Beats" is never
/// left above "Repeat", except as the fields come from the settings.
class EditingFields {
 public:
    /// Gives the controls their texts, tips and ranges, and takes their events.
    EditingFields(Studio& studio, Settings& settings);

    /// As the toolbar opens: texts from the settings, everything else at rest.
    void load();
    /// The four texts as they stand.
    void save();
    /// Whether they can be used: in the select state alone.
    void setEnabled(bool enabled);

    void Text3_Change();
    void Text4_Change();
    void Text5_Change();
    // A bar writes its position into its field; it does not follow what is typed there.
    void VScroll2_Change() { follow(studio_.Form2.Text3, studio_.Form2.VScroll2); }
    void VScroll4_Change() { follow(studio_.Form2.Text4, studio_.Form2.VScroll4); }
    void VScroll3_Change() { follow(studio_.Form2.Text5, studio_.Form2.VScroll3); }
    /// Stored at once.
    void Check3_Click();
    void chkgraphics_Click();
    void loopcheck_Click();

    void listNames(NameTables& tables);

 private:
    void nameControls();
    void takeEvents();
    void rest();
    void holdBeats();
    void takeValues();
    void follow(TextControl& field, const ScrollControl& bar);
    void showCheck3();

    Studio& studio_;
    Settings& settings_;
    bool loading_ = false;
};

}  // namespace melvane
