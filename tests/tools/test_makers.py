"""The makers of the data: what they write, what they refuse, and that the kept files are what they make."""

import unittest
from pathlib import Path

from support import OWL, ROOT, SIGNS, VIPER, MakerTest

try:
    from PIL import Image
except ImportError:
    Image = None

ENTRIES = "gardiner\ttranslation\ttransliteration\tnote\n"
GOOD = "G17\tin, come\tm\tpreposizione\n"
FIVE = GOOD + "".join(f"G17\tn. {n}\t\t\n" for n in range(4))
PAGES = "file\ttitle\tgardiner\n"
KEPT_BY = "9.4."  # the version of the library that drew the kept pictures, Debian 12's; others smooth differently
SIGN_FONT = Path("/usr/share/fonts/truetype/noto/NotoSansEgyptianHieroglyphs-Regular.ttf")
TITLE_FONT = Path("/usr/share/fonts/opentype/urw-base35/P052-Bold.otf")


class MakeDictionary(MakerTest):
    def make(self, table, signs=SIGNS + OWL + VIPER):
        self.out = self.directory / "dizio.txt"
        return self.run_maker("make-dictionary", "--entries", self.file("entries.tsv", table),
                              "--signs", self.file("signs.tsv", signs), "--out", self.out,
                              "--uses", self.directory / "usi.tsv")  # fmt: skip

    def test_writes_the_records_in_the_order_of_the_table(self):
        result = self.make(ENTRIES + "I9-G17\tperché, è così\t\t“nota”, €\n" + FIVE.rsplit("G17", 1)[0])
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        expected = (
            '"f21e16"\r\n"perch\xe9, \xe8 cos\xec"\r\n""\r\n"\x93nota\x94, \x80"\r\n'
            '"e16"\r\n"in, come"\r\n"m"\r\n"preposizione"\r\n'
        ) + "".join(f'"e16"\r\n"n. {n}"\r\n""\r\n""\r\n' for n in range(3))
        self.assertEqual((self.directory / "usi.tsv").read_text(), "e16\t5\nf21\t1\n")
        self.assertEqual(self.out.read_bytes(), expected.encode("latin-1"))

    def test_refuses_what_the_file_cannot_hold(self):
        rows = {
            "G17-X1-I9\ta\tb\tc": "'X1' has no key",
            "\ta\tb\tc": "no signs",
            "G17\ta\tḥ\tc": "ḥ (U+1E25) in the transliteration",
            "G17\ta\x1a\tb\tc": "U+001A in the translation",
            'G17\tq\tb\t"': "double quote in the note",
            "G17\tr\tb\tc\r": "line end in the note",
            "G17\t  \tb\tc": "no translation",
            "G17\ta\tb": "3 columns, not 4",
            GOOD[:-1]: "",
            GOOD[:-2]: "the same signs and translation as line 10",
        }
        self.make(ENTRIES + FIVE)
        before = self.out.read_bytes()
        result = self.make(ENTRIES + "\n".join(rows) + "\n")
        self.assertEqual(result.returncode, 1)
        told = dict(line.split("entries.tsv:")[1].split(": ", 1) for line in result.stderr.replace("\r", "").splitlines())
        for line, reason in enumerate(rows.values(), 2):
            self.assertEqual(bool(reason), str(line) in told, line)
            self.assertIn(reason, told.get(str(line), ""))
        self.assertEqual(self.out.read_bytes(), before)
        for row in (OWL, "p47\tU+13153\tG18\t\t\n", "a54\tU+13153\tG18\t\t\n", OWL.replace("e16", "e17"),
                    OWL.replace("G17", "G18")):
            result = self.make(ENTRIES + FIVE, SIGNS + OWL + row)
            self.assertEqual(result.returncode, 1, row)
            self.assertIn("signs.tsv:3: ", result.stderr)


class MakePages(MakerTest):
    def make(self, table, *options):
        self.out = self.directory / "tree"
        return self.run_maker("make-pages", "--table", self.file("pages.tsv", table), "--signs",
                              self.file("signs.tsv", SIGNS + OWL + VIPER), "--out", self.out, *options)  # fmt: skip

    def test_writes_pages_cards_and_their_list(self):
        table = PAGES + "pre1.prf\tdue\tI9 G17\nuomini.txt\t\tG17\nDue.txt\t\tG17 I9\nUno.txt\t\tI9\n"
        result = self.make(table)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        page = b"C:\\Programmi\\Karvel\\GR\\f21.gif\r\nC:\\Programmi\\Karvel\\GR\\e16.gif\r\n" + b"\r\n" * 7
        files = {path.relative_to(self.out).as_posix(): path.read_bytes()
                 for path in self.out.rglob("*") if path.is_file()}  # fmt: skip
        self.assertEqual(files, {
            "prefe/pre1.prf": page,
            "GeroLink/uomini.txt": b"e16\r\n",
            "GeroLink/Due.txt": b"e16\r\nf21\r\n",
            "GeroLink/Uno.txt": b"f21\r\n",
            "GeroLink/speciale.txt": b"Due\r\nUno\r\n",
        })  # fmt: skip
        self.assertEqual(self.make(table, "--check").returncode, 0)
        (self.out / "GeroLink/Uno.txt").write_bytes(b"e16\r\n")
        self.assertIn("Uno.txt differs", self.make(table, "--check").stderr)

    def test_refuses_what_the_program_could_not_read(self):
        rows = {
            "pre1.prf\t\tI9 G99": "'G99' has no key",
            "pre1.prf\t\tI9 I9": "I9 stands twice",
            "pre0.prf\t\tI9": "neither a page nor a card",
            "../x.txt\t\tI9": "neither a page nor a card",
            "pre1.prf\t\t" + " ".join(["I9"] * 9): "9 signs, not 1 to 8",
        }
        result = self.make(PAGES + "\n".join(rows) + "\n")
        self.assertEqual(result.returncode, 1)
        for line, reason in enumerate(rows.values(), 2):
            self.assertRegex(result.stderr, f"pages.tsv:{line}: .*{reason}")
        self.assertFalse(self.out.exists())


@unittest.skipUnless(Image and SIGN_FONT.is_file(), "needs the Debian packages python3-pil, fonts-noto-core")
class MakeSigns(MakerTest):
    def test_makes_the_kept_pictures_and_tells_what_differs(self):
        signs, out = self.file("signs.tsv", SIGNS + OWL + VIPER), self.directory / "GR"
        make = lambda *options: self.run_maker("make-signs", "--signs", signs, "--out", out, *options)
        result = make()
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertEqual(sorted(path.name for path in out.iterdir()), ["e16.gif", "f21.gif", "p47.gif"])
        for path in out.iterdir() if Image.__version__.startswith(KEPT_BY) else ():
            self.assertEqual(path.read_bytes(), (ROOT / "data/tree/GR" / path.name).read_bytes(), path.name)
        self.assertEqual(make("--check").returncode, 0)
        (out / "e16.gif").write_bytes((out / "f21.gif").read_bytes())
        (out / "p47.gif").unlink()
        (out / "a01.gif").write_bytes(b"")
        result = make("--check")
        for difference in ("e16.gif differs", "p47.gif is missing", "a01.gif belongs to no key"):
            self.assertIn(difference, result.stderr)
        self.assertIn("no key has the code a99", make("a99").stderr)


@unittest.skipUnless(Image and TITLE_FONT.is_file(), "needs the Debian packages python3-pil, fonts-urw-base35")
class MakePictures(MakerTest):
    def test_draws_the_pictures_that_are_kept(self):
        result = self.run_maker("make-pictures", "--check")
        self.assertEqual((result.returncode, result.stderr), (0, ""))


class KeptFiles(MakerTest):
    def test_are_what_their_sources_make(self):
        for maker in ("make-dictionary", "make-model", "make-pages"):
            result = self.run_maker(maker, "--check")
            self.assertEqual((result.returncode, result.stderr), (0, ""), maker)


if __name__ == "__main__":
    unittest.main()
