#!/usr/bin/env python3
"""A network folder whose server goes away: tools/hanging_folder.py PROGRAM [VERB [ARGUMENT]...]

Runs the batch program (verb `info`; built without sanitizers) on a recording in a folder whose file
system, served by this script, answers n questions and then no more, for n from 0 until the program
ends by itself. Each time it interrupts the program: that has to end it within two seconds with exit
code 1 and one line. Where the program looks for the file or opens it, which takes TO_OPEN questions,
it may take a second interrupt. Needs root and /dev/fuse.
"""
import ctypes
import os
import pathlib
import signal
import struct
import subprocess
import sys
import tempfile
import threading
import time

LOOKUP, FORGET, GETATTR, OPEN, READ, STATFS, RELEASE, INIT, OPENDIR, INTERRUPT = 1, 2, 3, 14, 15, 17, 18, 26, 27, 36
FOLDER, RECORDING = 1, 2  # the two nodes
NOT_THERE, NOT_KNOWN = -2, -38
MNT_DETACH = 2
NAME = b"talk.qrv"
SILENT_AFTER = 0.5  # seconds without an answer before the user has enough
MOST_SECONDS = 2.0
TO_OPEN = 10  # questions

libc = ctypes.CDLL(None, use_errno=True)


class Server(threading.Thread):
    """Answers `count` questions, once that is set, and then reads no more of them."""

    def __init__(self, folder, data):
        super().__init__(daemon=True)
        self.folder, self.data = folder, data
        self.left, self.ended = None, False
        self.released = threading.Event()
        self.fuse = os.open("/dev/fuse", os.O_RDWR)
        options = f"fd={self.fuse},rootmode=40000,user_id=0,group_id=0,allow_other"
        if libc.mount(b"hanging", folder.encode(), b"fuse", 0, options.encode()) != 0:
            sys.exit(f"hanging_folder: cannot mount: {os.strerror(ctypes.get_errno())}")
        self.start()

    def run(self):
        while self.left != 0:
            try:
                question = os.read(self.fuse, 1 << 20)
            except OSError:
                return
            _, code, unique, node = struct.unpack_from("<IIQQ", question)
            if code in (FORGET, INTERRUPT):
                continue
            error, answer = self.answer(code, node, question[40:])
            os.write(self.fuse, struct.pack("<IiQ", 16 + len(answer), error, unique) + answer)
            if code == RELEASE:
                self.released.set()  # nobody waits for that, so it comes late
            elif self.left is not None:
                self.left -= 1

    def attributes(self, node):
        size, mode = (0, 0o40755) if node == FOLDER else (len(self.data), 0o100644)
        return struct.pack("<6Q10I", node, size, 0, 0, 0, 0, 0, 0, 0, mode, 1, 0, 0, 0, 4096, 0)

    def answer(self, code, node, question):
        if code == INIT:
            return 0, struct.pack("<IIIIHHII36x", 7, 31, 0, 0, 0, 0, 1 << 17, 1)
        if code == LOOKUP:
            if question.rstrip(b"\0") != NAME:
                return NOT_THERE, b""
            return 0, struct.pack("<4QII", RECORDING, 0, 0, 0, 0, 0) + self.attributes(RECORDING)
        if code == GETATTR:
            return 0, struct.pack("<QII", 0, 0, 0) + self.attributes(node)
        if code in (OPEN, OPENDIR):
            return 0, struct.pack("<QII", 0, 1, 0)  # nothing of it is cached
        if code == READ:
            _, offset, size = struct.unpack_from("<QQI", question)
            return 0, self.data[offset : offset + size]
        if code == STATFS:
            return 0, struct.pack("<5Q10I", 0, 0, 0, 0, 0, 4096, 255, 4096, *[0] * 7)
        # Without a FLUSH a program may close what it has open, as on a network folder.
        return (0 if code == RELEASE else NOT_KNOWN), b""

    def end(self):
        if self.ended:
            return
        self.ended = True
        libc.umount2(self.folder.encode(), MNT_DETACH)
        os.close(self.fuse)


def wrong_after(program, words, data, count):
    """What is wrong after `count` answers: nothing, a text; or None when there were no more."""
    with tempfile.TemporaryDirectory() as folder:
        server = Server(folder, data)
        try:
            path = os.path.join(folder, NAME.decode())
            with open(path, "rb"):
                pass  # whether it knows FLUSH is asked once
            server.released.wait()
            server.left = count + 1
            os.stat(folder)  # the question for which it waits already
            run = subprocess.Popen([program, words[0], path, *words[1:]], stdout=subprocess.PIPE,
                                   stderr=subprocess.PIPE, text=True)
            try:
                run.wait(SILENT_AFTER)
                return None
            except subprocess.TimeoutExpired:
                run.send_signal(signal.SIGINT)
            begun = time.monotonic()
            try:
                _, said = run.communicate(timeout=MOST_SECONDS)
            except subprocess.TimeoutExpired:
                run.send_signal(signal.SIGINT)
                try:
                    run.communicate(timeout=MOST_SECONDS)
                    if count < TO_OPEN:
                        print(f"{count:4} answers: ended by the second interrupt")
                        return ""
                except subprocess.TimeoutExpired:
                    pass
                server.end()
                run.communicate()
                return f"still there after {MOST_SECONDS} s"
            if run.returncode != 1 or said.count("\n") != 1:
                return f"exit code {run.returncode}, {said!r}"
            print(f"{count:4} answers: ended after {1000 * (time.monotonic() - begun):.0f} ms")
            return ""
        finally:
            server.end()


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    words = sys.argv[2:] or ["info"]
    sample = pathlib.Path(__file__).resolve().parent.parent / "samples/vowels.qrv"
    count, wrong = 0, 0
    while (verdict := wrong_after(sys.argv[1], words, sample.read_bytes(), count)) is not None:
        if verdict:
            print(f"{count:4} answers: WRONG, {verdict}")
            wrong += 1
        count += 1
    print(f"hanging_folder: {count} runs, {wrong} wrong")
    sys.exit(1 if wrong or count == 0 else 0)


if __name__ == "__main__":
    main()
