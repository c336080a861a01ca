#!/usr/bin/env python3
"""scripts/translations finds what is planted in small sources, and nothing in the sources as they are."""
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

SCRIPTS = pathlib.Path(__file__).resolve().parent.parent.parent / "scripts"
SOURCE = """#include "KTAlert.h"

class KTAlert : public QObject
{
    Q_OBJECT
};

const char *name()
{
    return QT_TRANSLATE_NOOP("Names", "na"
                                      "me");
}

void KTAlert::show(int count)
{
    // tr("no text")
    setText(tr("%n “records” in %1", nullptr, count));
    setTitle(NSBundle::mainBundle().localizedStringForKey(u"&Title"_s));
    refuse(u"There is no such day."_s);
    NSException::raise(name, u"There is no such class."_s);
    return NSString::stringWithFormat(u"The %@ is missing.", name);
    KTLog(component, 4, u"There is no such file.");
}
"""
PAGE = """| context | what |
|---|---|
| `KTAlert` | alerts |
| `Localizable` | reasons |
| `Names` | names |
"""
TRANSLATED = {
    "name": "<translation>Name</translation>",
    "&amp;Title": "<translation>&amp;Titel</translation>",
    "There is no such day.": "<translation>Diesen Tag gibt es nicht.</translation>",
    "%n “records” in %1": "<translation>\n            <numerusform>Ein Satz in %1</numerusform>\n"
                          "            <numerusform>%n Sätze in %1</numerusform>\n        </translation>",
}
# A sheet of the host, and a class that says something.
HOST = "examples/Cobble/"
SHEET = """<ui version="4.0">
 <class>Sheet</class>
 <widget class="QLabel" name="label">
  <property name="text"><string>&amp;Name:</string></property>
  <property name="whatsThis"><string notr="true">none</string></property>
 </widget>
</ui>
"""
SPEAKER = """class Speaker
{
    Q_DECLARE_TR_FUNCTIONS(Speaker)
};

void Speaker::speak(int count)
{
    say(tr("Deleted %1 thing(s)", nullptr, count).arg(count));
    name(u"outletName"_s, u"%1 (%2)"_s);
}
"""
LIST = "KTUtility/Translations/ktutility_de.ts"
# What of the list for German becomes what else, and what is said of it.
PLANTED = [
    ("Diesen Tag gibt es nicht.", "", "“There is no such day.” (Localizable) is not translated"),
    (">Diesen", ' type="unfinished">Diesen', "“There is no such day.” (Localizable) is not translated"),
    ("<source>name</source>", "<source>nam</source>", "“nam” (Names) is in no source"),
    ("<source>name</source>", "<source>nam</source>", "“name” (Names) is not translated"),
    ("&amp;Titel", "Titel", "(Localizable) has the placeholders [] instead of ['&']"),
    ("%n Sätze in %1", "%n Sätze in %2", "(KTAlert) has the placeholders ['%2', '%n'] instead of ['%1', '%n']"),
    ("            <numerusform>Ein Satz in %1</numerusform>\n", "", "(KTAlert) has 1 forms instead of 2"),
]


def write(top, path, text):
    file = top / path
    file.parent.mkdir(parents=True, exist_ok=True)
    file.write_text(text)


class Translations(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.top = pathlib.Path(self.folder.name)
        write(self.top, "KTUtility/Windows/KTAlert.cpp", SOURCE)
        write(self.top, "docs/translations.md", PAGE)
        (self.top / "scripts").mkdir()
        shutil.copy(SCRIPTS / "translations", self.top / "scripts/translations")
        self.run_script("--update")
        self.empty = (self.top / LIST).read_text()
        for language, forms in (("de", 2), ("fr", 2), ("ja", 1)):
            self.translate(LIST.replace("_de", "_" + language), forms)

    def tearDown(self):
        self.folder.cleanup()

    def translate(self, path, forms):
        """Fills a list in; another language with one form has that of many."""
        text = (self.top / path).read_text()
        for source, translation in TRANSLATED.items():
            before, after = text.split(f"<source>{source}</source>\n        ")
            if forms == 1 and "numerusform" in translation:
                translation = translation.replace("            <numerusform>Ein Satz in %1</numerusform>\n", "")
            after = translation + after.split("</translation>", 1)[1]
            text = f"{before}<source>{source}</source>\n        {after}"
        write(self.top, path, text)

    def run_script(self, *arguments):
        return subprocess.run([sys.executable, self.top / "scripts/translations", *arguments],
                              capture_output=True, text=True, check=False)

    def test_accepts_what_is_translated(self):
        result = self.run_script()
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertIn("KTUtility: 4 texts in 3 contexts.", result.stdout)

    def test_a_new_text_waits_for_its_translation(self):
        self.assertEqual(self.empty.count('type="unfinished"'), 4)
        self.assertEqual(self.empty.count("<numerusform></numerusform>"), 2)

    def test_an_update_keeps_translations(self):
        before = (self.top / LIST).read_text()
        self.assertEqual(self.run_script("--update").returncode, 0)
        self.assertEqual((self.top / LIST).read_text(), before)

    def test_finds_what_is_planted(self):
        before = (self.top / LIST).read_text()
        for old, new, said in PLANTED:
            with self.subTest(said):
                self.assertIn(old, before)
                write(self.top, LIST, before.replace(old, new))
                result = self.run_script()
                self.assertEqual(result.returncode, 1)
                self.assertIn(said, result.stdout)

    def test_the_page_lists_the_contexts(self):
        write(self.top, "docs/translations.md", PAGE.replace("Names", "Nouns"))
        said = self.run_script().stdout
        self.assertIn("the context Names is missing", said)
        self.assertIn("there is no context Nouns", said)

    def add_host(self, speaker=SPEAKER):
        write(self.top, HOST + "Resources/Interfaces/Sheet.ui", SHEET)
        write(self.top, HOST + "Sources/Window/Speaker.cpp", speaker)
        for language in ("de", "en"):
            write(self.top, f"{HOST}Resources/Translations/cobble_{language}.ts", "<TS></TS>")
        return self.run_script("--update").stdout

    def test_interfaces_have_texts(self):
        said = self.add_host()
        self.assertIn("examples/Cobble: 2 texts in 2 contexts.", said)
        self.assertIn("cobble_de.ts: “&Name:” (Sheet) is not translated", said)
        self.assertNotIn("none", said)

    def test_english_has_lists_of_what_has_numbers(self):
        said = self.add_host()
        self.assertIn("cobble_en.ts: “Deleted %1 thing(s)” (Speaker) is not translated", said)
        self.assertNotIn("cobble_en.ts: “&Name:”", said)

    def test_a_sentence_of_a_window_is_a_text(self):
        said = self.add_host(SPEAKER.replace('tr("Deleted', 'u"All gone."_s, tr("Deleted'))
        self.assertIn("Speaker.cpp: “All gone.” cannot be translated", said)
        self.assertNotIn("outletName", said)

    def test_a_class_has_texts_of_its_own(self):
        self.assertNotIn("Q_OBJECT", self.add_host())
        self.assertIn("Speaker has no Q_OBJECT", self.add_host(SPEAKER.replace("Q_DECLARE_TR_FUNCTIONS(Speaker)", "")))


if __name__ == "__main__":
    unittest.main()
