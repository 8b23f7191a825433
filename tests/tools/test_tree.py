import re
import unittest
from html.parser import HTMLParser

from support import ROOT

TREE = ROOT / "data/tree"


class Sources(HTMLParser):
    """What a page would load or show from elsewhere, and its anchors."""

    def __init__(self):
        super().__init__()
        self.loaded, self.links, self.anchors, self.silent = [], [], set(), 0

    def handle_starttag(self, tag, attributes):
        named = dict(attributes)
        if "id" in named:
            self.anchors.add(named["id"])
        if tag == "a":
            self.links.append(named["href"])
        elif tag in ("script", "link", "iframe", "object"):
            self.loaded.append(tag)
        elif "src" in named:
            self.loaded.append(named["src"])
            self.silent += not named.get("alt")


class InstalledTree(unittest.TestCase):
    """What the program must find after an installation."""

    def lines(self, name):
        """The lines of a file that ends every line with CR LF, and with nothing else."""
        text = (TREE / name).read_bytes().decode("cp1252")
        self.assertTrue(text.endswith("\r\n"), name)
        lines = text[:-2].split("\r\n")
        self.assertFalse([line for line in lines if "\n" in line or "\r" in line], name)
        return lines

    def test_settings_are_the_original_ones(self):
        expected = {
            "conf.cfg": " 3",
            "conf2.cfg": r"C:\Programmi\Karvel\GR",
            "coloreD.prf": f" {0 + 128 * 256 + 128 * 65536}",
            "coloreF.prf": f" {192 + 192 * 256 + 192 * 65536}",
        }
        for name, value in expected.items():
            self.assertEqual(self.lines(f"settaggi/{name}"), [value])

    def missing(self, codes):
        self.assertEqual(len(set(codes)), len(codes))
        self.assertNotIn("p47", codes)
        return [code for code in codes if not (TREE / f"GR/{code}.gif").is_file()]

    def test_pages_of_favourites_name_pictures_that_are_there(self):
        pages = list((TREE / "prefe").iterdir())
        self.assertGreaterEqual(len(pages), 12)
        # Turned with two buttons: a gap would show the page before under the wrong name.
        self.assertEqual({page.name for page in pages}, {f"pre{n}.prf" for n in range(1, len(pages) + 1)})
        for page in pages:
            lines = self.lines(f"prefe/{page.name}")
            self.assertEqual((len(lines), lines[8]), (9, ""), page.name)
            paths = [line for line in lines[:8] if line]
            self.assertTrue(paths, page.name)
            for path in paths:
                # The program takes the code at a fixed place of the path.
                self.assertRegex(path, r"^C:\\Programmi\\Karvel\\GR\\[a-p]\d\d\.gif$")
            self.assertEqual(self.missing([path[23:26] for path in paths]), [], page.name)

    def test_every_card_is_listed_and_holds_signs_that_are_there(self):
        names = self.lines("GeroLink/speciale.txt")
        self.assertGreaterEqual(len(names), 8)
        files = {path.name for path in (TREE / "GeroLink").iterdir()}
        # The first card is shown by itself; were it listed, it could be changed and deleted.
        self.assertEqual(files, {f"{name}.txt" for name in names} | {"uomini.txt", "speciale.txt"})
        for name in [*names, "uomini"]:
            self.assertRegex(name, r"^[A-Za-z]{2,40}$")
            codes = self.lines(f"GeroLink/{name}.txt")
            self.assertTrue(1 <= len(codes) <= 48, name)
            self.assertEqual(self.missing(codes), [], name)

    def test_dictionary_has_only_keys_of_the_palette(self):
        fields = self.lines("dizio.txt")
        self.assertEqual(len(fields) % 4, 0)
        keys = {path.stem for path in (TREE / "GR").iterdir()} - {"p47"}
        for number, field in enumerate(fields, 1):
            self.assertRegex(field, r'^"[^"]*"$')
            if number % 4 == 1:
                codes = re.findall("...", field[1:-1])
                self.assertEqual("".join(codes), field[1:-1], number)
                self.assertTrue(codes and keys.issuperset(codes), number)

    def test_links_page_needs_no_network(self):
        page = Sources()
        text = (TREE / "collegamenti.html").read_text(encoding="utf-8")
        page.feed(text)
        self.assertGreater(len(page.loaded), 24)
        self.assertEqual([p for p in page.loaded if not (TREE / p).is_file()], [])
        self.assertEqual(page.silent, 0)
        self.assertNotRegex(text, r"url\(|@import")
        inside = [link[1:] for link in page.links if link.startswith("#")]
        self.assertTrue(inside and page.anchors.issuperset(inside))
        outside = [link for link in page.links if not link.startswith("#")]
        self.assertEqual([link for link in outside if not link.startswith("https://")], [])
