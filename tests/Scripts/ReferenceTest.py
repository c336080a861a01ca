#!/usr/bin/env python3
"""scripts/reference-filter gives declarations their comments, docs/coming-from-the-platform.md names what there is,
and scripts/reference, where Doxygen is installed, makes a reference of all that is public and finds what is not."""
import importlib.machinery
import importlib.util
import pathlib
import re
import shutil
import sqlite3
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as xml

TOP = pathlib.Path(__file__).resolve().parent.parent.parent
sys.dont_write_bytecode = True


def load(name):
    loader = importlib.machinery.SourceFileLoader(name.replace("-", "_"), str(TOP / "scripts" / name))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader(loader.name, loader))
    loader.exec_module(module)
    return module


FILTER, REFERENCE, ROOMS = load("reference-filter"), load("reference"), load("rooms")
HAS_TOOLS = all(REFERENCE.found(name) for name in REFERENCE.PACKAGES)

IN_CLASS = "class KTA\n{\npublic:\n%s\n};\n"
# What a header holds, a line of it, and the comment that the line gets.
COMMENTS = {
    "its own": ("/// Adds.\nvoid add(int n);", "void add(int n);", ["/// Adds."]),
    "several lines": ("/// Adds\n/// up.\nvoid add();", "void add();", ["/// Adds", "/// up."]),
    "none": ("void add();", "void add();", []),
    "an overload's": ("/// Adds.\nvoid add(int n);\nvoid add(char c);", "void add(char c);", ["/// Adds."]),
    "not behind an empty line": ("/// Adds.\nvoid add(int n);\n\nvoid add(char c);", "void add(char c);", []),
    "not behind a remark": ("/// Adds.\nvoid add(int n);\n// Slow.\nvoid add(char c);", "void add(char c);", []),
    "not another function's": ("/// Adds.\nvoid add();\nvoid drop();", "void drop();", []),
    "the getter's": ("/// How many.\nint size() const;\nvoid setSize(int n);", "void setSize(int n);",
                     ["/// How many."]),
    "the getter's that asks": ("/// Whether it is on.\nbool isOn() const;\nvoid setOn(bool on);",
                               "void setOn(bool on);", ["/// Whether it is on."]),
    "the getter's of several lines": ("/// How many.\nint size() const\n{\n    return _size;\n}\nvoid setSize(int n);",
                                      "void setSize(int n);", ["/// How many."]),
    "without parameters that it lacks": (
        "/// Adds.\n/// \\param n how many\n/// of them.\n/// \\param c is added.\nvoid add(int n, char c);\n"
        "void add(char c);", "void add(char c);", ["/// Adds.", "/// \\param c is added."]),
    "without a result that it lacks": ("/// Adds.\n/// \\return the sum.\nint add(int n);\nvoid add();",
                                       "void add();", ["/// Adds."]),
    "a template's": ("/// Adds.\ntemplate<typename T>\nvoid add(T value)\n{\n    sum += value;\n}",
                     "template<typename T>", ["/// Adds."]),
    "an overload's with a requirement": (
        "/// Adds.\ntemplate<typename T>\n    requires(std::integral<T>)\nvoid add(T n);\n"
        "template<std::floating_point T>\nvoid add(T n);", "template<std::floating_point T>", ["/// Adds."]),
    "constants of a kind": ("/// Units.\nusing Units = unsigned;\ninline constexpr Units A = 1;",
                            "inline constexpr Units A = 1;", ["/// Units."]),
    "constants of a type": ("/// Names.\nextern const QString A;\nextern const QString B;",
                            "extern const QString B;", ["/// Names."]),
    "constants of another type": ("/// Names.\nextern const QString A;\nextern const int B;",
                                  "extern const int B;", []),
    "a macro behind a condition": ("/// Exports.\n#if X\n#define E A\n#else\n#define E B\n#endif",
                                   "#define E B", ["/// Exports."]),
    "not an enumeration's": ("/// Kinds.\nenum Kind { One, Two };\nvoid Kind(int);", "void Kind(int);", []),
    "a class's not its member's": ("/// A pair.\nstruct Pair\n{\n    int first;\n};", "    int first;", []),
    "what follows a class": ("/// A pair.\nstruct Pair\n{\n};\n/// Adds.\nvoid add();", "void add();",
                             ["/// Adds."]),
    "literals that look like code": ("/// Opens.\nvoid open(char c = '{', const char *s = \"}(\");\n"
                                     "/// Adds.\nvoid add();", "void add();", ["/// Adds."]),
}
HEADINGS = """class KTA
{
public:
    // --- Reading. What is missing
    // is nil.

    /// Reads.
    void read();

    // --- Writing

    /// Writes.
    void write();

private:
    void seek();
};
"""
HEADINGS_OUT = """class KTA
{
public:
/// \\name Reading
/// What is missing is nil.
/// \\{
    /// Reads.
    void read();
/// \\}
/// \\name Writing
/// \\{
    /// Writes.
    void write();
/// \\}
private:
    void seek();
};"""
COMMENTS_IN_CLASS = {
    "a comparison's": ("    friend bool operator==(const KTA &, const KTA &) = default;",
                       ["/// Whether all members of both are equal."]),
    "not a copy's": ("    /// Makes one.\n    KTA();\n    KTA(const KTA &other);", []),
    "not an assignment's": ("    /// A.\n    KTA &operator=(int);\n    KTA &operator=(char);", []),
}
PROPERTIES = """class KTA : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int size READ size WRITE setSize
                   NOTIFY sizeChanged)

public:
    /// How many.
    int size() const;

Q_SIGNALS:
    void sizeChanged();
};
"""
PAGE = """| selector | function | header |
|---|---|---|
| `add:` | `KTAdditions::add` | `<KTUtility/KTA>` |
| `add:times:` | `KTAdditions::add` | `<KTUtility/KTA>` |
| `addInside` | `KTA::addInside` private | `KTA_p.h` |
"""
OVERLOADS = """namespace KTAdditions {
/// Adds.
void add(int n);

/// Adds often.
void add(int n, int times);
} // namespace KTAdditions
"""


def comment_of(text, line):
    """The comment above the declaration that begins with a line."""
    lines = FILTER.filtered_header(text, "KTA.h", "").split("\n")
    above = lines[2:lines.index(line)]
    comment = []
    while above and above[-1].lstrip().startswith("///"):
        comment.insert(0, above.pop().strip())
    return comment


def code_of(text):
    lines = [line for line in text.split("\n") if line.strip() and not re.match(r"\s*//(?!/<)", line)]
    return [re.sub(r"\s+// .*", "", line) for line in lines]


class Filter(unittest.TestCase):
    def test_gives_declarations_their_comments(self):
        for name, (text, line, expected) in COMMENTS.items():
            with self.subTest(name):
                self.assertEqual(comment_of("\n" + text + "\n", line), expected)

    def test_gives_members_their_comments(self):
        for name, (members, expected) in COMMENTS_IN_CLASS.items():
            with self.subTest(name):
                self.assertEqual(comment_of(IN_CLASS % members, members.split("\n")[-1]), expected)

    def test_speaks_for_properties_and_their_signals(self):
        self.assertEqual(comment_of(PROPERTIES, "    Q_PROPERTY(int size READ size WRITE setSize"), ["/// How many."])
        self.assertEqual(comment_of(PROPERTIES, "    void sizeChanged();"), ["/// Emitted after size has changed."])

    def test_keeps_everything_but_the_places_of_comments(self):
        for path in REFERENCE.public_headers():
            with self.subTest(path.name):
                before, after = path.read_text(), FILTER.filtered_header(path.read_text(), path.name, "")
                self.assertEqual(code_of(after), code_of(before))

    def test_shows_together_what_stands_below_a_heading(self):
        lines = FILTER.filtered_header(HEADINGS, "KTA.h", "").split("\n")
        self.assertEqual([line for line in lines if line.strip()][2:], HEADINGS_OUT.split("\n"))

    def test_says_how_a_header_is_included(self):
        lines = FILTER.filtered_header("#pragma once\n", "KTA.h", "").split("\n")
        self.assertEqual(lines[:3], ["/// \\file", "/// Included as `<KTUtility/KTA>`.", "#pragma once"])

    def test_names_the_selectors_of_overloads(self):
        text = FILTER.filtered_header(OVERLOADS, "KTA.h", PAGE)
        self.assertEqual(re.findall(r"`(add.*)`\n(.*);", text),
                         [("add:", "void add(int n)"), ("add:times:", "void add(int n, int times)")])

    def test_names_no_selectors_of_other_headers(self):
        self.assertNotIn("Selector", FILTER.filtered_header(OVERLOADS, "KTB.h", PAGE))

    def test_links_the_functions_of_the_page(self):
        text = FILTER.filtered_page(PAGE)
        self.assertIn("| `add:times:` | KTAdditions::add() | `<KTUtility/KTA>` |", text)
        self.assertIn("| `addInside` | `KTA::addInside` private | `KTA_p.h` |", text)


def undescribed(enumeration):
    """The enumerators that have no comment above or behind them."""
    names, is_described = [], False
    for line in enumeration[enumeration.index("{") + 1:enumeration.rindex("}")].split("\n"):
        found = re.match(r"\s*(\w+)", line)
        if found and not is_described and "///<" not in line:
            names.append(found[1])
        is_described = line.strip().startswith("///")
    return names


class Enumerators(unittest.TestCase):
    def test_finds_what_is_not_described(self):
        self.assertEqual(undescribed("enum E {\n    /// One.\n    A,\n    B, ///< two\n    C = 3,\n};"), ["C"])
        self.assertEqual(undescribed("enum class E { A, B };"), ["A"])

    def test_all_are_described(self):
        """Doxygen does not ask for them."""
        for path in REFERENCE.public_headers():
            for item in FILTER.Reader(path.read_text()).items():
                if re.match(r"enum\b[^;]*\{", item.text) and not item.scope.startswith("KTPrivate"):
                    self.assertEqual(undescribed(item.text), [], path.name)


class ComingFromThePlatform(unittest.TestCase):
    def setUp(self):
        self.text = FILTER.PAGE.read_text()
        self.rows = FILTER.rows(self.text)

    def test_every_row_can_be_read(self):
        """A row in another form would be in no index."""
        lines = [line for line in self.text.split("\n") if line.startswith("|") and line.count("|") > 3]
        self.assertEqual(len(lines) - 2 * self.text.count("| selector | function | header |"), len(self.rows))
        self.assertGreater(len(self.rows), 400)

    def test_no_row_stands_twice(self):
        places = [(row.selector, row.function, row.header) for row in self.rows]
        self.assertEqual([place for place in places if places.count(place) > 1], [])

    def test_every_function_is_declared_in_its_header(self):
        headers = {path.name: path for path in TOP.glob("KTUtility/**/*.h")}
        declared = {}
        for row in self.rows:
            with self.subTest(row.selector):
                self.assertIn(row.header, headers)
                if row.header not in declared:
                    items = list(FILTER.Reader(headers[row.header].read_text()).items())
                    declared[row.header] = {f"{item.scope}::{item.name}" for item in items if item.name}
                    declared[row.header] |= set(ROOMS.CLASS.findall(headers[row.header].read_text()))
                self.assertIn(row.function, declared[row.header])

    def test_what_an_owner_implements_is_described_where_it_is_called(self):
        for row in self.rows:
            if "::" not in row.function:
                header = next(TOP.glob(f"KTUtility/**/{row.header}")).read_text()
                self.assertIn(row.selector.split(":")[0], header)

    def test_only_what_is_private_stands_in_private_headers(self):
        for row in self.rows:
            if row.header.endswith("_p.h"):
                self.assertTrue(row.is_private, row.selector)


@unittest.skipUnless(HAS_TOOLS, "doxygen or qhelpgenerator is not installed")
class Reference(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.holder = tempfile.TemporaryDirectory()
        cls.folder = pathlib.Path(cls.holder.name)
        cls.result = subprocess.run([sys.executable, TOP / "scripts/reference", cls.folder],
                                    capture_output=True, text=True, check=False)

    @classmethod
    def tearDownClass(cls):
        cls.holder.cleanup()

    def compounds(self, *kinds):
        compounds = xml.parse(self.folder / "KTUtility.tag").getroot().iter("compound")
        names = [compound.findtext("name") for compound in compounds if compound.get("kind") in kinds]
        return {name.rpartition("::")[2] for name in names}

    def test_has_no_gaps(self):
        self.assertEqual((self.result.returncode, self.result.stderr), (0, ""))
        self.assertTrue((self.folder / "html/index.html").exists())

    def test_has_every_public_header_and_class(self):
        headers = REFERENCE.public_headers()
        self.assertEqual({path.name for path in headers} - self.compounds("file"), set())
        classes = {name for path in headers for name in ROOMS.CLASS.findall(path.read_text())}
        self.assertEqual(classes - self.compounds("class", "struct"), set())

    def test_has_every_namespace(self):
        """What stands in a namespace without a comment is left out without a word."""
        opened = [FILTER.SCOPE.match(item.text) for path in REFERENCE.public_headers()
                  for item in FILTER.Reader(path.read_text()).items() if not item.scope.startswith("KTPrivate")]
        namespaces = {scope[2] for scope in opened if scope and scope[1] == "namespace"}
        self.assertIn("KTAdditions", namespaces)
        self.assertEqual(namespaces - {"KTPrivate", "KTPlugInProbe", "NSDetail", "KTDetail", "Detail"} - self.compounds("namespace"),
                         set())

    def test_the_index_has_every_selector(self):
        index = sqlite3.connect(self.folder / "KTUtility.qch")
        indexed = {name for name, in index.execute("SELECT Name FROM IndexTable")}
        index.close()
        rows = FILTER.rows(FILTER.PAGE.read_text())
        self.assertEqual({row.selector for row in rows if not row.is_private} - indexed, set())

    def test_finds_what_is_planted(self):
        planted = {
            "/// One.\nclass KTA\n{\npublic:\n    void add();\n};": "add() (function) of class KTA is not documented",
            "/// One.\nclass KTA\n{\n};\nvoid ktAdd();": "ktAdd() (function) of file KTA.h is not documented",
            "/// One.\n/// \\param n is not there.\nvoid ktAdd(int m);": "argument 'n' of command @param is not found",
        }
        for text, said in planted.items():
            with self.subTest(said), tempfile.TemporaryDirectory() as folder:
                top = pathlib.Path(folder)
                for path in ("scripts/reference", "scripts/reference-filter", "docs/Doxyfile"):
                    (top / path).parent.mkdir(exist_ok=True)
                    shutil.copy(TOP / path, top / path)
                (top / "README.md").write_text("# Planted\n")
                (top / "docs/coming-from-the-platform.md").write_text("# Coming from the platform\n")
                (top / "KTUtility").mkdir()
                (top / "KTUtility/KTA.h").write_text("#pragma once\n\n" + text + "\n")
                result = subprocess.run([sys.executable, top / "scripts/reference"],
                                        capture_output=True, text=True, check=False)
                self.assertEqual(result.returncode, 1)
                self.assertIn(said, result.stderr)
                lines = result.stderr.split("\n")
                self.assertEqual([lines[0].split(":")[0], *lines[1:]],
                                 ["KTUtility/KTA.h", "The reference has gaps, or its pages have mistakes.", ""])

    def test_rejects_unknown_arguments(self):
        result = subprocess.run([sys.executable, TOP / "scripts/reference", "--hepl"], capture_output=True, check=False)
        self.assertEqual(result.returncode, 64)


if __name__ == "__main__":
    unittest.main()
