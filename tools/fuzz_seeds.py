#!/usr/bin/env python3
"""Makes the first inputs of the fuzz targets that take an input apart into numbers.

usage: tools/fuzz_seeds.py FOLDER

Writes FOLDER/TARGET/NAME for each. fuzz/fuzz_input.h reads them; the order of the fields is that in
which each target asks for them.
"""
import os
import struct
import sys


def text(value):
    return bytes([len(value)]) + value


def wave(count, step):
    """A saw of 16-bit samples."""
    return b"".join(struct.pack("<h", i * step % 20000 - 10000) for i in range(count))


def analysis():
    shape = bytes([7, 31, 31, 1])
    fields = [(0, b"")] + [
        (index, bits)
        for index in range(86)
        for bits in (struct.pack("<i", -1), struct.pack("<d", 1e300), struct.pack("<i", 2**31 - 1))
    ]
    for index, bits in fields[::7]:
        changes = bytes([1, index]) + bits if bits else bytes([0])
        yield f"field{index}-{bits[:1].hex()}", shape + b"\0" + changes + bytes([1]) + struct.pack(
            "<H", 4000
        ) + wave(100, 997)


def edits():
    start = bytes([3, 40]) + bytes(range(41))
    place = lambda sample: struct.pack("<H", sample)
    select = lambda a, b: bytes([0]) + place(a) + place(b)
    mark = lambda a: bytes([1]) + place(a)
    add = lambda ms, tier: bytes([9]) + place(ms) + bytes([tier, 4])
    turn = lambda tier: bytes([12, tier])
    copy, cut, paste, clear, smooth, undo = (bytes([c]) for c in (2, 3, 4, 5, 7, 8))
    gain = bytes([6, 15]) + struct.pack("<h", 300)
    yield "cut-paste", start + turn(0) + add(5, 0) + add(20, 0) + select(3, 10) + cut + mark(8) + paste + undo
    yield "clear-gain", start + select(30, 3) + clear + gain + smooth + undo + undo
    yield "tiers", start + turn(0) + add(7, 0) + select(0, 9) + copy + turn(0) + mark(20) + paste + undo
    yield "labels", start + turn(1) + add(7, 1) + bytes([11, 1, 0]) + place(9) + bytes([10, 1, 0]) + undo
    yield "at-label", start + turn(0) + add(5, 0) + add(10, 0) + select(5, 10) + copy + mark(5) + paste + cut
    yield "edges", start + turn(0) + add(3, 0) + add(4, 0) + add(9, 0) + add(10, 0) + select(4, 9) + cut + undo
    yield "reversed", start + select(9, 4) + copy + mark(41) + paste + paste + select(2, 50) + paste
    yield "all", start + select(0, 41) + cut + copy + paste + undo


def selection():
    for disk in (0, 1):
        for first, last in ((0, 65535), (9000, 30000), (30000, 30001)):
            labels = b"".join(struct.pack("<HB", at, at % 3) + text(b"ab\xc3\xa9") for at in (0, 9000, 30000))
            yield f"part-{disk}-{first}", bytes([disk, 0]) + struct.pack(
                "<HHHB", 40000, first, last, 3
            ) + labels + struct.pack("<H", 300) + wave(301, 77)


def writers():
    numbers = (0.0, -0.0, 1e308, 5e-324, float("inf"), float("nan"), 0.1)
    texts = (b"a", b'"\\\n\t', b"\xe4\x80", "aɪ\u0085\u2028😀".encode(), b"\xed\xa0\x80", b"\xc2", bytes(range(32)))
    for i, (number, label) in enumerate(zip(numbers, texts)):
        yield f"line{i}", struct.pack("<dq", number, -(2**63) + i) + text(label) + text(texts[-1 - i])


def macintosh(magic):
    """A native file with its high bytes first: one tier of two labels, 20 samples."""
    header = magic.ljust(8, b"\0") + struct.pack(">I", 1)
    channel = bytearray(248)
    struct.pack_into(">4d", channel, 0, 2.5, 8000.0, 20.0, 0.0)
    struct.pack_into(">2I", channel, 64, 0, 16)
    struct.pack_into(">i", channel, 92, 1)
    tier = b"words".ljust(256, b"\0") + struct.pack(">2i", 2, 20)
    labels = b"".join(
        struct.pack(">2d9i", ms, 0.5, 0, 1, 0, 0, 0, 0, 255, 0, 0)
        + struct.pack(">5i", 14, 0, 0, 0, 400) + bytes(40) + b"ab".ljust(256, b"\0")
        for ms in (0.0, 2.5))
    samples = b"".join(struct.pack(">h", i * 1000) for i in range(20))
    return header.ljust(512, b"\0") + bytes(channel) + tier + labels + samples


def opened():
    for magic in (b"QRV_Mac", b"QRVMACX"):
        yield magic.decode(), macintosh(magic)
    for magic in (b"KWZ_PC", b"KWZ_Mac", b"KWZ_PC_FLOAT", b"KWZ_PC_FLOAT_24"):
        yield magic.decode(), magic.ljust(40, b"\0")
    for i, flags in enumerate((1, 3, 7, 9, 11, 15)):
        yield f"generic{i}", b"1 2 3\n-4\n5,6\n" + wave(20, 999) + bytes([1, flags, 2 * i, 80])


def command_line():
    folder = os.path.join(os.path.dirname(__file__), "..", "tests", "batch", "expected")
    number = 0
    for name in sorted(os.listdir(folder)):
        for line in open(os.path.join(folder, name), encoding="utf-8", errors="replace"):
            if line.startswith("$ ") and (number := number + 1) % 5 == 0:
                yield f"{name}-{number}", line[2:].strip().replace(" ", "\n").encode()


def main():
    targets = {"analysis": analysis, "command_line": command_line, "edits": edits, "open": opened,
               "selection": selection, "writers": writers}
    for target, seeds in targets.items():
        folder = os.path.join(sys.argv[1], target)
        os.makedirs(folder, exist_ok=True)
        for name, content in seeds():
            with open(os.path.join(folder, name), "wb") as file:
                file.write(content)


if __name__ == "__main__":
    main()
