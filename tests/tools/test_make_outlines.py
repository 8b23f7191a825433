import unittest
from pathlib import Path

from support import OWL, ROOT, SIGNS, VIPER, MakerTest

try:
    import fontTools
except ImportError:
    fontTools = None

FONT = Path("/usr/share/fonts/truetype/noto/NotoSansEgyptianHieroglyphs-Regular.ttf")


@unittest.skipUnless(fontTools and FONT.is_file(), "needs the Debian packages python3-fonttools, fonts-noto-core")
class MakeOutlines(MakerTest):
    def make(self, signs, *options):
        self.shapes, self.outlines = self.directory / "forme.tsv", self.directory / "segni.dat"
        return self.run_maker(
            "make-outlines", "--signs", self.file("signs.tsv", signs), "--shapes", self.shapes,
            "--outlines", self.outlines, *options,
        )  # fmt: skip

    def test_writes_the_boxes_and_an_index_of_outlines(self):
        result = self.make(SIGNS + VIPER + OWL)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertEqual(self.shapes.read_text(), "code\twidth\theight\ne16\t1018\t1019\nf21\t1404\t394\n")
        made = self.outlines.read_bytes()
        second = int.from_bytes(made[20:24], "little")
        self.assertEqual((made[:13], made[17:20]), (b"KarvSegn\2\0e16", b"f21"))
        self.assertEqual((made[24:25], made[second - 1 : second + 1], made[-2:]), (b"M", b"\0M", b"Z\0"))
        self.assertEqual(self.make(SIGNS + VIPER + OWL, "--check").returncode, 0)
        self.outlines.write_bytes(made[:-1])
        self.assertIn("segni.dat differs", self.make(SIGNS + VIPER + OWL, "--check").stderr)

    def test_refuses_a_sign_that_the_font_lacks(self):
        result = self.make(SIGNS + "a01\tU+1FFFD\tA1\t\t\n")
        self.assertEqual((result.returncode, self.outlines.exists()), (1, False))
        self.assertIn("no sign for a01", result.stderr)

    def test_kept_files_are_what_the_sources_make(self):
        result = self.run_maker("make-outlines", "--check")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        notice = (ROOT / "data/tree/scrittura/OFL.txt").read_text("cp1252")
        self.assertIn("SIL OPEN FONT LICENSE Version 1.1", notice)


if __name__ == "__main__":
    unittest.main()
