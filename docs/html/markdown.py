# SPDX-FileCopyrightText: 2026 The Ombrel developers
# SPDX-License-Identifier: MIT
"""Reads the Markdown of the documentation: what is used there, not all there is of Markdown.

A page becomes a list of blocks, in their order:

    ("heading", level, text)    ("text", text)          ("list", [text, ...])
    ("table", [[cell, ...]])    ("code", language, text)    ("image", path, width, alt)

The first row of a table is its head. Comments are left out."""

import re

IMAGE = re.compile(r'<img src="([^"]+)" width="(\d+)" alt="([^"]*)">$|!\[([^]]*)\]\(([^)]+)\)$')
ITEM = re.compile(r"(?:[-*]|\d+\.) +")


def cells(line):
    """The cells of a row; a bar inside of code is no border."""
    return [cell.strip() for cell in re.findall(r"((?:`[^`]*`|[^|`])*)\|", line.strip()[1:])]


def is_rule(row):
    return all(re.fullmatch(r":?-+:?", cell) for cell in row)


def blocks(text):
    lines = re.sub(r"<!--.*?-->\n?", "", text, flags=re.S).split("\n")
    found = []
    at = 0

    def ends(line):
        return not line.strip() or line.startswith(("#", "```", "|", "<img"))

    while at < len(lines):
        line = lines[at]
        if not line.strip():
            at += 1
        elif line.startswith("```"):
            end = lines.index("```", at + 1)
            found.append(("code", line[3:].split(" ")[0], "\n".join(lines[at + 1:end])))
            at = end + 1
        elif line.startswith("    "):
            end = at
            while end < len(lines) and (lines[end].startswith("    ") or not lines[end].strip()):
                end += 1
            code = "\n".join(part[4:] for part in lines[at:end]).rstrip()
            found.append(("code", "", code))
            at = end
        elif line.startswith("#"):
            marks, title = line.split(" ", 1)
            found.append(("heading", len(marks), title.strip()))
            at += 1
        elif line.startswith("|"):
            rows = []
            while at < len(lines) and lines[at].startswith("|"):
                rows.append(cells(lines[at]))
                at += 1
            found.append(("table", [row for row in rows if not is_rule(row)]))
        elif IMAGE.match(line.strip()):
            match = IMAGE.match(line.strip())
            if match[1]:
                found.append(("image", match[1], int(match[2]), match[3]))
            else:
                found.append(("image", match[5], 0, match[4]))
            at += 1
        elif ITEM.match(line):
            items = []
            while at < len(lines) and (ITEM.match(lines[at]) or not ends(lines[at])):
                if ITEM.match(lines[at]):
                    items.append(ITEM.sub("", lines[at], count=1))
                else:
                    items[-1] += " " + lines[at].strip()
                at += 1
            found.append(("list", items))
        else:
            paragraph = []
            while at < len(lines) and not ends(lines[at]) and not (paragraph and ITEM.match(lines[at])):
                paragraph.append(lines[at].strip())
                at += 1
            found.append(("text", " ".join(paragraph)))
    return found


def sections(page):
    """The blocks by their heading of the second level, in order; those before it under ""."""
    found = {"": []}
    title = ""
    for block in page:
        if block[0] == "heading" and block[1] == 2:
            title = block[2]
            found[title] = []
        elif block[0] != "heading" or block[1] != 1:
            found[title].append(block)
    return found
