#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Ombrel developers
# SPDX-License-Identifier: MIT
"""Holds the composer to its word: what random use is to find mistakes in really is in the documents.

    tst_composer.py PROGRAM

PROGRAM is random_steps.
"""

import collections
import json
import os
import re
import subprocess
import sys
import tempfile
import unittest

from composer import Composer, lists_of

SEEDS = range(1, 9)
STEPS = 400


def said(*arguments):
    return json.loads(subprocess.run([PROGRAM, *arguments], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                     check=True, text=True).stdout)


class TestComposer(unittest.TestCase):
    """Of all seeds together."""

    @classmethod
    def setUpClass(cls):
        cls.catalog = said("--catalog")
        cls.steps = []
        cls.counts = collections.Counter()
        cls.lists = collections.Counter()
        for seed in SEEDS:
            steps = Composer(seed, cls.catalog).steps(STEPS)
            with tempfile.NamedTemporaryFile("w", suffix=".json") as file:
                json.dump(steps, file)
                file.flush()
                found = said("--survey", file.name)
            cls.steps += steps
            cls.lists.update(found.pop("lists"))
            cls.counts.update(found)
        cls.text = "\n".join(step[2] for step in cls.steps if step[0] == "make")

    def test_sameSeedIsComposedAgain(self):
        again = [step for seed in SEEDS for step in Composer(seed, self.catalog).steps(STEPS)]
        self.assertEqual(again, self.steps)

    def test_documentsLoad(self):
        self.assertGreater(self.counts["documents"], 120)
        self.assertGreater(self.counts["loaded"], 0.8 * self.counts["documents"])

    def test_everyTypeIsMade(self):
        made = set(re.findall(r"^ *(\w+) \{", self.text, re.MULTILINE))
        self.assertEqual(set(self.catalog) - made, set())

    def test_treesHaveRowsBelowRows(self):
        self.assertGreater(self.counts["trees"], 40)
        self.assertGreater(self.counts["nested"], 0.3 * self.counts["trees"])

    def test_everyListHasSomethingInIt(self):
        known = {"%s.%s" % (kind, name) for kind, what in self.catalog.items() for name, _ in lists_of(what)}
        self.assertEqual(len(known), 5)
        self.assertEqual({name for name in known if self.lists[name] < 5}, set())

    def test_listsShareWhatIsInThem(self):
        self.assertGreater(self.counts["shared"], 20)

    def test_parentsKeepListsOfTheirChildren(self):
        self.assertGreater(self.counts["kept"], 20)

    def test_attachedPropertiesAreThere(self):
        """All that are described are used, and no other: a name that is not there reads undefined."""
        path = os.path.join(os.environ["OMBREL_SOURCE_DIR"], "types", "ombrel.Controls.qmltypes")
        with open(path, encoding="utf-8") as file:
            components = re.findall(r"    Component \{\n(.*?)\n    \}", file.read(), re.DOTALL)
        by_name = {re.search(r'name: "(.*?)"', component).group(1): component for component in components}
        there = set()
        for name, component in by_name.items():
            attached = re.search(r'attachedType: "(.*?)"', component)
            if attached:
                there |= {"%s.%s" % (name.split("::")[-1], prop)
                          for prop in re.findall(r'Property \{\s*name: "(\w+)"', by_name[attached.group(1)])}
        used = set(re.findall(r"\b((?:DragArea|DragZone|TreeView)\.\w+)", self.text))
        self.assertEqual(used, there)


if __name__ == "__main__":
    PROGRAM = sys.argv.pop(1)
    unittest.main()
