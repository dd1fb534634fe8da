#!/usr/bin/env python3
"""The zip for Windows under Wine: the rooms' tests; then unpacked, a turn with the mouse and one with keys, up to the
saved game, with sound. Where Wine or the zip is not here, a line says so and the status is 77.
Usage: wine_test.py build/windows"""

import shutil
import subprocess
import sys
import zipfile
from pathlib import Path

import numpy

sys.path.append(str(Path(__file__).resolve().parents[1] / "end_to_end"))
from play_test import MAGENTA, ORANGE
from player import ROOT, until
from windows_test import Watcher

FOLDER = Path(sys.argv[1]).resolve()


class AtWindows(Watcher):
    data = "Tölvane ß 日本/Tolvane"

    def __init__(self, made):
        super().__init__("", LANG="C.UTF-8", WINEDEBUG="-all", WINEDLLOVERRIDES="mscoree,mshtml=")
        self.environment |= {"WINEPREFIX": str(self.folder / "wine"),
                             "PULSE_SERVER": f"unix:{self.folder}/pulse/native"}
        self.sound = subprocess.Popen(
            ["pulseaudio", "-n", "--exit-idle-time=-1", "-L", "module-native-protocol-unix",
             "-L", "module-null-sink sink_name=deaf norewinds=1"], env=self.environment, stderr=subprocess.DEVNULL)
        with zipfile.ZipFile(made) as packed:
            packed.extractall(self.folder / self.data.split("/")[0])
        # Not in its own folder: it finds that by itself.
        self.command = ["env", "-C", "/", "wine", self.folder / self.data / "tolvane.exe"]
        self.tell("pactl", "info")
        subprocess.run(["wineboot", "--init"], env=self.environment, stderr=subprocess.DEVNULL, timeout=300)

    def __exit__(self, *error):
        self.tell("wineserver", "--kill")
        self.sound.kill()
        self.sound.wait()
        super().__exit__(*error)

    def loudest(self, what):
        """The loudest that is heard while `what` is done."""
        recording = self.folder / "recording"
        with open(recording, "wb") as file:
            listener = subprocess.Popen(["parec", "-d", "deaf.monitor", "--format=s16le", "--latency-msec=1"],
                                        env=self.environment, stdout=file)
        until(lambda: recording.stat().st_size)
        what()
        until(lambda silent=recording.stat().st_size: recording.stat().st_size > silent + 500000)  # Some seconds.
        listener.kill()
        listener.wait()
        return abs(numpy.fromfile(recording, "<i2").astype(int)).max()

    def turn_by_keys(self):
        self.throw()
        every_key = [word for key in "t654321" for word in ("key", key)]
        until(lambda: self.mouse(*every_key, "sleep", 0.5) or self.turn_over(), 90)


def rooms_pass(player):
    build = FOLDER / "tests"
    for command in (("cmake", "-G", "Ninja", "-S", ROOT, "-B", build, "-DCMAKE_BUILD_TYPE=Release",
                     f"-DCMAKE_TOOLCHAIN_FILE={ROOT}/packaging/mingw/toolchain.cmake",
                     "-DCMAKE_CROSSCOMPILING_EMULATOR=wine"),
                    ("cmake", "--build", build), ("ctest", "--test-dir", build, "--output-on-failure")):
        done = subprocess.run(command, env=player.environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              text=True)
        assert done.returncode == 0, done.stdout
    assert "100% tests passed" in done.stdout, done.stdout


def a_game_is_played(player):
    player.start()
    assert player.loudest(lambda: None) < 10
    player.options()
    assert player.loudest(lambda: player.mouse("key", "2")) > 1000, "the click that starts a game"
    player.find_window(798)
    player.finish_turn()
    player.dice_turn(MAGENTA)
    player.turn_by_keys()
    player.dice_turn(ORANGE)
    saved = player.leave()
    assert saved[:4] == [2, 0, 2, 0], saved
    text = (player.folder / player.data / "lastgame.inf").read_bytes()
    assert text.count(b"\r\n") == text.count(b"\n") == 10, text
    player.end()
    player.start()
    player.restart()
    assert player.leave() == saved
    player.end()


if __name__ == "__main__":
    made = sorted(FOLDER.glob("tolvane-*-windows.zip"))
    if not shutil.which("wine") or not made:
        print("Skipped: that takes Wine and the zip that packaging/windows makes.")
        sys.exit(77)
    with AtWindows(made[-1]) as player:
        rooms_pass(player)
        a_game_is_played(player)
    print("2 passed, 0 failed")
