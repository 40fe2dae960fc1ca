"""Reads batches of exports with readers that know nothing of this program, and compares what they find with what went in.

Every line of the file named on the command line is a JSON object: the chapters, the duration and the option of a document,
and under "outputs" what each format wrote of it, in base64. XML is read by expat, JSON by Python's library, Markdown by
markdown-it. Prints how much was read.
"""

import base64
import json
import math
import re
import struct
import sys
import xml.etree.ElementTree as ElementTree

from markdown_it import MarkdownIt

PSC = "{http://podlove.org/simple-chapters}"
NOT_IN_XML = re.compile("[\x00-\x08\x0b\x0c\x0e-\x1f\ufffe\uffff\ud800-\udfff]")
counts = {}


def count(what):
    counts[what] = counts.get(what, 0) + 1


def check(holds, *details):
    if not holds:
        sys.exit("\n".join(map(repr, details)))


def fields(milliseconds):
    return milliseconds // 3600000, milliseconds // 60000 % 60, milliseconds // 1000 % 60, milliseconds % 1000


def full_time(seconds):
    sign = "-" if seconds < 0 else ""
    return sign + "%02d:%02d:%02d.%03d" % fields(int(abs(seconds) * 1000))


def long_time(seconds):
    return "%02d:%02d:%02d" % fields(int(abs(seconds) * 1000))[:3]


def short_time(seconds):
    text = long_time(seconds)
    return text if int(abs(seconds) * 1000) >= 3600000 else text[3:]


def single(value):
    return struct.unpack("f", struct.pack("f", value))[0]


def in_attribute(text):
    """What XML makes of a text that stands between quotes."""
    return re.sub("\r\n|[\r\n\t]", " ", text)


def parsed_xml(data, texts):
    """The root; none where the texts are such that no reader may accept the file."""
    if any(NOT_IN_XML.search(text) for text in texts):
        try:
            ElementTree.fromstring(data)
        except ElementTree.ParseError:
            count("xml refused")
            return None
        sys.exit(f"accepted: {data!r}")
    count("xml read")
    return ElementTree.fromstring(data)


def check_podlove(data, chapters, _):
    root = parsed_xml(data, [chapter[key] for chapter in chapters for key in ("title", "link")])
    if root is None:
        return
    expected = []
    for chapter in chapters:
        attributes = {"start": full_time(chapter["time"]), "title": in_attribute(chapter["title"])}
        if chapter["link"]:
            attributes["href"] = in_attribute(chapter["link"])
        expected.append((PSC + "chapter", attributes))
    check(root.tag == PSC + "chapters" and root.attrib == {"version": "1.2"}, root.tag)
    check([(child.tag, child.attrib) for child in root] == expected, data, expected)


def check_final_cut(data, _, document):
    written = [chapter for chapter in document["chapters"] if chapter["time"] >= 0]
    root = parsed_xml(data, [chapter["title"] for chapter in written])
    if root is None:
        return
    clip = root.find("project/clip")
    length = f"{min(int(document['duration'] * 1000), 2**31 - 1)}/1000s"
    check(clip.get("duration") == length and clip[0].tag == "gap" and clip[0].get("duration") == length, data)
    check(root.find("project").get("name") == clip.get("name") == document["name"], data)
    expected = []
    for chapter in written:
        attributes = {
            "start": f"{min(math.floor(chapter['time'] * 1000), 2**31 - 1)}/1000s",
            "duration": "1s",
            "value": in_attribute(chapter["title"]),
        }
        is_chapter = chapter["enabled"] and not document["option"]
        if is_chapter:
            attributes["posterOffset"] = "12/25s"
        expected.append(("chapter-marker" if is_chapter else "marker", attributes))
    check([(child.tag, child.attrib) for child in clip[1:]] == expected, data, expected)


def check_hindenburg(data, chapters, document):
    texts = [chapter[key] for chapter in chapters for key in ("title", "link")]
    text = data.decode()
    check(text.startswith('<Session><Markers>\n<Marker Id="41" Name="old"/>'), text)
    check(text.count("<Marker Id=") >= len(chapters) + 1, text)
    if any(re.search('[<"]', part) for part in texts):
        count("session with markup in a text")
        return
    root = parsed_xml(data, texts)
    if root is None:
        return
    expected = [
        {"Id": str(42 + i), "Name": in_attribute(chapter["title"]), "Time": "%.3f" % single(chapter["time"]),
         "Type": "Chapter", "Title": "", "URL": in_attribute(chapter["link"])}
        for i, chapter in enumerate(chapters)
    ]
    check([child.attrib for child in root.find("Markers")][1:] == expected, data, expected)


def check_json(data, chapters, _):
    elements = json.loads(data, parse_constant=sys.exit)
    count("json read")
    expected = []
    for number, chapter in enumerate(chapters, 1):
        seconds = single(single(int(chapter["time"] * 1000)) / 1000)
        expected.append({"chapter": number, "start-time": seconds,
                         "titles": [{"language": "und", "title": chapter["title"]}]})
    for element in elements:
        element["start-time"] = single(element["start-time"])
    check(elements == expected, data, expected)
    check(b"\n" not in data, data)
    for text in re.findall(rb'"start-time":([^,]+),', data):
        # A digit less is another value.
        digits = len(re.sub(rb"e.*|[-.]", b"", text).strip(b"0"))
        check(digits < 2 or single(float(f"%.{digits - 2}e" % float(text))) != single(float(text)), text)


def check_list(time):
    def check_lines(data, chapters, _):
        expected = ""
        for chapter in chapters:
            link = f" <{chapter['link']}>" if chapter["link"] else ""
            expected += f"{time(chapter['time'])} {chapter['title']}{link}\n"
        check(data.decode() == expected, data, expected)
        for line in data.decode().split("\n") if not re.search("[\r\n]", "".join(c["title"] + c["link"] for c in chapters)) else []:
            check(not line or re.match(r"-?(\d{2,}:)?\d\d:\d\d(\.\d{3})? ", line), line)
        count("lists read")

    return check_lines


def check_tags(data, chapters, _):
    check(data.decode() == "".join(chapter["title"] + ", " for chapter in chapters), data)
    if not any("," in chapter["title"] for chapter in chapters):
        check(data.decode().split(", ")[:-1] == [chapter["title"] for chapter in chapters], data)
        count("tags read")


def check_markdown(data, chapters, document):
    lines = []
    for chapter in chapters:
        entry = f"[{chapter['title']}]({chapter['link']})" if chapter["link"] else chapter["title"]
        lines.append("*   " + (f"{long_time(chapter['time'])} \u2013 " if document["option"] else "") + entry + "\n")
    check(data.decode() == "".join(lines), data, lines)
    # What the parser may not take for markup; a blank at either end is no part of a Markdown text.
    if any(not re.fullmatch(r"\w+( \w+)*", chapter["title"].replace("_", "-"))
           or not re.fullmatch(r"[\w:/.?=&-]*", chapter["link"]) for chapter in chapters):
        return
    items = [token for token in MarkdownIt("commonmark").parse(data.decode()) if token.type == "inline"]
    check(len(items) == len(chapters), data)
    for item, chapter in zip(items, chapters):
        text = "".join(child.content for child in item.children if child.type == "text")
        links = [child.attrs["href"] for child in item.children if child.type == "link_open"]
        check(text.endswith(chapter["title"]) and len(links) == bool(chapter["link"]), data)
    count("markdown read")


READERS = {
    "Auphonic": check_list(full_time),
    "Final Cut Pro X": check_final_cut,
    "Hindenburg": check_hindenburg,
    "JSON": check_json,
    "Markdown": check_markdown,
    "Podlove Simple Chapters": check_podlove,
    "Titles as Tags": check_tags,
    "YouTube": check_list(short_time),
}

with open(sys.argv[1], encoding="utf-8") as batch:
    for line in batch:
        document = json.loads(line)
        check(sorted(document["outputs"]) == sorted(READERS), document)
        enabled = [chapter for chapter in document["chapters"] if chapter["enabled"]]
        for name, reader in READERS.items():
            reader(base64.b64decode(document["outputs"][name]), enabled, document)
        count("documents")
print(json.dumps(counts))
