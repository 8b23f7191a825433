"""What the tests of the data makers share."""

import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
SIGNS = "code\tunicode\tgardiner\tdescription\tvalues\n"
OWL = "e16\tU+13153\tG17\tcivetta\tm\n"
VIPER = "f21\tU+13191\tI9\tvipera cornuta\tf\n"


class MakerTest(unittest.TestCase):
    """Runs a maker as a developer would, on files of a temporary directory."""

    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.directory = Path(temporary.name)

    def file(self, name, content):
        path = self.directory / name
        path.write_bytes(content if isinstance(content, bytes) else content.encode("utf-8"))
        return path

    def run_maker(self, name, *arguments):
        command = ["/usr/bin/python3", ROOT / "tools" / name, *arguments]
        return subprocess.run(command, capture_output=True, text=True, check=False)
