#include "core/tempo_and_beats.h"

#include "core/names.h"

namespace melvane {

void TempoAndBeats::TempoLabel_Change() {
    assign(studio_.score.Tempo, leadingNumber(studio_.Form3.TempoLabel.text()));
}

void TempoAndBeats::TxBeats_Change() {
    const double beats = leadingNumber(studio_.Form3.TxBeats.text());
    keepBarLength(beats);
    assign(studio_.score.BeatsPerMeasure, beats);
    surfaces_.DrawNoteArray();
    surfaces_.DrawBeatArray();
}

void TempoAndBeats::keepBarLength(double beats) {
    auto& score = studio_.score;
    if (score.Tempo <= 0 || score.BeatsPerMeasure == 0) return;
    if (!assign(score.Tempo, beats / score.BeatsPerMeasure * score.Tempo)) return;
    studio_.Form3.TempoLabel.set(std::to_string(score.Tempo));
}

void TempoAndBeats::listNames(NameTables& tables) {
    tables.operations.add("Form3", "TempoLabel_Change", this, &TempoAndBeats::TempoLabel_Change);
    tables.operations.add("Form3", "TxBeats_Change", this, &TempoAndBeats::TxBeats_Change);
}

}  // namespace melvane
