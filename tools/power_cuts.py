#!/usr/bin/env python3
"""Cuts the power of a save, on paper: tools/power_cuts.py PROGRAM [CUTS [SEED]]

Records the system calls of saves of the batch program (strace), cuts them short anywhere, and makes
of what came before a folder that a disk may hold after a power cut: bytes that no fsync followed may
be there, be zeros or be missing, page by page; names that no fsync of their folder followed may be
made or changed or not, each by itself. The file in that folder must be the earlier or the new one,
byte for byte, must open, and must be the new one when the program had ended before the cut.
Then the same with every fsync left out: that has to be noticed. Ends with 0 when all is well.
"""
import os
import random
import re
import subprocess
import sys
import tempfile
from pathlib import Path

PAGE = 4096
SAMPLE = Path(__file__).resolve().parent.parent / "samples" / "vowels.qrv"
CALLS = "openat,pwrite64,write,fsync,fdatasync,rename,renameat,renameat2,unlink,unlinkat,ftruncate,fallocate,close,fcntl"

# What is saved: the words, the file, and whether one stands there before.
SAVES = [
    (["convert", "IN", "OUT"], "talk.qrv", True),
    (["convert", "IN", "OUT"], "new.qrv", False),
    (["convert", "IN", "OUT"], "talk.wav", True),
    (["edit", "IN", "-o", "OUT", "select:500:900", "cut"], "cut.qrv", True),
    (["intensity", "IN", "-o", "OUT"], "table.tsv", True),
    (["config", "default", "-o", "OUT"], "CantorixConf.cfg", True),
]


def text_of(quoted):
    return bytes.fromhex(quoted.replace("\\x", ""))


class Recording:
    """The calls of one save on files of one folder, as tuples that replay() knows."""

    def __init__(self, program, words, folder, name):
        self.operations, self.folder, self.files = [], str(folder), {}
        trace = folder.parent / "trace"
        filled = [str(SAMPLE) if w == "IN" else str(folder / name) if w == "OUT" else w for w in words]
        subprocess.run(["strace", "-f", "-xx", "-s", "10000000", "-e", "trace=" + CALLS, "-o", trace,
                        program, *filled], check=True, stdout=subprocess.DEVNULL)
        inodes = 0
        for line in trace.read_text().splitlines():
            call = re.match(r"\d+ +(\w+)\((.*)\) += (-?\d+)", line)
            if not call or int(call[3]) < 0:
                continue
            kind, given, result = call[1], call[2], int(call[3])
            first = int(given.split(",")[0]) if given[0].isdigit() else None
            names = [os.fsdecode(text_of(n)) for n in re.findall(r'"((?:\\x[0-9a-f]{2})*)"', given)[:2]]
            if kind == "openat":
                path = os.path.normpath(os.path.join(self.files.get(first, ""), names[0]))
                self.files[result] = path
                if path.startswith(self.folder + "/") and "O_CREAT" in given:
                    self.add("create", path)
            elif kind == "fcntl" and "F_DUPFD" in given:
                self.files[result] = self.files.get(first, "")
            elif kind == "close":
                self.files.pop(first, None)
            elif kind in ("rename", "renameat", "renameat2"):
                at = re.match(r"(\d+)", given)
                base = self.files.get(int(at[1]), "") if at else ""
                self.add("rename", *(os.path.normpath(os.path.join(base, n)) for n in names))
            elif kind in ("unlink", "unlinkat"):
                self.add("unlink", os.path.normpath(os.path.join(self.files.get(first, ""), names[0])))
            elif self.files.get(first, "").startswith(self.folder):
                path = self.files[first]
                if kind == "pwrite64":
                    at = int(given.rsplit(",", 1)[1])
                    self.add("write", path, at, text_of(re.search(r'"(.*?)"', given)[1])[:result])
                elif kind in ("fsync", "fdatasync"):
                    self.add("sync", path)
                elif kind == "ftruncate":
                    self.add("resize", path, int(given.rsplit(",", 1)[1]))

    def add(self, *operation):
        if operation[1].startswith(self.folder):
            self.operations.append(operation)


def replay(operations, before, folder, chance):
    """Names and bytes that a disk may hold: {path: bytes}."""
    inodes, on_disk = {}, {}  # by number: bytes as the program sees them, as the disk has them
    entries, durable = {}, {}  # name: number
    waiting = []  # changes of names that may be on the disk or not
    for path, content in before.items():
        inodes[len(inodes)] = bytearray(content)
        on_disk[len(inodes) - 1] = bytearray(content)
        entries[path] = durable[path] = len(inodes) - 1
    loose = {}  # number: pages not synced
    for kind, path, *more in operations:
        if kind == "create" and path not in entries:
            entries[path] = len(inodes)
            waiting.append(("set", path, entries[path]))
            inodes[entries[path]], on_disk[entries[path]] = bytearray(), bytearray()
        elif kind == "write":
            number, (at, data) = entries[path], more
            content = inodes[number]
            content.extend(bytes(max(0, at + len(data) - len(content))))
            content[at:at + len(data)] = data
            pages = range(at // PAGE, (at + len(data) + PAGE - 1) // PAGE)
            loose.setdefault(number, set()).update(pages)
        elif kind == "resize":
            inodes[entries[path]][more[0]:] = b""
            loose.setdefault(entries[path], set()).add(more[0] // PAGE)
        elif kind == "sync" and path == folder:
            for change in waiting:
                apply(change, durable)
            waiting = []
        elif kind == "sync" and path in entries:
            number = entries[path]
            on_disk[number] = bytearray(inodes[number])
            loose.pop(number, None)
        elif kind == "rename":
            waiting.append(("move", path, more[0], entries[path]))
            entries[more[0]] = entries.pop(path)
        elif kind == "unlink" and path in entries:
            waiting.append(("drop", path))
            del entries[path]
    for change in waiting:
        if chance.random() < 0.5:
            apply(change, durable)
    for number, pages in loose.items():
        tear(on_disk[number], inodes[number], pages, chance)
    return {path: bytes(on_disk[number]) for path, number in durable.items()}


def apply(change, names):
    if change[0] == "set":
        names[change[1]] = change[2]
    elif change[0] == "drop":
        names.pop(change[1], None)
    else:
        names.pop(change[1], None)
        names[change[2]] = change[3]


def tear(disk, seen, pages, chance):
    """Some of the pages that were not synced are there, some are zeros; the length is either."""
    if chance.random() < 0.7:
        disk.extend(bytes(max(0, len(seen) - len(disk))))
    for page in pages:
        if chance.random() < 0.5:
            piece = seen[page * PAGE:(page + 1) * PAGE]
            end = min(len(disk), page * PAGE + len(piece))
            disk[page * PAGE:end] = piece[:max(0, end - page * PAGE)]


def judge(program, image, target, earlier, new, has_ended):
    found = image.get(str(target))
    if found == new:
        pass
    elif has_ended:
        return "a save that was acknowledged is lost"
    elif found != earlier:
        return "the file is damaged"
    for path in target.parent.iterdir():
        path.unlink()
    for path, content in image.items():
        Path(path).write_bytes(content)
    if found is None or target.suffix not in (".qrv", ".wav"):
        return ""
    opened = subprocess.run([program, "info", str(target)], capture_output=True, text=True)
    return "" if opened.returncode == 0 else "it does not open: " + opened.stderr


def main():
    program = os.path.abspath(sys.argv[1])
    cuts = int(sys.argv[2]) if len(sys.argv) > 2 else 2000
    seed = int(sys.argv[3]) if len(sys.argv) > 3 else 1
    chance = random.Random(seed)
    wrong = 0
    for words, name, stands in SAVES:
        with tempfile.TemporaryDirectory() as place:
            folder = Path(place) / "saved"
            folder.mkdir()
            target = folder / name
            earlier = b"an earlier file" * 3000 if name.endswith(("tsv", "cfg")) else None
            if stands:
                # An earlier recording that opens, too, and is another one.
                if earlier is None:
                    subprocess.run([program, "convert", str(SAMPLE), str(target), "--to", "700"], check=True)
                    earlier = target.read_bytes()
                target.write_bytes(earlier)
            before = {str(target): earlier} if stands else {}
            calls = Recording(program, words, folder, name).operations
            new = target.read_bytes()
            share = cuts // len(SAVES)
            faults, old, whole = 0, 0, 0
            for _ in range(share):
                at = chance.randint(0, len(calls))
                image = replay(calls[:at], before, str(folder), chance)
                fault = judge(program, image, target, earlier if stands else None, new, at == len(calls))
                faults += bool(fault)
                whole += image.get(str(target)) == new
                old += image.get(str(target)) != new
                if fault:
                    print(f"  {name}, cut at call {at} of {len(calls)}: {fault}")
            careless = [c for c in calls if c[0] != "sync"]
            noticed = sum(bool(judge(program, replay(careless, before, str(folder), chance), target,
                                     earlier if stands else None, new, True)) for _ in range(40))
            print(f"{name}: {share} cuts in {len(calls)} calls: {old} earlier, {whole} new, "
                  f"{faults} wrong; without fsync {noticed} of 40 are wrong", flush=True)
            wrong += faults + (noticed == 0)
    print(f"seed {seed}: {wrong} wrong")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
