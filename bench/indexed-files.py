#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes files for the benchmarks of the index: reports as PDF, web pages and texts in several encodings.

Usage: indexed-files.py FOLDER COUNT

In some of the files words are planted that stand nowhere else. FOLDER/planted.tsv names each of them, as it
is searched for, and then the files that hold it. The same count makes the same files.
"""
import html
import itertools
import random
import sys
import textwrap
import zlib
from pathlib import Path

LINE_WIDTH = 92  # letters
LINES_OF_PAGE = 52
SYLLABLES = [a + b for a in "b d f g k l m n p r s t v st br".split() for b in "a e i o u au er in on".split()]
ACCENTS = {"é": "e", "ä": "a", "ö": "o", "ü": "u", "ç": "c", "ñ": "n"}


def made_words(random_source, count, begins=""):
    words = []
    while len(words) < count:
        word = begins + "".join(random_source.choices(SYLLABLES, k=random_source.randint(1, 4)))
        if random_source.random() < 0.04:
            word += random_source.choice(list(ACCENTS))
        words.append(word)
    return words


class Texts:
    """Paragraphs whose words are as unevenly frequent as those of a language."""

    def __init__(self, random_source):
        self.random = random_source
        vocabulary = made_words(random_source, 30_000)
        weights = list(itertools.accumulate(1 / (rank + 3) for rank in range(len(vocabulary))))
        self.sentences = [self.sentence(vocabulary, weights) for _ in range(60_000)]

    def sentence(self, vocabulary, weights):
        words = self.random.choices(vocabulary, cum_weights=weights, k=self.random.randint(5, 22))
        if self.random.random() < 0.2:
            words.insert(self.random.randrange(len(words)), str(self.random.randint(1, 2026)))
        return " ".join(words).capitalize() + "."

    def paragraphs(self, pages):
        return [" ".join(self.random.choices(self.sentences, k=self.random.randint(3, 9))) for _ in range(pages * 9)]


def literal(text):
    """A text as PDF has it."""
    for special in "\\()":
        text = text.replace(special, "\\" + special)
    return b"(" + text.encode("cp1252") + b")"


def pdf(paragraphs):
    """Pages with lines in a standard font, compressed, each line kerned as text processors do."""
    lines = [line for paragraph in paragraphs for line in textwrap.wrap(paragraph, LINE_WIDTH) + [""]]
    pages = [lines[start:start + LINES_OF_PAGE] for start in range(0, len(lines), LINES_OF_PAGE)]
    objects = [b"<</Type/Catalog/Pages 2 0 R>>", b"",
               b"<</Type/Font/Subtype/Type1/BaseFont/Times-Roman/Encoding/WinAnsiEncoding>>"]
    kids = []
    for page in pages:
        shown = [b"BT /F1 11 Tf 13.5 TL 62 780 Td"]
        for line in page:
            parts = [line[start:start + 7] for start in range(0, len(line), 7)]
            shown.append(b"[" + b" -12 ".join(map(literal, parts)) + b"] TJ T*")
        content = zlib.compress(b"\n".join(shown + [b"ET"]))
        objects.append(b"<</Length %d/Filter/FlateDecode>>stream\n%b\nendstream" % (len(content), content))
        objects.append(b"<</Type/Page/Parent 2 0 R/MediaBox[0 0 595 842]/Contents %d 0 R"
                       b"/Resources<</Font<</F1 3 0 R>>>>>>" % len(objects))
        kids.append(b"%d 0 R" % len(objects))
    objects[1] = b"<</Type/Pages/Kids[%b]/Count %d>>" % (b" ".join(kids), len(kids))
    file = bytearray(b"%PDF-1.4\n%\xe2\xe3\xcf\xd3\n")
    places = []
    for number, content in enumerate(objects, 1):
        places.append(b"%010d 00000 n \n" % len(file))
        file += b"%d 0 obj\n%b\nendobj\n" % (number, content)
    table = len(file)
    file += b"xref\n0 %d\n0000000000 65535 f \n%b" % (len(places) + 1, b"".join(places))
    file += b"trailer\n<</Size %d/Root 1 0 R>>\nstartxref\n%d\n%%%%EOF\n" % (len(places) + 1, table)
    return bytes(file)


def page(paragraphs, encoding):
    """A web page with a menu, emphasis, entities and a script whose words are nobody's text."""
    parts = ['<!DOCTYPE html>\n<html><head><meta charset="%s"><title>Report</title>' % encoding,
             "<style>p { margin: 1em }</style><script>var unseenscriptword = 1;</script></head><body>",
             '<ul><li><a href="index.html">Contents</a><li><a href="next.html">Next</a></ul>']
    for number, paragraph in enumerate(paragraphs):
        text = html.escape(paragraph).replace("é", "&eacute;")
        parts.append(f"<h2>Part {number // 6 + 1}</h2>" if number % 6 == 0 else "")
        parts.append(f"<p class=text><b>{text[:1]}</b>{text[1:]}")
    return "\n".join(parts).encode(encoding, "xmlcharrefreplace")


def write_all(folder, count):
    source = random.Random(1937)
    texts = Texts(source)
    planted = {f"zq{word}": set() for word in made_words(source, count // 10)}
    for number in range(count):
        # most are short, some are books
        paragraphs = texts.paragraphs(source.choice([1, 1, 2, 2, 3, 4, 5, 6, 8, 10, 14, 20, 40]))
        kind = source.choices(["pdf", "html", "txt"], [12, 5, 3])[0]
        name = f"{number:05}.{kind}"
        for word in source.sample(sorted(planted), source.randint(0, 3)):
            planted[word].add(name)
            place = source.randrange(len(paragraphs))
            form = source.choice([word, word.upper(), word.capitalize()])
            paragraphs[place] = f"{paragraphs[place]} Then ({form}), as was said."
        encoding = source.choice(["utf-8", "utf-8", "windows-1252"] + ["utf-16"] * (kind == "txt"))
        content = {"pdf": lambda: pdf(paragraphs), "html": lambda: page(paragraphs, encoding),
                   "txt": lambda: "\r\n".join(paragraphs).encode(encoding)}[kind]()
        (folder / name).write_bytes(content)
    with open(folder / "planted.tsv", "w", encoding="utf-8") as table:
        for word, names in sorted(planted.items()):
            table.write("\t".join([word, *sorted(names)]) + "\n")


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    target = Path(sys.argv[1])
    target.mkdir(parents=True, exist_ok=True)
    write_all(target, int(sys.argv[2]))
