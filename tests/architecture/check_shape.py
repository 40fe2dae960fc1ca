#!/usr/bin/env python3
"""Reads the shape of the sources: a class stands in one source, a header offers so many functions and no more, and a
folder has so many sources directly in it and no more.

    check_shape.py PROJECT
    check_shape.py --self-test
"""

import re
import sys
import tempfile
from collections import defaultdict
from pathlib import Path

MOST_FUNCTIONS = 35
MOST_SOURCES = 25
# What stands between these is passed on to another class and is no offer of this one.
FORWARDS = re.compile(r"^[ \t]*// forwards$.*?^[ \t]*// end of forwards$", re.MULTILINE | re.DOTALL)
COMMENTS = re.compile(r"//[^\n]*|/\*.*?\*/", re.DOTALL)
TEXTS = re.compile(r'"(?:\\.|[^"\\\n])*"|(?<![0-9a-fA-F])\'(?:\\.|[^\'\\\n])\'')
DIRECTIVES = re.compile(r"^[ \t]*#(?:[^\n]*\\\n)*[^\n]*", re.MULTILINE)
# A function is defined at the start of a line; what it returns has no bracket and no value.
DEFINITION = re.compile(r"^(?![\s#}/])[^=;(){}\n]*?\b((?:\w+::)+)(?:~?\w+|operator[^\w\s(]+)\(", re.MULTILINE)
DECLARED = re.compile(r"\b(?:class|struct)\s+((?:ZL|MAS)\w+)\b(?=[^;()]*\{)")
SECTION = re.compile(r"\b(public|protected|private|Q_SIGNALS)\b(?:\s+Q_SLOTS)?\s*:(?!:)")
NO_FUNCTION = re.compile(r"^(?:Q_\w+|friend|using|typedef|static_assert)\b")
SCOPE = re.compile(r"^(?:template\s*<.*>\s*)?(class|struct|namespace|enum|union|extern)\b[^()=]*$", re.DOTALL)


def without_texts(text: str) -> str:
    return DIRECTIVES.sub("", TEXTS.sub('""', COMMENTS.sub("", text)))


def without_arguments(text: str) -> str:
    """Without what stands between the angles of a template, where brackets call nothing."""
    before = None
    while before != text:
        before, text = text, re.sub(r"(\w)\s*<[^<>;{}]*>", r"\1", text)
    return text


def is_function(statement: str) -> bool:
    statement = without_arguments(re.sub(r"\[\[.*?\]\]", "", statement)).strip()
    if NO_FUNCTION.match(statement) or re.search(r"\)[^()]*\boverride$", statement):
        return False
    # A member with a value is no function, but the name of an operator may contain the sign.
    bracket = statement.find("(")
    return bracket > 0 and "=" not in re.sub(r"\boperator\s*[^\s\w(]+", "", statement[:bracket])


def end_of_block(text: str, start: int) -> int:
    depth = 0
    for index in range(start, len(text)):
        depth += {"{": 1, "}": -1}.get(text[index], 0)
        if depth == 0:
            return index
    return len(text)


def functions_in(text: str, public: bool) -> int:
    """How many functions a scope declares that everybody may call; it begins as `public` says."""
    count, statement, index = 0, "", 0
    while index < len(text):
        sign = text[index]
        if sign == ";":
            count += public and is_function(statement)
            statement = ""
        elif sign == "{":
            end = end_of_block(text, index)
            scope = SCOPE.match(statement.strip())
            if scope:
                if public and scope.group(1) not in ("enum", "union"):
                    count += functions_in(text[index + 1 : end], scope.group(1) != "class")
                statement = ""
            elif statement.count("(") == statement.count(")"):
                # What a member gets is no body, and the first braces after a constructor may belong to a member.
                body = is_function(statement)
                count += public and body
                statement = "" if body else statement
            index = end
        else:
            statement += sign
            if sign == ":" and text[index + 1 : index + 2] != ":" and (section := SECTION.search(statement)):
                public, statement = section.group(1) in ("public", "Q_SIGNALS"), ""
        index += 1
    return count


def public_functions(text: str) -> int:
    """Of a header, signals too. An override is the offer of the class above and does not count."""
    return functions_in(without_texts(FORWARDS.sub("", text)), True)


def cut_classes(sources: dict) -> list[str]:
    """A class whose functions are defined in two sources, or in the source of another class that has one of its own."""
    declared = {name for text in sources.values() for name in DECLARED.findall(text)}
    homes = defaultdict(set)
    for path, text in sources.items():
        if path.suffix == ".cpp":
            for scopes in DEFINITION.findall(without_texts(text)):
                homes[scopes.split("::")[0]].add(path)
    return [f"{name} is implemented in {' and '.join(str(path) for path in sorted(paths))}"
            for name, paths in sorted(homes.items()) if name in declared and len(paths) > 1]


def broad_headers(sources: dict) -> list[str]:
    counts = ((path, public_functions(text)) for path, text in sorted(sources.items()) if path.suffix == ".h")
    return [f"{path} has {count} public functions, more than {MOST_FUNCTIONS}" for path, count in counts
            if count > MOST_FUNCTIONS]


def crowded_folders(root: Path) -> list[str]:
    counts = defaultdict(int)
    for folder in ("src", "tests", "bench"):
        for path in (root / folder).rglob("*"):
            ending = ".py" if path.is_relative_to(root / "tests/e2e") else ".cpp"
            counts[path.parent.relative_to(root)] += path.suffix == ending
    return [f"{folder} has {count} sources directly in it, more than {MOST_SOURCES}"
            for folder, count in sorted(counts.items()) if count > MOST_SOURCES]


def complaints(root: Path) -> list[str]:
    paths = sorted(path for path in (root / "src").rglob("*") if path.suffix in {".h", ".cpp"})
    sources = {path.relative_to(root / "src"): path.read_text(encoding="utf-8") for path in paths}
    if not sources:
        return [f"{root}: no sources"]
    return cut_classes(sources) + broad_headers(sources) + crowded_folders(root)


GOOD = {
    "src/model/ZLA.h": "class ZLA {\npublic:\n    ZLA(int a = {}, QList<int> b = { 1 });\n    int m_a { f() };\n};",
    "src/model/ZLB.h": "struct ZLB {\n    void b();\n};",
    "src/model/ZLA.cpp": "ZLA::ZLA(int a)\n    : m_a { a }\n{\n    ZLB::call();\n}\nQList<ZLB> ZLA::of(int)\n{\n}\n",
    "src/model/ZLB.cpp": "const int x = ZLA::count();\nvoid ZLB::b()\n{\n}\n",
}
FUNCTIONS = """
class ZLBroad : public QObject {{
    Q_OBJECT
    Q_PROPERTY(int x READ x)
public:
    explicit ZLBroad(int a = {{}}, QObject* parent = nullptr) : m_a {{ a }} {{ start(); }}
{public}
    bool operator==(const ZLBroad& other) const = default;
    void overridden() override;
    // forwards
    void passedOn();
    // end of forwards
    std::function<void(int)> m_called = nothing(1);
    enum class Choice {{ One, Two }};
Q_SIGNALS:
    void announced();
private:
    void hidden();
}};
"""


def broad(count: int) -> str:
    """A header with so many public functions."""
    functions = (f"    [[nodiscard]] int f{i}() const {{ return g({i}); }}" for i in range(count - 3))
    return FUNCTIONS.format(public="\n".join(functions))


def plant(root: Path, sources: dict):
    for name, text in sources.items():
        (root / name).parent.mkdir(parents=True, exist_ok=True)
        (root / name).write_text(text)


def self_test() -> int:
    """A good tree passes, at the very limits too. What goes beyond each of them is found."""
    with tempfile.TemporaryDirectory() as name:
        root = Path(name)
        plant(root, GOOD | {"src/model/ZLBroad.h": broad(MOST_FUNCTIONS)})
        plant(root, {f"src/many/{i}.cpp": "" for i in range(MOST_SOURCES)})
        plant(root, {f"tests/e2e/osc/{i}.py": "" for i in range(MOST_SOURCES)})
        if found := complaints(root):
            print("a good tree was refused:", found)
            return 1
        plant(root, {"src/model/ZLAMore.cpp": "int* ZLA::more()\n{\n}\n", "src/many/one.cpp": ""})
        plant(root, {"src/model/ZLBroad.h": broad(MOST_FUNCTIONS + 1), "tests/e2e/osc/one.py": ""})
        names = {"ZLA", "model/ZLBroad.h", "src/many", "tests/e2e/osc"}
        found = complaints(root)
        if len(found) != len(names) or {line.split()[0] for line in found} != names:
            print("a bad tree was not told right:", found)
            return 1
    return 0


def main() -> int:
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    if sys.argv[1] == "--self-test":
        return self_test()
    found = complaints(Path(sys.argv[1]))
    print("\n".join(found) or "every class, header and folder keeps its bounds")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
