"""The program on a display of its own: real keys and clicks, what the accessibility tree says of its
windows, and pictures of the screen. Needs a session bus (acceptance.sh starts one)."""

import os
import re
import shutil
import subprocess
import time
from dataclasses import dataclass, field

import numpy
from PIL import Image

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.dirname(os.path.dirname(HERE))
BUILD = os.path.join(ROOT, "build", "release", "src")
BATCH = os.path.join(BUILD, "batch", "cantorix-batch")

# What the pictures are painted with.
COLOURS = {"light": {"frame": (0xC4, 0xCA, 0xD4), "cursor": (0x1A, 0x1A, 0x1A),
                     "pitch": (0x08, 0x74, 0x56), "pointed": (0x6B, 0x72, 0x80),
                     "edge": (0x2F, 0x6F, 0xD0), "pane": (0xFF, 0xFF, 0xFF)},
           "dark": {"frame": (0x3C, 0x43, 0x4F), "cursor": (0xFF, 0xFF, 0xFF),
                    "pitch": (0x5C, 0xD4, 0xA6), "pointed": (0x9A, 0xA3, 0xB2),
                    "edge": (0x7F, 0xB2, 0xFF), "pane": (0x16, 0x18, 0x1D)}}


@dataclass
class Node:
    """An object of the accessibility tree as it was when it was read; box: x, y, width, height."""
    role: str
    name: str
    text: str
    box: tuple
    showing: bool
    checked: bool
    enabled: bool
    children: list = field(default_factory=list)

    def all(self):
        yield self
        for child in self.children:
            yield from child.all()

    def find(self, role, name, among=None):
        """The first object shown whose name matches; fails without any."""
        for node in self.all():
            if node.showing and re.search(role, node.role) and re.search(name, node.name):
                return node
        raise LookupError(f"no {role} {name!r} in sight")

    def has(self, role, name):
        return any(node.showing and re.search(role, node.role) and re.search(name, node.name)
                   for node in self.all())


class Desk:
    def __init__(self, out, width=1920, height=1080):
        self.out = out
        palette = os.environ.get("CANTORIX_PALETTE", "light")
        self.colours = COLOURS[palette]
        self.size = (width, height)
        self.work = os.path.join(out, "work")
        shutil.rmtree(self.work, ignore_errors=True)
        os.makedirs(os.path.join(self.work, "run"), mode=0o700)
        self.started = []
        read, write = os.pipe()
        self._start(["Xvfb", "-displayfd", str(write), "-screen", "0", f"{width}x{height}x24"],
                    pass_fds=[write])
        display = b""
        while not display.endswith(b"\n"):
            display += os.read(read, 16)
        os.environ.update(DISPLAY=":" + display.decode().strip(), HOME=self.work,
                          XDG_CONFIG_HOME=self.work, XDG_DATA_HOME=self.work,
                          XDG_RUNTIME_DIR=os.path.join(self.work, "run"),
                          QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", LC_ALL="C.UTF-8")
        if palette == "dark":
            shutil.copy(os.path.join(ROOT, "tools", "dark_desktop.kdeglobals"),
                        os.path.join(self.work, "kdeglobals"))
            os.environ.update(XDG_CURRENT_DESKTOP="KDE", KDE_SESSION_VERSION="5",
                              KDE_FULL_SESSION="true")
        self._start(["openbox"])
        self._start(["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"])
        time.sleep(1.5)
        import gi
        gi.require_version("Atspi", "2.0")
        from gi.repository import Atspi
        self.atspi = Atspi
        Atspi.init()
        self.program = None

    def _start(self, words, **more):
        process = subprocess.Popen(words, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                   **more)
        self.started.append(process)
        return process

    def close(self):
        self.end()
        for process in reversed(self.started):
            process.terminate()
            process.wait()

    # The program.

    def begin(self, *files, style=()):
        """Starts it in the folder of this desk, whose configuration is kept from start to start."""
        self.program = subprocess.Popen(
            [os.path.join(BUILD, "desktop", "cantorix"), "-style", "fusion", *style, *files],
            cwd=self.work, stdout=subprocess.DEVNULL,
            stderr=open(os.path.join(self.work, "errors"), "a", encoding="utf-8"))
        self.wait(lambda: self.tree().has("frame|window", "^Cantorix"), 30, "the main window")
        self.rest()

    def end(self):
        if self.program is not None:
            self.program.terminate()
            self.program.wait()
            self.program = None
        # Ended like this it would ask at the next start.
        shutil.rmtree(os.path.join(self.work, "tmp"), ignore_errors=True)

    def forget(self):
        """As before the first start."""
        for name in os.listdir(self.work):
            if name.startswith("cantorix") or name.endswith(".ini"):
                path = os.path.join(self.work, name)
                shutil.rmtree(path) if os.path.isdir(path) else os.remove(path)

    # What it says of itself.

    def tree(self):
        desktop = self.atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(i)
            if application is not None and application.get_name() == "Cantorix":
                application.set_cache_mask(self.atspi.Cache.NONE)
                return self._read(application)
        return Node("desktop", "", "", (0, 0, 0, 0), True, False, True)

    def _read(self, thing):
        states = thing.get_state_set()
        component = thing.get_component_iface()
        box = (0, 0, 0, 0)
        if component is not None:
            e = component.get_extents(self.atspi.CoordType.SCREEN)
            box = (e.x, e.y, e.width, e.height)
        text = thing.get_description() or ""
        words = thing.get_text_iface()
        if words is not None:
            text = words.get_text(0, -1) or text
        node = Node(thing.get_role_name(), thing.get_name() or "", text, box,
                    states.contains(self.atspi.StateType.SHOWING),
                    states.contains(self.atspi.StateType.CHECKED),
                    states.contains(self.atspi.StateType.ENABLED))
        if node.showing or node.role in ("application", "frame"):
            for i in range(thing.get_child_count()):
                child = thing.get_child_at_index(i)
                if child is not None:
                    node.children.append(self._read(child))
        return node

    def wait(self, holds, seconds, what):
        end = time.monotonic() + seconds
        while not holds():
            if time.monotonic() > end:
                raise TimeoutError(f"waited {seconds} s for {what}")
            time.sleep(0.1)

    def rest(self, seconds=0.4):
        """Until nothing moves on the screen."""
        last = self.pixels()
        end = time.monotonic() + 30
        while time.monotonic() < end:
            time.sleep(seconds)
            now = self.pixels()
            if numpy.array_equal(last, now):
                return
            last = now

    # A hand on mouse and keys.

    def keys(self, *names):
        for name in names:
            subprocess.run(["xdotool", "key", name], check=True)
            time.sleep(0.12)
        self.rest()

    def type(self, text):
        subprocess.run(["xdotool", "type", "--delay", "12", text], check=True)
        time.sleep(0.1)

    def mouse(self, *words):
        subprocess.run(["xdotool", *map(str, words)], check=True)
        time.sleep(0.08)

    def hover(self, x, y):
        self.mouse("mousemove", x - 1, y)
        self.mouse("mousemove", x, y)
        time.sleep(0.5)

    def click(self, x, y, button=1):
        self.mouse("mousemove", x, y)
        self.mouse("click", button)
        self.rest()

    def drag(self, x, y, toX, toY=None):
        self.mouse("mousemove", x, y, "mousedown", 1)
        for part in (0.3, 0.7, 1.0):
            self.mouse("mousemove", round(x + part * (toX - x)), toY or y)
        self.mouse("mouseup", 1)
        self.rest()

    def press(self, node):
        x, y, width, height = node.box
        self.click(x + width // 2, y + height // 2)

    def menu(self, place, entry):
        """The entry of one menu: others may have one of the same name."""
        def opened():
            return self.tree().find("menu item", f"^{place}$")
        self.press(opened())
        self.wait(lambda: opened().has("menu item", entry), 5, entry)
        self.press(opened().find("menu item", entry))

    @staticmethod
    def title():
        """Of the window that has the keys."""
        done = subprocess.run(["xdotool", "getactivewindow", "getwindowname"], check=True,
                              stdout=subprocess.PIPE)
        return done.stdout.decode().strip()

    # Pictures.

    def pixels(self, box=None):
        """Rows of RGB of the screen, or of a box of it."""
        done = subprocess.run(["import", "-window", "root", "-depth", "8", "rgb:-"], check=True,
                              stdout=subprocess.PIPE)
        width, height = self.size
        whole = numpy.frombuffer(done.stdout, numpy.uint8).reshape(height, width, 3)
        if box is None:
            return whole
        x, y, w, h = box
        return whole[y:y + h, x:x + w]

    def shoot(self, name):
        Image.fromarray(self.pixels()).quantize(255).save(os.path.join(self.out, name + ".png"))


def columns_of(pixels, color, rows):
    """The columns with at least so many pixels of the colour."""
    counts = (pixels == numpy.array(color, numpy.uint8)).all(axis=2).sum(axis=0)
    return [int(x) for x in numpy.nonzero(counts >= rows)[0]]
