"""Makes the sections of zones.ini: the State Plane Coordinate Systems of 1983 and 1927 and the UTM zones."""

import math
import re
from decimal import Decimal

from library_register import LibraryError, degrees, packed, parameter, plain

US_FOOT = Decimal(1200) / Decimal(3937)  # metres, by definition

# The EPSG codes of what is read.
METRE, INTERNATIONAL_FOOT, SURVEY_FOOT = 9001, 9002, 9003
UNITS = {METRE: "Meters", SURVEY_FOOT: "U.S. Survey Feet", INTERNATIONAL_FOOT: "International Feet"}
TRANSVERSE_MERCATOR, LAMBERT_ONE, LAMBERT_TWO, LAMBERT_MICHIGAN, HOTINE = 9807, 9801, 9802, 1051, 9812
LATITUDE, LONGITUDE, SCALE = (8801, 8811, 8821), (8802, 8812, 8822), (8805, 8815)
EASTING, NORTHING = (8806, 8826), (8807, 8827)
PARALLELS, AZIMUTH, SKEW, ELLIPSOID_SCALE = (8823, 8824), (8813,), (8814,), (1038,)

SPC83, SPC27 = "SPC83 - State Plane 1983", "SPC27 - State Plane 1927"
UTM83, UTM27 = "UTM83 - UTM on NAD 83", "UTM27 - UTM on NAD 27"
CLARKE_1866, MICHIGAN_ELLIPSOID = 7008, "Clarke 1866 Michigan"

PROJECTIONS = {
    TRANSVERSE_MERCATOR: "Transverse Mercator",
    LAMBERT_ONE: "Lambert Conformal Conic - One Parallel",
    LAMBERT_TWO: "Lambert Conformal Conic - Two Parallels",
    LAMBERT_MICHIGAN: "Lambert Conformal Conic - Two Parallels",
    HOTINE: "Oblique Mercator - Hotine",
}
PROJECTIONS_1927 = PROJECTIONS | {
    TRANSVERSE_MERCATOR: "Transverse Mercator - NAD 27 Equations",
    LAMBERT_TWO: "Lambert Conformal Conic - NAD 27 Equations",
}
HORIZONTAL = {  # EPSG code of the geographic system: section of datums.ini
    4267: "NAD 27",
    4269: "NAD 83",
    6318: "NAD 83",  # a zone's foot variant may be registered on the realisation of 2011 only; the zone is one
    4135: "Old Hawaiian",
    4139: "Puerto Rico",
    4169: "American Samoa 1962",
    6322: "NAD 83 (PA11)",
    6325: "NAD 83 (MA11)",
}
VERTICAL = {"NAD 27": "NGVD 29", "NAD 83": "NAVD 88"}
ISLANDS = range(5100, 5500)  # Hawaii, Puerto Rico, Samoa and Guam have neither vertical datum
# Zones of 1927 whose systems bear no name with the zone's code.
NAMED_SYSTEMS = {
    2111: "NAD27 / Michigan North",
    2112: "NAD27 / Michigan Central",
    2113: "NAD27 / Michigan South",
    **{5100 + n: f"Old Hawaiian / Hawaii zone {n}" for n in range(1, 6)},
    5201: "Puerto Rico State Plane CS of 1927",
    5202: "Puerto Rico / St. Croix",
    5300: "American Samoa 1962 / American Samoa Lambert",
    5400: "Guam 1963 / Guam SPCS",
}
ZONE_NAMES = {5201: "Puerto Rico", 5300: "American Samoa"}  # where the system's own name is no zone name


def isometric(latitude, e):
    s = math.sin(latitude)
    return math.atanh(s) - e * math.atanh(e * s)


def moved_latitude(latitude, north, south, false_northing, a, e):
    """The latitude (degrees) whose mapping radius is `false_northing` metres longer than that of `latitude`.

    With it as the latitude of the origin and no false northing, a Lambert cone gives the northings that it gives with
    `latitude` and the false northing: the northing holds the origin only in that radius and that addition.
    """
    latitude, north, south = (math.radians(float(angle)) for angle in (latitude, north, south))

    def m(phi):
        return math.cos(phi) / math.sqrt(1 - (e * math.sin(phi)) ** 2)

    q_north, q_south = isometric(north, e), isometric(south, e)
    n = math.log(m(north) / m(south)) / (q_south - q_north)
    k = a * m(north) * math.exp(n * q_north) / n
    radius = k * math.exp(-n * isometric(latitude, e)) + false_northing
    q = math.log(k / radius) / n
    phi = math.asin(math.tanh(q))
    for _ in range(20):  # each round gains two digits
        phi = math.asin(math.tanh(q + e * math.atanh(e * math.sin(phi))))
    return math.degrees(phi)


def zone_entry(register, row, full_name, old_equations, islands=False):
    """One section of zones.ini, or None if none of the six projections serves the system."""
    code, _, conversion, unit = row
    method, values = register.conversion(conversion)
    projection = (PROJECTIONS_1927 if old_equations else PROJECTIONS).get(method)
    if projection is None:
        return None
    base = register.one("SELECT geodetic_crs_code FROM projected_crs WHERE auth_name = 'EPSG' AND code = ?", code)[0]
    datum = HORIZONTAL[int(base)]
    for codes in (EASTING, NORTHING):
        if parameter(values, codes)[1] != unit:
            raise LibraryError(f"EPSG:{code}: the false origin is not in the unit of the axes")
    latitude = degrees(*parameter(values, LATITUDE))
    longitude = degrees(*parameter(values, LONGITUDE))
    northing, easting = parameter(values, NORTHING)[0], parameter(values, EASTING)[0]
    parallels = sorted(degrees(*values[p]) for p in PARALLELS) if PARALLELS[1] in values and method != HOTINE else None

    if projection == "Lambert Conformal Conic - NAD 27 Equations" and northing:
        _, a, _, b = register.ellipsoid_axes(CLARKE_1866)
        metres = float(northing * US_FOOT)
        latitude = Decimal(moved_latitude(latitude, parallels[1], parallels[0], metres, a, math.sqrt(1 - (b / a) ** 2)))
        full_name += f", central latitude moved for the false northing of {plain(northing)} feet"
        northing = Decimal(0)

    entry = {
        "Full Name": full_name,
        "Horizontal Datum": datum,
        "Computational Ellipsoid": MICHIGAN_ELLIPSOID if method == LAMBERT_MICHIGAN else "",
        "Vertical Datum": "" if islands else VERTICAL.get(datum, ""),
        "Projection": projection,
        "Show In": "1",
        "Show Out": "1",
        "Central Latitude": packed(abs(latitude)),
        "Central Longitude": packed(abs(longitude)),
        "False Northing": plain(northing),
        "False Easting": plain(easting),
    }
    if parallels:
        entry |= {"Northern Parallel": packed(parallels[1]), "Southern Parallel": packed(parallels[0])}
    else:
        entry["Scale Factor"] = plain(parameter(values, SCALE)[0])
    if method == HOTINE:
        azimuth, skew = (degrees(*parameter(values, codes)) for codes in (AZIMUTH, SKEW))
        if azimuth != skew:
            raise LibraryError(f"EPSG:{code}: the grid is not turned by the azimuth of its axis")
        entry["Azimuth"] = packed(azimuth - 360 if azimuth > 180 else azimuth)
    return entry | {
        "Positive Latitude Direction": "S" if latitude < 0 else "N",
        "Positive Longitude Direction": "E" if longitude > 0 else "W",
        "Linear Units": UNITS[unit],
    }


def foot_variant(register, zone):
    """The system in feet of a zone of 1983, on the newest realisation on which the register has the zone, or None."""
    for realisation in ("NAD83(2011)", "NAD83(PA11)", "NAD83"):
        if register.named_system(f"{realisation} / {zone}"):
            found = [register.named_system(f"{realisation} / {zone} ({unit})") for unit in ("ft", "ftUS")]
            found = [row for row in found if row]
            if len(found) > 1:
                raise LibraryError(f"{zone} has two feet on {realisation}")
            return found[0] if found else None
    raise LibraryError(f"{zone} is on no realisation")


def make_spc83(register):
    zones = {}
    for code in sorted([*register.inventory[1983], 1600]):  # 1600, Kentucky's single zone, is younger than the list
        metric = register.zone_system(1983, code)
        name = metric[1].removeprefix("NAD83 / ")
        zones[code] = (name, metric, foot_variant(register, name))
    sections = {}
    for code, (name, metric, foot) in zones.items():
        # A state measures in feet if the register has each of its zones in feet.
        state_in_feet = all(zones[c][2] for c in zones if c // 100 == code // 100)
        row = foot if state_in_feet else metric
        # On NAD83 proper the same variant often has a code of its own; the conversion is the same.
        own = register.named_system(re.sub(r"^NAD83\(\w+\)", "NAD83", row[1]))
        row = own if own and own[2] == row[2] else row
        full = f"State Plane Coordinate System of 1983, {name} (EPSG:{row[0]})"
        sections[f"{SPC83}~{code:04d} - {name}"] = zone_entry(register, row, full, False, code in ISLANDS)
    return sections


def make_spc27(register):
    sections, left_out = {}, []
    for code in sorted(register.inventory[1927]):
        row = register.zone_system(1927, code, NAMED_SYSTEMS.get(code, ""))
        name = ZONE_NAMES.get(code, row[1].rpartition(" / ")[2])
        full = f"State Plane Coordinate System of 1927, {name} (EPSG:{row[0]})"
        entry = zone_entry(register, row, full, True, code in ISLANDS)
        if entry:
            sections[f"{SPC27}~{code:04d} - {name}"] = entry
        else:
            left_out.append(f"{code:04d} {row[1]}")
    return sections, left_out


def make_utm(register, system, family):
    """The UTM zones of a family (a pattern of names) whose area of use names the United States or a territory."""
    zones = []
    for row in register.systems:
        if match := re.fullmatch(rf"(?:{family}) / UTM zone (\d+)([NS])", row[1]):
            area = register.one(
                "SELECT e.description FROM usage u JOIN extent e"
                " ON e.auth_name = u.extent_auth_name AND e.code = u.extent_code"
                " WHERE u.object_table_name = 'projected_crs' AND u.object_auth_name = 'EPSG' AND u.object_code = ?",
                row[0],
            )[0]
            if re.search(r"United States|American Samoa|Guam|US Virgin Islands", area):
                zones.append((int(match[1]), match[2], row))
    sections = {}
    for number, letter, row in sorted(zones):
        name = f"{number}{letter} - Zone {number} {'North' if letter == 'N' else 'South'}"
        sections[f"{system}~{name}"] = zone_entry(register, row, f"{row[1]} (EPSG:{row[0]})", False)
    return sections


def make_zones(register):
    spc27, left_out = make_spc27(register)
    sections = make_spc83(register) | spc27
    sections |= make_utm(register, UTM83, r"NAD83|NAD83\(MA11\)|NAD83\(PA11\)(?=.*2S)")
    sections |= make_utm(register, UTM27, "NAD27")
    if missing := [name for name, entry in sections.items() if entry is None]:
        raise LibraryError(f"no projection serves {missing}")
    return sections, left_out
