#!/usr/bin/env python3
"""Checks the seed library in data/ against PROJ's own definitions, and its names and references within itself.

usage: check_seeds.py DATA-FOLDER parameters|names|references|selftest
  parameters  every zone against two definitions that PROJ holds of it: the registered system of its name, as projinfo
              writes it, and the entry of its code in PROJ's state plane files; every ellipsoid against PROJ's table
  names       the section names of zones.ini leave room for zones of the user's own
  references  every name in the files is a section, a transformation that has a way back has it in the files, and from
              every datum lead exactly the roads that this file lists
  selftest    a value that is changed a little is found by the checks above
Exit 77 where PROJ's programs or files are absent.
"""

import copy
import math
import os
import re
import shutil
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path
from typing import NamedTuple

SKIPPED = 77
METRES = {"Meters": 1.0, "U.S. Survey Feet": 1200 / 3937, "International Feet": 0.3048}
SUFFIXES = {"Meters": "", "U.S. Survey Feet": " (ftUS)", "International Feet": " (ft)"}
PROJ_UNITS = {"Meters": "m", "U.S. Survey Feet": "us-ft", "International Feet": "ft"}

NAMES_LIMIT = 29_998  # characters of all section names, each with a NUL, that a list of zones can take
OWN_ZONES, OWN_NAME = 100, 120  # so many zones of the user's own, with names of so many characters, must still fit

# How far a seed may lie from a definition: angles in degrees (half the last digit of a packed angle, doubled), scale
# factors, and metres: a false easting of the register is rounded to 0.01 feet at the coarsest, and PROJ's table of
# ellipsoids rounds some of its numbers to a millimetre or to eight digits of the eccentricity.
ANGLE, SCALE, ORIGIN, AXIS, SHAPE = 3e-9, 1e-9, 2e-3, 2e-3, 5e-9
FILE_SCALE = 6e-8  # the register has seven digits of one scale factor of which the state plane files have all
NORTHING = 0.05  # metres by which a northing from a moved central latitude may miss the published definition
REACH = [(0.3, 0.0), (0.1, 1.5), (0.9, -1.2), (1.7, 0.7), (2.5, -0.4)]  # points: degrees north of a latitude, and east

ELLIPSOIDS = {
    "GRS 80": "GRS80", "WGS 84": "WGS84", "Clarke 1866": "clrk66", "Clarke 1880 (Arc)": "clrk80",
    "Clarke 1880 (IGN)": "clrk80ign", "International 1924": "intl", "Bessel 1841": "bessel", "Airy 1830": "airy",
    "Airy Modified 1849": "mod_airy", "Everest 1830 (1937 Adjustment)": "evrst30",
    "Everest 1830 (1962 Definition)": "evrst56", "Everest 1830 Modified": "evrst48", "Australian National": "aust_SA",
    "GRS 67": "GRS67", "Helmert 1906": "helmert", "Hough 1960": "hough", "Krassowsky 1940": "krass", "WGS 72": "WGS72",
}  # fmt: skip
DATUMS = {  # PROJ's name of a datum: the section of datums.ini on which a zone of it must be
    "North American Datum 1927": "NAD 27",
    "North American Datum 1983": "NAD 83",
    "NAD83 (National Spatial Reference System 2011)": "NAD 83",  # a variant in feet that is registered there alone
    "NAD83 (National Spatial Reference System PA11)": "NAD 83 (PA11)",
    "NAD83 (National Spatial Reference System MA11)": "NAD 83 (MA11)",
    "Old Hawaiian": "Old Hawaiian",
    "Puerto Rico": "Puerto Rico",
    "American Samoa 1962": "American Samoa 1962",
}
OTHER_NAMES = {  # systems whose name is not datum, slash, zone
    "Puerto Rico": "Puerto Rico State Plane CS of 1927",
    "St. Croix": "Puerto Rico / St. Croix",
    "American Samoa": "American Samoa 1962 / American Samoa Lambert",
}


def read_ini(path):
    sections = {}
    text = path.read_bytes().decode("cp1252")
    if "\n" in text.replace("\r\n", ""):
        raise SystemExit(f"{path}: a line does not end in CR LF")
    for line in text.split("\r\n"):
        if line.startswith("["):
            name = line[1:-1]
            if name in sections:
                raise SystemExit(f"{path}: two sections [{name}]")
            keys = sections[name] = {}
        elif line:
            key, _, value = line.partition("=")
            keys[key] = value
    return sections


class Library:
    def __init__(self, folder):
        self.zones, self.datums, self.ellipsoids = (
            read_ini(folder / name) for name in ("zones.ini", "datums.ini", "ellipsoids.ini")
        )


def packed(text):
    match = re.fullmatch(r"(-?)(\d{1,3})\.([0-5]\d)([0-5]\d)(\d{5})", text)
    if not match:
        return math.nan
    value = int(match[2]) + int(match[3]) / 60 + (int(match[4]) + int(match[5]) / 1e5) / 3600
    return -value if match[1] else value


def seed_definition(library, name):
    """What a conversion reads of a zone: degrees north and east, metres."""
    zone = library.zones[name]
    ellipsoid = zone["Computational Ellipsoid"] or library.datums[zone["Horizontal Datum"]]["Ellipsoid"]
    axes = library.ellipsoids[ellipsoid]
    north = 1 if zone["Positive Latitude Direction"] == "N" else -1
    east = 1 if zone["Positive Longitude Direction"] == "E" else -1
    metres = METRES[zone["Linear Units"]]
    kind = {"Tra": "tmerc", "Lam": "lcc", "Obl": "omerc"}[zone["Projection"][:3]]
    found = {
        "proj": kind,
        "a": float(axes["Semimajor Axis"]),
        "b": float(axes["Semimajor Axis"]) * math.sqrt(1 - float(axes["Eccentricity"]) ** 2),
        "lat_0": north * packed(zone["Central Latitude"]),
        "lon_0": east * packed(zone["Central Longitude"]),
        "x_0": metres * float(zone["False Easting"]),
        "y_0": metres * float(zone["False Northing"]),
        "units": PROJ_UNITS[zone["Linear Units"]],
        "datum": zone["Horizontal Datum"],
    }
    if "Northern Parallel" in zone:  # not sorted: the one must lie north of the other
        found["lat_1"], found["lat_2"] = (
            north * packed(zone[key]) for key in ("Southern Parallel", "Northern Parallel")
        )
    else:
        found["k"] = float(zone["Scale Factor"])
    if kind == "omerc":
        found["alpha"] = packed(zone["Azimuth"])
    return found


# ---- PROJ's definitions


def run(*command, text=""):
    return subprocess.run(command, input=text, capture_output=True, text=True, check=True).stdout


def proj_axes():
    """{PROJ's name of an ellipsoid: (a, b)}"""
    found = {}
    for line in run("proj", "-le").splitlines():
        if match := re.match(r"\s*(\S+) a=(\S+)\s+(rf|b)=(\S+)", line):
            a, value = float(match[2]), float(match[4])
            found[match[1]] = (a, value if match[3] == "b" else a * (1 - 1 / value))
    return found


def angle(text):
    match = re.fullmatch(r"(-?)([\d.]+)(?:d(?:([\d.]+)'?(?:([\d.]+))?)?)?", text)
    value = float(match[2]) + float(match[3] or 0) / 60 + float(match[4] or 0) / 3600
    return -value if match[1] else value


def definition(text, axes):
    """A PROJ definition in the terms of seed_definition()."""
    words = dict(re.findall(r"\+?(\w+)(?:=(\S+))?", text))
    if words["proj"] == "utm":
        zone, south = int(words["zone"]), "south" in words
        words |= {"proj": "tmerc", "lat_0": "0", "lon_0": str(zone * 6 - 183), "k": "0.9996", "x_0": "500000"}
        words["y_0"] = "10000000" if south else "0"
    ellipsoid = {"NAD27": "clrk66", "NAD83": "GRS80"}.get(words.get("datum"), words.get("ellps"))
    a, b = axes[ellipsoid] if ellipsoid else (float(words["a"]), float(words["a"]) * math.sqrt(1 - float(words["es"])))
    scale = float(words.get("k", words.get("k_0", "1")))
    lower, upper = sorted(angle(words.get(key, words.get("lat_1", "0"))) for key in ("lat_1", "lat_2"))
    found = {
        "proj": words["proj"],
        "lat_0": angle(words["lat_0"]),
        "lon_0": angle(words["lonc" if words["proj"] == "omerc" else "lon_0"]),
        "x_0": float(words["x_0"]),
        "y_0": float(words["y_0"]),
    }
    if words["proj"] == "lcc" and lower != upper:
        found |= {"lat_1": lower, "lat_2": upper}
        a, b = a * scale, b * scale  # a cone of two parallels has its scale from an enlarged ellipsoid
    else:
        found["k"] = scale
    if words["proj"] == "omerc":
        found["alpha"] = (angle(words["alpha"]) + 180) % 360 - 180
    if "units" in words:
        found["units"] = words["units"]
    return found | {"a": a, "b": b}


def system_names(name, zone):
    """Names under which PROJ may hold the registered system of a zone."""
    system, _, zone_name = name.partition("~")
    code, _, place = zone_name.partition(" - ")
    if system.startswith("UTM"):
        families = ("NAD83", "NAD83(PA11)", "NAD83(MA11)") if "83" in system else ("NAD27",)
        return [f"{family} / UTM zone {code}" for family in families]
    if system.startswith("SPC27"):
        return [f"NAD27 / {place}", f"Old Hawaiian / {place}", OTHER_NAMES.get(place, place)]
    return [f"{family} / {place}{SUFFIXES[zone['Linear Units']]}" for family in ("NAD83", "NAD83(2011)")]


class Registered(NamedTuple):
    text: str  # PROJ's definition
    datum: str  # the section of datums.ini that stands for the datum of the system


def registered(name, zone):
    """The registered system of a zone; None if PROJ has none."""
    for system in system_names(name, zone):
        answer = subprocess.run(
            ["projinfo", "--single-line", "-o", "WKT2:2019,PROJ", system], capture_output=True, text=True
        )
        # projinfo also takes a name that is nearly right.
        if answer.returncode == 0 and f'PROJCRS["{system}"' in answer.stdout:
            datum = re.search(r'BASEGEOGCRS\["[^"]*",(?:DATUM|ENSEMBLE)\["([^"]*)"', answer.stdout)[1]
            text = re.search(r"^\+proj.*$", answer.stdout, re.MULTILINE)[0]
            return Registered(text, DATUMS.get(datum, f"on {datum}, of which the seeds know nothing"))
    return None


def state_plane_file(folder, name):
    """{zone code: definition} of one of PROJ's state plane files."""
    text = re.sub(r"^#.*$", "", (folder / name).read_text("ascii"), flags=re.MULTILINE)
    return {int(code): " ".join(words.split()) for code, words in re.findall(r"<(\d+)>([^<]*)<>", text)}


# ---- the checks


def compare(name, seed, wanted, passed_over=(), scale=SCALE):
    faults = []
    for key, value in wanted.items():
        tolerance = {"k": scale, "x_0": ORIGIN, "y_0": ORIGIN, "a": AXIS, "b": AXIS}.get(key, ANGLE)
        present = seed.get(key)
        same = present == value if isinstance(value, str) else present is not None and abs(present - value) <= tolerance
        if not same and key not in passed_over:
            faults.append(f"{name}: {key} is {present}, PROJ has {value}")
    return faults


def planes(definition_text, points):
    """(easting, northing) in metres by PROJ's program, for points (latitude, longitude)."""
    words = [word for word in definition_text.split() if not word.startswith(("+units", "+type", "units"))]
    words = [word if word.startswith("+") else f"+{word}" for word in words]
    lines = "".join(f"{longitude:.10f} {latitude:.10f}\n" for latitude, longitude in points)
    found = [tuple(map(float, line.split()[:2])) for line in run("proj", "-f", "%.5f", *words, text=lines).splitlines()]
    if len(found) != len(points):
        raise SystemExit(f"proj gave {len(found)} answers for {len(points)} points: {definition_text}")
    return found


def compare_planes(name, one, other, latitude, longitude, tolerance):
    points = [(latitude + north, longitude + east) for north, east in REACH]
    faults = []
    for point, a, b in zip(points, planes(one, points), planes(other, points)):
        if math.hypot(a[0] - b[0], a[1] - b[1]) > tolerance:
            faults.append(f"{name}: at {point} the seed gives {a}, PROJ {b}")
    return faults


def check_registered(name, seed, system, axes):
    """The faults of a zone against the registered system of its name."""
    if system is None:
        return [f"{name}: PROJ knows no system of that name and unit"]
    text = system.text
    wanted = definition(text, axes) | {"datum": system.datum}
    if "Lambert Conformal Conic - NAD 27 Equations" != seed["projection"] or not wanted["y_0"]:
        return compare(name, seed, wanted)
    # The NAD 27 equations have no false northing: the central latitude stands for it.
    faults = compare(name, seed, wanted, ("lat_0", "y_0"))
    if seed["y_0"]:
        faults.append(f"{name}: the false northing {seed['y_0']} would not be used")
    moved = re.sub(r"\+lat_0=\S+", f"+lat_0={seed['lat_0']:.12f}", text)
    moved = re.sub(r"\+y_0=\S+", f"+y_0={seed['y_0']}", moved)
    return faults + compare_planes(name, moved, text, wanted["lat_1"] - 1, wanted["lon_0"], NORTHING)


def check_file_entry(name, seed, text, axes, by_name):
    """The faults of a zone against the entry of its code in PROJ's state plane files."""
    wanted = definition(text, axes)
    passed_over = []
    if "alpha" in wanted:  # that file tells the origin of the oblique zone in another way; so look at points
        passed_over += ["x_0", "y_0"]
        faults = compare_planes(name, by_name, text, wanted["lat_0"] - 1, wanted["lon_0"], ORIGIN)
    elif seed["proj"] == "lcc" and wanted["y_0"] and not seed["y_0"]:  # moved; the registered system is looked at
        faults = compare(name, definition(by_name, axes), {key: wanted[key] for key in ("lat_0", "y_0")})
        passed_over += ["lat_0", "y_0"]
    else:
        faults = []
    return faults + compare(name, seed, wanted, passed_over, FILE_SCALE)


def check_ellipsoids(library, axes):
    faults = []
    for name, proj_name in ELLIPSOIDS.items():
        entry = library.ellipsoids.get(name)
        if entry is None:
            faults.append(f"{name}: no such ellipsoid")
            continue
        a, b = axes[proj_name]
        f = 1 - b / a
        seed = {key: float(entry[full]) for key, full in (("a", "Semimajor Axis"), ("b", "Semiminor Axis"))}
        faults += compare(name, seed, {"a": a, "b": b})
        shape = {"f": float(entry["Flattening"]), "e": float(entry["Eccentricity"])}
        for key, value in (("f", f), ("e", math.sqrt(f * (2 - f)))):
            if abs(shape[key] - value) > SHAPE:
                faults.append(f"{name}: {key} is {shape[key]}, PROJ has {value}")
    return faults


def with_projection(library, name):
    return seed_definition(library, name) | {"projection": library.zones[name]["Projection"]}


def check_parameters(library, folder):
    axes = proj_axes()
    faults = check_ellipsoids(library, axes)
    names = list(library.zones)
    with ThreadPoolExecutor() as pool:
        systems = dict(zip(names, pool.map(lambda name: registered(name, library.zones[name]), names)))
    for name in names:
        faults += check_registered(name, with_projection(library, name), systems[name], axes)

    for system, file, without, beyond in (("SPC27", "nad27", {5400}, set()), ("SPC83", "nad83", set(), {1600})):
        entries = state_plane_file(folder, file)
        zones = {int(name.partition("~")[2][:4]): name for name in names if name.startswith(system)}
        if set(zones) != set(entries) - without | beyond:
            faults.append(f"{system}: the zones are not those of {file}: {set(zones) ^ set(entries)}")
        for code in sorted(set(zones) & set(entries)):
            name = zones[code]
            if systems[name]:
                seed, text = with_projection(library, name), systems[name].text
                faults += check_file_entry(name, seed, entries[code], axes, text)
    return faults


def check_names(library):
    size = sum(len(name) + 1 for name in library.zones)
    room = OWN_ZONES * (OWN_NAME + 1)
    faults = [f"{name}: not coordinate system, '~', zone" for name in library.zones if name.count("~") != 1]
    for name in library.zones:
        parts = name.split("~")
        if any(not re.fullmatch(r"[A-Z0-9]+ - \S.*\S", part) for part in parts):
            faults.append(f"{name}: a part is not short form, hyphen, long text")
    short = {"~".join(part.split(" - ")[0] for part in name.split("~")) for name in library.zones}
    if len(short) != len(library.zones):
        faults.append("two zones have the same short names")
    if size + room > NAMES_LIMIT:
        faults.append(f"{size} characters of section names leave no room for {OWN_ZONES} zones of {OWN_NAME} more")
    return faults


PLAIN_KEYS = {"Full Name", "Type", "Ellipsoid", "Show In", "Show Out"}  # of a datum: all but its transformations
WAYS_BACK = [  # the method, and what its way back reads like
    (r"NADCON NAD 27 to NAD 83", "NADCON NAD 83 to NAD 27"),
    (r"NADCON NAD 83 \(1986\) to Alabama HPGN", "NADCON Alabama HPGN to NAD 83 (1996)"),
    (r"NADCON NAD 83 \(1986\) to (.+? HPGN)(.*)", r"NADCON \1 to NAD 83 (1986)\2"),
    (r"(GEOCON|GEOCON11) Beta (.+) to (.+) - (.+)", r"\1 Beta \3 to \2 - \4"),
    (r"(VERTCON|GEOID\d\d) (.+) to (.+)", r"\1 \3 to \2"),
]


HTDP = dict.fromkeys(
    ("WGS 84", "WGS 84 (G1674)", "EPSG::6326"), "HTDP 3.2.3 NAD 83 (2007/2011/CORS) to WGS 84 (G1674)"
)
# The one method that leaves heights alone which were moved already.
TO_6326 = {"EPSG::6326": "GEOCON Beta NAD 83 (HARN) to NAD 83 (2007) - CONUS"}
TO_NAD27 = {"NAD 27": "NADCON NAD 83 to NAD 27"}
HPGN_DATUMS = 49
REALISATIONS = {  # realisation of NAD 83 and region: the geoid model on it that leads to NAVD 88
    ("HARN", "CONUS"): "GEOID99", ("HARN", "Alaska"): "GEOID06", ("HARN", "PR/VI"): None, ("FBN", "CONUS"): "GEOID03",
    ("2007", "CONUS"): "GEOID09", ("2007", "Alaska"): "GEOID09", ("2007", "PR/VI"): None, ("2011", "CONUS"): None,
    ("2011", "Alaska"): None, ("2011", "PR/VI"): None, ("CORS", "CONUS"): None,
}  # fmt: skip
GRIDS = [("HARN", "2007", "GEOCON Beta"), ("2007", "2011", "GEOCON11 Beta")]
DEAD_ENDS = ["NAD 83 (PA11)", "NAD 83 (MA11)", "Old Hawaiian", "Puerto Rico", "American Samoa 1962", *HTDP]


def hpgn_roads(name):
    """(method from NAD 83 (1986), method to it)"""
    place, suffix = re.fullmatch(r"(.+ HPGN)(.*)", name).groups()
    suffix = re.sub(r"(\d) L", "\\1\xb0 L", suffix)
    year = 1996 if place == "Alabama HPGN" else 1986
    return f"NADCON NAD 83 (1986) to {place}{suffix}", f"NADCON {place} to NAD 83 ({year}){suffix}"


def expected_roads(hpgn_names):
    """{datum: {target: method}}, every datum and every road from it."""
    nad83 = {"NAD 83": "NADCON NAD 27 to NAD 83", "NAD 83 (1986)": "NADCON NAD 27 to NAD 83"}
    roads = {"NAD 27": nad83, "NAD 83": TO_NAD27 | HTDP, "NAD 83 (1986)": dict(TO_NAD27)}
    for name in hpgn_names:
        roads["NAD 83 (1986)"][name], back = hpgn_roads(name)
        roads[name] = {"NAD 83 (1986)": back}
    roads |= {name: {} for name in DEAD_ENDS} | {"NAD 83 Ellipsoid Heights": TO_6326}
    roads["NGVD 29"] = {"NAVD 88": "VERTCON NGVD 29 to NAVD 88"}
    roads["NAVD 88"] = {"NGVD 29": "VERTCON NAVD 88 to NGVD 29"} | TO_6326
    for (tag, region), model in REALISATIONS.items():
        place = "" if region == "CONUS" else f" {region}"
        ways = roads[f"NAD 83 ({tag}){place}"] = dict(HTDP) if tag in ("2007", "2011", "CORS") else {}
        if model:
            ways["NAVD 88"] = f"{model} NAD 83 to NAVD 88"
            roads["NAVD 88"][f"NAD 83 ({tag}){place}"] = f"{model} NAVD 88 to NAD 83"
        for old, new, tool in GRIDS:
            for start, end in ((old, new), (new, old)):
                if start == tag:
                    ways[f"NAD 83 ({end}){place}"] = f"{tool} NAD 83 ({start}) to NAD 83 ({end}) - {region}"
    for tag in ("1986", "2007", "2011", "CORS"):  # the spelling of data sheets
        roads[f"NAD 83({tag})"] = roads[f"NAD 83 ({tag})"]
    return roads


def check_roads(library):
    hpgn_names = [name for name in library.datums if " HPGN" in name]
    expected = expected_roads(hpgn_names)
    faults = [] if len(hpgn_names) == HPGN_DATUMS else [f"{len(hpgn_names)} HPGN datums instead of {HPGN_DATUMS}"]
    for name in expected.keys() | library.datums.keys():
        wanted = expected.get(name)
        found = {key: value for key, value in library.datums.get(name, {}).items() if key not in PLAIN_KEYS}
        if wanted is None or name not in library.datums:
            faults.append(f"{name}: the datum is {'not expected' if wanted is None else 'missing'}")
        elif found != wanted:
            faults.append(f"{name}: the roads differ: {sorted(found.items() ^ wanted.items())}")
    return faults


def check_references(library):
    faults = []
    for name, zone in library.zones.items():
        for key, sections in (
            ("Horizontal Datum", library.datums),
            ("Vertical Datum", library.datums),
            ("Computational Ellipsoid", library.ellipsoids),
        ):
            if zone[key] not in sections and not (zone[key] == "" and key != "Horizontal Datum"):
                faults.append(f"{name}: {key} '{zone[key]}' is no section")
    methods = set()
    for name, datum in library.datums.items():
        if datum["Type"] != "Vertical" and datum.get("Ellipsoid") not in library.ellipsoids:
            faults.append(f"{name}: the ellipsoid is no section")
        for target, method in datum.items():
            if target in PLAIN_KEYS:
                continue
            methods.add(method)
            if target not in library.datums:
                faults.append(f"{name}: the target '{target}' is no section")
                continue
            if datum["Show Out"] == "0" or target == "EPSG::6326":
                continue  # a name of data sheets, which nothing leads to, or the one target that is never left
            back = next((m.expand(way) for pattern, way in WAYS_BACK if (m := re.fullmatch(pattern, method))), None)
            if back and library.datums[target].get(name) != back:
                faults.append(f"{name}: no way back from '{target}' by '{back}'")
    faults += check_roads(library)
    kinds = {kind: sum(method.startswith(kind) for method in methods) for kind in ("NADCON", "GEOID", "VERTCON")}
    if kinds != {"NADCON": 100, "GEOID": 8, "VERTCON": 2}:
        faults.append(f"the datums do not use every method: {kinds}")
    if sum(method.startswith("GEOCON") for method in methods) != 12:
        faults.append("the datums do not use the four GEOCON transformations in each of the three regions")
    return faults


def changed_values(zone):
    """Copies of a zone, each with one value a little off."""
    for key, value in zone.items():
        other = None
        if re.fullmatch(r"-?\d+\.\d{9}", value):
            other = f"{value[:-4]}{(int(value[-4:]) + 5) % 10000:04d}"
        elif key == "Scale Factor":
            other = str(float(value) + 1e-8)
        elif key.startswith("False"):
            other = str(float(value) + 0.05)
        elif key == "Linear Units":
            other = "International Feet" if value != "International Feet" else "Meters"
        elif key == "Positive Longitude Direction":
            other = "E" if value == "W" else "W"
        if other is not None:
            yield key, zone | {key: other}
    for datum in set(DATUMS.values()) - {zone["Horizontal Datum"]}:
        yield "Horizontal Datum", zone | {"Horizontal Datum": datum}
    if "Northern Parallel" in zone:
        north, south = zone["Northern Parallel"], zone["Southern Parallel"]
        yield "Northern Parallel", zone | {"Northern Parallel": south, "Southern Parallel": north}


def changed_roads(library):
    """(name, what stands for that datum, how to tell it): each with one road more, less or other."""
    for name, datum in library.datums.items():
        for target in [key for key in datum if key not in PLAIN_KEYS][:3]:
            without = {key: method for key, method in datum.items() if key != target}
            yield name, without, f"{name} without '{target}'"
            yield name, datum | {target: "NADCON"}, f"{name} to '{target}' by another method"
        yield name, datum | {"WGS 72": "NADCON"}, f"a new way from {name}"
        yield name, None, f"no {name}"


def selftest(library):
    """Faults are what the checks fail to see."""
    missed, axes, seen = [], proj_axes(), set()
    for name in library.zones:
        zone = library.zones[name]
        moved = "moved" in zone["Full Name"]
        if (zone["Projection"], moved) in seen:
            continue
        seen.add((zone["Projection"], moved))
        system = registered(name, zone)
        if check_registered(name, with_projection(library, name), system, axes):
            missed.append(f"{name}: the check finds a fault in the unchanged zone")
        for key, other in changed_values(zone):
            if moved and key == "Central Latitude":
                other |= {key: zone[key][:-5] + f"{(int(zone[key][-5:]) + 5000) % 100000:05d}"}  # 0.05 seconds, 1.5 m
            trial = copy.deepcopy(library)
            trial.zones[name] = other
            if not check_registered(name, with_projection(trial, name), system, axes):
                missed.append(f"{name}: {key} = {other[key]} went unseen")
    trial = copy.deepcopy(library)
    trial.ellipsoids["GRS 80"]["Eccentricity"] = "0.08182"
    if not check_ellipsoids(trial, axes):
        missed.append("a wrong eccentricity went unseen")
    trial = copy.deepcopy(library)
    for i in range(OWN_ZONES * 2):
        trial.zones[f"OWN - of {i:03d}~{i:03d} - {'x' * OWN_NAME}"] = {}
    if not check_names(trial):
        missed.append("too long names went unseen")
    for name, datum, what in changed_roads(library):
        trial = copy.copy(library)
        trial.datums = library.datums | {name: datum}
        if datum is None:
            del trial.datums[name]
        if not check_roads(trial):
            missed.append(f"{what} went unseen")
    trial = copy.deepcopy(library)
    del trial.datums["NAVD 88"]["NGVD 29"]
    del trial.datums["Wyoming HPGN"]
    if len(check_references(trial)) < 3:
        missed.append("missing transformations went unseen")
    return missed


def proj_folder():
    places = [p for name in ("PROJ_DATA", "PROJ_LIB") for p in os.environ.get(name, "").split(os.pathsep) if p]
    for place in map(Path, [*places, "/usr/local/share/proj", "/usr/share/proj"]):
        if all((place / name).is_file() for name in ("proj.db", "nad27", "nad83")):
            return place
    return None


def main(arguments):
    if len(arguments) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    library, mode, folder = Library(Path(arguments[0])), arguments[1], proj_folder()
    if mode in ("parameters", "selftest") and (not folder or not shutil.which("proj") or not shutil.which("projinfo")):
        print("proj, projinfo or the files of proj-data are not installed.", file=sys.stderr)
        return SKIPPED
    checks = {
        "parameters": lambda: check_parameters(library, folder),
        "names": lambda: check_names(library),
        "references": lambda: check_references(library),
        "selftest": lambda: selftest(library),
    }
    faults = checks[mode]()
    print("\n".join(faults) or f"{len(library.zones)} zones, {len(library.datums)} datums: nothing found.")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
