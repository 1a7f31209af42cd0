"""borders_test.py CMAKE: tests of cmake/Rooms.cmake and borders.py on small made-up trees."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

HERE = pathlib.Path(__file__).resolve().parent
CMAKE = sys.argv.pop(1)

# No compiler is needed to see which rooms are refused.
TOP = f"""cmake_minimum_required(VERSION 3.25)
project(TREE LANGUAGES NONE)
add_library(house_rules INTERFACE)
add_library(Qt6::Widgets INTERFACE IMPORTED)
add_library(ZLIB::ZLIB INTERFACE IMPORTED)
include({HERE.parents[1]}/cmake/Rooms.cmake)
add_subdirectory(src)
"""


class Tree(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        self.write("CMakeLists.txt", TOP)

    def write(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)

    def rooms(self, **rooms):
        """Folders by their keyword ("__" for "/") with the end of what room(...) says; listed in this order."""
        folders = {name.replace("__", "/"): rest for name, rest in rooms.items()}
        self.write("src/CMakeLists.txt", "".join(f"add_subdirectory({folder})\n" for folder in folders))
        for folder, rest in folders.items():
            name = folder.replace("/", "_")
            self.write(f"src/{folder}/{name}.cpp", "")
            self.write(f"src/{folder}/CMakeLists.txt",
                       f"room({name}\n  SOURCES {name}.cpp\n  {rest})\nset_target_properties({name} PROPERTIES LINKER_LANGUAGE C)\n")

    def configured(self):
        """What CMake says, its lines joined."""
        done = subprocess.run([CMAKE, "-S", self.root, "-B", self.root / "build"], capture_output=True, text=True)
        return " ".join((done.stdout + done.stderr).split())

    def wrong(self):
        """What is said of the includes."""
        done = subprocess.run([sys.executable, HERE / "borders.py", self.root / "build/rooms.txt", self.root / "src"],
                              capture_output=True, text=True)
        self.assertEqual(done.stderr, "")
        self.assertEqual(done.returncode, 1 if done.stdout.strip() else 0)
        return done.stdout.split("\n")[:-1] if done.stdout.strip() else []


class ARoom(Tree):
    def test_is_taken_with_rooms_above_and_libraries(self):
        self.rooms(platform="", media="USES platform LIBRARIES ZLIB::ZLIB", tools__rename="USES media platform",
                   tools__rename__ui="USES tools_rename LIBRARIES Qt6::Widgets")
        self.assertIn("Configuring done", self.configured())

    def test_is_refused_with_a_room_listed_later(self):
        self.rooms(media="USES playlist", playlist="")
        self.assertIn("The room media uses playlist, which src/CMakeLists.txt lists later (src/playlist/CMakeLists.txt): "
                      "a room uses only rooms above its own line.", self.configured())

    def test_is_refused_with_itself(self):
        self.rooms(media="USES media")
        self.assertIn("The room media uses media, which src/CMakeLists.txt lists later", self.configured())

    def test_is_refused_with_an_unknown_room(self):
        self.rooms(media="USES plalyist")
        self.assertIn("The room media uses plalyist, and there is no such room.", self.configured())

    def test_is_refused_with_a_library_among_the_rooms(self):
        self.rooms(media="USES ZLIB::ZLIB")
        self.assertIn("The room media uses ZLIB::ZLIB, and there is no such room. A library of the system is named "
                      "under LIBRARIES.", self.configured())

    def test_is_refused_with_a_room_among_the_libraries(self):
        self.rooms(platform="", media="LIBRARIES platform")
        self.assertIn("The room media names platform under LIBRARIES, and that is a room", self.configured())

    def test_is_refused_with_a_library_that_is_not_there(self):
        self.rooms(media="LIBRARIES ZILB::ZILB")
        self.assertIn("The room media needs the library ZILB::ZILB", self.configured())

    def test_of_rules_is_refused_with_qt(self):
        self.rooms(media="LIBRARIES Qt6::Widgets")
        self.assertIn("The room media gets Qt through Qt6::Widgets: only app, desk and folders named ui or qt know Qt, "
                      "and src/media is none of them.", self.configured())

    def test_of_rules_is_refused_with_a_room_that_knows_qt(self):
        self.rooms(playlist__ui="LIBRARIES Qt6::Widgets", media="USES playlist_ui")
        self.assertIn("The room media gets Qt through playlist_ui", self.configured())


class AnInclude(Tree):
    rooms_list = ""  # as CMake writes it, once for all

    def setUp(self):
        super().setUp()
        self.rooms(platform="", media="USES platform", playlist="USES media platform", player="USES playlist",
                   tools__rename="USES playlist", tools__rename__ui="USES tools_rename LIBRARIES Qt6::Widgets")
        if not AnInclude.rooms_list:
            self.assertIn("Configuring done", self.configured())
            AnInclude.rooms_list = (self.root / "build/rooms.txt").read_text()
        self.write("build/rooms.txt", AnInclude.rooms_list)
        self.write("src/tools/rename/ui/RenameForm.ui", "<ui/>")

    def includes(self, file, *headers):
        self.write(f"src/{file}", "".join(f"#include {header}\n" for header in headers))
        return self.wrong()

    def test_of_rooms_and_headers_that_are_named_is_silent(self):
        self.assertEqual(self.includes("playlist/a.cpp", '"playlist/a.h"', '"media/a.h"', "<vector>"), [])

    def test_of_a_room_above_that_is_not_named_names_both_rooms(self):
        self.assertEqual(self.includes("media/a.cpp", '"playlist/list_status.h"'),
                         ["media/a.cpp includes playlist/list_status.h, but the room media does not name playlist"])

    def test_in_a_header_counts_too(self):
        self.assertEqual(self.includes("media/a.h", '"playlist/a.h"'),
                         ["media/a.h includes playlist/a.h, but the room media does not name playlist"])

    def test_of_a_room_that_only_a_used_room_names_is_wrong(self):
        self.assertEqual(self.includes("player/a.cpp", '"media/a.h"'),
                         ["player/a.cpp includes media/a.h, but the room player does not name media"])

    def test_belongs_to_the_deepest_room(self):
        self.assertEqual(self.includes("tools/rename/ui/a.cpp", '"playlist/a.h"', '"tools/rename/a.h"'),
                         ["tools/rename/ui/a.cpp includes playlist/a.h, but the room tools_rename_ui does not name playlist"])

    def test_of_a_room_in_a_folder_below_is_wrong(self):
        self.assertEqual(self.includes("tools/rename/a.cpp", '"tools/rename/ui/a.h"'),
                         ["tools/rename/a.cpp includes tools/rename/ui/a.h, but the room tools_rename does not name tools_rename_ui"])

    def test_of_another_rooms_inside_is_wrong(self):
        self.assertEqual(self.includes("media/a.cpp", '"platform/linux/drives.h"'),
                         ["media/a.cpp includes platform/linux/drives.h, which is the inside of the room platform"])

    def test_of_ones_own_inside_is_silent(self):
        self.assertEqual(self.includes("platform/linux/a.cpp", '"platform/linux/drives.h"'), [])

    def test_of_a_header_outside_the_rooms_is_wrong(self):
        self.assertEqual(self.includes("media/a.cpp", '"a.h"'), ["media/a.cpp includes a.h, which lies in no room"])

    def test_of_a_form_counts_where_the_form_lies(self):
        self.assertEqual(self.includes("tools/rename/ui/a.cpp", '"ui_RenameForm.h"'), [])
        self.assertEqual(self.includes("tools/rename/a.cpp", '"ui_RenameForm.h"'),
                         ["tools/rename/a.cpp includes ui_RenameForm.h, but the room tools_rename does not name tools_rename_ui"])

    def test_of_the_system_is_for_the_platform_only(self):
        self.assertEqual(self.includes("platform/linux/a.cpp", "<fcntl.h>"), [])
        self.assertEqual(self.includes("media/a.cpp", "<fcntl.h>"),
                         ["media/a.cpp includes <fcntl.h>, but the room media is not platform, which alone knows the system"])

    def test_of_qt_is_for_rooms_that_name_it(self):
        self.assertEqual(self.includes("tools/rename/ui/a.cpp", "<QWidget>"), [])
        self.assertEqual(self.includes("platform/a.cpp", "<QString>"),
                         ["platform/a.cpp includes <QString>, but the room platform names no library for it under LIBRARIES"])

    def test_of_a_library_is_for_rooms_that_name_it(self):
        self.assertEqual(self.includes("media/a.cpp", "<zlib.h>"),
                         ["media/a.cpp includes <zlib.h>, but the room media names no library for it under LIBRARIES"])

    def test_with_any_blanks_counts(self):
        self.write("src/media/a.cpp", ' #  include\t"playlist/a.h"\n')
        self.assertEqual(self.wrong(), ["media/a.cpp includes playlist/a.h, but the room media does not name playlist"])

    def test_in_a_comment_is_none(self):
        self.write("src/media/a.cpp", '// #include "playlist/a.h"\n')
        self.assertEqual(self.wrong(), [])

    def test_of_a_file_in_no_room_is_wrong(self):
        self.write("src/lost/a.cpp", "")
        self.assertEqual(self.wrong(), ["lost/a.cpp lies in no room"])


if __name__ == "__main__":
    unittest.main()
