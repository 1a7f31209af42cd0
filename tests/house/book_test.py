"""book_test.py ROOT: tests of book.py on copies of the book and of what it is held against, each with one thing
broken."""

import pathlib
import shutil
import sys
import tempfile
import unittest

from book import faults

ROOT = pathlib.Path(sys.argv.pop())


class BookTest(unittest.TestCase):
    def setUp(self):
        self.kept = tempfile.TemporaryDirectory()
        self.addCleanup(self.kept.cleanup)
        self.root = pathlib.Path(self.kept.name)
        shutil.copytree(ROOT / "docs", self.root / "docs")
        tables = ["desk/menu_table.h", "app/toolbar_layout.cpp", "media/editor/ui/editor_commands.cpp"]
        for path in [*(ROOT / "src").rglob("*.ui"), *(ROOT / "src" / table for table in tables)]:
            copy = self.root / path.relative_to(ROOT)
            copy.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(path, copy)

    def change(self, file, old, new):
        path = self.root / file
        text = path.read_text(encoding="utf-8")
        self.assertIn(old, text)
        path.write_text(text.replace(old, new), encoding="utf-8")

    def told(self, *words):
        """That there is exactly one fault, and that it tells these words."""
        found = faults(self.root)
        self.assertEqual(len(found), 1, found)
        for word in words:
            self.assertIn(word, found[0])

    def test_the_copy_has_no_fault(self):
        self.assertEqual(faults(self.root), [])

    def test_a_link_to_nowhere(self):
        self.change("docs/help/Main.html", 'href="view.html"', 'href="views.html"')
        self.told("Main.html", "views.html")

    def test_a_link_to_a_place_that_is_not_there(self):
        self.change("docs/help/Main.html", "edit.html#marks", "edit.html#mark")
        self.told("edit.html#mark")

    def test_a_link_out_of_the_book(self):
        self.change("docs/help/Main.html", 'href="view.html"', 'href="http://localhost/"')
        self.told("http://localhost/")

    def test_a_picture_that_is_not_there(self):
        (self.root / "docs/help/pictures/Status.png").unlink()
        self.told("Status.png")

    def test_a_picture_that_is_shown_nowhere(self):
        (self.root / "docs/help/pictures/More.png").write_bytes(b"")
        self.told("More.png")

    def test_a_page_that_no_link_leads_to(self):
        (self.root / "docs/help/lonely.html").write_text("<p>alone</p>")
        self.told("lonely.html")

    def test_contents_that_begin_elsewhere(self):
        first = '<li><a href="quickguide'
        self.change("docs/help/contents.html", first, '<li><a href="Main.html">x</a></li>' + first)
        self.told("quickguide.html")

    def test_a_window_without_a_page(self):
        form = '<ui><widget class="QDialog" name="NewForm"/></ui>'
        (self.root / "src/app/NewForm.ui").write_text(form)
        self.told("NewForm", "no page")

    def test_a_menu_entry_that_is_not_told_of(self):
        self.change("src/desk/menu_table.h", '"Refresh"', '"Renew..."')
        self.told("Renew")

    def test_a_toolbar_button_that_is_not_told_of(self):
        self.change("src/app/toolbar_layout.cpp", '{"Play Items"', '{"Sing Items"')
        self.told("Sing Items")

    def test_a_control_with_a_hint_that_is_not_told_of(self):
        self.change("src/tools/search/ui/frmSearch.ui", "Listen", "Hearken")
        self.told("frmSearch.ui", "Hearken")

    def test_a_control_without_a_caption_that_has_no_place(self):
        self.change("docs/help/RenameForm.html", '<a name="RuleList"></a>', "")
        self.told("RuleList")

    def test_a_tip_that_comes_twice(self):
        path = self.root / "docs/QUBLET20.htd"
        lines = path.read_text().splitlines()
        path.write_text("\n".join([*lines[:-1], lines[0]]) + "\n")
        self.assertEqual(len(faults(self.root)), 2)

    def test_too_few_tips(self):
        path = self.root / "docs/QUBLET20.htd"
        path.write_text("\n".join(path.read_text().splitlines()[:59]) + "\n")
        self.told("59 tips")


if __name__ == "__main__":
    unittest.main()
