#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Ombrel developers
# SPDX-License-Identifier: MIT
"""Composes documents of random types with random values, uses them at random, and says what breaks.

    random_use.py PROGRAM OUT [--seeds FIRST[-LAST]] [--seconds N]

PROGRAM is random_steps. Each seed is a process of its own. When one fails, its steps are cut down to
the fewest that still fail in the same way; OUT/SEED.json has them, OUT/SEED.qml the documents among
them and OUT/SEED.log what was said. PROGRAM OUT/SEED.json 60 fails again, with QSG_RENDER_LOOP=basic for odd seeds and
threaded for even ones.
"""

import argparse
import json
import os
import random
import re
import subprocess
import sys
import threading
import time

HANG = 10  # seconds without a step

# What a sanitizer's report begins with: more lines follow, and the process ends by itself.
SANITIZER = re.compile(r"^=+$|AddressSanitizer|runtime error:")

NUMBERS = ["0", "1", "-1", "0.5", "3", "17", "40", "80", "120", "200", "333.3", "1e9", "-1e9", "1e19",
           "-1e19", "NaN", "Infinity", "-Infinity", "1e-320"]
USUAL = ["0", "10", "20", "40", "60", "80", "100", "150", "200", "300"]
STRINGS = ['""', '"a"', '"png"', '"ff8000"', '"dragArea"', '"children"', '"\\u0000x"', '"äöü 漢字"',
           '"x".repeat(3000)', '"null"', '"%1"', '"<b>"']
COLORS = ['"red"', '"#80ff0000"', '"transparent"', '"no colour"', "Qt.rgba(2, -1, NaN, 0.5)", '"white"']
WRONG = ["null", "undefined", "[]", "({})", "true", '"text"', "function() {}", "Qt.point(1, 2)", "[1, null]"]
SUFFIXES = '["png", "", "PNG", "tar.gz"]'

# Of Qt, to nest ours in. What is in a list here must be something that Qt itself survives.
OF_QT = ["Item", "Rectangle", "MouseArea", "Flickable", "Row", "Column", "TextInput", "Text", "FocusScope",
         "Item", "Loader", "Repeater"]

ACTIONS = ["delete later", "hide", "show", "disable", "enable", "take out", "to the first window",
           "to the second window", "focus", "grab the pointer", "let the pointer go"]
GLOBAL_ACTIONS = ["collect garbage", "delete what is to be deleted", "close 0", "close 1", "release the scene graph 0", "cancel the drag", "turn the event loop"]

# From within a signal of Item itself, which Item emits in the middle of things, no more is allowed.
HARMLESS = ["delete later", "disable", "enable", "collect garbage"]

KEYS = [0x01000000, 0x01000001, 0x01000004, 0x01000012, 0x01000013, 0x01000014, 0x01000015, 0x20, 0x41,
        0x42, 0x01000003, 0x01000007, 0x01000034]


def hexed(text):
    return text.encode("utf-8").hex()


MIME = [["text/uri-list", hexed("file:///tmp/a.png\r\nfile:///tmp/b.mp4\r\n")],
        ["text/uri-list", hexed("http://[bad/\r\n")],
        ["application/x-lumetra-documents", "0000000200610000000200ff"],
        ["application/x-lumetra-draggable", hexed("a")],
        ["text/plain", hexed("text")], ["text/plain", ""]]


class Composer:
    """Everything it makes comes from the seed."""

    def __init__(self, seed, catalog):
        self.random = random.Random(seed)
        self.catalog = catalog
        everywhere = set.intersection(*(set(what["properties"]) for what in catalog.values() if what["item"]))
        # The signals that Item has, too.
        self.of_item = set.intersection(*(set(what["signals"]) for what in catalog.values() if what["item"]))
        self.own = {kind: set(what["properties"]) - everywhere for kind, what in catalog.items()}
        self.types = sorted(catalog)
        self.next = 1
        self.made = {}  # name: type
        self.roots = []
        self.hooked = []  # (name, signal)
        self.keepers = []  # names of items that keep lists
        self.kept = set()  # not to be deleted

    def pick(self, things):
        return self.random.choice(things)

    def chance(self, probability):
        return self.random.random() < probability

    def some_name(self):
        # Those made last are the ones that live.
        names = list(self.made)[-25:]
        return self.pick(names) if names else "o1"

    def reference(self):
        return "all." + self.some_name()

    # Values ------------------------------------------------------------------------------------

    def component(self, depth):
        if depth > 2:
            return "Component { Item { width: 10; height: 10 } }"
        body = self.pick([
            lambda: self.tree(depth + 2, items=True),
            lambda: 'Rectangle { width: 20; height: 10; color: "red"; Component.onCompleted: '
                    "scene.note(\"d%d\", this) }" % self.random.randrange(9),
            lambda: "Text { text: String(%s) + %s }" % (self.pick(ATTACHED), self.pick(ATTACHED)),
            lambda: "Item { implicitWidth: 30; implicitHeight: %s ? 40 : 20 }" % self.pick(ATTACHED),
            lambda: "QtObject {}",
        ])()
        return "Component { %s }" % body

    def value(self, kind, depth):
        """An expression for a property of the C++ type kind."""
        # In a document a constant of a wrong type is no document at all.
        if self.chance(0.08 if depth > 3 else 0.01) and kind != "Qt::Key":
            return self.pick(WRONG)
        if kind in ("double", "float", "qreal", "int", "uint"):
            roll = self.random.random()
            if roll < 0.6:
                return self.pick(USUAL)
            if roll < 0.75:
                return "%s ? %s.width / 2 : 5" % (self.reference(), self.reference())
            return self.pick(NUMBERS)
        if kind == "bool":
            return self.pick(["true", "false", "true", "%s && %s.visible" % (self.reference(), self.reference())])
        if kind == "QString":
            return self.pick(STRINGS)
        if kind == "Qt::Key":
            # Any other number is undefined behaviour in the code that moc writes, whoever declares the function.
            return str(self.pick(KEYS))
        if kind == "QStringList":
            return self.pick([SUFFIXES, "[]", '"png"', "[1, null]"])
        if kind == "QColor":
            return self.pick(COLORS)
        if kind == "QUrl":
            return self.pick(['"https://a.example/"', '""', '"file:///nowhere.png"', '"x".repeat(4000)'])
        if kind == "QPointF":
            return "Qt.point(%s, %s)" % (self.pick(NUMBERS), self.pick(USUAL))
        if kind == "QQmlComponent*":
            return self.component(depth)
        if kind.endswith("*"):
            return self.pick([self.reference(), self.reference(), "null"])
        if kind == "QVariant":
            return self.pick(STRINGS + USUAL + [self.reference(), "[1, 2]"])
        return self.pick(["0", "1", "2", "-1", "99"])

    def written(self, prop, kind, depth):
        """An expression for the property prop. A mask has none itself: Qt follows a circle of them for ever."""
        value = self.value(kind, depth)
        if prop == "containmentMask" and "all." in value:
            return "Rectangle { width: 20; height: 20 }" if depth < 9 else "null"
        return value

    # Documents ---------------------------------------------------------------------------------

    def named(self, kind):
        name = "o%d" % self.next
        self.next += 1
        self.made[name] = kind
        return name

    def properties_of(self, kind):
        known = self.catalog.get(kind)
        if not known:
            return {}
        return {name: what["type"] for name, what in known["properties"].items()
                if what["writable"] and name not in ("parent", "objectName", "transformOrigin", "layer")
                and not what["type"].startswith(("QQmlListProperty", "QQuickAnchorLine", "QQuickState"))}

    def tree(self, depth=0, items=False):
        """The text of an object with what is in it."""
        if self.chance(0.25):
            kind = self.pick(OF_QT)
        else:
            kind = self.pick(self.types)
            if items and not self.catalog[kind]["item"]:
                kind = "DropZone"
        name = self.named(kind)
        is_item = kind not in self.catalog or self.catalog[kind]["item"]
        lines = ['Component.onCompleted: scene.note("%s", this)' % name]
        used = set()
        if is_item and self.chance(0.85):
            for extent in ("width", "height"):
                lines.append("%s: %s" % (extent, self.pick(USUAL)))
            for place in ("x", "y"):
                lines.append("%s: %s" % (place, self.pick(USUAL)))
            used |= {"width", "height", "x", "y"}
        if kind == "TreeView" and self.chance(0.8):
            lines.append('childProperty: "children"')
            used.add("childProperty")
        if is_item and self.chance(0.3):
            # Lists that keep() puts there are read and written as others' parents lose them.
            lines += ["property var kept: []",
                      "onChildrenChanged: { %s }" % self.reading("kept")]
            self.keepers.append(name)
        properties = self.properties_of(kind)
        for prop in sorted(properties):
            interesting = prop in self.own.get(kind, ())
            if prop not in used and self.chance(0.35 if interesting else 0.04):
                lines.append("%s: %s" % (prop, self.written(prop, properties[prop], depth)))
        lines += self.contents(kind, depth)
        if kind in self.catalog and self.chance(0.2):
            signal = self.pick(self.catalog[kind]["signals"])
            lines.append("on%s: { %s }" % (signal[0].upper() + signal[1:], self.script()))
        return "%s {\n%s\n}" % (kind, "\n".join("    " + line.replace("\n", "\n    ") for line in lines))

    def contents(self, kind, depth):
        lines = []
        if kind == "Loader":
            # What it has loaded is its own to delete.
            before = set(self.made)
            lines.append("sourceComponent: " + self.component(depth))
            self.kept |= set(self.made) - before
        elif kind == "Repeater":
            lines += ["model: %d" % self.random.randrange(4),
                      "Rectangle { width: 9; height: 9 }"]
        elif kind in ("DragArea", "DragZone", "TreeView"):
            if self.chance(0.85):
                documents = ", ".join(self.document(2) for _ in range(self.random.randrange(1, 5)))
                lines.append("%s: [%s]" % (LISTS[kind][0], documents))
            delegate = "delegate" if kind == "TreeView" else "dragDelegate"
            if self.chance(0.8):
                lines.append("%s: %s" % (delegate, self.component(depth)))
        elif kind == "DropZone":
            handlers = [name for name in self.types if name.endswith("DropHandler")]
            for _ in range(self.random.randrange(4)):
                kind = self.pick(handlers)
                lines.append("%s { Component.onCompleted: scene.note(\"%s\", this); %s }"
                             % (kind, self.named(kind), "key: \"a\"" if kind == "DraggableDropHandler" else ""))
        if kind not in ("TextInput", "Repeater", "Loader", "Text") and depth < 3 \
                and (kind in OF_QT or (self.catalog[kind]["item"] and kind != "DropZone")):
            for _ in range(self.pick([0, 0, 1, 1, 2, 3])):
                lines.append(self.tree(depth + 1, items=True))
        return lines

    def document(self, depth=0):
        """A document with others in it."""
        children = [self.document(depth - 1) for _ in range(self.random.randrange(3))] if depth else []
        return 'Document { Component.onCompleted: scene.note("%s", this); %s }' % (self.named("Document"),
                                                                                  " ".join(children))

    def reading(self, lists):
        """Reads some lists; now and then writes them, too."""
        what = self.pick(["list[0]", "list[list.length - 1]", "list.push(%s)" % self.reference(), "String(list)"])
        return "if (scene.enter()) try { %s.forEach(function(list) { if (list) { list.length; %s } }) } " \
               "finally { scene.leave() }" % (lists, what)

    def script(self):
        """What a handler in a document does."""
        target = self.reference()
        # Not for ever from within itself, as one that shows and hides its own ancestor would be.
        return "if (scene.enter()) try { %s } finally { scene.leave() }" % self.pick([
            "if (%s) %s.visible = !%s.visible" % (target, target, target),
            "if (%s) %s.destroy()" % (target, target),
            "if (%s) %s.parent = %s" % (target, target, self.reference()),
            "gc()",
            "if (%s) %s.width = %s" % (target, target, self.pick(USUAL)),
        ])

    # Steps -------------------------------------------------------------------------------------

    def make(self):
        text = "import QtQuick 2.12\nimport ombrel.Controls 1.0\nimport ombrel.Controls.Private 1.0\n" \
               "import ombrel.data.Core 1.0\n\n" + without_doubles(self.tree()) + "\n"
        names = re.findall(r'scene\.note\("(o\d+)"', text)
        self.roots.append(names[0])
        steps = [["make", self.some_name() if self.chance(0.3) else "", text]]
        for _ in range(3):
            steps += self.hook(self.pick(names))
        return steps

    def trigger(self):
        """Has an object emit a signal that something hangs on."""
        if not self.hooked:
            return []
        name, signal = self.pick(self.hooked[-12:])
        prop = signal[:-len("Changed")]
        if signal.endswith("Changed") and prop in self.properties_of(self.made[name]):
            return self.write(name, prop) + self.write(name, prop)
        return self.call(name) + self.input(name)

    def write(self, name=None, prop=None):
        name = name or self.some_name()
        properties = self.properties_of(self.made[name])
        if not properties:
            return []
        ours = [prop for prop in properties if prop in self.own.get(self.made[name], ())]
        prop = prop or self.pick(sorted(ours) if ours and self.chance(0.7) else sorted(properties))
        value = self.written(prop, properties[prop], 9)
        if value.startswith("Component"):
            value = "null"
        if self.chance(0.2):
            value = "Qt.binding(function() { return %s })" % value
        return [["evaluate", "all.%s.%s = %s" % (name, prop, value)]]

    def call(self, name=None):
        name = name or self.some_name()
        functions = self.catalog.get(self.made[name], {}).get("functions", {})
        if not functions:
            return []
        function = self.pick(sorted(functions))
        values = ", ".join(self.value(kind, 9) for kind in functions[function])
        return [["evaluate", "all.%s.%s(%s)" % (name, function, values)]]

    def owner_of_list(self):
        """The name of an object that has a list, one of those made last; empty when there is none."""
        owners = [name for name in self.made if self.made[name] in LISTS][-12:]
        return self.pick(owners) if owners else ""

    def change_list(self):
        name = self.owner_of_list()
        if not name:
            return []
        prop, kind = LISTS[self.made[name]]
        return [["evaluate", self.pick([
            "all.%s.%s = []" % (name, prop),
            "all.%s.%s = [%s, %s]" % (name, prop, self.element(kind), self.element(kind)),
            "all.%s.%s = [%s, %s]" % (name, prop, self.element(kind), self.element(kind)),
            "all.%s.%s.push(%s)" % (name, prop, self.element(kind)),
            "all.%s.%s.length = 1" % (name, prop)])]]

    def element(self, kind):
        """For a list of what kind says: mostly such an object, which may be in other lists already."""
        fitting = [name for name in self.made if self.made[name].endswith(kind)][-8:]
        return "all." + self.pick(fitting) if fitting and self.chance(0.85) else self.reference()

    def keep(self):
        """Has an item keep a list of another object, or read those that it keeps."""
        owner, keeper = self.owner_of_list(), self.pick(self.keepers[-8:]) if self.keepers else ""
        if not owner or not keeper:
            return []
        prop, _ = LISTS[self.made[owner]]
        return [["evaluate", self.pick([
            "all.%s.kept = all.%s.kept.concat([all.%s.%s])" % (keeper, keeper, owner, prop),
            "all.%s.kept = all.%s.kept.concat([all.%s.%s])" % (keeper, keeper, owner, prop),
            self.reading("all.%s.kept" % keeper)])]]

    def act(self):
        if self.chance(0.25):
            words = self.pick(GLOBAL_ACTIONS)
            number = words[-1] if words[-1].isdigit() else ""
            return [["act", words.rstrip("01").rstrip(), number]]
        if self.chance(0.1) and self.roots:
            return [["act", "delete", self.pick(self.roots)]]
        name = self.some_name()
        return [["act", self.pick([action for action in ACTIONS
                                   if name not in self.kept or action != "delete later"]), name]]

    def hook(self, name=None):
        name = name or self.some_name()
        known = self.catalog.get(self.made[name])
        if not known:
            return []
        own = [signal for signal in known["signals"] if signal not in self.of_item]
        signal = self.pick(own if own and self.chance(0.8) else known["signals"])
        _, what, target = self.act()[0]
        # At once is not what Qt survives in every place.
        what = {"delete": "delete later", "delete what is to be deleted": "collect garbage"}.get(what, what)
        if what in ACTIONS and name not in self.kept and self.chance(0.4):
            target = name
        if signal in self.of_item and what not in HARMLESS:
            what = self.pick(HARMLESS)
        self.hooked.append((name, signal))
        return [["hook", name, signal, what, target]]

    def place(self, name=None):
        """A window and a place in it; instead of the latter mostly the name of an item to meet."""
        window = self.pick([0, 0, 0, 1])
        if name:
            return [window, name, 0]
        if self.chance(0.7) and self.made:
            return [window, self.some_name(), 0]
        return [window, self.random.randrange(320), self.random.randrange(240)]

    def input(self, name=None):
        kind = self.random.randrange(8)
        place = self.place(name)
        real = self.pick(["", "", "real "])
        if kind == 0:
            return [[real + "press", *place, 0], [real + "release", *place, 0]]
        if kind in (1, 2, 3):
            steps = [[real + "press", *place, 0]]
            for _ in range(self.random.randrange(2, 9)):
                place = [place[0], *self.place()[1:]]
                steps.append([real + "move", *place])
                if self.chance(0.2):
                    steps += self.step()
                if real:
                    steps.append(["wait", 5])
            return steps + [[real + "release", *place, 0]]
        if kind == 4:
            return [["double click", *place, 0]] if not real else [["real press", *place, 1],
                                                                  ["real release", *place, 1]]
        if kind == 5:
            return [["real move", *place], ["real wheel", 0, self.pick([-3, -1, 1, 2])]]
        if kind == 6:
            return [[real + "key", place[0], self.pick(KEYS), self.pick([0, 0, 0x04000000, 0x02000000])]]
        return [[real + "move", *place]]

    def foreign_drag(self):
        place = self.place()
        steps = [["drag enter", *place, [self.pick(MIME) for _ in range(self.random.randrange(1, 3))]]]
        for _ in range(self.random.randrange(4)):
            steps.append(["drag move", place[0], *self.place()[1:]])
            if self.chance(0.3):
                steps += self.step()
        return steps + [self.pick([["drag drop", *place], ["drag leave", *place], ["drag cancel"]])]

    def step(self):
        roll = self.random.random()
        if roll < 0.02:
            # Windows that stay closed see nothing.
            return [["act", "show window", "0"], ["act", "show window", "1"]]
        if roll < 0.14 or not self.made:
            return self.make()
        if roll < 0.3:
            return self.trigger()
        if roll < 0.37:
            return self.write()
        if roll < 0.42:
            return self.call()
        if roll < 0.45:
            return self.change_list()
        if roll < 0.47:
            return self.keep()
        if roll < 0.56:
            return self.act()
        if roll < 0.66:
            return self.hook()
        if roll < 0.86:
            return self.input()
        if roll < 0.91:
            return self.foreign_drag()
        if roll < 0.93:
            return [["resize", self.pick([0, 1]), self.pick([1, 100, 480, 900]), self.pick([1, 360])]]
        if roll < 0.935:
            return [["reload"]]
        if roll < 0.95:
            return [["grab", self.pick([0, 1])]]
        return [["wait", self.pick([1, 5, 20, 100])]]

    def steps(self, count):
        steps = [["end", self.random.randrange(2)]]
        while len(steps) < count:
            steps += self.step()
        return steps


# The lists, and how the names of the types end that they are of.
LISTS = {"DragArea": ("dragDocuments", "Document"), "DragZone": ("dragDocuments", "Document"),
         "TreeView": ("rootDocuments", "Document"), "DropZone": ("dropHandlers", "DropHandler"),
         "Document": ("children", "Document")}

# What delegates see.
ATTACHED = ["DragArea.isOutside", "DragArea.isDropped", "DragZone.isOutside", "DragZone.isDropped",
            "TreeView.isCollapsedItem", "TreeView.isActiveItem"]


def without_doubles(text):
    """A property twice is no document: of several lines in an object the first is kept."""
    out, seen = [], []
    for line in text.split("\n"):
        stripped = line.strip()
        indent = len(line) - len(line.lstrip())
        seen = [(depth, names) for depth, names in seen if depth <= indent]
        match = re.match(r"([a-z]\w*): ", stripped)
        if match:
            names = next((names for depth, names in seen if depth == indent), None)
            if names is None:
                names = set()
                seen.append((indent, names))
            if match.group(1) in names and stripped.count("{") == stripped.count("}"):
                continue
            names.add(match.group(1))
        elif stripped == "}":
            seen = [(depth, names) for depth, names in seen if depth <= indent]
        out.append(line)
    return "\n".join(out)


# Running -----------------------------------------------------------------------------------------

def known_messages():
    folder = os.path.dirname(os.path.abspath(__file__))
    with open(os.path.join(folder, "known-messages.txt"), encoding="utf-8") as file:
        lines = [line.rstrip("\n") for line in file if line.strip() and not line.startswith("#")]
    return re.compile("|".join("(?:%s)" % line for line in lines))


class Run:
    """One process that takes steps: how far it came, what it said, and what is wrong, in a line."""

    def __init__(self, program, path, seconds, known, loop):
        self.reached, self.heard_signals, self.wrong, self.said = 0, 0, "", []
        environment = dict(os.environ, MALLOC_PERTURB_="165")
        environment["QSG_RENDER_LOOP"] = loop
        environment["ASAN_OPTIONS"] = environment.get("ASAN_OPTIONS", "") \
            + ":max_free_fill_size=65536:free_fill_byte=165:abort_on_error=0"
        process = subprocess.Popen([program, path, str(seconds)], stdout=subprocess.PIPE,
                                   stderr=subprocess.STDOUT, env=environment, text=True, errors="replace")
        self.heard = time.monotonic()
        hung = []

        def watch():
            while process.poll() is None:
                if time.monotonic() - self.heard > HANG:
                    hung.append(True)
                    process.kill()
                    return
                time.sleep(0.2)

        watcher = threading.Thread(target=watch)
        watcher.start()
        complaints = []
        for line in process.stdout:
            self.heard = time.monotonic()
            line = line.rstrip("\n")
            if line.startswith("step "):
                self.reached = int(line.split()[1])
            elif line.startswith("heard "):
                self.heard_signals = int(line.split()[1])
            else:
                self.said.append(line)
                if line.startswith("wrong: "):
                    complaints.append(line)
                elif line not in ("end", "done") and not known.search(line):
                    complaints.append("said: " + line)
                    if not SANITIZER.search(line) and len(complaints) == 1:
                        # It has failed; what comes later is of no use, and takes time.
                        process.kill()
        code = process.wait()
        watcher.join()
        report = self.report()
        if hung:
            self.wrong = "hang"
        elif report:
            self.wrong = report
        elif complaints and not SANITIZER.search(complaints[0]):
            # The kind, without the numbers.
            self.wrong = re.sub(r"0x[0-9a-f]+|\d+", "N", complaints[0])
        elif code != 0 or "done" not in self.said[-2:]:
            self.wrong = "ended with %d: %s" % (code, (self.said or [""])[-1])

    def report(self):
        """Of a sanitizer: what, and the first places of the library."""
        summary = next((line for line in self.said if "ERROR: AddressSanitizer" in line
                        or "runtime error:" in line), None)
        if not summary:
            return ""
        start = self.said.index(summary)
        places = []
        for line in self.said[start:]:
            match = re.match(r"\s*#\d+ \S+ in (\S+)", line)
            if match and match.group(1).startswith("om::") and len(places) < 2:
                places.append(match.group(1).split("(")[0])
        kind = re.sub(r".*AddressSanitizer: ", "", summary).split(" on ")[0]
        return "%s in %s" % (re.sub(r"0x[0-9a-f]+|\d+", "N", kind)[:60], ", ".join(places) or "no code of ours")


    def is_drivers(self):
        """Whether the graphics driver alone has crashed. Mesa's rasterizer does so now and then when two
        render threads draw: one frees the variant of a shader that the other one's frame still names."""
        crash = next((i for i, line in enumerate(self.said) if "ERROR: AddressSanitizer: SEGV" in line), None)
        if crash is None:
            return False
        frames = [line for line in self.said[crash:] if re.match(r"\s*#\d+ ", line)]
        created = next((i for i, line in enumerate(frames) if i > 0 and "#0 " in line), len(frames))
        return "swrast_dri.so" in frames[0] and not any(" om::" in frame for frame in frames[:created]) \
            and any("(QSGRenderThread)" in line for line in self.said[crash:])


def write_steps(path, steps):
    with open(path, "w", encoding="utf-8") as file:
        file.write("[\n" + ",\n".join(json.dumps(step, ensure_ascii=False) for step in steps) + "\n]\n")


def write_log(path, run):
    with open(path.replace(".json", ".log"), "w", encoding="utf-8") as file:
        file.write("\n".join(run.said) + "\n")


def shrink(program, path, steps, wrong, known, loop, deadline):
    """The fewest steps that still fail in the same way; the first is how it ends and stays."""
    size = max(1, (len(steps) - 1) // 2)
    while time.monotonic() < deadline:
        position, fewer = 1, False
        while position < len(steps) and time.monotonic() < deadline:
            attempt = steps[:position] + steps[position + size:]
            write_steps(path, attempt)
            if Run(program, path, 60, known, loop).wrong == wrong:
                steps, fewer = attempt, True
            else:
                position += size
        if size == 1 and not fewer:
            break
        size = max(1, size // 2)
    write_steps(path, steps)
    return steps


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program")
    parser.add_argument("out")
    parser.add_argument("--seeds", default="1-12")
    parser.add_argument("--seconds", type=int, default=25)
    parser.add_argument("--shrink", type=int, default=120, help="seconds for each failure")
    options = parser.parse_args()
    first, _, last = options.seeds.partition("-")
    os.makedirs(options.out, exist_ok=True)
    known = known_messages()
    said = subprocess.run([options.program, "--catalog"], stdout=subprocess.PIPE, check=True, text=True).stdout
    catalog = json.loads(said)
    failed, taken = [], 0
    for seed in range(int(first), int(last or first) + 1):
        steps = Composer(seed, catalog).steps(options.seconds * 400)
        path = os.path.join(options.out, "%d.json" % seed)
        write_steps(path, steps)
        loop = "basic" if seed % 2 else "threaded"
        for attempt in range(3):
            run = Run(options.program, path, options.seconds, known, loop)
            if not run.is_drivers():
                break
            print("seed %d: the graphics driver has crashed after %d steps" % (seed, run.reached), flush=True)
        taken += run.reached
        if not run.wrong:
            os.remove(path)
            print("seed %d: %d steps, hooks on %d kinds of signals called" % (seed, run.reached, run.heard_signals),
                  flush=True)
            continue
        print("seed %d: FAILED after %d steps: %s" % (seed, run.reached, run.wrong), flush=True)
        failed.append(seed)
        write_log(path, run)
        steps = steps[:run.reached + 1]
        steps = shrink(options.program, path, steps, run.wrong, known, loop, time.monotonic() + options.shrink)
        last_run = Run(options.program, path, 60, known, loop)
        if last_run.wrong == run.wrong:
            write_log(path, last_run)
        with open(path.replace(".json", ".qml"), "w", encoding="utf-8") as file:
            file.write("\n\n".join(step[2] for step in steps if step[0] == "make"))
        print("    %d steps are left: %s" % (len(steps), path), flush=True)
    print("%d steps, %d failed" % (taken, len(failed)))
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
