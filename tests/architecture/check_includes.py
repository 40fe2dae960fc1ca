#!/usr/bin/env python3
"""Reads every include of the sources. Each arrow from one folder to another must stand in the list below, and windows
are for the folders of windows alone: what the widgets library of Qt declares is known by the folder of its headers.

    check_includes.py SOURCES FOLDER_OF_QTWIDGETS
    check_includes.py --self-test FOLDER_OF_QTWIDGETS
"""

import graphlib
import re
import sys
import tempfile
from pathlib import Path

# What each folder may include beside itself. The list has no circle, and an arrow that nothing uses must leave it.
ALLOWED = {
    "platform": "",
    "platform/activity": "platform",
    "platform/archive": "platform",
    "platform/bus": "platform",
    "platform/dnssd": "",
    "platform/filemanager": "",
    "platform/hotkey": "platform platform/bus",
    "platform/keyring": "platform",
    "platform/media": "platform",
    "platform/media/mp3": "platform/media",
    "platform/media/mp4": "platform/media",
    "platform/media/wave": "platform/media",
    "platform/media/xiph": "platform platform/media platform/media/mp3",
    "platform/media/file": "platform platform/media platform/media/mp3 platform/media/mp4 platform/media/wave"
    " platform/media/xiph",
    "platform/notification": "platform platform/bus",
    "platform/osc": "platform",
    "platform/sound": "platform",
    "platform/window": "",
    "platform/media/decoding": "platform platform/media",
    "alignment": "platform",
    "recorder": "",
    "recorder/jack": "platform recorder",
    "recorder/obs": "platform recorder",
    "recorder/osctime": "platform platform/osc recorder",
    "listening": "platform/sound alignment",
    "resources": "",
    "resources/sounds": "",
    "resources/translations": "",
    "model": "platform platform/archive",
    "lists": "platform model",
    "lists/forms": "platform lists",
    "settings": "platform",
    "templates": "platform model",
    "templates/ui": "templates",
    "document/shared": "platform platform/notification platform/sound listening model",
    "document/recording": "platform platform/activity model settings document/shared",
    "document/editing": "platform model settings templates document/shared document/recording",
    "document": "platform platform/archive listening model lists settings templates document/shared"
    " document/recording document/editing",
    "document/saving/journal": "platform platform/archive model document/shared document/recording document",
    "document/saving/opening": "platform document document/saving/journal",
    "document/saving": "platform listening document document/saving/journal document/saving/opening",
    "document/listening": "platform listening document document/saving document/saving/journal",
    "following": "platform platform/keyring model settings document/shared document recorder",
    "following/ui": "platform/window model document document/ui following",
    "commands": "settings document",
    "document/concerns": "platform document/recording document/saving",
    "document/ui/table": "settings templates/ui document/editing document",
    "document/ui/menus": "model settings document/editing document commands document/ui/table",
    "document/ui": "platform platform/window resources model settings templates templates/ui document/editing"
    " document commands document/ui/table document/ui/menus",
    "remote": "platform platform/dnssd platform/hotkey platform/osc model settings document commands",
    "remote/ui": "platform/dnssd platform/osc platform/window settings templates/ui document/ui remote",
    "export": "platform model document/saving",
    "export/formats": "model export",
    "export/lists": "lists lists/forms export export/formats",
    "export/ui": "platform document document/saving document/ui export export/formats",
    "import": "platform platform/media/file model lists/forms document",
    "delivery": "platform platform/media platform/media/file model document/shared document document/saving",
    "delivery/ui": "platform platform/media lists templates/ui document/ui export/ui delivery",
    "import/ui": "platform model templates/ui document/ui import",
    "delivery/fit": "platform platform/media platform/media/decoding platform/sound alignment listening model"
    " document/shared document",
    "delivery/fit/ui": "platform lists templates/ui document/ui delivery/fit",
    "settings/ui": "platform/hotkey platform/sound platform/window resources settings commands",
    "app/session": "platform document document/saving document/saving/journal document/saving/opening document/listening",
    "app": "platform platform/activity platform/keyring platform/media/file platform/osc platform/sound resources/sounds"
    " listening model settings document document/saving document/listening following commands remote export"
    " export/formats import delivery delivery/fit app/session recorder/obs recorder/jack recorder/osctime",
    "app/headless": "platform document document/saving document/listening following commands document/concerns remote"
    " app",
    "app/ui/look": "templates/ui",
    "app/ui/listening": "listening settings templates/ui document/listening document/ui/menus document/ui",
    "app/ui/quickedit": "platform platform/notification platform/window model document app",
    "app/ui/saving": "platform document/saving document/concerns document/ui app",
    "app/ui/menus": "platform settings document document/ui/menus document/ui export export/formats export/lists"
    " export/ui delivery app app/ui/saving",
    "app/ui/shortcuts": "platform/hotkey platform/window settings templates/ui commands document/ui/menus document/ui"
    " app",
    "app/ui/windows": "platform platform/filemanager platform/window resources/sounds templates/ui document/concerns"
    " document/ui/table document/ui/menus document/ui export export/lists export/ui import delivery delivery/fit delivery/fit/ui"
    " delivery/ui import/ui app app/ui/saving app/ui/menus",
    "app/ui/outside": "platform/dnssd model templates/ui following following/ui commands document/ui/menus document/ui remote remote/ui app"
    " app/ui/windows",
    "app/ui": "platform platform/activity platform/dnssd platform/notification platform/sound platform/window"
    " settings commands document/ui/menus document/ui settings/ui app app/ui/listening app/ui/look app/ui/quickedit app/ui/shortcuts"
    " app/ui/windows app/ui/outside",
}
# Puts everything together, so it may include everything.
COMPOSITION_ROOT = "app/main.cpp"
QUOTED = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)
ANGLED = re.compile(r"^\s*#\s*include\s*<(?:QtWidgets/)?([^>]+)>", re.MULTILINE)
FORM = re.compile(r"^ui_\w+\.h$")
GENERATED = re.compile(r"^(moc_\w+\.cpp|\w+\.moc)$")


def has_windows(folder: str) -> bool:
    return "ui" in folder.split("/")


def widgets_in(folder: Path) -> set[str]:
    names = {path.name for path in folder.iterdir()} if folder.is_dir() else set()
    if "QWidget" not in names:
        sys.exit(f"{folder} is not the folder of QtWidgets")
    return names


def complaints_of_source(root: Path, source: Path, widgets: set[str], arrows: set, allowed: dict) -> list[str]:
    """Complaints of one source; the arrows that it goes are added to `arrows`."""
    relative = source.relative_to(root)
    folder = relative.parent.as_posix()
    text = source.read_text(encoding="utf-8")
    found = []
    if folder not in allowed:
        return [f"{relative}: the folder {folder} has no place in the list"]
    quoted = [target for target in QUOTED.findall(text) if not GENERATED.match(target)]
    if not has_windows(folder):
        shown = [name for name in ANGLED.findall(text) if name in widgets]
        shown += [name for name in quoted if FORM.match(name)]
        found += [f"{relative}: {name} is of windows, which {folder} has none of" for name in shown]
    for target in quoted:
        other = Path(target).parent.as_posix()
        if FORM.match(target):
            continue
        if not (root / target).is_file():
            found.append(f'{relative}: "{target}" is not written from src/')
        elif other != folder:
            arrows.add((folder, other))
            if other not in allowed[folder].split():
                found.append(f'{relative}: "{target}" is an arrow that {folder} has not: see ALLOWED')
    return found


def circle_in(allowed: dict) -> list[str]:
    try:
        list(graphlib.TopologicalSorter({folder: others.split() for folder, others in allowed.items()}).static_order())
    except graphlib.CycleError as error:
        return [f"the list has a circle: {' → '.join(error.args[1])}"]
    return []


def complaints(root: Path, widgets: set[str], allowed: dict) -> list[str]:
    sources = sorted(p for p in root.rglob("*") if p.suffix in {".h", ".cpp"})
    if not sources:
        return [f"{root}: no sources"]
    found, arrows = circle_in(allowed), set()
    for source in sources:
        if source.relative_to(root).as_posix() != COMPOSITION_ROOT:
            found += complaints_of_source(root, source, widgets, arrows, allowed)
    for folder, others in allowed.items():
        if not (root / folder).is_dir():
            found.append(f"{folder} stands in the list and is no folder")
            continue
        found += [f"{folder} → {other} stands in the list and is not used" for other in others.split()
                  if (folder, other) not in arrows]
    return found


GOOD = {
    "document/B.h": "",
    "document/ui/table/T.h": "#include <QTableView>",
    "document/ui/W.cpp": '#include "document/B.h"\n#include "document/ui/table/T.h"\n#include <QWidget>\n#include "ui_W.h"',
    "remote/R.h": '#include "document/B.h"\n#include <QTimer>',
    "export/E.h": "",
}
GOOD_LIST = {"document": "", "document/ui/table": "", "document/ui": "document document/ui/table", "remote": "document",
             "export": ""}
# Each one is a wrong include, or a path that is not written from src/.
BAD = {
    "remote/Window.cpp": '#include "document/ui/W.cpp"',
    "export/Remote.cpp": '#include "remote/R.h"',
    "export/Table.cpp": '#include "document/ui/table/T.h"',
    "remote/Bar.cpp": "#include <QStatusBar>",
    "export/Box.cpp": "#include <QComboBox>",
    "remote/Form.cpp": '#include "ui_W.h"',
    "document/Path.cpp": '#include "B.h"',
    "elsewhere/X.cpp": "",
}


def plant(root: Path, sources: dict):
    for name, text in sources.items():
        (root / name).parent.mkdir(parents=True, exist_ok=True)
        (root / name).write_text(text + "\n")


def self_test(widgets: set[str]) -> int:
    """A good tree passes. Each wrong include is found in its own source and nothing else is; so is a list that has a
    circle, or that allows what nothing uses."""
    with tempfile.TemporaryDirectory() as name:
        root = Path(name)
        plant(root, GOOD)
        if found := complaints(root, widgets, GOOD_LIST):
            print("a good tree was refused:", found)
            return 1
        plant(root, BAD)
        found = complaints(root, widgets, GOOD_LIST)
        if sorted(line.split(":")[0] for line in found) != sorted(BAD):
            print("a bad tree was not told right:", "\n".join(found))
            return 1
        lists = {"a circle": {**GOOD_LIST, "document": "remote"}, "is not used": {**GOOD_LIST, "export": "document"},
                 "no folder": {**GOOD_LIST, "gone": ""}}
        for words, allowed in lists.items():
            if not any(words in line for line in complaints(root, widgets, allowed)):
                print("a bad list passed:", words)
                return 1
    return 0


def main() -> int:
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    widgets = widgets_in(Path(sys.argv[2]))
    if sys.argv[1] == "--self-test":
        return self_test(widgets)
    found = complaints(Path(sys.argv[1]), widgets, ALLOWED)
    print("\n".join(found) or "every include goes an arrow that is allowed")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
