"""Reads what check-programs.py asks of a Windows program file. Offsets are kept, so that a self test can doctor one."""
import struct

MACHINES = {0x014C: 32, 0x8664: 64}
MANIFEST, VERSION, GROUP_ICON = 24, 16, 14


class Section:
    def __init__(self, data, at):
        self.name = data[at:at + 8].rstrip(b"\0").decode("latin-1")
        self.size, self.address, self.raw_size, self.raw = struct.unpack_from("<4I", data, at + 8)
        self.flags_at = at + 36
        flags = struct.unpack_from("<I", data, self.flags_at)[0]
        self.executable, self.writable = bool(flags & 0x20000000), bool(flags & 0x80000000)


class Image:
    """The headers and directories of the program in `data` (bytes). ValueError when it is none."""

    def __init__(self, data):
        self.data = data
        try:
            self._read_headers()
        except struct.error as error:
            raise ValueError("cut off") from error

    def _read_headers(self):
        data = self.data
        pe = self.u32(0x3C)
        if data[:2] != b"MZ" or data[pe:pe + 4] != b"PE\0\0":
            raise ValueError("not a Windows program")
        machine, sections, self.timestamp, _, _, optional_size, self.characteristics = struct.unpack_from(
            "<HHIIIHH", data, pe + 4)
        if machine not in MACHINES:
            raise ValueError(f"machine {machine:#x}")
        self.bits = MACHINES[machine]
        self.timestamp_at, self.characteristics_at = pe + 8, pe + 22
        self.optional = optional = pe + 24
        wide = self.bits == 64
        self.entry = self.u32(optional + 16)
        self.base = struct.unpack_from("<Q", data, optional + 24)[0] if wide else self.u32(optional + 28)
        self.os_version = struct.unpack_from("<HH", data, optional + 40)
        self.subsystem_version = struct.unpack_from("<HH", data, optional + 48)
        self.size = self.u32(optional + 56)
        self.checksum = self.u32(optional + 64)
        self.subsystem, self.dll_flags = struct.unpack_from("<HH", data, optional + 68)
        self.directories_at = optional + (112 if wide else 96)
        count = self.u32(self.directories_at - 4)
        self.directories = [struct.unpack_from("<II", data, self.directories_at + 8 * n) for n in range(count)]
        self.sections = [Section(data, optional + optional_size + 40 * n) for n in range(sections)]

    def u16(self, at):
        return struct.unpack_from("<H", self.data, at)[0]

    def u32(self, at):
        return struct.unpack_from("<I", self.data, at)[0]

    def directory(self, number):
        return self.directories[number] if number < len(self.directories) else (0, 0)

    def at(self, address):
        """The place in the file of what is loaded at `address` (relative to the base)."""
        for section in self.sections:
            if section.address <= address < section.address + section.raw_size:
                return address - section.address + section.raw
        raise ValueError(f"nothing in the file for address {address:#x}")

    def section_of(self, address):
        return next((s for s in self.sections if s.address <= address < s.address + max(s.size, s.raw_size)), None)

    def text(self, at):
        return self.data[at:self.data.index(b"\0", at)].decode("latin-1")

    def imports(self):
        """(library, function) of each import; the function is "#NUMBER" where it is asked for by number."""
        start, _ = self.directory(1)
        entry, width = (self.at(start) if start else 0), self.bits // 8
        while start and self.u32(entry + 12):
            library = self.text(self.at(self.u32(entry + 12)))
            thunk = self.at(self.u32(entry) or self.u32(entry + 16))
            while value := int.from_bytes(self.data[thunk:thunk + width], "little"):
                by_number = value >> (self.bits - 1)
                yield library, f"#{value & 0xFFFF}" if by_number else self.text(self.at(value) + 2)
                thunk += width
            entry += 20

    def relocations(self):
        """The address of each pointer that is corrected when the program is loaded elsewhere."""
        start, size = self.directory(5)
        block = self.at(start) if start else 0
        end = block + size
        while block < end and self.u32(block + 4) >= 8:
            page, length = self.u32(block), self.u32(block + 4)
            for at in range(block + 8, block + length, 2):
                if self.u16(at) >> 12 in (3, 10):
                    yield page + (self.u16(at) & 0xFFF)
            block += length

    def resources(self, kind):
        """(bytes, offset in the file) of each resource of `kind`."""
        start, _ = self.directory(2)
        if start:
            root = self.at(start)
            for name, is_table, below in self._resource_entries(root, root):
                if name == kind and is_table:
                    yield from self._resource_leaves(root, below)

    def _resource_entries(self, root, table):
        for n in range(self.u16(table + 12) + self.u16(table + 14)):
            name, below = struct.unpack_from("<II", self.data, table + 16 + 8 * n)
            yield name, bool(below >> 31), root + (below & 0x7FFFFFFF)

    def _resource_leaves(self, root, table):
        for _, is_table, below in self._resource_entries(root, table):
            if is_table:
                yield from self._resource_leaves(root, below)
            else:
                address, size = struct.unpack_from("<II", self.data, below)
                at = self.at(address)
                yield self.data[at:at + size], at

    def right_checksum(self):
        """The sum that the header should hold."""
        data = bytearray(self.data)
        data[self.optional + 64:self.optional + 68] = bytes(4)
        data += bytes(-len(data) % 2)
        total = sum(struct.unpack(f"<{len(data) // 2}H", data))
        while total >> 16:
            total = (total & 0xFFFF) + (total >> 16)
        return total + len(self.data)
