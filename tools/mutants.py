#!/usr/bin/env python3
"""Mutation testing: puts small faults into the code, one at a time, and lists those that no test notices.

    tools/mutants.py                                every folder of src/ but platform/, 40 faults each, seed 1
    tools/mutants.py --folder app --seed 7 --sample 100
    tools/mutants.py --file src/text/Split.cpp --sample 1000
    tools/mutants.py --sole                         also: which tests alone notice a fault
    tools/mutants.py --win32                        the faults of mutants-win32.txt, under Wine

Needs the native build (cmake --build --preset native), for --win32 the win64 build and Wine. Each fault is compiled
into an object file of its own, which is linked before the libraries into each unit test program that holds the file;
the build folder itself stays as it is. A failed check, a crash, a finding of the sanitizers or a time-out counts as
noticed. Faults that leave the optimised machine code unchanged, and those listed in mutants-equivalent.txt, don't
count. Exit code 1 if a folder stays below nine of ten."""
import argparse
import concurrent.futures
import json
import os
import random
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
import time
from collections import Counter, defaultdict, namedtuple

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
LISTS = os.path.join(ROOT, "tools")
GOAL = 0.9

# A fault: `start` to `end` of the file's text are replaced by `text`.
Fault = namedtuple("Fault", "path kind start end text")


# ---- Finding places for faults --------------------------------------------------------------------------------------

def blank(match):
    return re.sub(r"[^\n]", " ", match.group())


def mask(source):
    """The source with comments, literals and directives blanked out, every other character in its place."""
    source = re.sub(r'//[^\n]*|/\*.*?\*/|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|(?<![0-9a-fA-F])\'(?:\\.|[^\'\\\n])+\'',
                    blank, source, flags=re.S)
    return re.sub(r"^[ \t]*#(?:[^\n]*\\\n)*[^\n]*", blank, source, flags=re.M)


def closing(code, start):
    """The index of the bracket that closes the one at `start`, or -1."""
    pairs = {"(": ")", "[": "]", "{": "}"}
    stack = []
    for index in range(start, len(code)):
        if code[index] in pairs:
            stack.append(pairs[code[index]])
        elif stack and code[index] == stack[-1]:
            stack.pop()
            if not stack:
                return index
    return -1


REPLACED = [  # kind, pattern whose group 1 is replaced, replacement by text
    ("comparison turned", r"(?<=[\w)\]] )(<=|>=|<|>|==|!=)(?= [\w(!\-:*&{\"'+ ])",
     {"<": ">=", ">=": "<", ">": "<=", "<=": ">", "==": "!=", "!=": "=="}),
    ("bound moved", r"(?<=[\w)\]] )(<=|>=|<|>)(?= [\w(!\-:*])", {"<": "<=", "<=": "<", ">": ">=", ">=": ">"}),
    ("sign turned", r"(?<=[\w)\]] )([+-])(?= [\w(:*])", {"+": "-", "-": "+"}),
    ("sign turned", r"(?<= )([+-]=)(?= )", {"+=": "-=", "-=": "+="}),
    ("sign turned", r"(\+\+|--)", {"++": "--", "--": "++"}),
    ("sign turned", r"(?:(?<=[(,=?:{] )|(?<=[({])|(?<=return ))(-)(?=[\w(])", {"-": ""}),
    ("and for or", r"(?<= )(&&|\|\|)(?= )", {"&&": "||", "||": "&&"}),
    ("condition negated", r"(?<![\w)])(!)(?=[\w(:*])", {"!": ""}),
    ("condition negated", r"( \? )", {" ? ": " == false ? "}),
    ("min for max", r"\bstd::(?:ranges::)?(min|max)\(", {"min": "max", "max": "min"}),
    ("truth turned", r"\b(true|false)\b", {"true": "false", "false": "true"}),
]
NO_STATEMENT = re.compile(r"(return|if|for|while|else|case|break|continue|using|auto|const|static|namespace|class|"
                          r"struct|enum|switch|do|template|constexpr|delete|throw|friend|typedef|default|goto)\b")
LEFT_OUT = re.compile(r"(?:[\w.\[\]()*:>&\-]+(?:->|\.|::))?~?\w+(?:\[[^;\n]*?\])?"
                      r"(?P<what>\(|(?: [-+*/|&^]?= )|\+\+;|--;)|(?:\+\+|--)[\w.\->\[\]]+;")


def faults_of(path):
    """Every place of the file where one of the faults can be put."""
    with open(os.path.join(ROOT, path), encoding="utf-8") as file:
        code = mask(file.read())
    for kind, pattern, replacements in REPLACED:
        for match in re.finditer(pattern, code):
            yield Fault(path, kind, match.start(1), match.end(1), replacements[match.group(1)])
    # Not of constants: a colour or a margin that is off by one is no fault.
    for match in re.finditer(r"^(?![^\n]*\bconstexpr\b)[^\n]*$", code, re.M):
        for number in re.finditer(r"(?:(?:[<>]=?|[=!]=|=|return|[-+%?]) )(\d{1,6})(?![\w.'])", match.group()):
            yield Fault(path, "bound moved", match.start() + number.start(1), match.start() + number.end(1),
                        str(int(number.group(1)) + 1))
    for match in re.finditer(r"\b(?:if|while) \(", code):
        end = closing(code, match.end() - 1)
        inside = code[match.end():end]
        start = match.end() + (inside.rfind("; ") + 2 if "; " in inside else 0)
        if end > 0:
            yield Fault(path, "condition negated", start, end, None)
    for match in re.finditer(r"(?<=\n)( {4,})(?=\S)", code):
        start = match.end()
        statement = LEFT_OUT.match(code, start)
        # The line before shows whether this one begins a statement.
        before = code[:match.start()].rstrip()
        if not statement or NO_STATEMENT.match(code, start) or before[-1:] not in ";{})":
            continue
        end = start
        while end < len(code) and code[end] != ";":
            if code[end] in "([{":
                end = closing(code, end)
                if end < 0:
                    break
            end += 1
        if start < end < len(code):
            what = "assignment left out" if "=" in (statement.group("what") or "") else "call left out"
            yield Fault(path, what, start, end, "")


class Mutant:
    """A fault put into its file's text."""

    def __init__(self, fault):
        self.fault = fault
        with open(os.path.join(ROOT, fault.path), encoding="utf-8") as file:
            original = file.read()
        old = original[fault.start:fault.end]
        text = f"!({old})" if fault.text is None else fault.text
        self.source = original[:fault.start] + text + original[fault.end:]
        self.line = original.count("\n", 0, fault.start) + 1
        first = original.rfind("\n", 0, fault.start) + 1
        last = original.find("\n", fault.end)
        self.before = " ".join(original[first:last].split())
        self.after = " ".join((original[first:fault.start] + text + original[fault.end:last]).split())
        self.result = None      # "noticed", "survived", "equivalent", "does not compile"
        self.by = []            # what noticed it: test cases with --sole, else the program

    def __str__(self):
        return f"{self.fault.path}:{self.line}: {self.fault.kind}\n    - {self.before}\n    + {self.after}"


def equivalents():
    """Faults that nobody can see: {(file, before, after)}, from `file | before | after | reason` a line."""
    found = set()
    with open(os.path.join(LISTS, "mutants-equivalent.txt"), encoding="utf-8") as file:
        for line in file:
            fields = line.rstrip("\n").split(" | ")
            if not line.startswith("#") and len(fields) == 4:
                found.add(tuple(fields[:3]))
    return found


# ---- Building and running -------------------------------------------------------------------------------------------

class Build:
    """A build folder: how its files are compiled and its programs linked."""

    def __init__(self, preset):
        self.folder = os.path.join(ROOT, "build", preset)
        try:
            with open(os.path.join(self.folder, "compile_commands.json"), encoding="utf-8") as file:
                self.compiling = {entry["file"]: entry["command"] for entry in json.load(file)}
        except OSError:
            sys.exit(f"mutants: build it first: cmake --preset {preset} && cmake --build --preset {preset}")
        self.linking = {}

    def link_command(self, target):
        """The command that links a program, read from Ninja once."""
        if target not in self.linking:
            listed = subprocess.run(["ninja", "-C", self.folder, "-t", "commands", target], check=True, text=True,
                                    capture_output=True).stdout.splitlines()
            self.linking[target] = re.search(r"&& (.*?) && ", listed[-1] + " && ").group(1)
        return self.linking[target]

    def holds(self, target, path):
        """True if the program is linked with the library of the file's folder."""
        return f"libkestrum_{path.split('/')[1]}.a" in self.link_command(target)

    def compile(self, mutant, work, *, plain=False):
        """Compiles into `work`; None if it does not compile. `plain`: optimised, no sanitizers, no debug data."""
        name = os.path.basename(mutant.fault.path)
        copy = os.path.join(work, name)
        words = shlex.split(self.compiling[os.path.join(ROOT, mutant.fault.path)])
        words = [word for word in words[:words.index("-o")] if not re.match(r"-W(?!l,)", word)]
        if plain:
            words = [word for word in words if not re.match(r"-f(no-)?sanitize|-g|-O|-fpch", word)]
            if "-include" in words:  # precompiled for other options
                del words[words.index("-include"):words.index("-include") + 2]
            words += ["-O2", "-g0", "-include", os.path.join(work, "common.h")]
            with open(os.path.join(work, "common.h"), "w", encoding="utf-8") as file:
                file.writelines(f"#include <{header}>\n" for header in (
                    "algorithm", "cstdint", "functional", "map", "memory", "optional", "string", "utility", "vector"))
        result = copy + ".o"
        words += ["-w", "-iquote", os.path.dirname(os.path.join(ROOT, mutant.fault.path)), "-o", result, "-c", copy]
        with open(copy, "w", encoding="utf-8") as file:
            file.write(mutant.source)
        done = subprocess.run(words, cwd=self.folder, capture_output=True, check=False)
        return result if done.returncode == 0 else None

    def link(self, target, mutant_object, work, *options):
        """Links the program with the object before the libraries, whose own copy of it is not taken then."""
        program = os.path.join(work, os.path.basename(target))
        words = shlex.split(self.link_command(target))
        at = words.index("-o")
        words[at:at + 2] = [mutant_object, "-o", program]
        # A target of Windows also makes an import library; nobody needs it.
        words = [word for word in words if not word.startswith("-Wl,--out-implib")]
        done = subprocess.run(words + list(options), cwd=self.folder, capture_output=True, check=False)
        if done.returncode != 0:
            sys.exit(f"mutants: {target} cannot be linked; was it built meanwhile?")
        return program


class Native:
    """Tries faults in the unit tests."""

    def __init__(self, sole):
        self.sole = sole
        self.build = Build("native")
        targets = [os.path.basename(name) for name in sorted(os.listdir(os.path.join(ROOT, "tests", "unit")))
                   if os.path.isdir(os.path.join(ROOT, "tests", "unit", name))]
        self.targets = ["unit_" + name for name in targets]
        self.known = equivalents()
        self.options = ["-fuse-ld=gold"] if shutil.which("ld.gold") else []
        self.seconds = {}
        for target in self.targets:
            start = time.monotonic()
            program = os.path.join(self.build.folder, "tests", "unit", target)
            if subprocess.run([program], capture_output=True, check=False).returncode != 0:
                sys.exit(f"mutants: {target} fails without any fault (or is not built)")
            self.seconds[target] = time.monotonic() - start

    def order(self, path):
        """The programs that hold the file, that of its own folder first, then the quick ones."""
        own = "unit_" + path.split("/")[1]
        return sorted((target for target in self.targets if self.build.holds(target, path)),
                      key=lambda target: (target != own, self.seconds[target]))

    def run(self, target, program):
        """The failed test cases. One that took the program down hides those behind it."""
        environment = dict(os.environ, ASAN_OPTIONS="hard_rss_limit_mb=3000")
        words = [program, "--reporters=xml"] if self.sole else [program, "--abort-after=1", "--reporters=xml"]
        try:
            done = subprocess.run(words, capture_output=True, check=False, env=environment, cwd=self.build.folder,
                                  timeout=5 * self.seconds[target] + 20)
            code, text = done.returncode, done.stdout
        except subprocess.TimeoutExpired as expired:
            code, text = -1, expired.stdout or b""
        if code == 0:
            return []
        cases = re.findall(r'<TestCase name="(.*?)"(.*?)(?=<TestCase |\Z)', text.decode(errors="replace"), re.S)
        failed = [name for name, rest in cases
                  if 'test_case_success="false"' in rest or "<OverallResultsAsserts" not in rest]
        return [f"{target}: {name}" for name in failed] or [target]

    def judge(self, mutant):
        """Fills in `result` and `by`."""
        with tempfile.TemporaryDirectory(prefix="mutant") as work:
            if (mutant.fault.path, mutant.before, mutant.after) in self.known:
                mutant.result = "equivalent"
                return mutant
            made = self.build.compile(mutant, work)
            if not made:
                mutant.result = "does not compile"
                return mutant
            for target in self.order(mutant.fault.path):
                program = self.build.link(target, made, work, *self.options)
                mutant.by += self.run(target, program)
                os.unlink(program)
                if mutant.by and (not self.sole or len(mutant.by) > 1):
                    break
            mutant.result = "noticed" if mutant.by else "equivalent" if self.same_code(mutant, work) else "survived"
        return mutant

    def same_code(self, mutant, work):
        """True if the optimiser makes the same of the file with the fault and without."""
        def bytes_of(candidate):
            made = self.build.compile(candidate, work, plain=True)
            return open(made, "rb").read() if made else None
        with_fault = bytes_of(mutant)
        original = Mutant(mutant.fault._replace(end=mutant.fault.start, text=""))
        return with_fault is not None and with_fault == bytes_of(original)


def draw(faults, wanted, pool, judge, say):
    """Tries faults in the order given until `wanted` of them count, a few at a time."""
    counted, waiting = [], iter(faults)
    running = set()
    while True:
        while len(running) + len(counted) < wanted:
            fault = next(waiting, None)
            if fault is None:
                break
            running.add(pool.submit(judge, Mutant(fault)))
        if not running:
            return counted
        done, running = concurrent.futures.wait(running, return_when=concurrent.futures.FIRST_COMPLETED)
        for task in done:
            mutant = task.result()
            if mutant.result in ("noticed", "survived"):
                counted.append(mutant)
            say(mutant)


def native(options):
    tester = Native(options.sole)
    sources = defaultdict(list)
    for folder in sorted(os.listdir(os.path.join(ROOT, "src"))):
        directory = os.path.join(ROOT, "src", folder)
        if folder != "platform" and os.path.isdir(directory):
            sources[folder] = [f"src/{folder}/{name}" for name in sorted(os.listdir(directory))
                               if name.endswith(".cpp") and name != "main.cpp"]
    if options.file:
        sources = {options.file.split("/")[1]: [options.file]}
    elif options.folder:
        sources = {name: sources[name] for name in options.folder}

    def say(mutant):
        if mutant.result == "survived":
            print(mutant, flush=True)
        elif options.verbose:
            print(f"{mutant.result} {mutant.by}: {mutant}", flush=True)

    results, start = {}, time.monotonic()
    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        for folder, paths in sources.items():
            faults = [fault for path in paths for fault in faults_of(path)]
            random.Random(f"{options.seed} {folder}").shuffle(faults)
            results[folder] = draw(faults, options.sample, pool, tester.judge, say)
    print(f"\nseed {options.seed}, {time.monotonic() - start:.0f} s\n\n| Folder of `src/` | Noticed |\n|---|---|")
    for folder, mutants in results.items():
        noticed = sum(mutant.result == "noticed" for mutant in mutants)
        print(f"| `{folder}` | {noticed} of {len(mutants)} |")
    everything = [mutant for mutants in results.values() for mutant in mutants]
    print(f"| together | {sum(mutant.result == 'noticed' for mutant in everything)} of {len(everything)} |")
    if options.sole:
        alone = Counter(mutant.by[0] for mutant in everything if len(mutant.by) == 1)
        print("\nTests that alone notice a fault:")
        for name, count in alone.most_common():
            print(f"{count:4} {name}")
    return all(sum(mutant.result == "noticed" for mutant in mutants) >= GOAL * len(mutants)
               for mutants in results.values())


# ---- Under Wine -----------------------------------------------------------------------------------------------------

class UnderWine:
    """Tries faults of platform/win32 in the contract, handle and desktop tests of the 64-bit build."""

    def __init__(self):
        self.build = Build("win64")

    def passes(self, program, *arguments):
        done = subprocess.run([os.path.join(ROOT, "tools", "under-wine.sh"), program, *arguments, "--abort-after=1"],
                              capture_output=True, check=False, cwd=ROOT, env=dict(os.environ, BED_TIMEOUT="400"))
        return done.returncode == 0

    def judge(self, mutant):
        """Fills in `result` and `by`."""
        with tempfile.TemporaryDirectory(prefix="mutant", dir=os.path.join(ROOT, "build")) as work:
            made = self.build.compile(mutant, work)
            if not made:
                mutant.result = "does not compile"
                return mutant
            mutant.result = "survived"
            tests = os.path.join(self.build.folder, "tests")
            for helper in ("Victim.exe", "Teller.exe"):
                shutil.copy(os.path.join(tests, "contract", helper), work)
            product = os.path.join(work, "product")
            shutil.copytree(os.path.join(ROOT, "dist", "win64"), product)
            trials = [("contract", ()), ("handles", ()), ("desktop", ("Z:" + product,))]
            for name, arguments in trials:
                if name == "desktop":
                    for target in ("Kestrum2", "Kestrum_Jr"):
                        os.replace(self.build.link(target + ".exe", made, work), os.path.join(product, target + ".exe"))
                    program = os.path.join(tests, "desktop", "desktop.exe")
                else:
                    program = self.build.link(name + ".exe", made, work)
                if not self.passes(program, *arguments):
                    mutant.result, mutant.by = "noticed", [name]
                    break
        return mutant


def under_wine(options):
    """The list holds `file | line | line with the fault | reason why nothing can notice it, or empty`."""
    mutants, reasons = [], {}
    with open(os.path.join(LISTS, "mutants-win32.txt"), encoding="utf-8") as file:
        rows = [line.rstrip("\n").split(" | ") for line in file if line.strip() and not line.startswith("#")]
    for path, before, after, *reason in rows:
        path = "src/platform/win32/" + path
        with open(os.path.join(ROOT, path), encoding="utf-8") as file:
            at = file.read().find(before)
        if at < 0:
            sys.exit(f"mutants: {path} has no line `{before}`; bring mutants-win32.txt up to date")
        mutants.append(Mutant(Fault(path, "fault", at, at + len(before), after)))
        reasons[id(mutants[-1])] = reason[0] if reason else ""
    tester = UnderWine()
    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        for mutant in pool.map(tester.judge, mutants):
            print(f"{mutant.result} {' '.join(mutant.by)}: {mutant}", flush=True)
            if mutant.result != "noticed" and reasons[id(mutant)]:
                print(f"    {reasons[id(mutant)]}")
    noticed = sum(mutant.result == "noticed" for mutant in mutants)
    explained = sum(mutant.result != "noticed" and bool(reasons[id(mutant)]) for mutant in mutants)
    print(f"\n{noticed} of {len(mutants)} noticed; {explained} cannot be.")
    return noticed + explained == len(mutants)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--folder", action="append", help="a folder of src/; may be given several times")
    parser.add_argument("--file", help="one source file")
    parser.add_argument("--seed", default="1", help="another seed draws other faults")
    parser.add_argument("--sample", type=int, default=40, help="faults for each folder")
    parser.add_argument("--sole", action="store_true", help="list the tests that alone notice a fault (takes longer)")
    parser.add_argument("--win32", action="store_true", help="the listed faults of platform/win32, under Wine")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    parser.add_argument("--verbose", action="store_true", help="print every fault with what noticed it")
    options = parser.parse_args()
    sys.exit(0 if (under_wine if options.win32 else native)(options) else 1)


if __name__ == "__main__":
    main()
