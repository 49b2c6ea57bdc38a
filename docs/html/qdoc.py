# SPDX-FileCopyrightText: 2026 The Ombrel developers
# SPDX-License-Identifier: MIT
"""Turns pages of Markdown into what qdoc reads: a page of the reference becomes a QML type with its
properties, signals and methods, every other page stays a page."""

import posixpath
import re

import markdown

IMPORT = re.compile(r"`import ([\w.]+) 1\.0`")
INHERITS = re.compile(r"inherits \[?`?(\w+)`?\]?")
MEMBER = re.compile(r"`([^`]*)`")
LINK = re.compile(r"\[([^][]*(?:\[[^][]*\][^][]*)?)\]\(([^)]+)\)")
MODULES = {
    "ombrel.Controls": "The controls.",
    "ombrel.Controls.Private": "The parts of a colour picker.",
    "ombrel.data.Core": "Documents, and the contexts that they live in.",
}


def page_name(path):
    """The name of the HTML file for the page PATH, relative to docs/."""
    if path == "README.md":
        return "index.html"
    path = re.sub(r"/README\.md$", ".md", path)
    return path.replace("guides/", "guide-").replace("/", "-").replace(".md", ".html").lower()


class Writer:
    """Writes the pages of one set, which link each other."""

    def __init__(self, pages, types):
        self.pages = pages  # their blocks by the path relative to docs/
        self.types = types  # those that are QML types: path to name
        self.path = ""

    # Text.

    def target(self, link):
        """What qdoc calls the page or place LINK; empty for what has no page here."""
        if re.match(r"\w+:", link):
            return link
        path, _, anchor = link.partition("#")
        path = posixpath.normpath(posixpath.join(posixpath.dirname(self.path), path)) if path else self.path
        if path not in self.pages:
            return ""
        name = self.types.get(path) or page_name(path)
        return name + ("#" + anchor if anchor else "")

    def linked(self, match):
        text, link = match.groups()
        target = self.target(link)
        words = text.replace("`", "").replace("\\", "\\\\")
        if target:
            return r"\l{%s}{%s}" % (target, words)
        return r"\c{%s}" % words if text.startswith("`") else words

    def inline(self, text, arguments=()):
        """TEXT with qdoc's marks; names of ARGUMENTS are marked as such."""
        def plain(part):
            # Links have been made into qdoc's own by now and keep their backslash.
            return re.sub(r"\\(?!l\{)", r"\\\\", part)

        pieces = re.split(r"(\[[^][]*\]\([^)]+\))|(`[^`]+`)", text)
        done = ""
        for piece in pieces:
            if not piece:
                continue
            if LINK.fullmatch(piece):
                done += LINK.sub(self.linked, piece)
            elif piece.startswith("`") and piece.endswith("`") and len(piece) > 2:
                code = piece[1:-1]
                done += r"\a %s " % code if code in arguments else r"\c{%s}" % code.replace("\\", "\\\\")
            else:
                piece = plain(piece)
                piece = re.sub(r"\*\*([^*]+)\*\*", r"\\b{\1}", piece)
                done += re.sub(r"(?<![\w*])\*([^*]+)\*(?![\w*])", r"\\e{\1}", piece)
        return done.replace("\\ ,", ",")

    def contents(self, index):
        """The table of contents for Qt Creator: the headings of the page INDEX and what it links."""
        self.path = "README.md"
        found = '<section ref="index.html" title="Ombrel Controls">'
        level = 1
        for block in index[1:]:
            if block[0] == "heading":
                found += "</section>" * (level - block[1] + 1)
                level = block[1]
                found += '<section ref="index.html" title="%s">' % block[2].replace("`", "")
            elif block[0] == "list":
                for text, link in (LINK.match(item).groups() for item in block[1] if LINK.match(item)):
                    if self.target(link):
                        found += '<section ref="%s" title="%s"/>' % (self.file(link), text)
        # What is for those who work on the library has no page here.
        return re.sub(r'<section ref="[^"]*" title="[^"]*"></section>', "", found + "</section>" * level)

    def file(self, link):
        """The HTML file of the page LINK."""
        path = posixpath.normpath(posixpath.join(posixpath.dirname(self.path), link))
        if path not in self.types:
            return page_name(path)
        face = self.pages[path][1][1]
        module = IMPORT.findall(face)[-1].replace(".", "-")
        return f"qml-{module}-{self.types[path]}.html".lower()

    # Blocks.

    def block(self, block, level=0):
        kind = block[0]
        if kind == "text":
            return self.inline(block[1])
        if kind == "heading":
            return r"\section%d %s" % (block[1] - 1 + level, self.inline(block[2]))
        if kind == "list":
            return "\n".join([r"\list"] + [r"\li " + self.inline(item) for item in block[1]] + [r"\endlist"])
        if kind == "table":
            rows = [r"\table"]
            for number, row in enumerate(block[1]):
                if number == 0 and not any(row):
                    continue
                rows.append(r"\header" if number == 0 else r"\row")
                rows += [r"\li " + self.inline(cell) for cell in row]
            return "\n".join(rows + [r"\endtable"])
        if kind == "image":
            return r"\image %s %s" % (posixpath.basename(block[1]), block[3])
        # qdoc parses QML to colour it; a part of a file is none to it.
        whole = block[1] == "qml" and block[2].startswith("import ")
        begin, end = (r"\qml", r"\endqml") if whole else (r"\badcode", r"\endcode")
        return "%s\n%s\n%s" % (begin, block[2], end)

    def body(self, blocks, level=0):
        return "\n\n".join(self.block(block, level) for block in blocks)

    # Pages.

    def page(self, path, blocks):
        self.path = path
        title = blocks[0][2].replace("`", "")
        return comment(r"\page %s" % page_name(path), r"\title %s" % title, "", self.body(blocks[1:]))

    def type(self, path, blocks):
        self.path = path
        name = self.types[path]
        sections = markdown.sections(blocks)
        face, *introduction = sections.pop("")
        module = IMPORT.findall(face[1])[-1]
        singleton = " · a singleton" in face[1]
        inherits = INHERITS.search(face[1])
        first = next(block for block in introduction if block[0] == "text")
        brief = re.match(r"(.*?\.)(?= |$)", first[1])[1]
        head = [r"\qmltype %s" % name, r"\inqmlmodule %s" % module]
        if inherits and inherits[1] not in ("QtObject", "Item"):
            head.append(r"\inherits %s" % inherits[1])
        head += [r"\brief %s" % self.inline(brief), ""]
        uses = self.inline(face[1].replace(" · ", ", "))
        text = [uses[0].upper() + uses[1:] + "."] if not singleton else [uses + "."]
        text += [self.body(introduction)]
        members = []
        for title, content in sections.items():
            if title in ("Properties", "Attached properties", "Signals", "Methods"):
                attached = "attached" if title.startswith("Attached") else ""
                rest = []
                for block in content:
                    if block[0] == "table" and block[1][0][0] in ("property", "signal", "method"):
                        members += [self.member(name, block[1][0][0], attached, row) for row in block[1][1:]]
                    else:
                        rest.append(block)
                content = rest
                if not content or content[0][0] == "text" and content[0][1].startswith("None"):
                    continue
                # qdoc has a heading of this name above its own list.
                title = "About the " + title.lower()
            text.append(self.block(("heading", 2, title)))
            text.append(self.body(content))
        return "\n".join([comment(*head, "\n\n".join(text))] + members)

    def member(self, name, kind, attached, row):
        if kind == "property":
            member, kind_of, default, signal, meaning = row
            of = re.sub(r"\[(\w+)\]\([^)]*\)", r"\1", kind_of).replace("`", "")
            of, _, access = of.partition(", ")
            of = re.sub(r"list of (\w+?)s?$", r"list<\1>", of)
            lines = [r"\qml%sproperty %s %s::%s" % (attached, of, name, MEMBER.match(member)[1])]
            if access:
                lines.append(r"\readonly")
            told = "Its signal is %s." % self.inline(signal) if "`" in signal else ""
            text = capital(self.inline(meaning)) + "."
            return comment(*lines, "", text, "", "The default is %s. %s" % (self.inline(default), told))
        signature = MEMBER.match(row[0])[1]
        arguments = [part.split()[-1] for part in re.search(r"\(([^)]*)\)", signature)[1].split(", ") if part]
        text = capital(self.inline(row[1], arguments)) + "."
        unsaid = [r"\a " + argument for argument in arguments if r"\a %s " % argument not in text]
        if unsaid:
            text += "\n\n%s %s." % ("Carries" if kind == "signal" else "Takes", " and ".join(unsaid))
        head = re.match(r"(\w+(?:<\w+>)? )?(\w+\(.*)", signature)
        if head[1] and "return" not in text.lower():
            text += r" Returns a %s." % head[1].strip()
        return comment(r"\qml%s%s %s%s::%s" % (attached, kind, head[1] or "", name, head[2]), "", text)


def capital(text):
    return text[:1].upper() + text[1:].rstrip(".")


def comment(*lines):
    return "/*!\n%s\n*/\n" % "\n".join(lines)


def modules():
    return "\n".join(
        comment(r"\qmlmodule %s 1.0" % name, r"\title %s" % name, r"\brief %s" % text, "", text)
        for name, text in MODULES.items())
