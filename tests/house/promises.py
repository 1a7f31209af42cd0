"""promises.py ROOT: holds SECURITY.md to the tests. Each promise (a list item of the sections under "## What is
promised") names at least one test, as `Suite.Name` or `room.Name`, or a script of tests/, that is there."""

import pathlib
import re
import sys

TEST = re.compile(r"\bTEST(?:_[FP])?\(\s*(\w+),\s*(\w+)\s*\)")
ADDED = re.compile(r"add_test\(NAME (\S+)")
RULE = re.compile(r"^\s*rule\(\S+ (\S+)", re.MULTILINE)
NAMED = re.compile(r"`(\w+\.\w+|tests/[\w/]+\.py)`")


def tests_of(folder):
    """The names of all tests, as ctest knows them but for the number of a parameter, and the paths of scripts."""
    found = {path.relative_to(folder.parent).as_posix() for path in folder.rglob("*.py")}
    for source in folder.rglob("*"):
        if source.suffix == ".cpp":
            found.update(".".join(names) for names in TEST.findall(source.read_text(encoding="utf-8")))
        elif source.name == "CMakeLists.txt":
            text = source.read_text(encoding="utf-8")
            found.update(ADDED.findall(text))
            found.update(f"house.{name}" for name in RULE.findall(text))
    return found


def promises(text):
    """The items of the lists under the promises, each as one line."""
    part = re.search(r"^## What is promised$(.*?)(?=^## |\Z)", text, re.MULTILINE | re.DOTALL)
    if part is None:
        return []
    return [" ".join(item.split()) for item in re.split(r"^- ", part[1], flags=re.MULTILINE)[1:]]


def faults(root):
    tests = tests_of(root / "tests")
    found = []
    items = promises((root / "SECURITY.md").read_text(encoding="utf-8"))
    if not items:
        found.append("SECURITY.md promises nothing")
    for item in items:
        named = NAMED.findall(item)
        if not named:
            found.append(f"no test: {item[:80]}")
        found += [f"there is no test {name}: {item[:80]}" for name in named if name not in tests]
    return found


def main():
    found = faults(pathlib.Path(sys.argv[1]))
    for fault in found:
        print(fault)
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
