"""Reads the public registers that the seed library is made from: the EPSG dataset as PROJ carries it (proj.db), the
names under which ESRI lists the same systems, and the list of zones of the State Plane Coordinate Systems (nad.lst).
"""

import os
import re
import sqlite3
from decimal import ROUND_HALF_UP, Decimal
from pathlib import Path

DEGREE, SEXAGESIMAL = 9102, 9110  # EPSG codes of units of angles


class LibraryError(Exception):
    """The register does not hold what the library is to be made from."""


def share_folder():
    """The folder that holds proj.db and nad.lst, or None."""
    places = [p for name in ("PROJ_DATA", "PROJ_LIB") for p in os.environ.get(name, "").split(os.pathsep) if p]
    for place in map(Path, [*places, "/usr/local/share/proj", "/usr/share/proj"]):
        if (place / "proj.db").is_file() and (place / "nad.lst").is_file():
            return place
    return None


class Register:
    """The registers in `folder`, opened read-only."""

    def __init__(self, folder):
        self.db = sqlite3.connect(f"file:{folder / 'proj.db'}?mode=ro", uri=True)
        self.edition = self.one("SELECT value FROM metadata WHERE key = 'EPSG.VERSION'")[0]
        self.inventory = {1927: set(), 1983: set()}
        for line in (folder / "nad.lst").read_text("ascii").splitlines():
            for system, columns in ((1927, line[32:36]), (1983, line[41:45])):
                if re.search(r"\w \.+ ", line) and columns.strip().isdigit():
                    self.inventory[system].add(int(columns))
        # Projected systems of EPSG in force: (code, name, conversion, code of the unit of the axes).
        self.systems = self.rows(
            "SELECT p.code, p.name, p.conversion_code, a.uom_code FROM projected_crs p JOIN axis a"
            " ON a.coordinate_system_auth_name = p.coordinate_system_auth_name"
            " AND a.coordinate_system_code = p.coordinate_system_code AND a.coordinate_system_order = 1"
            " WHERE p.auth_name = 'EPSG' AND p.deprecated = 0 ORDER BY p.code"
        )
        self.by_name = {row[1]: row for row in self.systems}
        self.by_code = {row[0]: row for row in self.systems}
        self.by_zone_code = {}
        for epsg, name in self.rows(
            "SELECT code, alt_name FROM alias_name WHERE table_name = 'projected_crs' AND auth_name = 'EPSG'"
            " ORDER BY code"
        ):
            # NAD27 or NAD83 proper, metres for 1983: a realisation or another unit would stand in the name.
            match = re.fullmatch(r"NAD_(1927|1983)_StatePlane_\w+_FIPS_(\d{4})", name)
            if match and epsg in self.by_code:
                if self.by_zone_code.setdefault((int(match[1]), int(match[2])), epsg) != epsg:
                    raise LibraryError(f"two systems in force are named {name}")

    def rows(self, sql, *values):
        return self.db.execute(sql, values).fetchall()

    def one(self, sql, *values):
        found = self.rows(sql, *values)
        if len(found) != 1:
            raise LibraryError(f"{len(found)} rows instead of one for {values}: {sql}")
        return found[0]

    def named_system(self, name):
        """The projected system in force of that name, or None."""
        return self.by_name.get(name)

    def zone_system(self, system, code, otherwise=""):
        """The system in force of a zone of 1927 or 1983: the one whose name at ESRI bears the zone's code, or, where none
        does, the one named `otherwise`."""
        epsg = self.by_zone_code.get((system, code))
        row = self.by_code[epsg] if epsg else self.named_system(otherwise)
        if row is None:
            raise LibraryError(f"no system in force for the zone {code} of {system}")
        return row

    def conversion(self, code):
        """(method, {parameter: (value, unit)}) of an EPSG conversion."""
        columns = ", ".join(f"param{i}_code, param{i}_value, param{i}_uom_code" for i in range(1, 8))
        table = "conversion_table WHERE auth_name = 'EPSG'"
        row = self.one(f"SELECT method_code, {columns} FROM {table} AND code = ?", code)
        triples = zip(*[iter(row[1:])] * 3)
        return int(row[0]), {int(p): (Decimal(repr(float(v))), int(u)) for p, v, u in triples if p is not None}

    def ellipsoid_axes(self, code):
        """(name, semimajor axis in metres, inverse flattening or None, semiminor axis in metres or None)."""
        name, a, unit, inverse, b = self.one(
            "SELECT name, semi_major_axis, uom_code, inv_flattening, semi_minor_axis FROM ellipsoid"
            " WHERE auth_name = 'EPSG' AND deprecated = 0 AND code = ?",
            code,
        )
        factor = self.one("SELECT conv_factor FROM unit_of_measure WHERE auth_name = 'EPSG' AND code = ?", unit)[0]
        return name, a * factor, inverse, None if b is None else b * factor


def parameter(values, codes):
    found = [values[code] for code in codes if code in values]
    if len(found) != 1:
        raise LibraryError(f"{len(found)} values for the parameters {codes}")
    return found[0]


def plain(number):
    """A decimal number without exponent, trailing zeros or a trailing point."""
    text = format(Decimal(number), "f")
    return text.rstrip("0").rstrip(".") if "." in text else text


def fifteen(value):
    """A 64-bit float with 15 significant digits, as the ellipsoid editor writes it."""
    return plain(Decimal(f"{value:.15g}"))


def degrees(value, unit):
    """Decimal degrees of a register's angle; the sexagesimal unit packs degrees, minutes and seconds in one number."""
    if unit == DEGREE:
        return value
    if unit != SEXAGESIMAL:
        raise LibraryError(f"unknown unit {unit} of an angle")
    size = abs(value)
    whole = int(size)
    minutes = int((size - whole) * 100)
    seconds = (size - whole) * 10000 - minutes * 100
    return (whole + Decimal(minutes) / 60 + seconds / 3600).copy_sign(value)


def packed(angle):
    """DDD.MMSSsssss, degrees, minutes and seconds with 5 decimals."""
    units = int((abs(Decimal(angle)) * 360_000_000).quantize(Decimal(1), ROUND_HALF_UP))
    minutes, seconds = divmod(units, 6_000_000)
    whole, minutes = divmod(minutes, 60)
    return f"{'-' if angle < 0 and units else ''}{whole}.{minutes:02d}{seconds:07d}"
