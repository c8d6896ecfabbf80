"""Holds the folder samples/ together.

Drawing the samples again gives the committed files byte for byte, the table of verdicts names every
drawing and nothing else, and the README tells the same verdicts as the table.

Usage: samples_are_current.py SAMPLES_FOLDER
"""

import csv
import subprocess
import sys
import tempfile
from pathlib import Path


# Several parts in one drawing: nothing to compare as a whole.
SHEETS = {"messy-sheet.dxf"}


def drawings_in(folder):
    return {path.name: path.read_bytes() for path in folder.glob("*.dxf")}


def stale_drawings(samples):
    """Complaints about drawings that differ from what the script draws now."""
    with tempfile.TemporaryDirectory() as folder:
        script = samples / "draw_samples.py"
        subprocess.run([sys.executable, "-B", str(script), folder], check=True)
        drawn = drawings_in(Path(folder))
    committed = drawings_in(samples)
    for name in sorted(drawn.keys() | committed.keys()):
        if name not in committed:
            yield f"{name} is drawn by the script and missing in the folder"
        elif name not in drawn:
            yield f"{name} is in the folder and not drawn by the script"
        elif drawn[name] != committed[name]:
            yield f"{name} differs from what the script draws"
    if len(drawn) < 10:
        yield f"only {len(drawn)} drawings were drawn"


def wrong_verdict_rows(samples, rows):
    """Complaints about rows that no comparison could be run from, and drawings without a row."""
    allowed = {
        "mode": ("equal", "may-differ"),
        "positions": ("yes", "no"),
        "expected": ("same", "different"),
    }
    for line, row in enumerate(rows, start=2):
        for column, values in allowed.items():
            if row[column] not in values:
                yield f"verdicts.csv line {line}: {column} is '{row[column]}'"
    names = {row[side] for row in rows for side in ("a", "b")}
    for name in sorted(names ^ (drawings_in(samples).keys() - SHEETS)):
        yield f"{name} is named in verdicts.csv or stands in the folder, but not both"


def readme_verdicts(samples):
    text = (samples / "README.md").read_text(encoding="utf-8")
    table = text.split("## The verdicts", 1)[1]
    cells = [
        tuple(cell.strip() for cell in line.strip().strip("|").split("|"))
        for line in table.splitlines()
        if line.startswith("|")
    ]
    return [(f"{a}.dxf", f"{b}.dxf", mode, verdict) for a, b, mode, verdict, _ in cells[2:]]


def main():
    samples = Path(sys.argv[1]).resolve()
    with open(samples / "verdicts.csv", newline="", encoding="utf-8") as file:
        rows = list(csv.DictReader(file))
    complaints = [*stale_drawings(samples), *wrong_verdict_rows(samples, rows)]
    told = [(row["a"], row["b"], row["mode"], row["expected"]) for row in rows]
    if told != readme_verdicts(samples):
        complaints.append("README.md and verdicts.csv tell different verdicts")
    for complaint in complaints:
        print(complaint, file=sys.stderr)
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
