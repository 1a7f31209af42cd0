"""connects.py FOLDER...: refuses a connection to a lambda, or to any function, without a context object.

Such a connection outlives what the lambda refers to. The toolkit has a macro against it from 6.8 on only. Each one is
told on a line of its own; the exit code is 1 if there is any.
"""

import pathlib
import re
import sys

# Texts, characters (not the ' in 1'000) and comments: what they hold is no code.
NO_CODE = re.compile(r'R"(?P<mark>[^\s()\\]{0,16})\(.*?\)(?P=mark)"|"(?:\\.|[^"\\\n])*"|(?<![0-9a-fA-F])\'(?:\\.|[^\'\\\n])+\''
                     r"|//[^\n]*|/\*.*?\*/", re.DOTALL)
TEMPLATE_ARGUMENTS = re.compile(r"(?<=\w)<[\w\s:,*&]*>")
CALL = re.compile(r"\b(connect|singleShot)\s*\(")
SIGNAL = re.compile(r"&\s*\w+(\s*::\s*\w+)+|[qQ]Overload\b|QNonConstOverload\b|QConstOverload\b")


def code_of(source):
    """The source with its lines, but without what could be taken for brackets and commas."""
    bare = NO_CODE.sub(lambda match: '""' + "\n" * match[0].count("\n"), source)
    return TEMPLATE_ARGUMENTS.sub(lambda match: "\n" * match[0].count("\n"), bare)


def arguments(code, start):
    """Those of a call whose first one begins at `start`."""
    depth, found = 0, [""]
    for letter in code[start:]:
        if letter in ")]}":
            if depth == 0:
                break
            depth -= 1
        if letter == "," and depth == 0:
            found.append("")
            continue
        if letter in "([{":
            depth += 1
        found[-1] += letter
    return [argument.strip() for argument in found]


def lacks_context(name, given):
    if name == "connect":
        return len(given) == 3 and bool(SIGNAL.match(given[1]))  # sender, signal and what is to be called
    return len([argument for argument in given if not argument.startswith("Qt::")]) == 2  # time and what is to be called


def wrong_lines(source):
    code = code_of(source)
    for call in CALL.finditer(code):
        if lacks_context(call[1], arguments(code, call.end())):
            yield code.count("\n", 0, call.start()) + 1, call[1]


def main():
    files = [file for folder in sys.argv[1:] for file in sorted(pathlib.Path(folder).rglob("*.[ch]*"))
             if file.suffix in (".h", ".cpp")]
    wrong = [f"{file}:{line}: this {name} names no context object"
             for file in files for line, name in wrong_lines(file.read_text(encoding="utf-8"))]
    print(*wrong, sep="\n")
    return 1 if wrong or not files else 0


if __name__ == "__main__":
    sys.exit(main())
