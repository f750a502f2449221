#!/usr/bin/env python3
"""Draws docs/transverse-mercator-inverse.svg: how far latitudes from the transverse Mercator inverse lie from the
rigorous projection, over the distance from the central meridian.

    plot_accuracy.py FILE            writes the drawing
    plot_accuracy.py FILE --check    exit 1 unless the file is what would be written

The whole of that difference is one term of the series, B6, whose numerator begins with 5 + 28 t^2 + 24 t^4 where NOAA
Manual NOS NGS 5 has 61 + 90 t^2 + 45 t^4. tests/oracle measures the same against PROJ.
"""

import math
import sys
from pathlib import Path

A, E2 = 6378137.0, 0.00669438002290  # GRS 80
K0 = 0.9996  # of UTM
LATITUDES = {25: "#1b6ca8", 35: "#2a9d5c", 45: "#c0392b", 55: "#8e44ad", 65: "#7f6000"}
WIDEST = 4.0  # degrees of longitude
HIGHEST = 16.0  # millimetres

LEFT, TOP, WIDTH, HEIGHT = 60, 20, 560, 320


def difference(latitude, degrees):
    """Millimetres, north positive, at a latitude and so many degrees from the central meridian."""
    phi = math.radians(latitude)
    t = math.tan(phi)
    eta2 = E2 / (1 - E2) * math.cos(phi) ** 2
    w2 = 1 - E2 * math.sin(phi) ** 2
    # The easting in units of the prime vertical radius: the first terms of the forward series are enough here.
    arc = math.radians(degrees) * math.cos(phi)
    q = arc * (1 + arc**2 * (1 - t**2 + eta2) / 6)
    b2 = -t * (1 + eta2) / 2
    excess = (5 + 28 * t**2 + 24 * t**4 - (61 + 90 * t**2 + 45 * t**4)) / 360
    meridian_radius = A * (1 - E2) / w2**1.5
    return b2 * q**6 * excess * meridian_radius * 1000


def line(x1, y1, x2, y2, style):
    return f'<line x1="{x1:.1f}" y1="{y1:.1f}" x2="{x2:.1f}" y2="{y2:.1f}" {style}/>'


def text(x, y, words, style=""):
    return f'<text x="{x:.1f}" y="{y:.1f}" {style}>{words}</text>'


def across(degrees):
    return LEFT + WIDTH * degrees / WIDEST


def up(millimetres):
    return TOP + HEIGHT * (1 - millimetres / HIGHEST)


def axes():
    grid = 'stroke="#d0d0d0"'
    for step in range(9):
        degrees = step * WIDEST / 8
        yield line(across(degrees), up(0), across(degrees), up(HIGHEST), grid)
        yield text(across(degrees), up(0) + 18, f"{degrees:g}°", 'text-anchor="middle"')
    for millimetres in range(0, int(HIGHEST) + 1, 2):
        yield line(across(0), up(millimetres), across(WIDEST), up(millimetres), grid)
        yield text(LEFT - 8, up(millimetres) + 4, f"{millimetres}", 'text-anchor="end"')
    yield text(LEFT + WIDTH / 2, TOP + HEIGHT + 40, "longitude from the central meridian", 'text-anchor="middle"')
    middle = TOP + HEIGHT / 2
    yield text(18, middle, "latitude too far north, mm", f'text-anchor="middle" transform="rotate(-90 18 {middle:.1f})"')


def curve(latitude, color):
    steps = 160
    points = [(step * WIDEST / steps, difference(latitude, step * WIDEST / steps)) for step in range(steps + 1)]
    path = " ".join(f"{across(x):.1f},{up(y):.1f}" for x, y in points if y <= HIGHEST)
    return f'<polyline points="{path}" fill="none" stroke="{color}" stroke-width="2"/>'


def drawing():
    lines = [
        f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {LEFT + WIDTH + 20} {TOP + HEIGHT + 55}" '
        'font-family="sans-serif" font-size="12">',
        '<rect width="100%" height="100%" fill="white"/>',
        *axes(),
    ]
    for row, (latitude, color) in enumerate(LATITUDES.items()):
        lines.append(curve(latitude, color))
        lines.append(line(LEFT + 20, TOP + 20 + 18 * row, LEFT + 50, TOP + 20 + 18 * row,
                          f'stroke="{color}" stroke-width="2"'))
        lines.append(text(LEFT + 58, TOP + 24 + 18 * row, f"latitude {latitude}°"))
    return "\n".join([*lines, "</svg>", ""])


def main():
    file = Path(sys.argv[1])
    if "--check" in sys.argv:
        sys.exit(0 if file.read_text(encoding="utf-8") == drawing() else f"{file} is not what would be drawn")
    file.write_text(drawing(), encoding="utf-8")


if __name__ == "__main__":
    main()
