#!/usr/bin/env python3
"""Measures, on a display of its own, the time from process start to the mapped window: of a bare Qt window and of the
game, in turn. Usage: bench/start.py build/release [rounds]"""

import re
import statistics
import subprocess
import sys
import time
from pathlib import Path

sys.path.append(str(Path(__file__).resolve().parents[1] / "tools"))
from player import ROOT, Player

build, rounds = Path(sys.argv[1]).resolve(), int(sys.argv[2]) if len(sys.argv) > 2 else 15
with Player(build / "tolvane") as player:
    times = {"bare_window": [], "tolvane": []}
    for _ in range(rounds):
        for name, measured in times.items():
            watch = subprocess.Popen(["xev", "-root", "-event", "substructure"], env=player.environment,
                                     stdout=subprocess.PIPE, text=True)
            time.sleep(0.4)
            started = time.monotonic()
            program = subprocess.Popen([build / name], cwd=ROOT, env=player.environment, stderr=subprocess.DEVNULL)
            while not re.match("MapNotify event", watch.stdout.readline()):
                pass
            measured.append(1000 * (time.monotonic() - started))
            time.sleep(0.5)
            program.kill()
            program.wait()
            watch.kill()
            watch.wait()
    for name, measured in times.items():
        print(f"{name}: median {statistics.median(measured):.1f} ms, from {min(measured):.1f} to {max(measured):.1f} ms")
