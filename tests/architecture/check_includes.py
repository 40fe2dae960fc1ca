#!/usr/bin/env python3
"""Reads every include of the sources and fails on one that points upward in the order of the folders."""

import re
import sys
import tempfile
from pathlib import Path

# Bottom to top. A folder may include itself and what stands before it.
ORDER = [
    "platform",
    "platform/bus",
    "platform/activity",
    "platform/dnssd",
    "platform/osc",
    "platform/archive",
    "platform/filemanager",
    "platform/media",
    "platform/media/mp3",
    "platform/media/mp4",
    "platform/media/wave",
    "platform/media/xiph",
    "platform/media/file",
    "platform/hotkey",
    "platform/notification",
    "platform/sound",
    "platform/window",
    "resources",
    "resources/sounds",
    "resources/translations",
    "model",
    "lists",
    "lists/forms",
    "settings",
    "templates",
    "templates/ui",
    "document",
    "document/saving",
    "document/ui/table",
    "document/ui/menus",
    "document/ui",
    "remote",
    "export",
    "export/formats",
    "export/ui",
    "delivery",
    "remote/ui",
    "settings/ui",
    "app",
    "app/ui/look",
    "app/ui/quickedit",
    "app/ui/saving",
    "app/ui/menus",
    "app/ui/shortcuts",
    "app/ui/windows",
    "app/ui/outside",
    "app/ui",
]
# Puts everything together, so it may include everything.
COMPOSITION_ROOT = "app/main.cpp"
WIDGETS = re.compile(
    r'#\s*include\s*<(QtWidgets/|QWidget|QApplication|QMainWindow|QDialog|QMenu|QTableView|QLineEdit|QMessageBox|QFileDialog)'
)
QUOTED = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)
GENERATED = re.compile(r"^(ui_\w+\.h|moc_\w+\.cpp|\w+\.moc)$")


def folder_of(relative: Path) -> str:
    return relative.parent.as_posix()


def complaints(root: Path) -> list[str]:
    found = []
    sources = sorted(p for p in root.rglob("*") if p.suffix in {".h", ".cpp"})
    if not sources:
        return [f"{root}: no sources"]
    for source in sources:
        relative = source.relative_to(root)
        folder = folder_of(relative)
        text = source.read_text(encoding="utf-8")
        if relative.as_posix() == COMPOSITION_ROOT:
            continue
        if folder not in ORDER:
            found.append(f"{relative}: the folder {folder} has no place in the order")
            continue
        if "ui" not in folder.split("/") and folder != "resources" and WIDGETS.search(text):
            found.append(f"{relative}: a folder below the windows includes a widget")
        for target in QUOTED.findall(text):
            if GENERATED.match(target):
                continue
            if not (root / target).is_file():
                found.append(f'{relative}: "{target}" is not written from src/')
            elif ORDER.index(folder_of(Path(target))) > ORDER.index(folder):
                found.append(f'{relative}: "{target}" points upward')
    return found


def self_test() -> int:
    """An upward include, a wrong path and a widget below the windows must each be found, and a good tree pass."""
    with tempfile.TemporaryDirectory() as name:
        root = Path(name)
        for folder in ("model", "document", "document/ui"):
            (root / folder).mkdir(parents=True)
        (root / "model/A.h").write_text("#pragma once\n")
        (root / "document/B.h").write_text('#include "model/A.h"\n')
        (root / "document/ui/C.cpp").write_text('#include "document/B.h"\n#include <QWidget>\n')
        if complaints(root):
            print("a good tree was refused:", complaints(root))
            return 1
        (root / "model/Up.cpp").write_text('#include "document/B.h"\n')
        (root / "model/Path.cpp").write_text('#include "A.h"\n')
        (root / "document/W.cpp").write_text("#include <QWidget>\n")
        if len(complaints(root)) != 3:
            print("a bad tree passed:", complaints(root))
            return 1
    return 0


def main() -> int:
    if sys.argv[1:] == ["--self-test"]:
        return self_test()
    found = complaints(Path(sys.argv[1]))
    print("\n".join(found) or "every include points downward")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
