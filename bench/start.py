#!/usr/bin/python3
"""Measures, on a display of its own, the time from process start to the first fully painted frame, and the memory the
window then takes: of a bare Qt window and of the game, in turn. Needs python3-xlib.
Usage: bench/start.py build/release [rounds [program...]]"""

import statistics
import subprocess
import sys
import time
from pathlib import Path

from Xlib import X
from Xlib.display import Display

sys.path.append(str(Path(__file__).resolve().parents[1] / "tools"))
from player import ROOT, Player

WIDTH, HEIGHT = 363, 438


class Start:
    """Starts a program, again and again."""

    def __init__(self, program, player):
        self.program, self.player = program, player
        self.root = Display(player.display).screen().root
        self.times, self.memory = [], []
        process, player.window = self.run(), ""  # The number of the last one's window may come again.
        player.find_window(WIDTH)
        time.sleep(1)
        self.painted = self.column()
        process.kill()
        process.wait()

    def run(self):
        return subprocess.Popen([self.program], cwd=ROOT, env=self.player.environment, stderr=subprocess.DEVNULL)

    def column(self):
        """What the display shows down the middle of the window: little enough to be looked at all the time."""
        left, top = self.player.origin
        return self.root.get_image(left + WIDTH // 2, top, 1, HEIGHT, X.ZPixmap, 0xFFFFFFFF).data

    def measure(self):
        time.sleep(0.4)
        started = time.monotonic()
        process = self.run()
        while self.column() != self.painted:
            time.sleep(0.0003)
        self.times.append(1000 * (time.monotonic() - started))
        time.sleep(1)
        for line in Path(f"/proc/{process.pid}/smaps_rollup").read_text().splitlines():
            if line.startswith("Pss:"):
                self.memory.append(int(line.split()[1]) / 1024)
        process.kill()
        process.wait()

    def report(self):
        print(f"{self.program}: painted after {statistics.median(self.times):.1f} ms (median; from "
              f"{min(self.times):.1f} to {max(self.times):.1f}), memory {statistics.median(self.memory):.1f} MB")


if __name__ == "__main__":
    build, rounds = Path(sys.argv[1]).resolve(), int(sys.argv[2]) if len(sys.argv) > 2 else 15
    programs = [build / "bare_window", *((Path(name).resolve() for name in sys.argv[3:]) if len(sys.argv) > 3 else [build / "tolvane"])]
    with Player(build / "tolvane") as player:
        starts = []
        for program in programs:
            starts.append((Start(program, player), player.origin))
        for _ in range(rounds):
            for start, player.origin in starts:
                start.measure()
        for start, _ in starts:
            start.report()
