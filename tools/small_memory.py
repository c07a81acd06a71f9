#!/usr/bin/env python3
"""Runs the batch program where memory ends early.

usage: tools/small_memory.py PROGRAM [MEGABYTES]

PROGRAM is cantorix-batch without sanitizers. Every verb and every format is tried with an address
space of MEGABYTES (512), on the recordings of the tests, on a recording of ten hours, on label files
of tens of MB and with a settings record that asks for the most of everything. A run has to end with exit
code 0, or with 1 or 2 and one line on standard error.
"""
import os
import resource
import struct
import subprocess
import sys
import tempfile

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..")
LONGEST_S = 300


def put(path, *pieces):
    with open(path, "wb") as file:
        for piece in pieces:
            file.write(piece)
    return path


def long_wave(path, hours, rate):
    """A WAV file of silence with a few sounds, most of it a hole."""
    count = hours * 3600 * rate * 2
    head = b"RIFF" + struct.pack("<I", count + 36) + b"WAVEfmt " + struct.pack(
        "<IHHIIHH", 16, 1, 1, rate, 2 * rate, 2, 16) + b"data" + struct.pack("<I", count)
    put(path, head, struct.pack("<h", 1000) * 5000)
    os.truncate(path, len(head) + count)
    return path


def label_files(folder):
    many = 300_000
    yield put(folder + "/big.txt", b"".join(b"%d\tlabel %d\n" % (i, i) for i in range(3 * many)))
    yield put(folder + "/big.csv", b"start,end,text\n" +
              b"".join(b"%d.5,%d.6,a\n" % (i, i) for i in range(2 * many)))
    yield put(folder + "/big.TextGrid", b'File type = "ooTextFile"\nObject class = "TextGrid"\n\n0\n'
              b'%d\n<exists>\n1\n"IntervalTier"\n"words"\n0\n%d\n%d\n' % (many, many, many) +
              b"".join(b'%d\n%d\n"label %d"\n' % (i, i + 1, i) for i in range(many)))
    slots = b"".join(b'<TIME_SLOT TIME_SLOT_ID="t%d" TIME_VALUE="%d"/>' % (i, i) for i in range(many))
    notes = b"".join(
        b'<ANNOTATION><ALIGNABLE_ANNOTATION ANNOTATION_ID="a%d" TIME_SLOT_REF1="t%d" TIME_SLOT_REF2='
        b'"t%d"><ANNOTATION_VALUE>a</ANNOTATION_VALUE></ALIGNABLE_ANNOTATION></ANNOTATION>'
        % (i, i, i + 1) for i in range(many - 1))
    yield put(folder + "/big.eaf", b'<?xml version="1.0"?><ANNOTATION_DOCUMENT><HEADER TIME_UNITS='
              b'"milliseconds"/><TIME_ORDER>' + slots + b'</TIME_ORDER><TIER TIER_ID="words">' +
              notes + b"</TIER></ANNOTATION_DOCUMENT>")
    yield put(folder + "/big_annot.json", b'{"name":"big","annotates":"big.wav","sampleRate":8000,'
              b'"levels":[{"name":"words","type":"EVENT","items":[' +
              b",".join(b'{"id":%d,"samplePoint":%d,"labels":[{"name":"words","value":"a"}]}' % (i, i)
                        for i in range(1, 2 * many)) + b']}],"links":[]}')
    yield put(folder + "/deep_annot.json", b'{"levels":' + b"[" * 5_000_000)
    yield put(folder + "/deep.eaf", b"<ANNOTATION_DOCUMENT>" + b"<a>" * 5_000_000)


def commands(folder, vowels):
    """The words of each run, without the program."""
    recordings = ROOT + "/tests/document/recordings/"
    for name in sorted(os.listdir(recordings)):
        if not name.endswith((".s16", ".tsv")):
            yield ["convert", recordings + name, folder + "/out.qrv", "--channel", "1"]
    numbers = put(folder + "/numbers.txt", b"-123 4567\n" * 3_000_000)
    ten = long_wave(folder + "/ten.wav", 10, 16000)
    most = ["--memory-minutes", "100000"]
    generic = ["--generic", "0,8000,16,low,ascii"]
    for words in ([], most):
        yield ["info", ten] + words
        yield ["convert", ten, folder + "/out.qrv"] + words
        yield ["convert", ten, folder + "/out.wav"] + words
        yield ["intensity", ten, "-o", folder + "/levels.tsv"] + words
        yield ["measure", ten, "--from", "0", "--to", "300"] + words
        yield ["spectrum", ten, "--from", "0", "--to", "60000"] + words
        yield ["formants", ten, "--columns", "500"] + words
        yield ["spectrogram", ten, "--columns", "500", "-o", folder + "/levels.tsv"] + words
        yield ["edit", ten, "-o", folder + "/out.qrv", "gain:10:0"] + words
        yield ["edit", ten, "-o", folder + "/out.qrv", "select:0:1000", "cut", "paste"] + words
        yield ["info", numbers] + generic + words
    yield ["pitch", ten, "--to", "600000", "-o", folder + "/pitch.tsv"]
    yield ["pitch", ten, "--method", "cepstral", "--to", "600000", "-o", folder + "/pitch.tsv"]
    yield ["spectrogram", vowels, "--columns", "100000000", "--rows", "100000"]
    yield ["formants", vowels, "--columns", "100000000"]
    yield ["spectrum", vowels, "--at", "10", "--display", "1000000", "-o", folder + "/s.tsv"]
    yield ["info", put(folder + "/bare.wav", b"RIFF\xff\xff\xff\xffWAVE")]
    yield ["corpus", ten, vowels, "--do", "labels,intensity", "-o", folder + "/tables", "-j", "4"]
    for labels in label_files(folder):
        yield ["import-labels", vowels, labels, "-o", folder + "/out.qrv"]
    yield ["labels", folder + "/out.qrv", "-o", folder + "/labels.tsv"]
    for record in hostile_records(folder, vowels):
        for verb in (["pitch"], ["intensity"], ["spectrum", "--at", "400"], ["formants", "--columns", "5"],
                     ["spectrogram", "--columns", "5"]):
            yield [verb[0], vowels, *verb[1:], "--config", record, "-o", folder + "/r.tsv"]


def hostile_records(folder, vowels):
    """Settings records with every number at one of its ends."""
    for name, whole, fraction in (("high", 2**31 - 1, 1e300), ("low", -2**31, -1e300), ("small", 1, 1e-300)):
        path = folder + "/" + name + ".cfg"
        subprocess.run([PROGRAM, "config", "default", path], check=True)
        record = bytearray(open(path, "rb").read())
        listing = subprocess.run([PROGRAM, "config", "show"], check=True, capture_output=True, text=True)
        for line in listing.stdout.splitlines()[1:]:
            field, offset, kind = line.split("\t")[:3]
            if kind == "double":
                struct.pack_into("<d", record, int(offset), fraction)
            elif kind != "text" and field != "pitch.method":
                struct.pack_into("<i", record, int(offset), whole)
        yield put(path, bytes(record))


def run_of(words, megabytes):
    """The exit code of a run and what is wrong with it, nothing when it is right."""
    limit = megabytes << 20

    def scarce():
        resource.setrlimit(resource.RLIMIT_AS, (limit, limit))

    try:
        run = subprocess.run([PROGRAM, *words], capture_output=True, preexec_fn=scarce, timeout=LONGEST_S)
    except subprocess.TimeoutExpired:
        return -1, "does not end"
    lines = run.stderr.decode(errors="replace").splitlines()
    fault = None
    if run.returncode not in (0, 1, 2):
        fault = f"exit code {run.returncode}: {lines[-1:]}"
    elif run.returncode != 0 and len(lines) != 1:
        fault = f"{len(lines)} lines: {lines[:3]}"
    return run.returncode, fault


def main():
    megabytes = int(sys.argv[2]) if len(sys.argv) > 2 else 512
    runs = wrong = refused = 0
    with tempfile.TemporaryDirectory(prefix="cantorix-small-") as folder:
        vowels = os.path.abspath(ROOT + "/samples/vowels.qrv")
        for words in commands(folder, vowels):
            runs += 1
            code, fault = run_of(words, megabytes)
            refused += code > 0
            if fault:
                wrong += 1
                print("cantorix-batch", *words, "|", fault, flush=True)
    print(f"{runs} runs with {megabytes} MB: {wrong} wrong, {refused} refused in one line")
    sys.exit(wrong > 0)


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    PROGRAM = os.path.abspath(sys.argv[1])
    main()
