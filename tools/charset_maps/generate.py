#!/usr/bin/env python3
"""Writes Utility/text/charset_maps.cpp from the published code pages and differences.txt.

The published pages are read from Python's codecs, whose tables are those that the Unicode Consortium publishes for the
ISO, Windows, DOS and Mac OS pages (the folders ISO8859, VENDORS/MICSFT and VENDORS/APPLE of its mappings). That the
result agrees with a second, independent copy of the pages is checked by tests/text/charset_maps_internal_test.cpp.

    generate.py            writes the file
    generate.py --check    writes nothing; fails if the file is not what would be written
"""

import pathlib
import sys

NONE = 0xF000
HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
OUTPUT = ROOT / "Utility" / "text" / "charset_maps.cpp"

# The names of the sets in the order of their numbers, as far as they have a map.
NAMES = {}
for number, name in enumerate(
    """Neutral ISO8859_1 ISO8859_2 ISO8859_3 ISO8859_4 ISO8859_5 ISO8859_6 ISO8859_7 ISO8859_8 ISO8859_9 WindowsLatin1
    WindowsLatin2 WindowsArabic WindowsCyrillic WindowsGreek WindowsHebrew WindowsTurkish WindowsTradChinese
    WindowsSimpChinese WindowsJapanese WindowsKorean MacRoman MacArabic MacGreek MacHebrew MacCentralEuropean MacCroatian
    MacCyrillic MacIcelandic MacThai MacTurkish MacTradChinese MacJapanese MacKorean CodePage437 CodePage850 CodePage852
    CodePage857 CodePage860 CodePage861 CodePage863 CodePage865 CodePage855 CodePage864 CodePage869 LICS LMBCS LMBCS1
    LMBCS2 MacSimpChinese PackedEUCTradChinese PackedEUCSimpChinese PackedEUCJapanese PackedEUCKorean WindowsThai
    WindowsBalticRim WindowsVietnamese UTF8 UTF16""".split()
):
    NAMES[number] = name


def published(codec):
    """The upper half of a page; the lower half follows the common rule."""
    page = [NONE] * 256
    for byte in range(0x80, 0x100):
        try:
            page[byte] = ord(bytes([byte]).decode(codec))
        except UnicodeDecodeError:
            pass
    return page


def with_common_rule(page):
    for byte in range(0x20):
        page[byte] = byte if byte in (0x00, 0x09, 0x0A, 0x0D) else NONE
    for byte in range(0x20, 0x80):
        page[byte] = byte
    return page


def span(text):
    """`7F-81` or `7F` as a range."""
    first, _, last = text.partition("-")
    return range(int(first, 16), int(last or first, 16) + 1)


def read_maps():
    maps = {}
    current = None
    for line in (HERE / "differences.txt").read_text().splitlines():
        word, *rest = line.split() or ["#"]
        if word.startswith("#"):
            continue
        if word == "map":
            current = maps[rest[0]] = with_common_rule(published(rest[2]) if rest[1] == "page" else [NONE] * 256)
        elif word == "none":
            for byte in (b for part in rest for b in span(part)):
                current[byte] = NONE
        elif word == "set":
            for part in rest:
                bytes_, _, units = part.partition("=")
                assert len(span(bytes_)) == len(span(units)), part
                for byte, unit in zip(span(bytes_), span(units)):
                    current[byte] = unit
        elif word == "copy":
            for byte in span(rest[0]):
                current[byte] = maps[rest[1]][byte]
        elif word == "row":
            first = int(rest[0], 16)
            assert len(rest) == 17, line
            current[first : first + 16] = [NONE if e == "...." else int(e, 16) for e in rest[1:]]
        else:
            raise SystemExit(f"differences.txt: {line}")
    return maps


def cell(unit):
    return "...." if unit == NONE else f"{unit:04X}"


def variable(name):
    return "map" + name


def render(maps):
    lines = [
        "// Written by tools/charset_maps/generate.py from the published code pages and the differences that",
        "// tools/charset_maps/differences.txt lists. Do not edit.",
        "",
        "#include <Utility/text/charset_maps.h>",
        "",
        "namespace Torvo {",
        "",
        "namespace {",
        "",
        "// clang-format off",
    ]
    for name in (n for n in NAMES.values() if n in maps):
        lines.append(f"constexpr sCharsetMap {variable(name)} = ParseCharsetMap(")
        for first in range(0, 256, 16):
            row = " ".join(cell(unit) for unit in maps[name][first : first + 16])
            end = " " if first < 240 else ""
            lines.append(f'    /* {first:02X} */ "{row}{end}"' + ("" if first < 240 else ");"))
        lines.append("")
    lines += ["}  // namespace", "", "const uint16* const sCharsetMapTable[charsetCount] = {"]
    for number, name in NAMES.items():
        value = f"{variable(name)}.entries," if name in maps else "nullptr,"
        comment = "" if name in maps else f"  // {name}"
        lines.append(f"    /* {number:2d} */ {value}{comment}")
    lines += ["};", "// clang-format on", "", "}  // namespace Torvo", ""]
    return "\n".join(lines)


def main():
    maps = read_maps()
    assert set(maps) <= set(NAMES.values())
    text = render(maps)
    if "--check" in sys.argv[1:]:
        if OUTPUT.read_text() != text:
            raise SystemExit(f"{OUTPUT} is not what {pathlib.Path(__file__).name} writes; run it")
        return
    OUTPUT.write_text(text)


if __name__ == "__main__":
    main()
