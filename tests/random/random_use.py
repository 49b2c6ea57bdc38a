#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Ombrel developers
# SPDX-License-Identifier: MIT
"""Composes documents of random types with random values, uses them at random, and says what breaks.

    random_use.py PROGRAM OUT [--seeds FIRST[-LAST]] [--seconds N]

PROGRAM is random_steps. Each seed is a process of its own. When one fails, its steps are cut down to
the fewest that still fail in the same way; OUT/SEED.json has them, OUT/SEED.qml the documents among
them and OUT/SEED.log what was said. PROGRAM OUT/SEED.json 60 fails again, with QV4_FORCE_INTERPRETER=1 and
QSG_RENDER_LOOP=basic for odd seeds, threaded for even ones.
"""

import argparse
import json
import os
import re
import subprocess
import sys
import threading
import time

from composer import Composer

HANG = 10  # seconds without a step

# What a sanitizer's report begins with: more lines follow, and the process ends by itself.
SANITIZER = re.compile(r"^=+$|AddressSanitizer|runtime error:")


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
        # Qt does not survive what its compiled scripts leave behind: qt/wrongvalue.cpp
        environment["QV4_FORCE_INTERPRETER"] = "1"
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
