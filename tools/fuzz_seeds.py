#!/usr/bin/env python3
"""Makes the first inputs of the fuzz targets that take an input apart into numbers.

usage: tools/fuzz_seeds.py FOLDER

Writes FOLDER/TARGET/NAME for each, and what the files of other makers have not. fuzz/fuzz_input.h
reads the numbers; the order of the fields is that in which each target asks for them.
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
    yield "QRV_Mac-longer", macintosh(b"QRV_Mac") + bytes(2)
    yield "QRV_Mac-shorter", macintosh(b"QRV_Mac")[:1700]
    for magic in (b"KWZ_PC", b"KWZ_Mac", b"KWZ_PC_FLOAT", b"KWZ_PC_FLOAT_24"):
        yield magic.decode(), magic.ljust(40, b"\0")
    for i, flags in enumerate((1, 3, 7, 9, 11, 15)):
        yield f"generic{i}", b"1 2 3\n-4\n5,6\n" + wave(20, 999) + bytes([1, flags, 2 * i, 80])


def chunk(name, content):
    return name + struct.pack("<I", len(content)) + content + b"\0" * (len(content) % 2)


def wav():
    form = chunk(b"fmt ", struct.pack("<HHIIHH", 1, 1, 8000, 16000, 2, 16))
    cue = lambda number, frame: struct.pack("<II4sIII", number, frame, b"data", 0, 0, frame)
    cues = chunk(b"cue ", struct.pack("<I", 4) + cue(2, 9) + cue(1, 3) + cue(3, 10) + cue(4, 99))
    texts = chunk(b"LIST", b"adtl" + chunk(b"labl", struct.pack("<I", 1) + b"one\0")
                  + chunk(b"labl", struct.pack("<I", 2) + b"two") + chunk(b"note", bytes(6)))
    for name, parts in (("cues", (form, chunk(b"data", wave(10, 999)), cues, texts)),
                        ("cues_before", (texts, cues, form, chunk(b"data", wave(10, 999))))):
        body = b"WAVE" + b"".join(parts)
        yield name, b"RIFF" + struct.pack("<I", len(body)) + body
    yield "empty_data", b"RIFF\0\0\0\0WAVE" + form + chunk(b"data", b"") + texts


def sphere():
    yield "line-ends", b"NIST_1A\r\n   1024\r\n"
    fields = b"NIST_1A\n     96\nsample_rate -i 8000\nsample_coding -s%d %s\nend_head\n"
    for name, coding in (("shorten", b"pcm,embedded-shorten-v2.00"), ("other", b"wavpk")):
        yield name, (fields % (len(coding), coding)).ljust(96) + wave(4, 9)


def ascii_numbers():
    yield "many", b"\x00" + b"\n".join(b"%d" % (i * 37 % 900) for i in range(600))


def label_any():
    texts = {
        "esps": b"separator ;\nnfields 1\n#\n 0.5 121 a\n 0.9 121 b;c\n",
        "counts": b"0 4000 sil\n4000 7000 ah\n",
        "audacity": b"0.1\t0.4\tone\n0.5\t0.5\ttwo\n",
        "csv": b"tier,start_s,end_s,text\nwords,0.1,0.2,\"a,b\"\nphones,0.1,0.15,c\n",
        "tsv": b"time_ms\tlabel\n100\ta\n250\tb\n",
        "plain": b"0.1 a\n0.1 b\n2 c\n",
        "mlf": b'#!MLF!#\n"*/talk.lab"\n0 100 a\n.\n"*/other.lab"\n0 9 b\n.\n',
        "emu": b'{"levels":[{"name":"w","type":"EVENT","items":[{"id":1,"samplePoint":9,"labels":'
               b'[{"name":"w","value":"a"}]}]}],"links":[],"x":null,"y":true}',
        "textgrid": b'"ooTextFile"\n"TextGrid"\n0 2 <exists> 2 "TextTier" "p" 0 2 1 0.5 "a" '
                    b'"IntervalTier" "q" 0 2 2 0 1 "b" 1 2 ""',
        "elan": b'<ANNOTATION_DOCUMENT><HEADER TIME_UNITS="milliseconds"/><TIME_ORDER><TIME_SLOT '
                b'TIME_SLOT_ID="t1" TIME_VALUE="5"/></TIME_ORDER></ANNOTATION_DOCUMENT>',
        "none": b"no labels\0",
    }
    for i, (name, content) in enumerate(texts.items()):
        for choice in (i % 8, 0):
            yield f"{name}-{choice}", bytes([choice]) + content


# Every command line with an option, a step or a format that no earlier one has.
def command_line():
    folder = os.path.join(os.path.dirname(__file__), "..", "tests", "batch", "expected")
    number, seen = 0, set()
    for name in sorted(os.listdir(folder)):
        for line in open(os.path.join(folder, name), encoding="utf-8", errors="replace"):
            if not line.startswith("$ "):
                continue
            number += 1
            words = line[2:].split()
            kinds = {word.split("=")[0].split(":")[0] for word in words} - seen
            if kinds:
                seen |= kinds
                yield f"{name}-{number}", "\n".join(words).encode()


def main():
    targets = {"analysis": analysis, "ascii": ascii_numbers, "command_line": command_line,
               "edits": edits, "label_any": label_any, "open": opened, "selection": selection,
               "sphere": sphere, "wav": wav, "writers": writers}
    for target, seeds in targets.items():
        folder = os.path.join(sys.argv[1], target)
        os.makedirs(folder, exist_ok=True)
        for name, content in seeds():
            with open(os.path.join(folder, name), "wb") as file:
                file.write(content)


if __name__ == "__main__":
    main()
