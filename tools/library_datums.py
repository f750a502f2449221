"""Makes the sections of ellipsoids.ini and datums.ini. What stands here are choices: which entries, under which names,
and which transformation leads where. The numbers and the full names come from the register.
"""

import math
import re

from library_register import LibraryError, fifteen, parameter, plain
from library_zones import CLARKE_1866, ELLIPSOID_SCALE, LAMBERT_MICHIGAN, MICHIGAN_ELLIPSOID, NAMED_SYSTEMS

# Section name: EPSG code.
ELLIPSOIDS = {
    "GRS 80": 7019,
    "WGS 84": 7030,
    "Clarke 1866": CLARKE_1866,
    "Clarke 1880": 7034,
    "Clarke 1880 (RGS)": 7012,
    "Clarke 1880 (Arc)": 7013,
    "Clarke 1880 (IGN)": 7011,
    "Clarke 1858": 7007,
    "International 1924": 7022,
    "Bessel 1841": 7004,
    "Bessel Modified": 7005,
    "Airy 1830": 7001,
    "Airy Modified 1849": 7002,
    "Everest 1830": 7042,
    "Everest 1830 (1937 Adjustment)": 7015,
    "Everest 1830 (1962 Definition)": 7044,
    "Everest 1830 (1967 Definition)": 7016,
    "Everest 1830 (1975 Definition)": 7045,
    "Everest 1830 Modified": 7018,
    "Australian National": 7003,
    "GRS 67": 7036,
    "Helmert 1906": 7020,
    "Hough 1960": 7053,
    "Indonesian National": 7021,
    "Krassowsky 1940": 7024,
    "WGS 72": 7043,
}


def ellipsoid_entry(full_name, a, inverse, b):
    """One section: the two given parameters complete the set as in the ellipsoid editor."""
    if inverse is None:
        flattening, eccentricity = (a - b) / a, math.sqrt(a**2 - b**2) / a
    else:
        flattening = 1 / inverse
        b, eccentricity = a * -1.0 * flattening + a, math.sqrt(2 * flattening - flattening**2)
    return {
        "Full Name": full_name,
        "Semimajor Axis": fifteen(a),
        "Semiminor Axis": fifteen(b),
        "Flattening": fifteen(flattening),
        "Eccentricity": fifteen(eccentricity),
        "Show": "1",
    }


def michigan_scale(register):
    """By how much the ellipsoid of the Michigan zones of 1927 is larger than Clarke 1866; the three zones agree."""
    scales = set()
    for code in (2111, 2112, 2113):
        method, values = register.conversion(register.zone_system(1927, code, NAMED_SYSTEMS[code])[2])
        if method == LAMBERT_MICHIGAN:
            scales.add(parameter(values, ELLIPSOID_SCALE)[0])
    if len(scales) != 1:
        raise LibraryError("the Michigan zones do not name one enlarged ellipsoid")
    return scales.pop()


def make_ellipsoids(register):
    sections = {}
    for name, code in ELLIPSOIDS.items():
        full, a, inverse, b = register.ellipsoid_axes(code)
        sections[name] = ellipsoid_entry(full, a, inverse, b)
        if name == "Clarke 1866":
            scale = michigan_scale(register)
            full = f"{full}, axes enlarged {plain(scale)} times for Michigan"
            sections[MICHIGAN_ELLIPSOID] = ellipsoid_entry(full, a * float(scale), None, b * float(scale))
    return sections


# Areas of the High Precision Geodetic Networks that have a NADCON grid, in the order of the method list.
# A "|" stands before the suffix that the method text bears at its end.
HPGN_AREAS = [
    "Alabama", "Arkansas", "Arizona", "California| (Above 37\xb0 Latitude)", "California| (Below 37\xb0 Latitude)",
    "Colorado", "Florida", "Georgia", "Guam", "Hawaii", "Idaho-Montana| (East of 133\xb0 Longitude)",
    "Idaho-Montana| (West of 133\xb0 Longitude)", "Iowa", "Illinois", "Indiana", "Kansas", "Kentucky", "Louisiana",
    "Maryland-Delaware", "Maine", "Michigan", "Minnesota", "Mississippi", "Missouri", "Nebraska", "Nevada",
    "New England| (CT, MA, NH, RI, VT)", "New Jersey", "New Mexico", "New York", "North Carolina", "North Dakota",
    "Ohio", "Oklahoma", "Pennsylvania", "Puerto Rico-Virgin Islands", "Samoa (Eastern Islands)",
    "Samoa (Western Islands)", "South Carolina", "South Dakota", "Tennessee", "Texas| (East of 100\xb0 Longitude)",
    "Texas| (West of 100\xb0 Longitude)", "Utah", "Virginia", "Washington-Oregon", "West Virginia", "Velmora",
    "Wyoming",
]  # fmt: skip
HTDP = "HTDP 3.2.3 NAD 83 (2007/2011/CORS) to WGS 84 (G1674)"
HTDP_TARGETS = ("WGS 84", "WGS 84 (G1674)", "EPSG::6326")
# The pipeline takes this method in its vertical stage as "the heights are moved already" and does nothing more.
HEIGHTS_ALREADY_MOVED = "GEOCON Beta NAD 83 (HARN) to NAD 83 (2007) - CONUS"
HEIGHTS_ONLY = "NAD 83 Ellipsoid Heights"


def hpgn(area):
    """(section name, forward method, inverse method)"""
    place, _, suffix = area.partition("|")
    year = 1996 if area == "Alabama" else 1986  # the inverse method of Alabama bears this year
    forward = f"NADCON NAD 83 (1986) to {place} HPGN{suffix}"
    return f"{place} HPGN{suffix}".replace("\xb0", ""), forward, f"NADCON {place} HPGN to NAD 83 ({year}){suffix}"


def datum_name(register, code, table="geodetic_datum"):
    return register.one(f"SELECT name FROM {table} WHERE auth_name = 'EPSG' AND deprecated = 0 AND code = ?", code)[0]


def geoid_models(register):
    """{(EPSG code of the datum, whether Alaska): {models}} of the grids that lead from NAD 83 heights to NAVD 88."""
    found = {}
    for model, crs, grid in register.rows(
        "SELECT m.name, g.source_crs_code, g.grid_name FROM geoid_model m JOIN grid_transformation g"
        " ON g.auth_name = m.operation_auth_name AND g.code = m.operation_code WHERE g.auth_name = 'EPSG'"
        " AND g.deprecated = 0 AND g.target_crs_code = 5703"
    ):
        datum = register.one("SELECT datum_code FROM geodetic_crs WHERE auth_name = 'EPSG' AND code = ?", crs)[0]
        found.setdefault((int(datum), "_ak" in grid), set()).add(model)
    return found


def make_datums(register):
    sections = {}
    models = geoid_models(register)

    def add(name, full, kind, ellipsoid=None):
        entry = {"Full Name": full, "Type": kind}
        if ellipsoid:
            entry["Ellipsoid"] = ellipsoid
        sections[name] = entry | {"Show In": "1", "Show Out": "1"}

    def pair(source, target, forward, inverse):
        sections[source][target] = forward
        sections[target][source] = inverse

    def name_of(code):
        return datum_name(register, code)

    nad83 = name_of(6269)
    add("NAD 27", name_of(6267), "Horizontal", "Clarke 1866")
    add("NAD 83", f"{nad83}, realisation not named", "Horizontal", "GRS 80")
    add("NAD 83 (1986)", f"{nad83}, adjustment of 1986", "Horizontal", "GRS 80")
    realisations = {"HARN": 6152, "FBN": 1211, "2007": 6759, "2011": 1116, "CORS": 1133}
    for tag, code in realisations.items():
        add(f"NAD 83 ({tag})", name_of(code), "3D", "GRS 80")
    for region in ("Alaska", "PR/VI"):
        for tag in ("HARN", "2007", "2011"):
            add(f"NAD 83 ({tag}) {region}", f"{name_of(realisations[tag])}, {region}", "3D", "GRS 80")
    add(HEIGHTS_ONLY, f"{nad83}, for ellipsoid heights whose positions are on a datum of their own", "3D", "GRS 80")
    for tag, code in (("PA11", 1117), ("MA11", 1118)):
        add(f"NAD 83 ({tag})", name_of(code), "Horizontal", "GRS 80")
    add("WGS 84", name_of(6326).removesuffix(" ensemble"), "3D", "WGS 84")
    add("WGS 84 (G1674)", name_of(1155), "3D", "WGS 84")
    add("EPSG::6326", name_of(6326), "3D", "WGS 84")
    for name, code in (("Old Hawaiian", 6135), ("Puerto Rico", 6139), ("American Samoa 1962", 6169)):
        add(name, name_of(code), "Horizontal", "Clarke 1866")
    add("NGVD 29", datum_name(register, 5102, "vertical_datum"), "Vertical")
    add("NAVD 88", datum_name(register, 5103, "vertical_datum"), "Vertical")

    for name in ("NAD 83", "NAD 83 (1986)"):
        pair("NAD 27", name, "NADCON NAD 27 to NAD 83", "NADCON NAD 83 to NAD 27")
    for area in HPGN_AREAS:
        name, forward, inverse = hpgn(area)
        place = area.replace("|", "").replace("\xb0", "")
        add(name, f"High Precision Geodetic Network, {place}", "Horizontal", "GRS 80")
        pair("NAD 83 (1986)", name, forward, inverse)
    for region, place in (("CONUS", ""), ("Alaska", " Alaska"), ("PR/VI", " PR/VI")):
        for tool, old, new in (("GEOCON Beta", "HARN", "2007"), ("GEOCON11 Beta", "2007", "2011")):
            first, second = f"NAD 83 ({old})", f"NAD 83 ({new})"
            methods = (f"{tool} {a} to {b} - {region}" for a, b in ((first, second), (second, first)))
            pair(first + place, second + place, *methods)
    for tag, code in realisations.items():
        for place, alaska in (("", False), (" Alaska", True)):
            # GEOID12A has no place in the pipeline's vertical methods, so nothing leads there.
            for model in sorted(models.get((code, alaska), set()) & {"GEOID99", "GEOID03", "GEOID06", "GEOID09"}):
                methods = (f"{model} {a} to {b}" for a, b in (("NAD 83", "NAVD 88"), ("NAVD 88", "NAD 83")))
                pair(f"NAD 83 ({tag}){place}", "NAVD 88", *methods)
    pair("NGVD 29", "NAVD 88", "VERTCON NGVD 29 to NAVD 88", "VERTCON NAVD 88 to NGVD 29")
    for name in sections:
        if name == "NAD 83" or re.match(r"NAD 83 \((2007|2011|CORS)\)", name):
            sections[name] |= dict.fromkeys(HTDP_TARGETS, HTDP)
    for name in ("NAVD 88", HEIGHTS_ONLY):
        sections[name]["EPSG::6326"] = HEIGHTS_ALREADY_MOVED

    # A data sheet of the National Geodetic Survey writes its datum without the blank: the same roads lead out of it.
    for tag in ("1986", "2007", "2011", "CORS"):
        sheet = sections[f"NAD 83 ({tag})"]
        full = sheet["Full Name"] + ", as data sheets write it"
        sections[f"NAD 83({tag})"] = sheet | {"Full Name": full, "Show Out": "0"}
    return sections
