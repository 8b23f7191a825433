import unittest
from pathlib import Path

from support import OWL, ROOT, SIGNS, VIPER, MakerTest

try:
    from PIL import Image, ImageChops, ImageFilter
except ImportError:
    Image = None

FONT = Path("/usr/share/fonts/truetype/noto/NotoSansEgyptianHieroglyphs-Regular.ttf")
PICTURES = ROOT / "data/tree/GR"
needs_font = unittest.skipUnless(FONT.is_file(), "needs the Debian package fonts-noto-core")


@unittest.skipUnless(Image, "needs the Debian package python3-pil")
class InstalledPictures(unittest.TestCase):
    """The pictures as they are kept; no font is needed."""

    def test_every_key_has_one_that_shows_on_any_colour(self):
        names = [f"{page}{key:02}.gif" for page in "abcdefghilmnop" for key in range(1, 54)]
        self.assertEqual(sorted(path.name for path in PICTURES.iterdir()), names)
        for name in names:
            with self.subTest(name), Image.open(PICTURES / name) as image:
                self.assertEqual((image.format, image.size), ("GIF", (192, 192)))
                self.assert_readable(image.convert("RGBA"))

    def assert_readable(self, image):
        clear = image.getchannel("A").point(lambda alpha: 255 - alpha)
        visible = Image.new("L", image.size, 128)
        visible.paste(image.convert("L"), mask=image.getchannel("A"))
        dark = visible.point(lambda value: 255 if value < 60 else 0)
        light = visible.point(lambda value: 255 if value > 240 else 0)
        ink, paper = dark.histogram()[255], light.histogram()[255]
        self.assertGreater(ink, 150)
        self.assertGreater(paper, ink / 3)
        self.assertEqual(clear.getpixel((0, 0)), 255)
        # Between the ink and the outside there is light, nowhere narrower than two pixels.
        near = ImageChops.multiply(clear.filter(ImageFilter.MaxFilter(5)), dark)
        self.assertIsNone(near.getbbox())


@unittest.skipUnless(Image, "needs the Debian package python3-pil")
@needs_font
class MakeSigns(MakerTest):
    def make(self, signs, *options):
        self.out = self.directory / "GR"
        return self.run_maker(
            "make-signs", "--signs", self.file("signs.tsv", signs), "--out", self.out, *options
        )

    def names(self):
        return sorted(path.name for path in self.out.iterdir()) if self.out.exists() else []

    def test_makes_the_keys_of_the_repertoire_and_the_missing_sign(self):
        result = self.make(SIGNS + OWL + VIPER)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertEqual(self.names(), ["e16.gif", "f21.gif", "p47.gif"])
        for name in self.names():
            self.assertEqual((self.out / name).read_bytes(), (PICTURES / name).read_bytes(), name)

    def test_check_tells_what_differs(self):
        self.make(SIGNS + OWL + VIPER)
        self.assertEqual(self.make(SIGNS + OWL + VIPER, "--check").returncode, 0)
        (self.out / "e16.gif").write_bytes((self.out / "f21.gif").read_bytes())
        (self.out / "p47.gif").unlink()
        (self.out / "a01.gif").write_bytes(b"")
        result = self.make(SIGNS + OWL + VIPER, "--check")
        self.assertEqual(result.returncode, 1)
        for difference in ("e16.gif differs", "p47.gif is missing", "a01.gif belongs to no key"):
            self.assertIn(difference, result.stderr)
        self.assertEqual(result.stderr.count("\n"), 3)
        self.assertEqual(self.names(), ["a01.gif", "e16.gif", "f21.gif"])

    def test_refuses_and_writes_nothing(self):
        cases = {
            "a key that the palette lacks": (SIGNS + "j01\tU+13153\tG17\t\t\n", [], "'j01' is not the code"),
            "a sign that the font lacks": (SIGNS + "a01\tU+1FFFD\tA1\t\t\n", [], "no sign for a01"),
            "a code that is asked for": (SIGNS + OWL, ["a99"], "no key has the code a99"),
        }
        for name, (signs, options, reason) in cases.items():
            with self.subTest(name):
                result = self.make(signs, *options)
                self.assertEqual(result.returncode, 1)
                self.assertIn(reason, result.stderr)
                self.assertEqual(self.names(), [])

    def test_says_which_package_has_the_font(self):
        result = self.make(SIGNS + OWL, "--font", self.directory / "none.ttf")
        self.assertEqual(result.returncode, 2)
        self.assertIn("fonts-noto-core", result.stderr)

    def test_kept_pictures_are_what_the_sources_make(self):
        # One key of each page and the missing sign; all of them are compared by `make-signs --check`.
        codes = [f"{page}{7 + 3 * n:02}" for n, page in enumerate("abcdefghilmnop")]
        result = self.run_maker("make-signs", "--check", *codes, "p47")
        self.assertEqual((result.returncode, result.stderr), (0, ""))


if __name__ == "__main__":
    unittest.main()
