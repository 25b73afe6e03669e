#!/usr/bin/env python3
"""Checks what no compiler checks: the layering of src/, Windows staying below the platform seam, headers that
compile alone, formatting, paths of a developer's machine, a help page that needs nothing else and leaves no option
out. Prints each finding as FILE:LINE: TEXT; exit code 1 when there is one. `--self-test` proves that each rule
catches its violation."""
import html
import os
import re
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))

# Which folders of src/ a folder may include from, besides itself.
LOWER = {"platform": [], "text": ["platform"]}
LOWER["storage"] = LOWER["process"] = LOWER["controls"] = ["platform", "text"]
LOWER["settings"] = ["platform", "text", "storage", "process", "controls"]
LOWER["favorites"] = LOWER["filter"] = LOWER["graphs"] = LOWER["tray"] = LOWER["settings"] + ["settings"]
LOWER["app"] = LOWER["favorites"] + ["favorites", "filter", "graphs", "tray"]
LOWER["jr"] = LOWER["favorites"] + ["favorites", "tray"]  # a program of its own, beside app

WINDOWS = re.compile(r"windows\.h|winuser\.h|commctrl\.h|shellapi\.h|psapi\.h|\b(HWND|HINSTANCE|HDC|HANDLE|_WIN32|WIN32|"
                     r"wchar_t|wstring|DWORD|LPARAM|WPARAM)\b|\b(unsigned )?long\b(?! name)")
CONDITION = re.compile(r"^\s*#\s*(if|ifdef|ifndef|elif)\b")
HEAVY = re.compile(r"#\s*include\s*<(iostream|fstream|sstream|iomanip|filesystem|locale|thread|mutex|future|"
                   r"condition_variable|regex|format)>")
INCLUDE = re.compile(r'#\s*include\s*"([^"/]+)/([^"]*)"')
BARE_INCLUDE = re.compile(r'#\s*include\s*"([^"/]+)"')
MACHINE_PATH = re.compile(r"(?<![\w.$}])/(work|root|tmp|home)/")
LITERALS = re.compile(r'"(?:\\.|[^"\\])*"')


def code_lines(text):
    """The lines of a C++ text with comments blanked; includes keep their names, other literals do not."""
    text = re.sub(r"/\*.*?\*/", lambda m: "\n" * m.group().count("\n"), text, flags=re.S)
    for line in text.split("\n"):
        if not re.match(r"\s*#\s*include", line):
            line = LITERALS.sub('""', line)
        yield re.sub(r"//.*", "", line)


def check_source(name, text):
    """Findings of one file of src/, `name` relative to src/."""
    folder = name.split("/")[0]
    mechanism = name.startswith(("platform/win32/", "platform/sim/"))
    found = []
    for number, line in enumerate(code_lines(text), 1):
        def report(what):
            found.append(f"src/{name}:{number}: {what}")
        if not name.startswith("platform/win32/") and (match := WINDOWS.search(line)):
            report(f"'{match.group()}' belongs below the platform seam")
        if not mechanism and CONDITION.match(line):
            report("conditional compilation belongs below the platform seam")
        if match := HEAVY.search(line):
            report(f"<{match.group(1)}> makes the program large or reaches past the systems it runs on")
        if match := INCLUDE.search(line):
            target, rest = match.groups()
            if target != folder and target not in LOWER.get(folder, []):
                report(f"{folder} must not include from {target}")
            if not mechanism and target == "platform" and rest.startswith(("win32/", "sim/")):
                report("only the seam's headers may be included from platform/")
        if BARE_INCLUDE.search(line):
            report("includes name their folder")
    if name.endswith(".h") and "#pragma once" not in text:
        found.append(f"src/{name}:1: no #pragma once")
    return found


def check_paths(name, text):
    return [f"{name}:{number}: path of a developer's machine"
            for number, line in enumerate(text.split("\n"), 1) if MACHINE_PATH.search(line)]


def option_captions(table):
    """The captions of the options table: the second text of each of its rows."""
    return re.findall(r'^ *\{Option::\w+,[^"]*"\w+", "([^"]+)"', table, flags=re.M)


def check_help(text, captions, version):
    """Findings of the help page: what it would fetch from elsewhere, options it does not tell of, another version."""
    name, found = "assets/Help.htm", []
    for number, line in enumerate(text.split("\n"), 1):
        if re.search(r"https?:|\bsrc\s*=\s*(?![\"']data:)|url\(|@import|<link|<script", line, flags=re.I):
            found.append(f"{name}:{number}: refers to something outside itself")
    words = " ".join(html.unescape(re.sub(r"<style.*?</style>|<[^>]*>", "", text, flags=re.S)).split())
    found += [f"{name}:1: nothing about the option '{caption}'" for caption in captions if caption not in words]
    if f"Version {version} " not in words:
        found.append(f"{name}:1: is not of version {version}")
    anchors = set(re.findall(r'\bid="([^"]*)"', text))
    return found + [f"{name}:1: no section '{target}'" for target in re.findall(r'href="#([^"]*)"', text)
                    if target not in anchors]


def files(folder, endings):
    for path, folders, names in os.walk(os.path.join(ROOT, folder)):
        folders[:] = [f for f in folders if f != "corpus"]
        for name in sorted(names):
            if name.endswith(endings):
                yield os.path.relpath(os.path.join(path, name), ROOT)


def read(name):
    with open(os.path.join(ROOT, name), encoding="utf-8") as file:
        return file.read()


def check_headers(headers):
    """Compiles headers one by one, each as the only content of a source; two compilers at a time."""
    def compile_one(header):
        native = not header.startswith("platform/win32/")
        compiler = "g++" if native else "x86_64-w64-mingw32-g++-win32"
        done = subprocess.run([compiler, "-std=c++20", "-Wall", "-Wextra", "-fsyntax-only", "-x", "c++",
                               "-I", os.path.join(ROOT, "src"), "-"],
                              input=f'#include "{header}"\n', capture_output=True, text=True)
        return [] if done.returncode == 0 else [f"src/{header}:1: does not compile alone\n{done.stderr[:600]}"]
    with ThreadPoolExecutor(2) as pool:
        return sum(pool.map(compile_one, headers), [])


def check_format():
    names = [n for folder in ("src", "tests", "bench", "fuzz", "tools") for n in files(folder, (".h", ".cpp"))]
    done = subprocess.run(["clang-format", "--dry-run", "-Werror", *names], cwd=ROOT, capture_output=True, text=True)
    return [line for line in done.stderr.split("\n") if "error:" in line]


def check_all():
    found = []
    sources = [n.removeprefix("src/") for n in files("src", (".h", ".cpp"))]
    for name in sources:
        found += check_source(name, read("src/" + name))
    for folder, endings in (("src", (".h", ".cpp", ".txt")), ("docs", (".md",)), ("tests", (".h", ".cpp", ".txt")),
                            ("assets", (".py", ".rc", ".svg", ".htm"))):
        for name in files(folder, endings):
            found += check_paths(name, read(name))
    captions = option_captions(read("src/settings/OptionsTable.cpp"))
    version = re.search(r"^project\(.* VERSION ([\d.]+)", read("CMakeLists.txt"), re.M).group(1)
    found += check_help(read("assets/Help.htm"), captions, version) if captions else ["src/settings: no options found"]
    found += check_headers([n for n in sources if n.endswith(".h")])
    return found + check_format()


def self_test():
    """Each pair: a line that has to be found, and its twin that must not be."""
    cases = [
        ("process/A.cpp", "#include <windows.h>", '#include "platform/Process.h"  // as windows.h has it'),
        ("app/A.cpp", "HWND window;", 'Say("HWND");'),
        ("text/A.cpp", "unsigned long n;", "std::uint32_t n;  // a long time"),
        ("text/A.cpp", "#ifdef NDEBUG", "// #ifdef NDEBUG"),
        ("controls/A.cpp", '#include "settings/Settings.h"', '#include "text/Format.h"'),
        ("process/A.cpp", '#include "controls/UcList1.h"', '#include "process/Snapshot.h"'),
        ("app/A.cpp", '#include "platform/sim/Sim.h"', '#include "tray/Tray.h"'),
        ("app/A.cpp", "#include <iostream>", "#include <string>"),
        ("app/A.cpp", '#include "Form1.h"', '#include "app/Form1.h"'),
    ]
    for name, bad, good in cases:
        assert len(check_source(name, bad)) == 1, f"not caught: {bad}"
        assert check_source(name, good) == [], f"caught wrongly: {good}"
    assert check_source("platform/win32/A.cpp", "HWND window;\n#ifdef _WIN64") == []
    assert len(check_source("text/A.h", "int F();")) == 1, "missing #pragma once not caught"
    assert len(check_paths("docs/a.md", "see /home/me/x")) == 1 and check_paths("docs/a.md", "build/tmp/x") == []
    captions = option_captions('  {Option::A, kMisc, 0, 0, kCheck, "A", "Show &", kNoKey, kNone,\n   "Tip", "Text"},\n'
                               '  {Option::B, kBelow, -1, -1, kButton, "B", "Stay", kNoKey, kNone,')
    assert captions == ["Show &", "Stay"], captions
    page = 'Version 2.1 <b>Show\n&amp;</b> Stay <a href="#a" id="a"><img src="data:image/png;base64,aa">'
    assert check_help(page, captions, "2.1") == [], "a good help page caught"
    for bad in (page + '<img src="a.png">', page + "<a href='http://a'>", page.replace("Stay", "<i id='Stay'>"),
                page.replace("#a", "#b"), page.replace("2.1", "2.10")):
        assert len(check_help(bad, captions, "2.1")) == 1, f"not caught: {bad}"
    with tempfile.NamedTemporaryFile("w", suffix=".h", dir=os.path.join(ROOT, "build")) as header:
        header.write("std::string Lost();\n")
        header.flush()
        assert len(check_headers([header.name])) == 1, "a header that lacks an include not caught"


if __name__ == "__main__":
    if sys.argv[1:] == ["--self-test"]:
        self_test()
        sys.exit(0)
    findings = check_all()
    print("\n".join(findings) if findings else "sources: no findings")
    sys.exit(1 if findings else 0)
