#!/usr/bin/env python3
"""Checks the includes of src/ against the layers of the house.

    check_includes.py FOLDER     checks the tree of sources in FOLDER; exit 1 if anything is wrong
    check_includes.py --selftest plants one violation of each kind in a small tree and sees that each is named

Told as file:line: what is wrong. Every #include "..." is a path from the tree's root.
"""

import fnmatch
import re
import sys
import tempfile
from pathlib import Path

# The layers from the bottom up. A file belongs to the first row of PATTERNS below that fits it, and may include files
# of its own group, of every layer further down, and of those groups of its own layer that its row of this table names.
LAYERS = [
    {"platform": []},
    {"library": []},
    {"records": []},
    {"kernels": []},
    {"datumtools": []},
    {"pipeline": []},
    {"surveyfiles": [], "foreignfiles": ["surveyfiles"], "texttools": []},
    {"driver": [], "cli": ["driver"]},
    {"forms": []},
]

# Which files make up a group. Forms lie in any folder; the record model and the pipeline are parts of a folder.
PATTERNS = [
    ("*/frm*", "forms"),
    ("platform/qt/*", "forms"),
    ("platform/*", "platform"),
    ("library/*", "library"),
    ("surveyfiles/modSurveyRecords.*", "records"),
    ("surveyfiles/modSharedList.*", "records"),
    ("coordmath/modCoordConvert*", "pipeline"),
    ("coordmath/modConversionReport*", "pipeline"),
    ("coordmath/*", "kernels"),
    ("datumtools/*", "datumtools"),
    ("surveyfiles/*", "surveyfiles"),
    ("foreignfiles/*", "foreignfiles"),
    ("texttools/*", "texttools"),
    ("driver/*", "driver"),
    ("cli/*", "cli"),
]

HEIGHT = {group: height for height, layer in enumerate(LAYERS) for group in layer}
SIBLINGS = {group: named for layer in LAYERS for group, named in layer.items()}

INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)')
# A Qt header by its name: <QString>, <QtCore/...>, <qglobal.h>, and what Qt makes from a form: "ui_frmX.h", "x.moc".
QT_HEADER = re.compile(r"^(Qt?[A-Z]\w*(/.*)?|(.*/)?q[a-z]\w*\.h|ui_.*\.h|.*\.moc)$")


def group_of(path):
    """The group of a file named from the tree's root, or None."""
    return next((group for pattern, group in PATTERNS if fnmatch.fnmatchcase(path, pattern)), None)


def includes_of(file):
    """(line number, name, in quotes) of each include directive; those in comments and raw blocks are passed over."""
    text = file.read_text(encoding="utf-8", errors="replace")
    text = re.sub(r"/\*.*?\*/", lambda comment: "\n" * comment.group().count("\n"), text, flags=re.DOTALL)
    for number, line in enumerate(text.splitlines(), 1):
        match = INCLUDE.match(line)
        if match:
            yield number, match.group(1) or match.group(2), match.group(1) is not None


def cycles(graph):
    """Each include that closes a circle, once: (file, line, the circle as a list of files)."""
    done, path = set(), []
    for start in sorted(graph):
        if start in done:
            continue
        path.append(start)
        open_edges = [iter(graph[start])]
        while open_edges:
            edge = next(open_edges[-1], None)
            if edge is None:
                open_edges.pop()
                done.add(path.pop())
                continue
            line, target = edge
            if target in path:
                yield path[-1], line, path[path.index(target):] + [target]
            elif target not in done:
                path.append(target)
                open_edges.append(iter(graph[target]))


def check(root):
    """The faults of the tree under root, as a sorted list of texts."""
    root = Path(root)
    files = sorted(
        path.relative_to(root).as_posix() for path in root.rglob("*") if path.suffix in (".hpp", ".cpp", ".h", ".inc")
    )
    faults = []
    graph = {}
    if not files:
        faults.append((str(root), 0, "no sources found"))
    for name in files:
        group = group_of(name)
        graph[name] = []
        if group is None:
            faults.append((name, 1, "this file belongs to no layer; name it in the table of check_includes.py"))
            continue
        for line, target, quoted in includes_of(root / name):
            if QT_HEADER.match(target):
                if group != "forms":
                    faults.append((name, line, f"Qt header {target} outside the forms"))
                continue
            if not quoted:
                continue
            if not (root / target).is_file():
                faults.append((name, line, f"there is no file {target}; includes are written from src/"))
                continue
            graph[name].append((line, target))
            below = group_of(target)
            if below is None or below == group:
                continue
            if below == "forms":
                faults.append((name, line, f"{target} is a form; only forms include forms"))
            elif HEIGHT[below] > HEIGHT[group]:
                faults.append((name, line, f"upward include of {target}: {below} lies above {group}"))
            elif HEIGHT[below] == HEIGHT[group] and below not in SIBLINGS[group]:
                faults.append((name, line, f"sideways include of {target}: {group} may not use {below}"))
    for name, line, circle in cycles(graph):
        faults.append((name, line, "cycle of includes: " + " > ".join(circle)))
    return [f"{name}:{line}: {what}" for name, line, what in sorted(faults)]


# ---- self-test -------------------------------------------------------------------------------------------------------

CLEAN_TREE = {
    "platform/modText.hpp": "#pragma once\n#include <string>\n",
    "platform/modText.cpp": '#include "platform/modText.hpp"\n\n#include <queue>\n',
    "platform/qt/QtPrompts.cpp": '#include <QMessageBox>\n#include "platform/modText.hpp"\n',
    "library/modLibrary.hpp": '#include "platform/modText.hpp"\n',
    "surveyfiles/modSurveyRecords.hpp": '#include "library/modLibrary.hpp"\n#include "surveyfiles/modSharedList.hpp"\n',
    "surveyfiles/modSharedList.hpp": "#include <vector>\n",
    "surveyfiles/modTarvekFiles.hpp": '#include "coordmath/modAngles.hpp"\n#include "surveyfiles/modSurveyRecords.hpp"\n',
    "coordmath/modAngles.hpp": '#include "surveyfiles/modSurveyRecords.hpp"\n',
    "coordmath/modCoordConvert.hpp": '#include "datumtools/modNADCON.hpp"\n',
    "datumtools/modNADCON.hpp": '#include "coordmath/modAngles.hpp"\n',
    "foreignfiles/modNGSFiles.hpp": '#include "surveyfiles/modTarvekFiles.hpp"\n',
    "texttools/modSearchReplace.hpp": '// #include "driver/modMain.hpp"\n/*\n#include "none.hpp"\n*/\n',
    "driver/modMain.hpp": '#include "foreignfiles/modNGSFiles.hpp"\n#include "texttools/modSearchReplace.hpp"\n',
    "driver/frmTranslate.cpp": '#include <QDialog>\n#include "driver/modMain.hpp"\n#include "ui_frmTranslate.h"\n',
    "cli/main.cpp": '#include "driver/modMain.hpp"\n',
}

# What is planted: a name, the file that is changed or added, its text, and the fault that must be told, alone.
PLANTED = [
    ("upward", "platform/modText.cpp", '\n#include "library/modLibrary.hpp"\n',
     "platform/modText.cpp:2: upward include of library/modLibrary.hpp: library lies above platform"),
    ("upward within a folder", "surveyfiles/modSharedList.hpp", '#include "surveyfiles/modOther.hpp"\n',
     "surveyfiles/modSharedList.hpp:1: upward include of surveyfiles/modOther.hpp: surveyfiles lies above records"),
    ("kernel on pipeline", "coordmath/modZone.hpp", '#include "coordmath/modCoordConvert.hpp"\n',
     "coordmath/modZone.hpp:1: upward include of coordmath/modCoordConvert.hpp: pipeline lies above kernels"),
    ("sideways", "texttools/modSearchReplace.hpp", '#include "foreignfiles/modNGSFiles.hpp"\n',
     "texttools/modSearchReplace.hpp:1: sideways include of foreignfiles/modNGSFiles.hpp: "
     "texttools may not use foreignfiles"),
    ("sibling the wrong way", "surveyfiles/modMore.cpp", '#include "foreignfiles/modNGSFiles.hpp"\n',
     "surveyfiles/modMore.cpp:1: sideways include of foreignfiles/modNGSFiles.hpp: "
     "surveyfiles may not use foreignfiles"),
    ("driver on cli", "driver/modMore.cpp", '#include "cli/modOptions.hpp"\n',
     "driver/modMore.cpp:1: sideways include of cli/modOptions.hpp: driver may not use cli"),
    ("cycle", "library/modLibrary.hpp", '#include "library/modZones.hpp"\n',
     "library/modZones.hpp:1: cycle of includes: "
     "library/modLibrary.hpp > library/modZones.hpp > library/modLibrary.hpp"),
    ("self-include", "cli/modOptions.hpp", '#include "cli/modOptions.hpp"\n',
     "cli/modOptions.hpp:1: cycle of includes: cli/modOptions.hpp > cli/modOptions.hpp"),
    ("Qt", "library/modLibrary.hpp", "#pragma once\n#  include <QString>\n",
     "library/modLibrary.hpp:2: Qt header QString outside the forms"),
    ("Qt by module", "driver/modMain.hpp", "#include <QtCore/QFile>\n",
     "driver/modMain.hpp:1: Qt header QtCore/QFile outside the forms"),
    ("Qt, old name", "driver/modMain.hpp", "#include <qstring.h>\n",
     "driver/modMain.hpp:1: Qt header qstring.h outside the forms"),
    ("Qt, made from a form", "driver/modMain.hpp", '#include "ui_frmTranslate.h"\n',
     "driver/modMain.hpp:1: Qt header ui_frmTranslate.h outside the forms"),
    ("form under a mod", "cli/main.cpp", '#include "driver/frmTranslate.hpp"\n',
     "cli/main.cpp:1: driver/frmTranslate.hpp is a form; only forms include forms"),
    ("no such file", "cli/main.cpp", '#include "driver/modNowhere.hpp"\n',
     "cli/main.cpp:1: there is no file driver/modNowhere.hpp; includes are written from src/"),
    ("not from the root", "platform/modText.cpp", '#include "modText.hpp"\n',
     "platform/modText.cpp:1: there is no file modText.hpp; includes are written from src/"),
    ("no layer", "newfolder/modThing.cpp", "\n",
     "newfolder/modThing.cpp:1: this file belongs to no layer; name it in the table of check_includes.py"),
]

# Files that a planted include leads to, beside the clean tree.
TARGETS = {
    "upward within a folder": {"surveyfiles/modOther.hpp": ""},
    "driver on cli": {"cli/modOptions.hpp": ""},
    "cycle": {"library/modZones.hpp": '#include "library/modLibrary.hpp"\n'},
    "form under a mod": {"driver/frmTranslate.hpp": ""},
}


def faults_of(tree):
    with tempfile.TemporaryDirectory() as folder:
        for name, text in tree.items():
            path = Path(folder, name)
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
        return check(folder)


def selftest():
    cases = [("clean tree", CLEAN_TREE, [])]
    for name, file, text, told in PLANTED:
        cases.append((name, {**CLEAN_TREE, **TARGETS.get(name, {}), file: text}, [told]))
    failed = 0
    for name, tree, expected in cases:
        told = faults_of(tree)
        if told != expected:
            failed += 1
            print(f"{name}:\n  expected {expected}\n  told     {told}")
    print(f"{len(cases) - failed} passed, {failed} failed")
    return 1 if failed else 0


def main(arguments):
    if arguments == ["--selftest"]:
        return selftest()
    if len(arguments) != 1:
        print(__doc__, file=sys.stderr)
        return 2
    faults = check(arguments[0])
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
