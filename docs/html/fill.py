# SPDX-FileCopyrightText: 2026 The Ombrel developers
# SPDX-License-Identifier: MIT
"""Puts code into pages. A comment names the file, and with "#" a part of it, and the block after the
comment is what stands there:

    <!-- code: ../snippets/PopupExample.qml#menu -->

A part lies between two lines "//! [menu]", which are shown nowhere. It loses the indentation that
its lines have in common. Puts the widths of pictures there, too, and the first sentences of the
reference's pages, a line a type, between

    <!-- types: Popup DialogItem -->
    <!-- end -->

and the same with the pictures of the demos after "demos:"."""

import re
import struct
import textwrap

BLOCK = re.compile(r"(<!-- code: ([^ #]+)(?:#(\w+))? -->\n)(?:```.*?\n```\n)?", re.S)
TYPES = re.compile(r"(<!-- types: ([\w ]+) -->\n).*?(<!-- end -->)", re.S)
DEMOS = re.compile(r"(<!-- demos: ([\w ]+) -->\n).*?(<!-- end -->)", re.S)
PICTURE = re.compile(r'<img src="([^"]+)" width="\d+"')
MARK = re.compile(r" *//! \[(\w+)\]$")


def code(path, part):
    """What a reader is to see of the file PATH."""
    lines = [line for line in path.read_text().split("\n") if not line.startswith("// SPDX-")]
    if part:
        ends = [number for number, line in enumerate(lines)
                if MARK.match(line) and MARK.match(line)[1] == part]
        if len(ends) != 2:
            raise SystemExit(f"{path}: \"//! [{part}]\" is not there twice")
        lines = lines[ends[0] + 1:ends[1]]
    lines = [line for line in lines if not MARK.match(line)]
    return textwrap.dedent("\n".join(lines)).strip("\n")


def filled(text, path):
    """The TEXT of the page PATH with what belongs there."""
    def block(match):
        file = path.parent / match[2]
        language = {".qml": "qml", ".cpp": "cpp", ".h": "cpp"}[file.suffix]
        return f"{match[1]}```{language}\n{code(file, match[3])}\n```\n"

    def types(match):
        return match[1] + "".join(line(path.parent / f"reference/{name}.md") for name in match[2].split()) \
            + match[3]

    def demos(match):
        return match[1] + "".join(demo(path.parent / f"reference/{name}.md") for name in match[2].split()) \
            + match[3]

    def picture(match):
        file = path.parent / match[1]
        return f'<img src="{match[1]}" width="{width(file) if file.exists() else 320}"'

    return PICTURE.sub(picture, DEMOS.sub(demos, TYPES.sub(types, BLOCK.sub(block, text))))


def line(path):
    """What the index says of the page PATH: its first sentence."""
    title, sentence = summary(path)
    return f"- [{title}](reference/{path.name}): {sentence}\n"


def demo(path):
    """What the tour says and shows of the page PATH."""
    title, sentence = summary(path)
    return f"### {title}\n\n[{title}](reference/{path.name}): {sentence}.\n\n" \
        f'<img src="images/gallery/{title}Demo.png" width="0" alt="The demo of {title}">\n\n'


def summary(path):
    """The title and the first sentence of the page PATH."""
    title, _, sentence = path.read_text().split("\n\n")[:3]
    sentence = re.match(r"(.*?\.)(?= |\n|$)", re.sub(r"\[([^]]*)\]\([^)]*\)", r"\1", sentence))[1]
    return title[2:], sentence.rstrip(".:")


def width(path):
    """How wide a picture is to be shown: half its pixels, for it is of twice the density."""
    return struct.unpack(">I", path.read_bytes()[16:20])[0] // 2
