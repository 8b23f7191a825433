from support import OWL, SIGNS, VIPER, MakerTest

HEADER = "gardiner\ttranslation\ttransliteration\tnote\n"
GOOD = "G17\tin, come\tm\tpreposizione\n"
OTHER = "I9\tlui\t=f\t\n"
FIVE = GOOD + "".join(f"G17\tn. {n}\t\t\n" for n in range(4))


class MakeDictionary(MakerTest):
    def make(self, table, signs=SIGNS + OWL + VIPER, *options):
        self.out = self.directory / "dizio.txt"
        return self.run_maker(
            "make-dictionary", "--entries", self.file("entries.tsv", table),
            "--signs", self.file("signs.tsv", signs), "--out", self.out,
            "--uses", self.directory / "usi.tsv", *options,
        )  # fmt: skip

    def test_writes_the_records_in_the_order_of_the_table(self):
        table = HEADER + "I9-G17\tperché, è così\t\t“nota”, €\n" + FIVE.rsplit("G17", 1)[0]
        result = self.make(table)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        expected = (
            '"f21e16"\r\n"perch\xe9, \xe8 cos\xec"\r\n""\r\n"\x93nota\x94, \x80"\r\n'
            '"e16"\r\n"in, come"\r\n"m"\r\n"preposizione"\r\n'
        ) + "".join(f'"e16"\r\n"n. {n}"\r\n""\r\n""\r\n' for n in range(3))
        self.assertEqual(self.out.read_bytes(), expected.encode("latin-1"))
        self.assertEqual((self.directory / "usi.tsv").read_text(), "e16\t5\nf21\t1\n")

    def test_refuses_what_the_file_cannot_hold(self):
        cases = {
            "a sign without a key": ("G99\ta\tb\tc", "'G99' has no key"),
            "a sign without a key among others": ("G17-X1-I9\ta\tb\tc", "'X1' has no key"),
            "no signs": ("\ta\tb\tc", "no signs"),
            "a separator too many": ("G17-\ta\tb\tc", "'' has no key"),
            "not in the code page": ("G17\ta\tḥ\tc", "ḥ (U+1E25) in the transliteration"),
            "a control that the code page shows as a letter": ("G17\ta\tb\t\x85", "U+0085 in the note"),
            "an end-of-file mark": ("G17\ta\x1a\tb\tc", "U+001A in the translation"),
            "a double quote": ('G17\tdetto "il grande"\tb\tc', "double quote in the translation"),
            "a double quote in the note": ('G17\ta\tb\t"', "double quote in the note"),
            "a line end": ("G17\ta\tb\tc\r", "line end in the note"),
            "no translation": ("G17\t\tb\tc", "no translation"),
            "a blank translation": ("G17\t  \tb\tc", "no translation"),
            "a column too few": ("G17\ta\tb", "3 columns, not 4"),
            "a column too many": ("G17\ta\tb\tc\td", "5 columns, not 4"),
            "an empty line": ("", "1 columns, not 4"),
            "an entry that stands above": ("G17\tin, come\tx\t", "same signs and translation as line 2"),
            "another encoding": (b"G17\tperch\xe9\tb\tc", "not UTF-8 at byte 10"),
        }
        for name, (row, reason) in cases.items():
            with self.subTest(name):
                row = row if isinstance(row, bytes) else row.encode("utf-8")
                result = self.make((HEADER + GOOD).encode() + row + b"\n" + OTHER.encode())
                self.assertEqual(result.returncode, 1)
                self.assertIn(reason, result.stderr)
                self.assertIn("entries.tsv:3: ", result.stderr)
                self.assertEqual(result.stderr.count("\n"), 1, result.stderr)
                self.assertFalse(self.out.exists())

    def test_tells_every_fault_and_leaves_the_old_file(self):
        self.make(HEADER + FIVE)
        before = self.out.read_bytes()
        result = self.make(HEADER + FIVE + OTHER)
        self.assertIn("entries.tsv: 6 records are no multiple of 5", result.stderr)
        self.assertEqual(self.out.read_bytes(), before)
        result = self.make(HEADER + 'G99\t"\tb\tc\n' + GOOD + "G17\t\tb\tc\n")
        places = [line.split(": ")[1].rsplit(":", 1)[1] for line in result.stderr.splitlines()]
        self.assertEqual((result.returncode, places), (1, ["2", "2", "4"]))
        self.assertEqual(self.out.read_bytes(), before)

    def test_refuses_another_header_and_a_faulty_repertoire(self):
        result = self.make("note\n" + GOOD)
        self.assertIn("entries.tsv:1: the header", result.stderr)
        for row in (OWL, "p47\tU+13153\tG18\t\t\n", "k01\tU+13153\tG18\t\t\n", "a54\tU+13153\tG18\t\t\n",
                    OWL.replace("e16", "e17"), "e17\tU+41\tG18\t\t\n"):  # fmt: skip
            with self.subTest(row):
                result = self.make(HEADER + GOOD, SIGNS + OWL + row)
                self.assertEqual(result.returncode, 1)
                self.assertIn("signs.tsv:3: ", result.stderr)
                self.assertFalse(self.out.exists())

    def test_check_compares_and_writes_nothing(self):
        self.assertEqual(self.make(HEADER + FIVE, SIGNS + OWL, "--check").returncode, 1)
        self.assertFalse(self.out.exists())
        self.make(HEADER + FIVE)
        self.assertEqual(self.make(HEADER + FIVE, SIGNS + OWL, "--check").returncode, 0)
        stale = self.out.read_bytes()
        result = self.make(HEADER + FIVE.replace("n. 0", "n. 9"), SIGNS + OWL, "--check")
        self.assertEqual((result.returncode, self.out.read_bytes()), (1, stale))
        self.assertIn("differs", result.stderr)

    def test_the_installed_dictionary_is_what_its_sources_make(self):
        result = self.run_maker("make-dictionary", "--check")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
