"""The other reader and writer of keyed archives in the tests, on the property list module of Python's library.

describe FILE   prints the value under "root" as JSON, one tagged object a value; binary and XML lists alike
write FOLDER    writes one archive per name, with what another maker's archiver writes: inline dates and data, the
                mutable classes, a class of its own
"""
import datetime
import json
import plistlib
import struct
import sys
from pathlib import Path

REFERENCE_DATE = datetime.datetime(2001, 1, 1)


def place_of(value):
    if isinstance(value, plistlib.UID):
        return value.data
    return value["CF$UID"]  # what a UID looks like in the XML form


def describe_date(date):
    return {"date": round((date - REFERENCE_DATE) / datetime.timedelta(milliseconds=1))}


def describe_record(objects, record):
    name = objects[place_of(record["$class"])]["$classname"]
    if name in ("NSDictionary", "NSMutableDictionary"):
        keys = [objects[place_of(key)] for key in record["NS.keys"]]
        values = [describe(objects, value) for value in record["NS.objects"]]
        return {"map": dict(zip(keys, values, strict=True))}
    if name in ("NSArray", "NSMutableArray"):
        return {"list": [describe(objects, value) for value in record["NS.objects"]]}
    if name == "NSDate":
        return {"date": round(record["NS.time"] * 1000)}
    if name == "NSString":
        return {"text": record["NS.string"]}
    if name == "NSNull":
        return {"null": True}
    raise ValueError(f"an unknown class: {name}")


def describe(objects, uid):
    place = place_of(uid)
    value = objects[place]
    if place == 0:
        assert value == "$null"
        return {"null": True}
    assert value != "$null", "other readers would take this text for nothing"
    if isinstance(value, bool):
        return {"bool": value}
    if isinstance(value, int):
        return {"integer": str(value)}
    if isinstance(value, float):
        return {"real": struct.pack(">d", value).hex()}
    if isinstance(value, str):
        return {"text": value}
    if isinstance(value, bytes):
        return {"data": value.hex()}
    if isinstance(value, datetime.datetime):
        return describe_date(value)
    return describe_record(objects, value)


def print_description(path):
    archive = plistlib.loads(Path(path).read_bytes())
    assert archive["$archiver"] == "NSKeyedArchiver" and archive["$version"] == 100000
    json.dump(describe(archive["$objects"], archive["$top"]["root"]), sys.stdout)


class Archive:
    def __init__(self):
        self.objects = ["$null"]
        self.classes = {}

    def add(self, value):
        self.objects.append(value)
        return plistlib.UID(len(self.objects) - 1)

    def archived_class(self, *names):
        if names not in self.classes:
            self.classes[names] = self.add({"$classname": names[0], "$classes": list(names)})
        return self.classes[names]

    def dictionary(self, pairs, *classes):
        return self.add({
            "NS.keys": [self.add(key) for key in pairs],
            "NS.objects": list(pairs.values()),
            "$class": self.archived_class(*classes, "NSDictionary", "NSObject"),
        })

    def array(self, elements, *classes):
        return self.add({"NS.objects": elements, "$class": self.archived_class(*classes)})

    def record(self, field, value, *classes):
        return self.add({field: value, "$class": self.archived_class(*classes)})

    def bytes(self, root):
        top = {"$version": 100000, "$archiver": "NSKeyedArchiver", "$top": {"root": root}, "$objects": self.objects}
        return plistlib.dumps(top, fmt=plistlib.FMT_BINARY, sort_keys=False)


def every_kind():
    a = Archive()
    return a.bytes(a.dictionary({
        "inline date": a.add(datetime.datetime(2026, 3, 1, 12, 30, 15, 250000)),
        "date": a.record("NS.time", 0.5, "NSDate", "NSObject"),
        "date of an integer": a.record("NS.time", 86400, "NSDate", "NSObject"),
        "inline data": a.add(b"\x00\xff"),
        "data": a.record("NS.data", b"mutable", "NSMutableData", "NSData", "NSObject"),
        "text": a.record("NS.string", "Grüße 日本 🎙", "NSMutableString", "NSString", "NSObject"),
        "list": a.array([a.add(1), a.add(-5), a.add(1 << 40)], "NSMutableArray", "NSArray", "NSObject"),
        "set": a.array([a.add("one")], "NSSet", "NSObject"),
        "own class": a.array([a.add(True)], "MyArray", "NSArray", "NSObject"),
        "unknown": a.record("MyField", 1, "MyThing", "NSObject"),
        "nothing": plistlib.UID(0),
        "null": a.add({"$class": a.archived_class("NSNull", "NSObject")}),
        "large": a.add((1 << 64) - 1),
        "real": a.add(0.1),
        "uuid": a.record("NS.uuidbytes", bytes(range(16)), "NSUUID", "NSObject"),
        "url": a.add({"NS.base": plistlib.UID(0), "NS.relative": a.add("https://example.org/"),
                      "$class": a.archived_class("NSURL", "NSObject")}),
    }, "NSMutableDictionary"))


def many_chapters():
    a = Archive()
    chapters = [a.dictionary({"Title": a.add(f"Chapter {number}"), "TimeStamp": a.add(number / 4)})
                for number in range(20000)]
    return a.bytes(a.dictionary({"Chapters": a.array(chapters, "NSArray", "NSObject")}))


def write_archives(folder):
    (Path(folder) / "every-kind.plist").write_bytes(every_kind())
    (Path(folder) / "many-chapters.plist").write_bytes(many_chapters())


if __name__ == "__main__":
    {"describe": print_description, "write": write_archives}[sys.argv[1]](sys.argv[2])
