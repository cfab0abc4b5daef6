#!/usr/bin/env python3
"""Makes Utility/platform/posix/code_page_data.inc from code_page_vectors.txt, or with --check compares the two.

The bytes from 80 and the pairs become literals of the units that they lead to; the units with an answer other than
the lowest code that leads to them stay in the notation of the vectors.
"""
import pathlib
import re
import sys
import unicodedata

HERE = pathlib.Path(__file__).resolve().parent
VECTORS = HERE / "code_page_vectors.txt"
DATA = HERE.parents[1] / "Utility/platform/posix/code_page_data.inc"
TRAILS = range(0x40, 0xFF)
TOKEN = re.compile(r"\(\.\+(\d+)\)|\((\w{4})\+(\d+)\)|!(\w{4})|<(\d) (\w{4}) (\w{4})>|(\.{4})|(\w{4})")


def parse_row(text):
    """The row's entries: (unit, valid), unit None for the page's default unit."""
    entries = []
    at = 0
    while at < len(text):
        match = TOKEN.match(text, at)
        assert match, text[at:at + 20]
        at = match.end()
        gap, first, count, refused, several, _, _, hole, unit = match.groups()
        if gap:
            entries += [(None, False)] * int(gap)
        elif first:
            entries += [(int(first, 16) + i, True) for i in range(int(count))]
        elif refused:
            entries.append((int(refused, 16), False))
        elif several or hole:
            entries.append((None, False))
        else:
            entries.append((int(unit, 16), True))
    assert len(entries) == 256
    return entries


def is_plain(character):
    return unicodedata.category(character)[0] in "LNPS" and unicodedata.bidirectional(character) not in ("R", "AL")


def literal(units):
    """A u"..." literal; what an editor would not show as one upright character is written as an escape."""
    text = ""
    for unit in units:
        character = chr(unit)
        if unit == 0:
            text += "\\0"
        elif unit >= 0x80 and is_plain(character):
            text += character
        else:
            text += f"\\u{unit:04X}"
    return f'u"{text}"'


def wrapped(text, width=110):
    lines, line = [], ""
    for token in text.split():
        if len(line) + len(token) + 1 > width:
            lines.append(line)
            line = ""
        line += token + " "
    return lines + [line.rstrip()]


def page_text(page, default_unit, leads, single, rows, back):
    units = [0 if unit is None else unit for unit, _ in single]
    assert units[:0x80] == list(range(0x80))
    refused = [byte for byte in range(0x80, 256) if not single[byte][1] and byte not in leads]
    out = [f"CODE_PAGE({page}, 0x{default_unit:04X},", f"          {literal(units[0x80:])},"]
    out.append('          "' + "".join(f"{byte:02x}" for byte in refused) + '",')
    out.append('          "' + "".join(f"{lead:02x}" for lead in sorted(leads)) + '",')
    if rows:
        for lead in sorted(leads):
            row = rows[lead]
            assert all(row[trail][0] is None for trail in range(256) if trail not in TRAILS)
            assert all(valid or unit is None for unit, valid in row)
            out.append(f"          {literal(row[trail][0] or 0 for trail in TRAILS)}")
        out[-1] += ","
    else:
        out.append("          nullptr,")
    assert "?" not in back
    out += [f'          "{line}"' for line in wrapped(back)]
    out[-1] += ")"
    return out


def data():
    out = ["// Made by tests/golden/code_page_data.py from tests/golden/code_page_vectors.txt; see docs/code_pages.md.",
           "// CODE_PAGE(number, default unit, units of the bytes 80 to FF, refused bytes, lead bytes, units of the pairs by",
           "// lead, units to bytes). A unit of 0 stands for none."]
    page, default_unit, leads, single, rows = None, None, set(), None, {}
    for line in VECTORS.read_text(encoding="ascii").splitlines():
        kind, _, rest = line.partition(" ")
        if kind == "page":
            number, default, ranges = re.fullmatch(r"(\d+) default (\w{4}) leads (.*)", rest).groups()
            page, default_unit, leads, rows = int(number), int(default, 16), set(), {}
            for part in ranges.split():
                if part != "none":
                    first, last = (int(end, 16) for end in part.split("-"))
                    leads |= set(range(first, last + 1))
        elif kind == "bytes":
            single = parse_row(rest)
        elif kind == "lead":
            rows[int(rest[:2], 16)] = parse_row(rest[3:])
        elif kind == "back":
            out += page_text(page, default_unit, leads, single, rows, rest)
    return "\n".join(out) + "\n"


def main():
    if sys.argv[1:] == ["--check"]:
        if DATA.read_text(encoding="utf-8") != data():
            sys.exit("code_page_data.inc is not what code_page_data.py makes of code_page_vectors.txt")
        return
    DATA.write_text(data(), encoding="utf-8")


main()
