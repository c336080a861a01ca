#!/usr/bin/env python3
"""scripts/rooms finds what is planted in a small house, and nothing in the house as it is."""
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

SCRIPTS = pathlib.Path(__file__).resolve().parent.parent.parent / "scripts"
ROOMS = """library KTUtility
    .
    Ground
    First Second

host examples/Cobble/Sources
    Text
    Commands
"""
FILES = {
    "scripts/rooms.txt": ROOMS,
    "docs/architecture.md": "<!-- made by scripts/rooms --draw -->\n<!-- end of what scripts/rooms made -->\n",
    "docs/images/rooms.svg": "",
    "KTUtility/CMakeLists.txt": "KTGround.cpp KTFirst.cpp KTSecond.cpp\n",
    "KTUtility/Ground/KTGround.h": "#pragma once\nclass KTGround\n{\n};\nclass KTOther\n{\n};\n",
    "KTUtility/Ground/KTGround.cpp": '#include "KTGround.h"\n\n#include <QString>\n',
    "KTUtility/Ground/Hidden_p.h": "#pragma once\n",
    "KTUtility/Ground/Open_p.h": "#pragma once\n\n// Private to the library. For all.\n",
    "KTUtility/First/KTFirst.h": "#pragma once\n#include <KTUtility/Ground/KTGround.h>\n",
    "KTUtility/First/KTFirst.cpp": '#include "KTFirst.h"\n\n#include <KTUtility/Ground/Open_p.h>\n',
    "KTUtility/Second/KTSecond.h": "#pragma once\n",
    "KTUtility/Second/KTSecond.cpp": '#include "KTSecond.h"\n\nvoid f()\n{\n}\n',
    "examples/Cobble/CMakeLists.txt": "Text.cpp Command.cpp\n",
    "examples/Cobble/Sources/Text/Text.h": "#pragma once\n",
    "examples/Cobble/Sources/Text/Text.cpp": '#include "Text.h"\n\nvoid g()\n{\n}\n',
    "examples/Cobble/Sources/Commands/Command.h": '#pragma once\n#include <KTUtility/KTOther>\n',
    "examples/Cobble/Sources/Commands/Command.cpp": '#include "Command.h"\n\n#include "Text/Text.h"\n',
}
# What is added to a file (a new one if there is none), and what is said of it.
PLANTED = [
    ("KTUtility/Ground/KTGround.cpp", "#include <KTUtility/First/KTFirst.h>", "does not stand above First"),
    ("KTUtility/Ground/KTGround.cpp", "  #  include <KTUtility/First/KTFirst.h>", "does not stand above First"),
    ("KTUtility/Ground/KTGround.cpp", '#include "../First/KTFirst.h"', "does not stand above First"),
    ("KTUtility/Ground/KTGround.cpp", "#include <KTUtility/X/../First/KTFirst.h>", "does not stand above First"),
    ("KTUtility/Ground/KTGround.cpp", "#include <KTUtility/KTFirst>", "does not stand above First"),
    ("KTUtility/First/KTFirst.cpp", "#include <KTUtility/Second/KTSecond.h>", "does not stand above Second"),
    ("KTUtility/First/KTFirst.cpp", '#include "../Ground/KTGround.h"', "which is written <KTUtility/Ground/"),
    ("KTUtility/First/KTFirst.cpp", "#include <KTUtility/KTGround>", "which is written <KTUtility/Ground/"),
    ("KTUtility/First/KTFirst.cpp", "#include <KTUtility/Ground/Hidden_p.h>", "is private to its room"),
    ("KTUtility/First/KTFirst.cpp", "#include <KTUtility/Ground/Gone.h>", "which is no file of the project"),
    ("KTUtility/First/KTFirst.cpp", '#include "Gone.h"', "which is no file of the project"),
    ("examples/Cobble/Sources/Text/Text.cpp", '#include "Commands/Command.h"', "does not stand above Commands"),
    ("examples/Cobble/Sources/Text/Text.cpp", "#include <KTUtility/Ground/KTGround.h>", "which is written <KTUtility/KTGround>"),
    ("examples/Cobble/Sources/Text/Text.cpp", "#include <KTUtility/Ground/Open_p.h>", "is private to its room"),
    ("KTUtility/First/Alone.cpp", "", "has no header of its name"),
    ("KTUtility/First/Alone.cpp", "", "is in no list of sources"),
    ("KTUtility/Attic/KTAttic.h", "#pragma once", "has no room for it"),
    ("KTUtility/Second/KTSecond.cpp", "\nvoid h()\n{\n" + "    f();\n" * 120 + "}", "functions above"),
    ("KTUtility/Second/KTMore.h", "#pragma once", "shows other rooms"),
]


def write(top, path, text):
    file = top / path
    file.parent.mkdir(parents=True, exist_ok=True)
    file.write_text(text)


class Rooms(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.top = pathlib.Path(self.folder.name)
        for path, text in FILES.items():
            write(self.top, path, text)
        shutil.copy(SCRIPTS / "rooms", self.top / "scripts/rooms")
        subprocess.run(["git", "init", "-q"], cwd=self.top, check=True)
        self.run_rooms("--draw")

    def tearDown(self):
        self.folder.cleanup()

    def run_rooms(self, *arguments):
        return subprocess.run([sys.executable, self.top / "scripts/rooms", *arguments],
                              capture_output=True, text=True, check=False)

    def test_accepts_the_house(self):
        result = self.run_rooms()
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertIn("KTUtility: 4 rooms, 1 arrows, 3 floors", result.stdout)

    def test_finds_what_is_planted(self):
        for path, text, said in PLANTED:
            with self.subTest(text or path, said=said):
                before = FILES.get(path)
                write(self.top, path, (before or "") + text + "\n")
                result = self.run_rooms()
                self.assertEqual(result.returncode, 1)
                self.assertIn(said, result.stderr)
                write(self.top, path, before) if before else (self.top / path).unlink()

    def test_rejects_unknown_arguments(self):
        self.assertEqual(self.run_rooms("--drwa").returncode, 64)

    def test_a_room_is_not_to_overflow(self):
        for number in range(51):
            write(self.top, f"KTUtility/Second/KTPart{number}.h", "#pragma once\n")
        self.assertIn("holds 53 sources, more than 50", self.run_rooms().stderr)


if __name__ == "__main__":
    unittest.main()
