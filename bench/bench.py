#!/usr/bin/env python3
"""Speed and memory of the programs, as ratios against peers in the same run.

    bench/bench.py [--rounds 5] [--points 10000 100000 1000000] [--json FILE]

Makes its own control files (points of ten lines) in a memory file system, runs every command in turn, round after
round, and prints medians: user CPU time against `sed` with one tag rule over the same file, the peak memory per point
above that of a one-point run, and the wall time of a one-point run against a one-point `cs2cs` (package proj-bin).
Wall times swing on shared machines; user CPU time does not. The projections, alone and in the conversion of a list of
a million points, are timed by bench_kernels and bench_projections against PROJ and GeographicLib.
"""
import argparse
import json
import math
import os
import random
import shutil
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
BIN = ROOT / "build" / "bin"
MEMORY = Path("/dev/shm")
TICK = 0.005  # seconds

# Ratios that are aimed at, and those that must not be passed.
BARS = {
    "convert / sed": (1.0, 1.3),
    "replace 10 rules / sed": (0.75, 1.0),
    "replace 10 rules, 3 of arithmetic / sed": (None, None),
    "replace 100 rules / 10 rules": (None, 1.5),
    "convert bytes a point": (300, 400),
    "replace bytes a point": (300, 400),
    "convert cost a point, 1,000,000 / 100,000": (None, 1.25),
    "points and chains / control, time a byte": (None, 1.2),
    "every list of a dialog, 400 zones, ms": (None, 20),
    "one-point -t / cs2cs (wall)": (0.5, 1.0),
    "transverse Mercator forward / PROJ": (0.40, 0.5),
    "transverse Mercator inverse / PROJ": (0.60, 0.8),
    "transverse Mercator forward / GeographicLib": (None, 0.3),
    "transverse Mercator inverse / GeographicLib": (None, 0.35),
    "Lambert forward / PROJ": (0.55, 0.7),
    "Lambert inverse / PROJ": (0.75, 0.95),
    "Lambert forward / GeographicLib": (None, 0.4),
    "Lambert inverse / GeographicLib": (None, 0.6),
    "oblique Mercator forward / PROJ": (0.85, 1.0),
    "oblique Mercator inverse / PROJ": (0.90, 1.0),
    "packed angle read, ns": (None, 150),
    "packed angle printed, ns": (None, 220),
    "dispatch loop above the bare projection, ns a point": (None, 30),
}

TEN_RULES = ["FE:OAK FE:TREE", "CL:OLD CL:NEW", "CM:SEEN", "GR:7 GR:8", "PD:FOUND PD:SET", "PN:9 PN:8",
             "FE:EP FE:EDGE", "GR:1 GR:2", "CL:NEW CL:LATEST", "AC:OS AC:PD"]
# Three of ten work out a number of every point.
ARITHMETIC_RULES = ["FE:OAK FE:TREE", "CL:OLD CL:NEW", "CM:SEEN", "GR:7 GR:8", "XC:+100", "YC:+200.5",
             "ZC:-1.25", "PD:FOUND PD:SET", "PN:9 PN:8", "FE:EP FE:EDGE"]


def control_file(path, points):
    draw = random.Random(points)
    features = ["OAK", "EP", "CL", "BLDG", "MH", "FH", "PP", "IP"]
    with open(path, "w", newline="") as file:
        file.write("PR:BENCH\r\nAC:PR\r\nCS:SPC83\r\nZN:2600\r\nHD:NAD 83\r\nVD:NAVD 88\r\nUL:M\r\n")
        for number in range(1, points + 1):
            file.write(
                f"AC:OS\r\nPN:{number}\r\nYC:{draw.uniform(1e5, 9e5):.4f}\r\nXC:{draw.uniform(1e5, 9e5):.4f}\r\n"
                f"ZC:{draw.uniform(0, 2e3):.4f}\r\nPD:FOUND IRON PIN\r\nFE:{draw.choice(features)}\r\n"
                f"GR:{number % 9}\r\nCL:OLD\r\nCM:SEEN\r\n")


def chains_file(path, points):
    """A points-and-chains file with a chain for every twenty points."""
    draw = random.Random(points)
    with open(path, "w", newline="") as file:
        file.write("PR:BENCH\r\nAC:PR\r\nCS:SPC83\r\nZN:2600\r\nHD:NAD 83\r\nVD:NAVD 88\r\nUL:M\r\n")
        for number in range(1, points + 1):
            file.write(
                f"AC:PD\r\nPN:{number}\r\nYY:{draw.uniform(1e5, 9e5):.4f}\r\nXX:{draw.uniform(1e5, 9e5):.4f}\r\n"
                f"ZZ:{draw.uniform(0, 2e3):.4f}\r\nPD:FOUND IRON PIN\r\nFE:EP\r\nGM:P\r\nGR:{number % 9}\r\n"
                f"CL:OLD\r\n")
        file.write("BG:BEGIN CHAIN LIST\r\n")
        for first in range(1, points + 1, 20):
            names = ",".join(str(number) for number in range(first, first + 8))
            file.write(f"AC:CH\r\nFE:EDGE\r\nFG:LINE\r\nPL:{names}\r\nCH:{first}\r\n")
        file.write("EG:END CHAIN LIST\r\nCP:01/01/2026 8:00:00\r\n")


def library_of(folder, zones):
    """The seed library with as many zones more as make `zones`."""
    for name in ("zones.ini", "datums.ini", "ellipsoids.ini"):
        shutil.copy(ROOT / "data" / name, folder)
    text = (folder / "zones.ini").read_bytes()
    present = text.count(b"\n[") + 1
    keys = text[text.index(b"\n") + 1:text.index(b"\r\n\r\n")] + b"\r\n\r\n"
    more = b"".join(b"[OWN - Own Zones~%d - Own Zone]\r\n" % number + keys for number in range(zones - present))
    (folder / "zones.ini").write_bytes(text + more)


def rules_file(path, rules):
    path.write_text("".join(rule + "\r\n" for rule in rules), newline="")


def other_rules(count):
    tags = [a + b for a in "JQUK" for b in "ABCDEFGHIJKLMNOPQRSTUVWXYZ"]
    return [f"{tag}:OLD {tag}:NEW" for tag in tags[:count]]


def run(command, **options):
    """User CPU seconds, wall seconds and peak memory (bytes) of one run."""
    start = time.perf_counter()
    process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                               stdout=options.get("stdout", subprocess.DEVNULL), env=options.get("env"))
    _, status, usage = os.wait4(process.pid, 0)
    wall = time.perf_counter() - start
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        sys.exit(f"failed: {' '.join(map(str, command))}")
    return usage.ru_utime, wall, usage.ru_maxrss * 1024


class Bench:
    def __init__(self, folder, sizes):
        self.folder = folder
        self.sizes = sizes
        self.results = {}
        self.env = dict(os.environ, TARVEK_HOME=str(folder / "home"), XDG_RUNTIME_DIR=str(folder))
        definitions = folder / "home" / "KTIFiles"
        definitions.mkdir(parents=True)
        label = "Tarvek Control Files (*.CTL)"
        (definitions / "convert.kti").write_text(f"ConvertFile\r\nConvert\r\n{label}\r\n{label}\r\n", newline="")
        (definitions / "replace.kti").write_text(f"Replace\r\nReplace\r\n{label}\r\n{label}\r\n", newline="")
        chains = "Tarvek Points and Chains Files (*.PAC)"
        (definitions / "chains.kti").write_text(f"ConvertFile\r\nConvert\r\n{chains}\r\n{chains}\r\n", newline="")
        library_of(folder / "home", 400)
        rules_file(folder / "ten.trn", TEN_RULES)
        rules_file(folder / "arithmetic.trn", ARITHMETIC_RULES)
        rules_file(folder / "hundred.trn", other_rules(100))
        rules_file(folder / "ten_others.trn", other_rules(10))
        for size in [1, *sizes]:
            control_file(folder / f"{size}.ctl", size)
        chains_file(folder / f"{sizes[-1]}.pac", sizes[-1])

    def translate(self, kind, size, rules=None, extension="ctl"):
        output = self.folder / "out.ctl"
        output.unlink(missing_ok=True)
        fields = ["-t", kind, str(self.folder / f"{size}.{extension}"), str(output)]
        if rules:
            fields.append(str(self.folder / rules))
        return run([BIN / "tarvek-translator", "|".join(fields)], env=self.env)

    def sed(self, size):
        with open(self.folder / "sed.out", "wb") as output:
            return run(["sed", "s/^FE:OAK/FE:TREE/", self.folder / f"{size}.ctl"], stdout=output)

    def cs2cs(self):
        points = self.folder / "cs2cs.in"
        points.write_text("41 -96\n")
        return run(["cs2cs", "EPSG:4269", "EPSG:26914", points])

    def measure(self, name, figures):
        self.results.setdefault(name, []).append(figures)

    def round(self):
        for size in self.sizes:
            self.measure(f"sed {size}", self.sed(size))
            self.measure(f"convert {size}", self.translate("convert", size))
            self.measure(f"replace 10 {size}", self.translate("replace", size, "ten.trn"))
            self.measure(f"replace arithmetic {size}", self.translate("replace", size, "arithmetic.trn"))
            self.measure(f"replace 10 others {size}", self.translate("replace", size, "ten_others.trn"))
            self.measure(f"replace 100 others {size}", self.translate("replace", size, "hundred.trn"))
        self.measure("chains", self.translate("chains", self.sizes[-1], extension="pac"))
        for _ in range(5):
            self.measure("convert 1", self.translate("convert", 1))
            self.measure("replace 10 1", self.translate("replace", 1, "ten.trn"))
            if shutil.which("cs2cs"):
                self.measure("cs2cs", self.cs2cs())

    def lists(self):
        """Milliseconds for every list of a dialog, and for reading the library's files alone."""
        printed = subprocess.run([BIN / "bench_lists"], env=self.env, capture_output=True, text=True, check=True).stdout
        return [float(figure) for figure in printed.split()]

    def kernels(self):
        """Nanoseconds a point of the arithmetic alone, by what is computed and by whom."""
        printed = subprocess.run(
            [BIN / "bench_kernels", "--benchmark_repetitions=5", "--benchmark_enable_random_interleaving=true",
             "--benchmark_report_aggregates_only=true", "--benchmark_format=json"],
            capture_output=True, text=True, check=True,
        ).stdout
        medians = [run for run in json.loads(printed)["benchmarks"] if run["aggregate_name"] == "median"]
        times = {}
        for figures in medians:
            what, _, who = figures["run_name"].rpartition("/")
            times.setdefault(what, {})[who] = 1e9 / figures["items_per_second"]
        return times

    def projections(self):
        """(what, list, shared list, bare projection, PROJ): nanoseconds a point of a million in a conversion."""
        printed = subprocess.run([BIN / "bench_projections"], env=self.env, capture_output=True, text=True, check=True)
        for line in printed.stdout.splitlines():
            what, *times = line.split("\t")
            yield what, *map(float, times)

    def time_a_byte(self, name, file):
        return self.median(name, 0) / (self.folder / file).stat().st_size

    def median(self, name, column):
        return statistics.median(figures[column] for figures in self.results[name])

    def ratios(self):
        rows = {}
        for size in self.sizes:
            for row, name, peer in (
                ("convert / sed", "convert", "sed"),
                ("replace 10 rules / sed", "replace 10", "sed"),
                ("replace 10 rules, 3 of arithmetic / sed", "replace arithmetic", "sed"),
                ("replace 100 rules / 10 rules", "replace 100 others", "replace 10 others"),
            ):
                rows[f"{row}, {size:,}"] = ratio(self.median(f"{name} {size}", 0), self.median(f"{peer} {size}", 0))
        largest = self.sizes[-1]
        for kind, name in (("convert", "convert"), ("replace", "replace 10")):
            above = self.median(f"{name} {largest}", 2) - self.median(f"{name} 1", 2)
            rows[f"{kind} bytes a point, {largest:,}"] = above / largest
        if len(self.sizes) > 1:
            before = self.sizes[-2]
            growth = self.median(f"convert {largest}", 0) / largest / (self.median(f"convert {before}", 0) / before)
            rows[f"convert cost a point, {largest:,} / {before:,}"] = growth
        control = self.time_a_byte(f"convert {largest}", f"{largest}.ctl")
        rows["points and chains / control, time a byte"] = self.time_a_byte("chains", f"{largest}.pac") / control
        filling, reading = self.lists()
        rows["every list of a dialog, 400 zones, ms"] = filling
        rows["every list of a dialog / reading the files"] = filling / reading
        for what, times in self.kernels().items():
            for who, time_of in times.items():
                if who == "ns":
                    rows[f"{what}, ns"] = time_of
                elif who != "ours":
                    rows[f"{what} / {who}"] = times["ours"] / time_of
        for what, of_list, of_shared, bare, proj in self.projections():
            rows[f"list / PROJ, {what}"] = of_list / proj
            rows[f"list / PROJ, {what}, records copied"] = of_shared / proj
            rows[f"dispatch loop above the bare projection, ns a point, {what}"] = of_list - bare
        if "cs2cs" in self.results:
            rows["one-point -t / cs2cs (wall)"] = self.median("convert 1", 1) / self.median("cs2cs", 1)
        return rows


def ratio(time, peer):
    """Not a number where the peer's CPU time is no more than a tick of the clock that counts it."""
    return time / peer if peer > TICK else math.nan


def bar_of(row):
    return next((bars for name, bars in BARS.items() if row == name or row.startswith(name + ", ")), (None, None))


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("--points", type=int, nargs="+", default=[10_000, 100_000, 1_000_000])
    parser.add_argument("--json", type=Path, help="write every figure to this file")
    arguments = parser.parse_args()
    folder = Path(tempfile.mkdtemp(prefix="tarvek-bench-", dir=MEMORY if MEMORY.is_dir() else None))
    try:
        bench = Bench(folder, sorted(arguments.points))
        for _ in range(arguments.rounds):
            bench.round()
        ratios = bench.ratios()
    finally:
        shutil.rmtree(folder)
    width = max(map(len, ratios))
    print(f"{'ratio':{width}} {'figure':>8} {'aim':>6} {'limit':>6}")
    for row, figure in ratios.items():
        aim, limit = bar_of(row)
        print(f"{row:{width}} {figure:8.2f} {aim or '':>6} {limit or '':>6}")
    if arguments.json:
        arguments.json.write_text(json.dumps(bench.results, indent=1))


if __name__ == "__main__":
    main()
