#!/usr/bin/env python3
"""Makes the seed library, data/ellipsoids.ini, data/datums.ini and data/zones.ini, from public registers.

Sources, both in Debian's package proj-data (searched in PROJ_DATA, PROJ_LIB and the system's share folder):
  proj.db   the EPSG dataset, and the names under which ESRI lists the same systems
  nad.lst   the zones of the two State Plane Coordinate Systems with the four-digit codes of their public numbering
Every number in the three files is read from there or computed from what is read there; docs/library.md tells the rules.

usage: make_library.py [--check] [--data DIR]
  --check   write nothing; exit 1 if a file differs from what would be written
  exit 77   the register is not installed, or is another edition than the one the files were made from
"""

import argparse
import difflib
import re
import sys
from pathlib import Path

sys.dont_write_bytecode = True

from library_datums import make_datums, make_ellipsoids  # noqa: E402
from library_register import LibraryError, Register, share_folder  # noqa: E402
from library_zones import make_zones  # noqa: E402

EDITION = "v10.076"  # EPSG.VERSION of the register that the committed files were made from
SKIPPED = 77


def render(sections):
    """The bytes of one file: CR LF, Windows-1252, an empty line between sections."""
    blocks = ["".join([f"[{name}]\r\n", *(f"{k}={v}\r\n" for k, v in keys.items())]) for name, keys in sections.items()]
    return "\r\n".join(blocks).encode("cp1252")


def make_library(register):
    """({file name: bytes}, the zones that no projection serves)."""
    zones, left_out = make_zones(register)
    made = {"ellipsoids.ini": make_ellipsoids(register), "datums.ini": make_datums(register), "zones.ini": zones}
    return {name: render(sections) for name, sections in made.items()}, left_out


def differs(path, wanted):
    """Tells how the file at `path` differs from `wanted`; false if it does not."""
    present = path.read_bytes() if path.is_file() else b""
    if present == wanted:
        return False
    lines = [data.decode("cp1252", "replace").splitlines() for data in (present, wanted)]
    shown = list(difflib.unified_diff(*lines, str(path), "from the register", lineterm=""))
    print("\n".join(shown[:40]) or f"{path}: differs in its line ends only")
    return True


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--check", action="store_true", help="compare with the files instead of writing them")
    data = Path(__file__).resolve().parent.parent / "data"
    parser.add_argument("--data", type=Path, default=data, help="folder of the files, the project's own by default")
    options = parser.parse_args()

    folder = share_folder()
    if folder is None:
        print("No proj.db and nad.lst found; install proj-data or set PROJ_DATA.", file=sys.stderr)
        return SKIPPED
    register = Register(folder)
    if register.edition != EDITION:
        print(f"The register is EPSG {register.edition}; the library is made from {EDITION}.", file=sys.stderr)
        return SKIPPED
    try:
        files, left_out = make_library(register)
    except LibraryError as error:
        print(f"The register does not fit: {error}", file=sys.stderr)
        return 1
    if options.check:
        return 1 if any([differs(options.data / name, data) for name, data in files.items()]) else 0
    for name, data in files.items():
        (options.data / name).write_bytes(data)
        count = len(re.findall(rb"^\[", data, re.MULTILINE))
        print(f"{options.data / name}: {count} sections")
    print("Left out, served by no projection: " + ", ".join(left_out))
    return 0


if __name__ == "__main__":
    sys.exit(main())
