import shutil
import unittest
from pathlib import Path

from support import ROOT, MakerTest

try:
    from PIL import Image
except ImportError:
    Image = None

FONT = Path("/usr/share/fonts/opentype/urw-base35/P052-Bold.otf")
KEPT = ROOT / "src/windows/pictures"
SIGNS = ROOT / "data/tree/GR"


@unittest.skipUnless(Image, "needs the Debian package python3-pil")
@unittest.skipUnless(FONT.is_file(), "needs the Debian package fonts-urw-base35")
class MakePictures(MakerTest):
    def test_draws_the_pictures_that_are_kept(self):
        result = self.run_maker("make-pictures", "--out", self.directory)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        for name, size in (("apertura.jpg", (1280, 800)), ("informazioni.jpg", (600, 600))):
            made = self.directory / name
            self.assertEqual(made.read_bytes(), (KEPT / name).read_bytes(), name)
            with Image.open(made) as image:
                self.assertEqual((image.format, image.size), ("JPEG", size))

    def test_check_tells_what_differs(self):
        self.run_maker("make-pictures", "--out", self.directory)
        self.assertEqual(self.run_maker("make-pictures", "--check", "--out", self.directory).returncode, 0)
        (self.directory / "apertura.jpg").write_bytes(b"")
        result = self.run_maker("make-pictures", "--check", "--out", self.directory)
        self.assertEqual(result.returncode, 1)
        self.assertIn("apertura.jpg differs", result.stderr)
        self.assertNotIn("informazioni.jpg", result.stderr)

    def test_says_which_sign_is_missing(self):
        signs = self.directory / "GR"
        shutil.copytree(SIGNS, signs)
        (signs / "d06.gif").unlink()
        out = self.directory / "out"
        result = self.run_maker("make-pictures", "--signs", signs, "--out", out)
        self.assertEqual(result.returncode, 1)
        self.assertIn("d06.gif", result.stderr)
        self.assertFalse(out.exists())


if __name__ == "__main__":
    unittest.main()
