#!/usr/bin/env python3
"""Reads the documents as a stranger would who clicks every link: each one that points into the project must lead
somewhere, to the heading too, and every library folder of src/ must be named in docs/ARCHITECTURE.md."""

import re
import sys
import tempfile
from pathlib import Path

MAP = "docs/ARCHITECTURE.md"
LINK = re.compile(r"\]\(([^)\s]+)\)")
HEADING = re.compile(r"^#{1,6} +(.*?) *$", re.MULTILINE)
FENCED = re.compile(r"^```.*?^```", re.MULTILINE | re.DOTALL)
ELSEWHERE = re.compile(r"^[a-z][a-z0-9+.-]*:")


def text_of(path: Path) -> str:
    """Without what is quoted in fences, where brackets are no links and hashes no headings."""
    return FENCED.sub("", path.read_text(encoding="utf-8"))


def anchors_of(path: Path) -> set[str]:
    """The names that readers of such files give the headings."""
    kept = (re.sub(r"[^\w\- ]", "", heading.lower()) for heading in HEADING.findall(text_of(path)))
    return {heading.replace(" ", "-") for heading in kept}


def broken_links(root: Path, document: Path) -> list[str]:
    found = []
    for link in LINK.findall(text_of(document)):
        if ELSEWHERE.match(link):
            continue
        name, _, anchor = link.partition("#")
        target = document.parent / name if name else document
        if not target.exists():
            found.append(f"{document.relative_to(root)}: {link} leads nowhere")
        elif anchor and anchor not in anchors_of(target):
            found.append(f"{document.relative_to(root)}: {link} names no heading of its page")
    return found


def unnamed_folders(root: Path) -> list[str]:
    text = (root / MAP).read_text(encoding="utf-8")
    words = set(re.findall(r"[\w/]+", text))
    folders = (file.parent.relative_to(root / "src").as_posix() for file in (root / "src").rglob("CMakeLists.txt"))
    return [f"{MAP}: does not name {folder}" for folder in sorted(folders) if folder != "." and folder not in words]


def complaints(root: Path) -> list[str]:
    documents = [root / "README.md", *sorted((root / "docs").glob("*.md"))]
    found = [complaint for document in documents for complaint in broken_links(root, document)]
    return found + unnamed_folders(root)


def self_test() -> int:
    """A lost file, a lost heading and a folder without a name must each be found, and a good tree pass."""
    with tempfile.TemporaryDirectory() as name:
        root = Path(name)
        for folder in ("src/model", "src/model/ui", "docs"):
            (root / folder).mkdir(parents=True)
            (root / folder / "CMakeLists.txt").touch()
        (root / "src/CMakeLists.txt").touch()
        readme, architecture = root / "README.md", root / MAP
        readme.write_text("[map](docs/ARCHITECTURE.md#one-order-a-and-b) [site](https://example.org/none)\n")
        architecture.write_text("# One order: `a` and b\n`model`, `model/ui`\n")
        if complaints(root):
            print("a good tree was refused:", complaints(root))
            return 1
        readme.write_text("[lost](docs/LOST.md) [lost](docs/ARCHITECTURE.md#two)\n```\n[x](quoted)\n```\n")
        architecture.write_text("# One order\n`model`\n")
        if len(complaints(root)) != 3:
            print("a bad tree passed:", complaints(root))
            return 1
    return 0


def main() -> int:
    if sys.argv[1:] == ["--self-test"]:
        return self_test()
    found = complaints(Path(sys.argv[1]))
    print("\n".join(found) or "every link leads somewhere, every folder is named")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
