#!/usr/bin/env python3
"""Checks what Windows and its users may expect of the programs in dist/win64 and dist/win32: protections switched on,
nothing asked of the system that Windows XP lacks, no library that could be planted beside the program, manifest and
version information, the same bytes from the same sources. Prints each finding as FILE: TEXT; exit code 1 when there is
one, 77 when the programs are not built (1 with KESTRUM_ALL=1). `--self-test` doctors a program once for each rule."""
import os
import re
import struct
import sys
import xml.etree.ElementTree as ElementTree

sys.dont_write_bytecode = True
from peimage import GROUP_ICON, MANIFEST, VERSION, Image  # noqa: E402

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
PROGRAMS = {"Kestrum2.exe": 1024 * 1024, "Kestrum_Jr.exe": 400 * 1024}  # and the most bytes they may have
FOLDERS = {"win64": 64, "win32": 32}
ICON_SIZES = {"Kestrum2.exe": {16, 20, 24, 32, 48, 64, 128, 256}, "Kestrum_Jr.exe": {16, 20, 24, 32, 48}}
LEAST_WINDOWS = {32: (5, 1), 64: (5, 2)}  # XP; XP x64

# Windows loads these from its own folder on every version since XP, whatever lies beside the program: the known
# libraries with what they depend on, and the controls, which the manifest binds to the side-by-side store.
SAFE = {"advapi32.dll", "comctl32.dll", "comdlg32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll", "ole32.dll",
        "shell32.dll", "user32.dll"}

SYSTEMS = {"{e2011457-1546-43c5-a5fe-008deee3d3f0}": "Vista", "{35138b9a-5d96-4fbd-8e2d-a2440225f93a}": "7",
           "{4a2f28e3-53b9-4441-ba9c-d69d4a4a6e38}": "8", "{1f676c76-80e1-4239-95bb-83d0f6d0da78}": "8.1",
           "{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}": "10 and 11"}
SETTINGS = {"dpiAware": "false", "gdiScaling": "true", "activeCodePage": "UTF-8"}


def read(*path, mode="r"):
    with open(os.path.join(ROOT, *path), mode) as file:
        return file.read()


def xp_functions(bits):
    """The pairs of the list for programs of so many bits."""
    lines = (line.split() for line in read("tests", "packaging", "xp-imports.txt").splitlines() if line[:1] != "#")
    return {tuple(words[0].split("!")) for words in lines if bits == 64 or len(words) == 1}


def product_version():
    return re.search(r"^project\(.* VERSION ([\d.]+)", read("CMakeLists.txt"), re.M).group(1)


def check_protection(image):
    for flag, name in ((0x40, "dynamic base"), (0x100, "no-execute"), (0x8000, "terminal server")) + (
            ((0x20, "high-entropy"),) if image.bits == 64 else ()):
        if not image.dll_flags & flag:
            yield f"the {name} flag is missing"
    if image.bits == 64 and not image.characteristics & 0x20:
        yield "not aware of large addresses"
    pointers = list(image.relocations())
    if image.characteristics & 1 or not pointers:
        yield "no relocations: it can't be loaded at random addresses"
    width = image.bits // 8
    for pointer in pointers:
        at = image.at(pointer)
        if not 0 <= int.from_bytes(image.data[at:at + width], "little") - image.base < image.size:
            yield f"the relocation at {pointer:#x} is of something that is no pointer"
            break
    for section in image.sections:
        if section.executable and section.writable:
            yield f"section {section.name} is writable and executable"
    entry = image.section_of(image.entry)
    if entry is None or not entry.executable:
        yield "the entry point lies outside the code"


def check_loading(image):
    least = LEAST_WINDOWS[image.bits]
    for what, version in (("system", image.os_version), ("subsystem", image.subsystem_version)):
        if version != least:
            yield f"{what} version {version[0]}.{version[1]}, not {least[0]}.{least[1]}"
    if image.subsystem != 2:
        yield "opens a console"
    if image.directory(13)[1]:
        yield "loads libraries late, and looks for them beside the program"
    known = xp_functions(image.bits)
    for library, function in sorted(set(image.imports())):
        if library.lower() not in SAFE:
            yield f"{library} may be planted beside the program, or is none of Windows' own"
        elif function.startswith("#"):
            yield f"{library}: {function} is asked for by number"
        elif (library.lower(), function) not in known:
            yield f"{library}!{function} is not known to exist on Windows XP"


def check_manifest(image):
    manifests = [data for data, _ in image.resources(MANIFEST)]
    if len(manifests) != 1:
        yield f"{len(manifests)} manifests"
        return
    elements = list(ElementTree.fromstring(manifests[0]).iter())
    named = {element.tag.split("}")[1]: element for element in elements}
    level = named.get("requestedExecutionLevel")
    if level is None or level.attrib != {"level": "asInvoker", "uiAccess": "false"}:
        yield "the manifest asks for other rights than those of the caller"
    systems = {element.get("Id") for element in elements if element.tag.endswith("supportedOS")}
    for identity, name in SYSTEMS.items():
        if identity not in systems:
            yield f"the manifest does not name Windows {name}"
    for name, value in SETTINGS.items():
        if name not in named or named[name].text != value:
            yield f"the manifest does not set {name} to {value}"
    if not any(element.get("name") == "Microsoft.Windows.Common-Controls" for element in elements):
        yield "the manifest does not bind the controls to the side-by-side store"


def check_version(image, name):
    blocks = [data for data, _ in image.resources(VERSION)]
    if len(blocks) != 1:
        yield f"{len(blocks)} blocks of version information"
        return
    numbers = tuple(int(part) for part in product_version().split(".")) + (0,)
    fixed = blocks[0].find(struct.pack("<I", 0xFEEF04BD))
    high, low, product_high, product_low = struct.unpack_from("<4I", blocks[0], fixed + 8)
    for what, pair in (("file", (high, low)), ("product", (product_high, product_low))):
        found = (pair[0] >> 16, pair[0] & 0xFFFF, pair[1] >> 16, pair[1] & 0xFFFF)
        if found != numbers:
            yield f"{what} version {found}, not {numbers}"
    version = ".".join(map(str, numbers))
    for key, value in (("FileVersion", version), ("ProductVersion", version), ("OriginalFilename", name),
                       ("CompanyName", "Morvell Software"), ("ProductName", "Kestrum 2"), ("FileDescription", None)):
        text = (key + "\0").encode("utf-16-le") + (b"\0\0" if len(key) % 2 else b"")
        at = blocks[0].find(text) + len(text)
        shown = blocks[0][at:].decode("utf-16-le", "replace").split("\0")[0] if at >= len(text) else ""
        if not shown or value not in (None, shown):
            yield f"the version information has {key} '{shown}'"


def check_bytes(image, name):
    if image.timestamp:
        yield "holds the time of the build"
    if image.directory(6)[1]:
        yield "holds debug information"
    if image.checksum != image.right_checksum():
        yield "the checksum is wrong"
    if ROOT.encode() in image.data:
        yield "holds a path of the machine it was built on"
    if len(image.data) >= PROGRAMS[name]:
        yield f"{len(image.data)} bytes, should be below {PROGRAMS[name]}"
    icons = [data for data, _ in image.resources(GROUP_ICON)]
    # The first is the program's. Six bytes of header, fourteen for each picture; a width of 0 is 256.
    sizes = {icons[0][at] or 256 for at in range(6, len(icons[0]), 14)} if icons else set()
    if missing := ICON_SIZES[name] - sizes:
        yield f"the icon lacks the sizes {sorted(missing)}"


def check_program(data, name, bits):
    """Findings of the program `name` with the bytes `data`, which should be one of so many bits."""
    try:
        image = Image(data)
        if image.bits != bits:
            return [f"is a {image.bits}-bit program"]
        return [*check_protection(image), *check_loading(image), *check_manifest(image), *check_version(image, name),
                *check_bytes(image, name)]
    except (ValueError, struct.error, ElementTree.ParseError) as error:
        return [f"can't be read: {error}"]


def check_all():
    findings = []
    for folder, bits in FOLDERS.items():
        for name in PROGRAMS:
            found = check_program(read("dist", folder, name, mode="rb"), name, bits)
            findings += [f"dist/{folder}/{name}: {text}" for text in found]
    return findings


def patched(data, at, form, *values):
    new = struct.pack("<" + form, *values)
    return data[:at] + new + data[at + len(new):]


def replaced(data, old, new):
    assert old in data, f"{old!r} is not in the program"
    return data.replace(old, new.ljust(len(old), b"\0"))


def wide(text):
    return text.encode("utf-16-le")


def doctored_headers(image):
    """(a part of the finding that has to come, the program with what deserves it in its headers)."""
    data, optional, entries = image.data, image.optional, image.directories_at
    code, other = image.sections[0], image.sections[1]

    def without(flag):
        return patched(data, optional + 70, "H", image.dll_flags & ~flag)

    yield "dynamic base", without(0x40)
    yield "no-execute", without(0x100)
    yield "terminal server", without(0x8000)
    if image.bits == 64:
        yield "high-entropy", without(0x20)
        yield "large addresses", patched(data, image.characteristics_at, "H", image.characteristics & ~0x20)
    yield "no relocations", patched(data, image.characteristics_at, "H", image.characteristics | 1)
    yield "no relocations", patched(data, entries + 8 * 5, "Q", 0)
    yield "no pointer", patched(data, image.at(next(image.relocations())), "I" if image.bits == 32 else "Q", 0)
    yield "writable and executable", patched(data, code.flags_at, "I", 0xE0000020)
    yield "outside the code", patched(data, optional + 16, "I", other.address)
    yield "system version 6.0", patched(data, optional + 40, "HH", 6, 0)
    yield "subsystem version 6.0", patched(data, optional + 48, "HH", 6, 0)
    yield "console", patched(data, optional + 68, "H", 3)
    yield "loads libraries late", patched(data, entries + 8 * 13, "II", code.address, 64)
    yield "time of the build", patched(data, image.timestamp_at, "I", 1)
    yield "debug information", patched(data, entries + 8 * 6, "II", code.address, 28)
    yield "checksum", patched(data, optional + 64, "I", image.checksum ^ 1)


def doctored_contents(image):
    """The same with what stands in the sections and beyond them."""
    data, signature = image.data, image.data.find(struct.pack("<I", 0xFEEF04BD))
    start = image.at(image.directory(1)[0])
    first_thunk = image.at(image.u32(start) or image.u32(start + 16))
    yield "evil.dll may be planted", replaced(data, b"USER32.dll\0", b"evil.dll")
    yield "GetTickCount64 is not known", replaced(data, b"GetSystemTimeAsFileTime\0", b"GetTickCount64")
    yield "by number", patched(data, first_thunk, *(("I", 7 | 1 << 31) if image.bits == 32 else ("Q", 7 | 1 << 63)))
    yield "other rights", replaced(data, b"asInvoker", b"asAdminis")
    yield "Windows 10", replaced(data, b"{8e0f7a12", b"{00000000")
    yield "activeCodePage", replaced(data, b">UTF-8</activeCodePage>", b">UTF-9</activeCodePage>")
    yield "side-by-side", replaced(data, b"Windows.Common-Controls", b"Windows.Common-Buttons1")
    yield "0 manifests", without_kind(image, MANIFEST)
    yield "0 blocks", without_kind(image, VERSION)
    yield "lacks the sizes [16, 20", without_kind(image, GROUP_ICON)
    yield "file version", patched(data, signature + 8, "I", 0x00090000)
    yield "product version", patched(data, signature + 16, "I", 0x00090000)
    yield "CompanyName ''", replaced(data, wide("Morvell Software"), b"")
    yield "OriginalFilename", replaced(data, wide(".exe"), wide(".com"))
    yield "path of the machine", data + ROOT.encode()
    yield "should be below", data + bytes(max(PROGRAMS.values()))
    yield "can't be read", data[:200]
    yield "can't be read", b"#!/bin/sh\n" + data[10:]


def without_kind(image, kind):
    """The program with its resources of `kind` called something else."""
    root = image.at(image.directory(2)[0])
    for at in range(root + 16, root + 16 + 8 * (image.u16(root + 12) + image.u16(root + 14)), 8):
        if image.u32(at) == kind:
            return image.data[:at] + struct.pack("<I", 99) + image.data[at + 4:]
    raise ValueError(f"no resources of kind {kind}")


def self_test():
    for folder, bits in FOLDERS.items():
        data = read("dist", folder, "Kestrum2.exe", mode="rb")
        before = check_program(data, "Kestrum2.exe", bits)
        image = Image(data)
        for expected, copy in (*doctored_headers(image), *doctored_contents(image)):
            found = [text for text in check_program(copy, "Kestrum2.exe", bits) if text not in before]
            assert any(expected in text for text in found), f"{folder}: '{expected}' not caught, only {found}"
        assert check_program(data, "Kestrum2.exe", 96 - bits) == [f"is a {bits}-bit program"]


if __name__ == "__main__":
    not_built = [f"dist/{folder}/{name}" for folder in FOLDERS for name in PROGRAMS
                 if not os.path.exists(os.path.join(ROOT, "dist", folder, name))]
    if not_built:
        print("not built:", *not_built)
        sys.exit(1 if os.environ.get("KESTRUM_ALL") == "1" else 77)
    if sys.argv[1:] == ["--self-test"]:
        self_test()
        sys.exit(0)
    all_findings = check_all()
    print("\n".join(all_findings) if all_findings else "programs: no findings")
    sys.exit(1 if all_findings else 0)
