"""A plot of ratios as SVG: one line a row, on a logarithmic axis."""

import math
from xml.sax.saxutils import escape

from cases import fits
from units import show_ratio

LABELS = 420  # width of the column with the names
AXIS = 420
FIGURES = 260  # width of the column with ratio and peer
LINE = 18
TOP = 56
COLOURS = {"ours": "#1f6fb4", "even": "#7a7a7a", "peer": "#d9822b", "missed": "#c0392b"}
LEGEND = [("ours", "ours is faster"), ("even", "a draw"), ("peer", "the peer is faster"), ("missed", "a bar is missed")]
STYLE = "text{font:11px sans-serif;fill:#222}.title{font-weight:bold;font-size:13px}.small{fill:#666;font-size:10px}"


class Axis:
    """Ratios from the least to the greatest, and 1, on whole marks."""

    MARKS = [mantissa * 10.0**power for power in range(-4, 7) for mantissa in (1, 2, 5)]

    def __init__(self, ratios):
        low = min([0.5, *(ratio.low for ratio in ratios)])
        high = max([2, *(ratio.high for ratio in ratios)])
        self.low = max((mark for mark in self.MARKS if mark <= low), default=self.MARKS[0])
        self.high = min((mark for mark in self.MARKS if mark >= high), default=self.MARKS[-1])

    def place(self, ratio):
        share = math.log(ratio / self.low) / math.log(self.high / self.low)
        return LABELS + AXIS * min(1, max(0, share))

    def marks(self):
        marks = [mark for mark in self.MARKS if self.low <= mark <= self.high]
        return marks if len(marks) <= 10 else [mark for mark in marks if math.log10(mark) % 1 == 0]


def colour(row):
    return COLOURS["missed" if row.misses() else row.verdict()]


def bar_place(row, peer):
    """The ratio that a bar asks of the best peer, if one does."""
    for bar in row.case.get("bar", []):
        if bar.get("peer") == peer and fits(row.values, bar.get("only", {})):
            return bar["at_least"] if "at_least" in bar else 1 / bar["at_most"]
    return None


def draw_row(row, axis, y):
    peer = row.best_peer()
    ratio = row.ratio(peer)
    paint = colour(row)
    x = axis.place(ratio.median)
    parts = [
        f'<text x="{LABELS - 8}" y="{y + 4}" text-anchor="end">{escape(row.name)}</text>',
        f'<line x1="{axis.place(ratio.low):.1f}" y1="{y}" x2="{axis.place(ratio.high):.1f}" y2="{y}" '
        f'stroke="{paint}" stroke-width="2"/>',
    ]
    if bar := bar_place(row, peer):
        at = axis.place(bar)
        parts.append(f'<line x1="{at:.1f}" y1="{y - 6}" x2="{at:.1f}" y2="{y + 6}" stroke="#222" stroke-width="1.5"/>')
    if row.misses() or row.verdict() == "peer":  # a square, so that colour is not all that tells it
        parts.append(f'<rect x="{x - 4:.1f}" y="{y - 4}" width="8" height="8" fill="{paint}"/>')
    else:
        parts.append(f'<circle cx="{x:.1f}" cy="{y}" r="4" fill="{paint}"/>')
    figures = escape(f"{show_ratio(ratio.median)} × {peer}")
    parts.append(f'<text class="small" x="{LABELS + AXIS + 10}" y="{y + 4}">{figures}</text>')
    return parts


def draw_axis(axis, bottom):
    parts = []
    for mark in axis.marks():
        x = axis.place(mark)
        paint, width = ("#555", 1.5) if mark == 1 else ("#ddd", 1)
        parts += [
            f'<line x1="{x:.1f}" y1="{TOP - 8}" x2="{x:.1f}" y2="{bottom}" stroke="{paint}" stroke-width="{width}"/>',
            f'<text class="small" x="{x:.1f}" y="{bottom + 14}" text-anchor="middle">{mark:g}</text>',
        ]
    return parts


def draw_legend():
    parts = []
    x = LABELS
    for key, text in LEGEND:
        parts.append(f'<rect x="{x}" y="30" width="8" height="8" fill="{COLOURS[key]}"/>')
        parts.append(f'<text class="small" x="{x + 12}" y="38">{text}</text>')
        x += 30 + 6 * len(text)
    return parts


def draw(title, rows):
    rows = [row for row in rows if row.peers]
    axis = Axis([row.ratio(row.best_peer()) for row in rows])
    bottom = TOP + LINE * len(rows)
    width, height = LABELS + AXIS + FIGURES, bottom + 24
    heading = escape(f"{title}: the best peer's time by ours")
    parts = [
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" viewBox="0 0 {width} {height}">',
        f"<style>{STYLE}</style>",
        f'<rect width="{width}" height="{height}" fill="#fff"/>',
        f'<text class="title" x="10" y="20">{heading}</text>',
        *draw_legend(),
        *draw_axis(axis, bottom),
    ]
    for index, row in enumerate(rows):
        parts += draw_row(row, axis, TOP + LINE * index + LINE // 2)
    return "\n".join(parts + ["</svg>"]) + "\n"
