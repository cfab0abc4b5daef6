#!/usr/bin/env python3
"""Makes the data set of this folder from three npm packages.

    npm pack world-atlas@2.0.2 cldr-core@48.2.0 cldr-localenames-full@48.2.0
    for p in *.tgz; do mkdir ${p%-*.tgz}; tar xzf $p -C ${p%-*.tgz}; done
    data/atlas/extract.py DIRECTORY

The outlines are thinned with their common borders kept common: each stretch of border is stored once in the source, and
is thinned once. Nothing depends on the machine, so the files come out the same again.
"""

import json
import pathlib
import shutil
import struct
import sys

TOLERANCE = 0.06  # degrees: how far a vertex that is left out may lie from the line
SMALLEST = 0.02  # square degrees: rings below are left out, unless a country has no larger one
POINTS_A_LINE = 8

# The character set of a language, by the names that the library gives them, and as Python calls it.
SETS = {
    "WindowsLatin2": ("cp1250", "bs cs hr hu pl ro sk sl sq tk"),
    "WindowsCyrillic": ("cp1251", "be bg kk ky mk mn ru sr tg uk"),
    "WindowsGreek": ("cp1253", "el"),
    "WindowsTurkish": ("cp1254", "az tr"),
    "WindowsHebrew": ("cp1255", "he"),
    "WindowsArabic": ("cp1256", "ar fa ps ur"),
    "WindowsBalticRim": ("cp1257", "et lt lv"),
    "WindowsVietnamese": ("cp1258", "vi"),
    "WindowsThai": ("cp874", "th"),
    "WindowsJapanese": ("cp932", "ja"),
    "WindowsSimpChinese": ("gbk", "zh-Hans"),
    "WindowsKorean": ("cp949", "ko"),
    "WindowsTradChinese": ("cp950", "zh-Hant"),
}
DEFAULT_SET = ("WindowsLatin1", "cp1252")
ANY_SET = ("UTF-8", "utf-8")  # for a language without a set of its own


def load(path):
    return json.loads(path.read_text(encoding="utf-8"))


class Supplement:
    """What the locale data say of a territory."""

    def __init__(self, directory):
        core = directory / "cldr-core/package/supplemental"
        codes = load(core / "codeMappings.json")["supplemental"]["codeMappings"]
        self.likely = load(core / "likelySubtags.json")["supplemental"]["likelySubtags"]
        self.info = load(core / "territoryInfo.json")["supplemental"]["territoryInfo"]
        self.names = directory / "cldr-localenames-full/package/main"
        # Codes of countries that are no more share numbers with their successors, but have no name.
        self.by_number = {entry["_numeric"]: code for code, entry in codes.items()
                          if "_numeric" in entry and len(code) == 2 and self.name(code, "en")}

    def language(self, code):
        """The language most used there, with the script where one language has several."""
        language, script = self.likely.get(f"und-{code}", "en-Latn").split("-")[:2]
        return f"{language}-{script}" if language == "zh" else language

    def name(self, code, language):
        for folder in (language, language.split("-")[0]):
            path = self.names / folder / "territories.json"
            if path.exists():
                return load(path)["main"][folder]["localeDisplayNames"]["territories"].get(code)
        return None

    def population(self, code):
        return int(self.info.get(code, {}).get("_population", 0))


def decode_arcs(topology):
    scale, origin = topology["transform"]["scale"], topology["transform"]["translate"]
    for arc in topology["arcs"]:
        x = y = 0
        points = []
        for dx, dy in arc:
            x, y = x + dx, y + dy
            points.append((x * scale[0] + origin[0], y * scale[1] + origin[1]))
        yield points


def distance(point, start, end):
    """Of a point from a stretch of line, squared."""
    (px, py), (ax, ay), (bx, by) = point, start, end
    dx, dy = bx - ax, by - ay
    length = dx * dx + dy * dy
    t = 0 if length == 0 else max(0, min(1, ((px - ax) * dx + (py - ay) * dy) / length))
    return (px - ax - t * dx) ** 2 + (py - ay - t * dy) ** 2


def thin(points):
    """Leaves out vertices near the line between those kept (D. H. Douglas, T. K. Peucker, 1973)."""
    keep = {0, len(points) - 1}
    ranges = [(0, len(points) - 1)]
    while ranges:
        first, last = ranges.pop()
        far, index = 0, None
        for i in range(first + 1, last):
            d = distance(points[i], points[first], points[last])
            if d > far:
                far, index = d, i
        if index is not None and far > TOLERANCE ** 2:
            keep.add(index)
            ranges += [(first, index), (index, last)]
    return [points[i] for i in sorted(keep)]


def area(ring):
    return abs(sum(a[0] * b[1] - b[0] * a[1] for a, b in zip(ring, ring[1:]))) / 2


def cut(ring, limit, sign):
    """The part of a closed ring where sign * longitude is at most sign * limit (I. Sutherland, G. Hodgman, 1974)."""
    inside = lambda p: sign * p[0] <= sign * limit
    kept = []
    for a, b in zip(ring, ring[1:]):
        if inside(a) != inside(b):
            t = (limit - a[0]) / (b[0] - a[0])
            kept.append((limit, a[1] + t * (b[1] - a[1])))
        if inside(b):
            kept.append(b)
    return kept + kept[:1]


def split(ring):
    """A ring that crosses the meridian of 180 degrees, where the source jumps from edge to edge, as one for each side."""
    unrolled = ring[:1]
    for (x0, _), (x, y) in zip(ring, ring[1:]):
        step = x - x0
        step -= 360 if step > 180 else -360 if step < -180 else 0
        unrolled.append((unrolled[-1][0] + step, y))
    west, east = min(x for x, _ in unrolled), max(x for x, _ in unrolled)
    # A ring round a pole does not come back to where it began, and is drawn along the edge as it is.
    if abs(unrolled[-1][0] - unrolled[0][0]) > 1 or (west >= -180 and east <= 180):
        return [ring]
    pieces = []
    for turn in (-360, 0, 360):
        moved = [(x + turn, y) for x, y in unrolled]
        if min(x for x, _ in moved) < 180 and max(x for x, _ in moved) > -180:
            pieces.append(cut(cut(moved, 180, 1), -180, -1))
    return pieces


def rings_of(geometry, arcs):
    polygons = [geometry["arcs"]] if geometry["type"] == "Polygon" else geometry["arcs"]
    rings = []
    for polygon in polygons:
        for pieces in polygon:
            ring = []
            for piece in pieces:
                points = arcs[piece] if piece >= 0 else arcs[~piece][::-1]
                ring += points[1:] if ring else points
            for part in split(ring):
                rounded = [(round(x, 2) + 0.0, round(y, 2) + 0.0) for x, y in part]
                rings.append([p for i, p in enumerate(rounded) if i == 0 or p != rounded[i - 1]])
    rings = sorted((ring for ring in rings if len(ring) > 3), key=area, reverse=True)
    return [ring for i, ring in enumerate(rings) if i == 0 or area(ring) > SMALLEST]


def outline_text(rings):
    """A line `ring COUNT` before each ring, then its points as longitude,latitude in degrees."""
    lines = []
    for ring in rings:
        lines.append(f"ring {len(ring)}")
        words = [f"{x:g},{y:g}" for x, y in ring]
        lines += [" ".join(words[i:i + POINTS_A_LINE]) for i in range(0, len(words), POINTS_A_LINE)]
    return "".join(line + "\r\n" for line in lines).encode("ascii")


def choose_set(language, *texts):
    for name, (codec, languages) in SETS.items():
        if language in languages.split():
            break
    else:
        name, codec = DEFAULT_SET
    try:
        for text in texts:
            if text.encode(codec).decode(codec) != text:
                raise UnicodeError
        return name, codec
    except UnicodeError:
        return ANY_SET


def app_string(text, codec):
    data = text.encode(codec)
    if len(data) > 127:
        raise ValueError(text)
    return struct.pack("b", len(data)) + data


def main():
    source = pathlib.Path(sys.argv[1])
    target = pathlib.Path(__file__).resolve().parent
    supplement = Supplement(source)
    topology = load(source / "world-atlas/package/countries-50m.json")
    arcs = [thin(points) for points in decode_arcs(topology)]
    for folder in ("outlines", "names"):
        shutil.rmtree(target / folder, ignore_errors=True)
        (target / folder).mkdir()

    rows = []
    for geometry in topology["objects"]["countries"]["geometries"]:
        code = supplement.by_number.get(geometry.get("id"))
        if code is None or not geometry.get("arcs"):
            continue
        rings = rings_of(geometry, arcs)
        if not rings:
            continue
        language = supplement.language(code)
        english = supplement.name(code, "en")
        own = supplement.name(code, language) or english
        set_name, codec = choose_set(language, english, own)
        xs = [x for ring in rings for x, _ in ring]
        ys = [y for ring in rings for _, y in ring]
        bounds = [round(v * 100) for v in (min(xs), min(ys), max(xs), max(ys))]
        (target / "outlines" / f"{code}.TXT").write_bytes(outline_text(rings))
        (target / "names" / f"{code}.DAT").write_bytes(
            app_string(english, codec) + app_string(own, codec) +
            struct.pack("<q4i", supplement.population(code), *bounds))
        rows.append((code, set_name, language))

    rows.sort()
    index = "".join(f"{row},{code},{name},{language}\r\n" for row, (code, name, language) in enumerate(rows, 1))
    (target / "index.csv").write_bytes(b"\xef\xbb\xbf" + ("row,code,set,language\r\n" + index).encode("utf-8"))
    print(len(rows), "countries")


if __name__ == "__main__":
    main()
