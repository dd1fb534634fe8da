"""A player at a real display: X server, window manager, mouse and eyes."""

import os
import re
import shutil
import subprocess
import tempfile
import time
from pathlib import Path

import numpy
from PIL import ImageGrab

ROOT = Path(__file__).resolve().parents[1]
BOARD = (41, 65, 137)
ORANGE, MAGENTA = (255, 128, 0), (255, 0, 255)


def until(what, seconds=30, every=0.05):
    """Waits for `what` to come true and returns it."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        if found := what():
            return found
        time.sleep(every)
    raise AssertionError(f"did not happen within {seconds} s: {what.__doc__ or what}")


class Player:
    def __init__(self, program, size="1280x1024x24", manager=("openbox",), **environment):
        self.program = Path(program).resolve()
        self.command, self.window = [self.program], ""
        self.folder = Path(tempfile.mkdtemp(prefix="tolvane-"))
        for name in ("Images", "wav", "Tolvane Rules.doc"):
            (self.folder / name).symlink_to(ROOT / name)
        read, write = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", size, "-nolisten", "tcp"],
            pass_fds=[write], stderr=subprocess.DEVNULL)
        self.display = ":" + os.read(read, 9).decode().strip()
        # Without a word about the session bus each start would start one, which stays; and the sanitizers do not
        # stand such a fork while the fonts are read beside it. Without a bus Qt 6.8 never gives back its question to
        # the desktop's portal.
        self.environment = {**os.environ, "DISPLAY": self.display, "HOME": str(self.folder),
                            "XDG_RUNTIME_DIR": str(self.folder), "DBUS_SESSION_BUS_ADDRESS": "disabled:",
                            "QT_NO_XDG_DESKTOP_PORTAL": "1", **environment}
        self.environment.pop("QT_QPA_PLATFORM", None)
        self.manager = subprocess.Popen(manager, env=self.environment, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)
        until(self.is_managed)

    def is_managed(self):
        """Whether the window manager has begun its work."""
        return "window id" in self.tell("xprop", "-root", "_NET_CLIENT_LIST")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        for process in (getattr(self, "game", None), self.manager, self.server):
            if process and process.poll() is None:
                process.kill()
                process.wait()
        shutil.rmtree(self.folder)

    def tell(self, *command):
        return subprocess.run(command, env=self.environment, capture_output=True, text=True,
                              timeout=30).stdout

    def start(self):
        self.game, self.window = subprocess.Popen(self.command, cwd=self.folder, env=self.environment), ""
        self.find_window(363)

    def find_window(self, width):
        """Waits until another window, whose inside is this wide, is the active one; `click` and `see` mean that."""
        def found():
            active = self.tell("xdotool", "getactivewindow").strip()
            words = self.tell("xwininfo", "-id", active) if active else ""
            numbers = dict(re.findall(r"(Absolute upper-left [XY]|Width):\s+(-?\d+)", words))
            if active == self.window or numbers.get("Width") != str(width):
                return False
            self.window = active
            self.origin = tuple(int(numbers[f"Absolute upper-left {axis}"]) for axis in "XY")
            return True
        until(found)
        time.sleep(0.3)

    def mouse(self, *steps):
        self.tell("xdotool", *(str(step) for step in steps))

    def at(self, x, y):
        return "mousemove", self.origin[0] + x, self.origin[1] + y

    def click(self, x, y):
        self.mouse(*self.at(x, y), "sleep", 0.1, "click", 1, "sleep", 0.2)

    def drag(self, start, end):
        steps = []
        for i in range(11):
            x, y = (a + (b - a) * i // 10 for a, b in zip(start, end))
            steps += [*self.at(x, y), "sleep", 0.02] + (["mousedown", 1] if i == 0 else [])
        self.mouse(*steps, "mouseup", 1, "sleep", 0.2)

    def see(self, left, top, width, height):
        """The pixels of a part of the window, one row after another."""
        x, y = self.origin[0] + left, self.origin[1] + top
        return numpy.array(ImageGrab.grab((x, y, x + width, y + height), xdisplay=self.display))[:, :, :3]

    def colour(self, x, y):
        return tuple(int(channel) for channel in self.see(x, y, 1, 1)[0, 0])
