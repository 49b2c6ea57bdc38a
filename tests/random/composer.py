# SPDX-FileCopyrightText: 2026 The Ombrel developers
# SPDX-License-Identifier: MIT
"""Composes documents of random types with random values, and what is done with them."""

import random
import re

NUMBERS = ["0", "1", "-1", "0.5", "3", "17", "40", "80", "120", "200", "333.3", "1e9", "-1e9", "1e19",
           "-1e19", "NaN", "Infinity", "-Infinity", "1e-320"]
# Of rows, too.
SMALL = ["0", "1", "2", "3", "5", "8", "-1"]
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
        0x42, 0x01000003, 0x01000007, 0x01000031, 0x01000034]


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
        # The lists of a type, and the types that they are of: {"TreeView": [("rootDocuments", "Document")]}.
        self.lists = {kind: lists for kind, lists in ((kind, lists_of(catalog[kind])) for kind in self.types) if lists}
        # What delegates see: ("TreeView.isActiveItem", "bool", False), the last of which says whether it is writable.
        self.attached = [("%s.%s" % (kind, name), what["type"], what["writable"]) for kind in self.types
                         for name, what in sorted(catalog[kind]["attached"].items())]
        self.next = 1
        self.made = {}  # name: type
        # Names of some, those made last at the end. Documents are so many that one would meet little else.
        self.documents, self.others, self.handlers, self.owners = [], [], [], []
        self.keepers = []  # items that keep lists of their children
        self.roots = []
        self.hooked = []  # (name, signal)
        self.kept = set()  # not to be deleted

    def pick(self, things):
        return self.random.choice(things)

    def chance(self, probability):
        return self.random.random() < probability

    def some_name(self):
        # Those made last are the ones that live.
        names = self.documents if self.documents and self.chance(0.15) else self.others
        return self.pick(names[-25:]) if names else "o1"

    def reference(self):
        return "all." + self.some_name()

    # Values ------------------------------------------------------------------------------------

    def element(self, kind):
        """For a list of that type: mostly such an object, which may be in other lists already."""
        fitting = self.documents if kind == "Document" else self.handlers
        return "all." + self.pick(fitting[-12:]) if fitting and self.chance(0.85) else self.reference()

    def component(self, depth, owner=""):
        """What an owner, a type, makes something from."""
        if depth > 2:
            return "Component { Item { width: 10; height: 10 } }"
        attached = self.attached
        if self.catalog.get(owner, {}).get("attached") and self.chance(0.8):
            attached = [what for what in attached if what[0].startswith(owner + ".")]
        seen, kind, _ = self.pick(attached)
        written, kind_of_written, _ = self.pick([what for what in attached if what[2]])
        body = self.pick([
            lambda: self.tree(depth + 2, items=True),
            lambda: 'Rectangle { width: 20; height: 10; color: "red"; Component.onCompleted: '
                    "scene.note(\"d%d\", this) }" % self.random.randrange(9),
            lambda: "Text { text: String(%s) + %s }" % (seen, self.pick(attached)[0]),
            lambda: "Item { implicitWidth: 30; implicitHeight: %s ? 40 : 20 }" % seen,
            lambda: "Item { width: 20; height: 20; Component.onCompleted: %s = %s }"
                    % (written, self.value(kind_of_written, 9)),
            lambda: "MouseArea { width: 20; height: 20; onPressed: %s = %s }"
                    % (written, self.value(kind_of_written, 9)),
            lambda: "QtObject {}",
        ])()
        return "Component { %s }" % body

    def value(self, kind, depth):
        """An expression for a property of the C++ type kind."""
        # In a document a constant of a wrong type is no document at all.
        if self.chance(0.08 if depth > 3 else 0.01) and kind != "Qt::Key":
            return self.pick(WRONG)
        if kind == "int" and self.chance(0.3):
            return self.pick(SMALL)
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
        if kind == "om::data::Document*":
            return self.element("Document")
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
        (self.documents if kind == "Document" else self.others).append(name)
        if kind.endswith("DropHandler"):
            self.handlers.append(name)
        if kind in self.lists:
            self.owners.append(name)
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
        roll = self.random.random()
        if roll < 0.25:
            kind = self.pick(OF_QT)
        elif roll < 0.5:
            kind = self.pick(sorted(self.lists))
        else:
            kind = self.pick(self.types)
        if items and kind in self.catalog and not self.catalog[kind]["item"]:
            kind = "TreeView"
        name = self.named(kind)
        is_item = kind not in self.catalog or self.catalog[kind]["item"]
        keeps = is_item and self.chance(0.3)
        lines = ['Component.onCompleted: { scene.note("%s", this)%s }' % (name, "; keepLists()" if keeps else "")]
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
        if keeps:
            # The lists are read, too, when their owners go: a child leaves its parent as it is destroyed.
            lines += ["property var kept: []",
                      "function keepLists() { %s }" % self.keeping(),
                      "onChildrenChanged: { %s; keepLists() }" % self.reading("kept")]
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
            if self.chance(0.75):
                documents = ", ".join(self.document(2) for _ in range(self.random.randrange(1, 5)))
                lines.append("%s: [%s]" % (self.lists[kind][0][0], documents))
            elif self.chance(0.6):
                lines.append("%s: [%s, %s]" % (self.lists[kind][0][0], self.element("Document"),
                                               self.element("Document")))
            delegate = "delegate" if kind == "TreeView" else "dragDelegate"
            if self.chance(0.8):
                lines.append("%s: %s" % (delegate, self.component(depth, kind)))
        elif kind == "Document":
            lines += [self.document(1) for _ in range(self.random.randrange(3))]
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
        name = self.named("Document")
        # Some have the identifier of another, or none.
        identifier = self.pick(['"%s"' % name, '"%s"' % name, '"a"', "undefined"])
        return 'Document { Component.onCompleted: scene.note("%s", this); documentId: %s; %s }' \
               % (name, identifier, " ".join(children))

    def keeping(self):
        """Of each child the lists, and those of the first documents in them. None of Qt's: qt/keptlist.cpp"""
        names = sorted({name for kind in self.lists if self.catalog[kind]["item"] for name, _ in self.lists[kind]})
        return "for (var i = 0; kept && i < children.length && kept.length < 20; ++i) %s.forEach(function(name) " \
               "{ var list = children[i][name]; if (!list) return; kept.push(list); " \
               "if (list[0] && list[0].children) kept.push(list[0].children) })" % names

    def reading(self, kept):
        """Reads lists that are kept; now and then writes them, too."""
        what = self.pick(["list[0]", "list[list.length - 1]", "list.push(%s)" % self.reference(),
                          "list.push(list[0])", "String(list)"])
        return "if (scene.enter()) try { (%s || []).forEach(function(list) { if (list) { list.length; %s } }) } " \
               "finally { scene.leave() }" % (kept, what)

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
            self.changed_list() or "gc()",
            self.reading("all.%s.kept" % self.pick(self.keepers[-8:])) if self.keepers else "gc()",
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

    def changed_list(self):
        """Writes a list of one of those made last; empty when there is none."""
        if not self.owners:
            return ""
        name = self.pick(self.owners[-12:])
        prop, kind = self.pick(self.lists[self.made[name]])
        return self.pick([
            "all.%s.%s = []" % (name, prop),
            "all.%s.%s = [%s, %s]" % (name, prop, self.element(kind), self.element(kind)),
            "all.%s.%s = [%s, %s]" % (name, prop, self.element(kind), self.element(kind)),
            "all.%s.%s.push(%s)" % (name, prop, self.element(kind)),
            "all.%s.%s.length = 1" % (name, prop)])

    def change_list(self):
        changed = self.changed_list()
        return [["evaluate", changed]] if changed else []

    def keep(self):
        """Has an item keep a list of any object, or reads those that it keeps."""
        if not self.owners or not self.keepers:
            return []
        keeper, owner = self.pick(self.keepers[-8:]), self.pick(self.owners[-12:])
        prop, _ = self.pick(self.lists[self.made[owner]])
        return [["evaluate", self.pick([
            "all.%s.kept.push(all.%s.%s)" % (keeper, owner, prop),
            "all.%s.kept.push(all.%s.%s)" % (keeper, owner, prop),
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
        if what == "delete later" and target in self.kept:
            what = "collect garbage"
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


def lists_of(known):
    """The library's lists among the properties of a type, and what they are of."""
    types = {name: re.match(r"QQmlListProperty<om::.*?(\w+)>$", what["type"])
             for name, what in known["properties"].items()}
    return [(name, match.group(1)) for name, match in sorted(types.items()) if match]


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
