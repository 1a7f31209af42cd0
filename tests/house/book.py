"""book.py ROOT: holds the help, docs/help below the folder ROOT, against the program.

- Every page is reached from the contents, the quick guide first; every link, its place within the page too, every
  picture and style sheet exists, and none leads out of the folder. No picture lies there that no page shows.
- Every window has a page of its name, with a picture.
- Every entry of the menus and every button of the toolbar is named in bold by its caption.
- Every control with a hint is named in bold by its caption on the page of its window; one without a caption has its
  place there: <a name="CONTROL">.
- The tips are 60 or more, each once, in lines of plain text.

Each fault is a line of its own; the exit code is 1 if there is any.
"""

import collections
import html.parser
import pathlib
import re
import sys
import xml.etree.ElementTree

MENU_ROW = re.compile(r'\{\d, "(\w+)", "([^"]+)"')
TOOL_BUTTON = re.compile(r'\{"([^"]+)", "[^"]+\.\.\.|\{"(Tools Drop Down)"')
DROP_DOWN_ENTRY = re.compile(r'\{"([^"]+)", "M\w+"\}')
EDITOR_COMMAND = re.compile(r'\{(?:"\w+"|kUpdateCommand), "([^"]+)", "[a-z-]+"')
# Windows that are made without a form.
MADE_BY_HAND = ["BrowseForm"]
CONTENTS = "contents.html"
FIRST = "quickguide.html"


class Page(html.parser.HTMLParser):
    """A page's links, pictures and places, and the texts that it has in bold."""

    def __init__(self, path):
        super().__init__()
        self.links, self.files, self.pictures, self.places, self.bold = [], [], [], set(), set()
        self.open_bold = None
        self.feed(path.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attributes):
        given = dict(attributes)
        if tag == "a" and "href" in given:
            self.links.append(given["href"])
        if tag == "a" and "name" in given:
            self.places.add(given["name"])
        if tag == "img":
            self.pictures.append(given["src"])
        if tag == "link":
            self.files.append(given["href"])
        if tag == "b":
            self.open_bold = ""

    def handle_data(self, data):
        if self.open_bold is not None:
            self.open_bold += data

    def handle_endtag(self, tag):
        if tag == "b":
            self.bold.add(plain(self.open_bold))
            self.open_bold = None


def plain(caption):
    """A caption as the book writes it: without the mark of its letter and the dots at its end."""
    return " ".join(caption.replace("&", "").split()).rstrip(".: ")


def wrong_links(folder, pages):
    shown, reached = set(), {CONTENTS}
    for name, page in pages.items():
        for link in page.links + page.files + page.pictures:
            target, _, place = link.partition("#")
            target = target or name
            if not (folder / target).is_file() or ".." in target or ":" in target or target.startswith("/"):
                yield f"{name} leads to {link}, which isn't in the book"
            elif place and place not in pages[target].places:
                yield f"{name} leads to {link}, and there is no such place"
        shown.update(page.pictures)
    if pages[CONTENTS].links[:1] != [FIRST]:
        yield f"{CONTENTS} doesn't begin with {FIRST}"
    waiting = [CONTENTS]
    while waiting:
        for link in pages[waiting.pop()].links:
            target = link.partition("#")[0]
            if target in pages and target not in reached:
                reached.add(target)
                waiting.append(target)
    for name in sorted(set(pages) - reached):
        yield f"no link leads to {name}"
    for picture in sorted(folder.rglob("*.png")):
        if str(picture.relative_to(folder)) not in shown:
            yield f"no page shows {picture.name}"


def forms(source):
    """(path, root widget's class, its name, [(control, caption, hint)]) of every form."""
    for path in sorted(source.rglob("*.ui")):
        root = xml.etree.ElementTree.parse(path).getroot().find("widget")
        controls = []
        for widget in root.iter("widget"):
            texts = {p.get("name"): "".join(p.itertext()).strip() for p in widget.findall("property")}
            hint = texts.get("toolTip") or texts.get("statusTip")
            if hint:
                controls.append((widget.get("name"), texts.get("text", ""), hint))
        yield path, root.get("class"), root.get("name"), controls


def wrong_windows(source, pages):
    windows_of = collections.defaultdict(list)  # by folder
    all_forms = list(forms(source))
    for path, kind, name, _ in all_forms:
        if kind != "QWidget":  # that is a page of a window
            windows_of[path.parent].append(name)
    for name in sum(windows_of.values(), []) + MADE_BY_HAND:
        page = pages.get(f"{name}.html")
        if page is None:
            yield f"the window {name} has no page"
        elif not page.pictures:
            yield f"the page of the window {name} has no picture"
    for path, _, _, controls in all_forms:
        texts = [pages[f"{name}.html"] for name in windows_of[path.parent] if f"{name}.html" in pages]
        for control, caption, hint in controls:
            named = plain(caption) and any(plain(caption) in page.bold for page in texts)
            if not named and not any(control in page.places for page in texts):
                yield f'{path.name}: no page names {control} ("{caption or hint}")'


def captions_of(row, path):
    """The last group that fits, of each row of a table."""
    return [found[found.lastindex] for found in row.finditer(path.read_text(encoding="utf-8"))]


def wrong_commands(source, pages):
    bold = set().union(*(page.bold for page in pages.values()))
    tables = [(source / "desk/menu_table.h", MENU_ROW, 80), (source / "app/toolbar_layout.cpp", TOOL_BUTTON, 12),
              (source / "app/toolbar_layout.cpp", DROP_DOWN_ENTRY, 6)]
    for path, row, fewest in tables:
        captions = [plain(found) for found in captions_of(row, path)]
        if len(captions) < fewest:
            yield f"{path.name} can't be read: {len(captions)} rows"
        for caption in captions:
            if caption not in bold and caption != "GUI Options":  # the context menu's own name is shown nowhere
                yield f'{path.name}: no page names "{caption}"'
    table = source / "media/editor/ui/editor_commands.cpp"
    editor = pages["Id3Info.html"].bold
    for caption in captions_of(EDITOR_COMMAND, table):
        if caption not in editor:
            yield f'{table.name}: Id3Info.html doesn\'t name "{caption}"'


def wrong_tips(tips):
    lines = tips.read_text(encoding="ascii").splitlines()
    if len(lines) < 60:
        yield f"only {len(lines)} tips"
    for number, line in enumerate(lines, 1):
        if not line.strip() or line != line.strip() or re.search(r"<[a-z/]|\t", line) or lines.count(line) > 1:
            yield f"tip {number} is empty, twice there or no plain text: {line}"


def faults(root):
    folder = root / "docs/help"
    pages = {path.name: Page(path) for path in sorted(folder.glob("*.html"))}
    if CONTENTS not in pages:
        return [f"there is no {CONTENTS}"]
    source = root / "src"
    return [*wrong_links(folder, pages), *wrong_windows(source, pages), *wrong_commands(source, pages),
            *wrong_tips(root / "docs/QUBLET20.htd")]


def main():
    found = faults(pathlib.Path(sys.argv[1]))
    print(*found, sep="\n")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
