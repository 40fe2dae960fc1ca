"""The pages that the documents become, read as a browser reads them."""

import subprocess
from html.parser import HTMLParser
from urllib.parse import unquote

# What has no end tag.
VOID = {"meta", "br", "hr", "img", "link"}


class Page(HTMLParser):
    """What a page shows and links to, and where its tags do not match."""

    def __init__(self, path):
        super().__init__()
        self.links, self.pictures, self.names, self.faults, self.open, self.language = [], [], set(), [], [], None
        self.feed(path.read_text(encoding="utf-8"))
        self.close()
        self.faults += [f"<{tag}> has no end" for tag in self.open]

    def handle_starttag(self, tag, attributes):
        found = dict(attributes)
        if tag not in VOID:
            self.open.append(tag)
        if tag == "html":
            self.language = found.get("lang")
        if tag == "a":
            self.links.append(found["href"])
        if tag == "img":
            self.pictures.append((found["src"], found.get("alt")))
        if "id" in found:
            if found["id"] in self.names:
                self.faults.append(f"the name {found['id']} is there twice")
            self.names.add(found["id"])

    def handle_startendtag(self, tag, attributes):
        self.handle_starttag(tag, attributes)
        if tag not in VOID:
            self.open.pop()

    def handle_endtag(self, tag):
        if not self.open or self.open.pop() != tag:
            self.faults.append(f"</{tag}> ends nothing")


def faults_of_link(folder, path, link):
    name, _, anchor = unquote(link).partition("#")
    target = folder / name if name else path
    if not target.exists():
        return [f"{link} leads nowhere"]
    if target.suffix == ".md":
        return [f"{link} is no page"]
    if anchor and anchor not in Page(target).names:
        return [f"{link} names no heading"]
    return []


def faults_of_page(folder, path):
    page = Page(path)
    faults = list(page.faults)
    for source, description in page.pictures:
        if not (folder / source).read_bytes().startswith(b"\x89PNG"):
            faults.append(f"{source} is no picture")
        if not description:
            faults.append(f"{source} is not described")
    for link in page.links:
        if "://" not in link:
            faults += faults_of_link(folder, path, link)
    well_formed = subprocess.run(["xmllint", "--noout", path], capture_output=True, text=True, check=False)
    return faults + well_formed.stderr.splitlines()


def faults_below(folder):
    """A line for whatever is wrong with the pages of the folder."""
    return [f"{path.name}: {fault}" for path in sorted(folder.glob("*.html")) for fault in faults_of_page(folder, path)]
