#!/usr/bin/env python3
"""Makes the translator definitions data/KTIFiles/*.kti: one for each translation that the system can do.

    tools/make_definitions.py            writes the files, and removes those that are no longer made
    tools/make_definitions.py --check    compares; exit 1 and the names of the files that differ

A definition has five lines: routine, action, label of the input type, label of the output type, and the search-and-replace
or filter file. The fifth stands, and is empty, only where the routine needs such a file, which is then chosen anew each
time. The one routine that the dialog does not know has an action that says so.
"""
import sys
from pathlib import Path

FOLDER = Path(__file__).resolve().parent.parent / "data" / "KTIFiles"

# Short names of the file types, as they stand in file names, and their labels.
SHEETS = {
    "NGS-TXT": "NGS Data Sheets (*.TXT)",
    "NGS-HTM": "NGS Data Sheets (*.HTM)",
    "NGS-DAT": "NGS Data Sheets (*.DAT)",
}
CONTROL = {"CTL": "Tarvek Control Files (*.CTL)"}
PROJECTS = {
    "PRJ": "Tarvek Project Files (*.PRJ)",
    "EDI": "Tarvek Edited Project Files (*.EDI)",
    "CAL": "Tarvek Calculated Files (*.CAL)",
}
CHAINS = {"PAC": "Tarvek Points and Chains Files (*.PAC)"}
OTHERS = {
    "VSI": "Velmora Summary Index Files (*.VSI)",
    "SRV": "CAiCE SRV Files (*.SRV)",
    "ASCII": "User-Defined ASCII Files (*.*)",
}
KML = {"KML": "OGC/Google KML Version 2.2 (*.KML)"}
BY_HAND = {"Point": "Coordinate Conversion Manual Entry"}
TAGGED = {**CONTROL, **PROJECTS, **CHAINS}
LABELS = {**SHEETS, **TAGGED, **OTHERS, **KML, **BY_HAND}

READABLE = [*SHEETS, *TAGGED, *OTHERS]
WRITABLE = [*CONTROL, *CHAINS, *OTHERS, *KML]
WRITABLE_CONVERTED = [*TAGGED, *OTHERS]

# What the tools take: every tagged file has records and points, and all but control files can hold an alignment.
ALIGNMENTS = [*PROJECTS, *CHAINS]

# The tools of the suite: routine, what follows the input type in the name of the definition, action, input types, output
# type (None: that of the input), whether a filter file is needed.
TOOLS = [
    ("RECODE.EXE", "recode", "Change feature codes", TAGGED, None, True),
    ("CURVE2TAN.EXE", "curves-to-tangents", "Turn curves into tangents", ALIGNMENTS, None, False),
    ("TAN2CURVE.EXE", "tangents-to-curves", "Turn tangents into curves", ALIGNMENTS, None, False),
    ("PICKOUT.EXE", "extract", "Extract records", TAGGED, None, True),
    ("GROUNDIT.EXE", "grid-to-local", "Scale between grid and local coordinates", TAGGED, None, False),
    ("CTRL2ZONE.EXE", "to-instrument-area", "Write an area file for the total station", TAGGED, "ASCII", False),
    ("ROUTE2STATION.EXE", "to-instrument-alignment", "Write an alignment file for the total station", ALIGNMENTS,
     "ASCII", False),
    ("LEVELIN.EXE", "levels-to-PRJ", "Import digital level observations", ["ASCII"], "PRJ", False),
    ("PTORDER.EXE", "sort-points", "Sort points and list unused point numbers", TAGGED, None, False),
]


def definitions():
    """Yields name, routine, action, input and output type, and whether a file is to be chosen."""
    for source in READABLE:
        for target in WRITABLE:
            action = "Check and rewrite" if source == target else "Change the format"
            if source == target == "ASCII":
                action = "Change the layout"
            yield f"{source}-to-{target}", "ConvertFile", action, source, target, False
        for target in WRITABLE_CONVERTED:
            yield (f"{source}-to-{target}-converted", "MultiPoint", "Convert coordinates", source, target, False)
    # A search and replace can make a file of one family into one of another: its tags are what tells them apart.
    for source in TAGGED:
        for target in TAGGED:
            name = f"{source}-replace" if source == target else f"{source}-to-{target}-replace"
            yield name, "Replace", "Search and replace", source, target, True
    yield "Point-to-report", "SinglePoint", "Convert coordinates of one point", "Point", "Point", False
    yield ("exchange-files", "CoordConvert", "Convert the coordinates of the exchange files (command line only)",
           "ASCII", "ASCII", False)  # fmt: skip
    for routine, suffix, action, sources, target, needs_file in TOOLS:
        for source in sources:
            yield f"{source}-{suffix}", routine, action, source, target or source, needs_file


def files():
    made = {}
    for name, routine, action, source, target, needs_file in definitions():
        lines = [routine, action, LABELS[source], LABELS[target]] + ([""] if needs_file else [])
        assert name not in made, name
        made[name + ".kti"] = "".join(line + "\r\n" for line in lines).encode("ascii")
    return made


def main():
    made = files()
    present = {path.name: path.read_bytes() for path in FOLDER.glob("*.kti")}
    differing = sorted(name for name in made.keys() | present.keys() if made.get(name) != present.get(name))
    if sys.argv[1:] == ["--check"]:
        print("".join(f"{name} is not what the tool makes\n" for name in differing), end="")
        return 1 if differing else 0
    for name in differing:
        if name in made:
            (FOLDER / name).write_bytes(made[name])
        else:
            (FOLDER / name).unlink()
    print(f"{len(made)} definitions, {len(differing)} changed")
    return 0


if __name__ == "__main__":
    sys.exit(main())
