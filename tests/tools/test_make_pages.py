import subprocess
import unittest

from support import OWL, ROOT, SIGNS, VIPER, MakerTest

HEADER = "file\ttitle\tgardiner\n"


class MakePages(MakerTest):
    def make(self, table, *options):
        self.out = self.directory / "tree"
        return self.run_maker(
            "make-pages", "--table", self.file("pages.tsv", table),
            "--signs", self.file("signs.tsv", SIGNS + OWL + VIPER), "--out", self.out, *options,
        )  # fmt: skip

    def written(self):
        files = (path for path in self.out.rglob("*") if path.is_file())
        return {path.relative_to(self.out).as_posix(): path.read_bytes() for path in files}

    def test_writes_pages_cards_and_their_list(self):
        table = HEADER + "pre1.prf\tdue\tI9 G17\nuomini.txt\t\tG17\nDue.txt\t\tG17 I9\nUno.txt\t\tI9\n"
        result = self.make(table)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        page = b"C:\\Programmi\\Karvel\\GR\\f21.gif\r\nC:\\Programmi\\Karvel\\GR\\e16.gif\r\n" + b"\r\n" * 7
        self.assertEqual(self.written(), {
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
        cases = {
            "pre1.prf\t\tI9 G99": "'G99' has no key",
            "pre1.prf\t\tI9 I9": "I9 stands twice",
            "pre1.prf\t\t": "has no key",
            "pre0.prf\t\tI9": "neither a page nor a card",
            "pre100.prf\t\tI9": "neither a page nor a card",
            "../x.txt\t\tI9": "neither a page nor a card",
            "x.txt\tI9": "2 columns, not 3",
            "pre1.prf\t\t" + " ".join(["I9"] * 9): "9 signs, not 1 to 8",
        }
        for row, reason in cases.items():
            with self.subTest(row):
                result = self.make(HEADER + "Uno.txt\t\tI9\n" + row + "\n")
                self.assertEqual(result.returncode, 1)
                self.assertIn("pages.tsv:3: ", result.stderr)
                self.assertIn(reason, result.stderr)
                self.assertFalse(self.out.exists())
        self.assertIn("Uno.txt stands twice", self.make(HEADER + "Uno.txt\t\tI9\n" * 2).stderr)

    def test_the_shipped_files_are_what_their_table_makes(self):
        made = subprocess.run(["/usr/bin/python3", ROOT / "tools/make-pages", "--check"], capture_output=True)
        self.assertEqual((made.returncode, made.stderr), (0, b""))
