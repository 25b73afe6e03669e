#!/usr/bin/env python3
"""Reads what the tests of a build folder with coverage left behind (tools/coverage.sh) and prints how many lines and
branches of the portable code they reached, per folder of src/; with --files also per file, with the lines that no
test reached. Branches of exceptions, which nothing here throws, don't count."""
import gzip
import json
import os
import subprocess
import sys
import tempfile
from collections import defaultdict

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))


def notes(build):
    """The notes of every object file whose source is in src/, but for mere precompiled headers."""
    for folder, _, names in os.walk(os.path.join(build, "src")):
        for name in names:
            if name.endswith(".gcno") and "cmake_pch" not in name:
                yield os.path.abspath(os.path.join(folder, name))


def records(build):
    """gcov's record of every source of every object file."""
    with tempfile.TemporaryDirectory() as work:
        for name in notes(build):
            # One at a time: those of the same name in different folders would overwrite each other.
            subprocess.run(["gcov", "--json-format", "--branch-probabilities", name], cwd=work, check=True,
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            for result in os.listdir(work):
                path = os.path.join(work, result)
                with gzip.open(path) as file:
                    yield from json.load(file)["files"]
                os.unlink(path)


def reached(build):
    """By file below src/: lines as {number: reached}, branches as {(number, index): reached}."""
    lines, branches = defaultdict(dict), defaultdict(dict)
    source = os.path.join(ROOT, "src") + os.sep
    for record in records(build):
        path = os.path.normpath(os.path.join(ROOT, record["file"]))
        if not path.startswith(source):
            continue
        name = path[len(source):]
        for line in record["lines"]:
            number = line["line_number"]
            # A header's line, or a template's, is reached when any object file reached it.
            lines[name][number] = lines[name].get(number, False) or line["count"] > 0
            ordinary = [branch for branch in line["branches"] if not branch["throw"]]
            if len(ordinary) < 2:
                continue
            for index, branch in enumerate(ordinary):
                key = (number, index)
                branches[name][key] = branches[name].get(key, False) or branch["count"] > 0
    return lines, branches


def folder_of(name):
    parts = name.split("/")
    return "platform/sim" if parts[:2] == ["platform", "sim"] else parts[0]


def share(flags):
    flags = list(flags)
    return f"{sum(flags)} of {len(flags)} ({100 * sum(flags) / len(flags):.1f} %)" if flags else "none"


def spans(numbers):
    """[1, 2, 3, 7] as "1-3, 7"."""
    found = []
    for number in sorted(numbers):
        if found and found[-1][1] == number - 1:
            found[-1][1] = number
        else:
            found.append([number, number])
    return ", ".join(str(first) if first == last else f"{first}-{last}" for first, last in found)


def print_folders(lines, branches):
    by_folder = defaultdict(lambda: ([], []))
    for name in lines:
        for folder in (folder_of(name), "together"):
            if folder == "together" and folder_of(name) == "platform/sim":
                continue  # of the machine for tests, not of the product
            by_folder[folder][0].extend(lines[name].values())
            by_folder[folder][1].extend(branches[name].values())
    print("| Folder of `src/` | Lines | Branches |\n|---|---|---|")
    for folder in sorted(by_folder, key=lambda name: (name == "together", name == "platform/sim", name)):
        of_lines, of_branches = by_folder[folder]
        title = "together, without `platform/sim`" if folder == "together" else f"`{folder}`"
        print(f"| {title} | {share(of_lines)} | {share(of_branches)} |")


def print_files(lines, branches):
    for name in sorted(lines):
        missed = [number for number, hit in lines[name].items() if not hit]
        half = {number for (number, _), hit in branches[name].items() if not hit} - set(missed)
        if missed or half:
            print(f"{name}: lines {spans(missed) or 'all'}" + (f"; one way only {spans(half)}" if half else ""))


def main():
    lines, branches = reached(sys.argv[1])
    if "--files" in sys.argv[2:]:
        print_files(lines, branches)
    print_folders(lines, branches)


if __name__ == "__main__":
    main()
