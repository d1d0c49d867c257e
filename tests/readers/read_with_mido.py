#!/usr/bin/python3
"""read_with_mido.py RENDERER FOLDER: exports the scores of the folder, and others made here, with RENDERER, reads the
MIDI files with mido, and compares notes, times, programs, tempo and meter with what the score's own text says."""

import pathlib
import random
import subprocess
import sys
import tempfile

import mido

TRACKS = 13
TICKS_A_COLUMN = 12


class Score:
    """A score file's numbers, read by line and place."""

    def __init__(self, text):
        lines = [[int(field) for field in line.split(",")] if line[:1] in "-0123456789 " and line else []
                 for line in text.replace("\r", "").rstrip("\0").split("\n")]
        self.notes = [lines[2 * track] for track in range(TRACKS)]
        self.instruments = [lines[2 * track + 1] for track in range(TRACKS)]
        self.tempo = lines[26][0]
        # Behind the instruments a heading, 9 rows of chords, a heading, 13 rows of velocities from column 1 on.
        self.velocities = lines[39:52] if len(lines) > 52 else [[]] * TRACKS

    def cell(self, track, column):
        row = self.notes[track]
        return row[column] if column < len(row) else -1

    def velocity(self, track, column):
        row = self.velocities[track]
        return row[column] if column < len(row) else 127

    def end(self):
        """The column at which every track of the file ends."""
        end = 0
        for row in self.notes:
            last = max((column for column, cell in enumerate(row) if cell >= 0), default=-1)
            if last > end:
                end = last + 1
        return end + 1

    def events(self, track):
        """(tick, kind, channel, number, velocity), sorted; a note that touches the next ends with the next one's sound."""
        found = []
        instrument = None
        for column in range(len(self.notes[track])):
            row = self.cell(track, column)
            if not 0 <= row < 1000:
                continue
            before, instrument = instrument, self.instruments[track][column]
            if instrument != before and instrument < 128:
                found.append((column * TICKS_A_COLUMN, "program_change", track, instrument, None))
            found.append((column * TICKS_A_COLUMN, "note_on", *sound(track, row, instrument), self.velocity(track, column)))
            after = column + 1
            while self.cell(track, after) >= 1000:
                after += 1
            last = self.instruments[track][after] if self.cell(track, after) >= 0 else instrument
            if after < self.end():
                found.append((after * TICKS_A_COLUMN, "note_off", *sound(track, row, last), 0))
        return sorted(found, key=str)


def sound(track, row, instrument):
    return (track, 127 - row) if instrument < 128 else (9, instrument - 93)


def read_events(track):
    found = []
    tick = 0
    for message in track:
        tick += message.time
        if message.type == "program_change":
            found.append((tick, message.type, message.channel, message.program, None))
        elif not message.is_meta:
            found.append((tick, message.type, message.channel, message.note, message.velocity))
    return sorted(found, key=str), tick


def complaints(score, path):
    """What differs between the score and the file."""
    file = mido.MidiFile(path, debug=False)
    if (file.type, file.ticks_per_beat, len(file.tracks)) != (1, 48, 1 + TRACKS):
        yield f"the head is {file.type}, {file.ticks_per_beat}, {len(file.tracks)}"
        return
    tempo, meter = file.tracks[0][0], file.tracks[0][1]
    if tempo.type != "set_tempo" or tempo.tempo != 60000000 // score.tempo:
        yield f"the tempo is {tempo}"
    if (meter.type, meter.numerator, meter.denominator) != ("time_signature", 4, 4):
        yield f"the meter is {meter}"
    for number in range(TRACKS):
        read, end = read_events(file.tracks[number + 1])
        wanted = score.events(number)
        if read != wanted:
            yield f"track {number}: {len(read)} events for {len(wanted)}; differing: {sorted(set(read) ^ set(wanted), key=str)[:4]}"
        if end != score.end() * TICKS_A_COLUMN:
            yield f"track {number} ends at {end}"


def line(values):
    return ",".join(str(value) for value in values) + "\r\n"


def composed(seed):
    """The text of a score in the long form with all tracks full of notes of every length."""
    chance = random.Random(seed)
    columns = chance.choice([1, 2, 3, 40, 250, 900])
    notes, instruments = [], []
    for track in range(TRACKS):
        cells, sounds = [], []
        while len(cells) < columns and track != 9:
            rest = chance.choice([0, 0, 1, 3, 90])
            length = chance.choice([1, 1, 2, 5, 30])
            instrument = chance.choice([track, chance.randrange(128)]) + (0 if track < 8 else 128)
            row = chance.randrange(128)
            cells += [-1] * rest + [row] + [1000 + row] * (length - 1)
            sounds += [0] * rest + [min(instrument, 174)] * length
        notes.append(cells[:columns] or [-1])
        instruments.append(sounds[:columns] or [0])
    text = "".join(line(notes[track]) + line(instruments[track]) for track in range(TRACKS))
    text += f" {chance.randrange(10, 401)} \r\n" + line([24] * TRACKS) + "Polyphonics\r\n" + line([0] * (columns + 1)) * 9
    text += "Volume\r\n" + "".join(line(chance.randrange(1, 128) for _ in range(columns)) for _ in range(TRACKS))
    for heading, value in (("Modulation_Change", 0), ("Pan_Change", 64), ("Reverb_Change", 0), ("Chorus_Change", 0)):
        text += heading + "\r\n" + line([value] * columns) * TRACKS
    return text


def scores(folder, made):
    for path in sorted(pathlib.Path(folder).glob("*.sng")):
        yield path
    for seed in range(12):
        path = made / f"made-{seed}.sng"
        path.write_text(composed(seed), newline="")
        yield path


def main(renderer, folder):
    failures = compared = notes = 0
    with tempfile.TemporaryDirectory() as made:
        for path in scores(folder, pathlib.Path(made)):
            target = f"{made}/{path.stem}.mid"
            subprocess.run([renderer, path, target], check=True, stdout=subprocess.DEVNULL)
            score = Score(path.read_bytes().decode("latin-1"))
            for complaint in complaints(score, target):
                print(f"{path.name}: {complaint}")
                failures += 1
            compared += 1
            notes += sum(len(score.events(track)) for track in range(TRACKS))
    print(f"{compared} scores, {notes} events, {failures} differences")
    return 0 if failures == 0 and compared >= 20 and notes > 1000 else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
