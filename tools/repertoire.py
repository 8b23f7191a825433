"""The sign repertoire as the data makers read it."""

import re
from dataclasses import dataclass

COLUMNS = ["code", "unicode", "gardiner", "description", "values"]
PAGES = "abcdefghilmnop"
KEYS_PER_PAGE = 53
MISSING_SIGN = "p47"  # a key of the palette, but no sign: it stands for one that cannot be read
CODE = re.compile(r"[a-ilm-p][0-5][0-9]")


class Refused(Exception):
    """The source cannot be used; `reasons` are whole sentences, each with its file and line."""

    def __init__(self, reasons):
        super().__init__("\n".join(reasons))
        self.reasons = reasons


@dataclass(frozen=True)
class Sign:
    code: str
    character: str
    gardiner: str


def rows(path, columns):
    """The rows below the header of a tab-separated file, as (line number, fields or a reason).

    Lines end with LF alone, so a CR stays in its field for the caller to see. A line that is not
    UTF-8 or has another number of columns comes as a reason. Raises Refused for a wrong header.
    """
    with open(path, "rb") as source:
        lines = source.read().split(b"\n")
    if lines[-1] == b"":
        lines.pop()
    if not lines or lines[0] != "\t".join(columns).encode():
        raise Refused([f"{path}:1: the header is not {' '.join(columns)}"])
    for number, line in enumerate(lines[1:], 2):
        try:
            fields = line.decode("utf-8").split("\t")
        except UnicodeDecodeError as error:
            yield number, f"not UTF-8 at byte {error.start + 1}"
            continue
        if len(fields) != len(columns):
            yield number, f"{len(fields)} columns, not {len(columns)}"
            continue
        yield number, fields


def read_signs(path):
    """All signs of the repertoire in its order. Raises Refused with every fault that it finds."""
    signs, faults = [], []
    codes, numbers = set(), set()
    for line, fields in rows(path, COLUMNS):
        if isinstance(fields, str):
            faults.append(f"{path}:{line}: {fields}")
            continue
        code, point, gardiner = fields[:3]
        if not CODE.fullmatch(code) or not 1 <= int(code[1:]) <= KEYS_PER_PAGE:
            faults.append(f"{path}:{line}: {code!r} is not the code of a key")
        elif code == MISSING_SIGN:
            faults.append(f"{path}:{line}: {code} is the key for a missing sign, it shows no sign")
        elif code in codes:
            faults.append(f"{path}:{line}: the code {code} stands twice")
        elif not re.fullmatch(r"U\+1[0-9A-F]{4}", point):
            faults.append(f"{path}:{line}: {point!r} is not a character of a hieroglyph")
        elif not gardiner or gardiner in numbers:
            faults.append(f"{path}:{line}: the number {gardiner!r} is empty or stands twice")
        else:
            codes.add(code)
            numbers.add(gardiner)
            signs.append(Sign(code, chr(int(point[2:], 16)), gardiner))
    if faults:
        raise Refused(faults)
    return signs
