#!/usr/bin/env python3
"""Sounds heard for real, on PulseAudio without a loudspeaker, whatever becomes of the server: what is recorded is
compared with the files sample by sample. Silence between samples is let pass, so a slow machine changes nothing.
Usage: hear_test.py build/release/play_sounds"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import time
import wave
from pathlib import Path
from signal import SIGCONT, SIGSTOP
from statistics import median

import numpy

sys.path.append(str(Path(__file__).resolve().parents[2] / "tools"))
from player import ROOT, until

DRIVER = Path(sys.argv[1]).resolve()
RATE = 44100
PATIENCE = 60  # Seconds: on a machine at its limits a process may take a long time to come or go.
calls, ends = [], []  # Milliseconds that each call took, seconds that each end took.


def samples(sound):
    with wave.open(str(ROOT / f"wav/{sound}.wav")) as file:
        return numpy.frombuffer(file.readframes(file.getnframes()), "<i2")


def begun(sound):
    return samples(sound)[:RATE // 4]


class Machine:
    """A sound server, which comes and goes, a listener, and the program with one player of sounds."""

    def __init__(self, server=True):
        self.folder = Path(tempfile.mkdtemp(prefix="tolvane-"))
        self.recording, self.said = self.folder / "recording", self.folder / "said"
        self.environment = {**os.environ, "HOME": str(self.folder), "XDG_RUNTIME_DIR": str(self.folder),
                            "PULSE_SERVER": f"unix:{self.folder}/pulse/native", "QT_QPA_PLATFORM": "offscreen"}
        self.server = self.start_server() if server else None
        with open(self.said, "w") as said:
            self.program = subprocess.Popen([DRIVER], cwd=ROOT, env=self.environment, text=True, bufsize=1,
                                            stdin=subprocess.PIPE, stdout=said)

    def __enter__(self):
        return self

    def __exit__(self, *error):
        start = time.monotonic()
        self.program.stdin.close()
        if not any(error):
            assert self.program.wait(PATIENCE) == 0
            ends.append(time.monotonic() - start)
            calls.extend(float(line.split()[1]) for line in self.lines("call"))
        for process in filter(None, (self.program, self.server)):
            process.kill()
            process.wait()
        shutil.rmtree(self.folder)

    def start_server(self):
        self.server = subprocess.Popen(
            ["pulseaudio", "-n", "--exit-idle-time=-1", "--high-priority=no", "-L", "module-native-protocol-unix",
             "-L", f"module-null-sink sink_name=deaf rate={RATE} channels=1 norewinds=1"],
            env=self.environment, stderr=subprocess.DEVNULL)
        until(lambda: not subprocess.run(["pactl", "info"], env=self.environment, capture_output=True).returncode,
              PATIENCE)
        with open(self.recording, "wb") as file:  # The listener ends with the server.
            subprocess.Popen(["parec", "-d", "deaf.monitor", "--format=s16le", f"--rate={RATE}", "--channels=1",
                              "--latency-msec=1"], env=self.environment, stdout=file, stderr=subprocess.DEVNULL)
        until(lambda: self.recording.stat().st_size, PATIENCE)
        return self.server

    def lines(self, kind):
        return [line for line in self.said.read_text().splitlines() if line.startswith(kind)]

    def play(self, *paths):
        """Asks for the sounds, one after the other, and returns when the player has been called for them."""
        called = len(self.lines("call")) + len(paths)
        self.program.stdin.write("".join(f"{path}\n" for path in paths))
        until(lambda: len(self.lines("call")) == called, PATIENCE)

    def heard(self, sound, since=0):
        recorded = numpy.fromfile(self.recording, "<i2")[since:]
        return sound[sound != 0].tobytes() in recorded[recorded != 0].tobytes()

    def hear(self, sound, *paths):
        since = self.recording.stat().st_size // 2
        self.play(*paths)
        until(lambda: self.heard(sound, since), PATIENCE)

    def switches(self):
        """How often each thread of the program has woken and slept."""
        tasks = Path(f"/proc/{self.program.pid}/task").glob("*/status")
        return sorted(re.findall("ctxt_switches.*", task.read_text()) for task in tasks)


def every_sound_is_heard_whole_and_then_nothing_wakes():
    with Machine() as machine:
        for name in [*(path.stem for path in (ROOT / "wav").iterdir()), "click", "click"]:
            machine.hear(samples(name), rf"WAV\{name}.wav")
        time.sleep(1)
        before = machine.switches()
        time.sleep(2)
        assert machine.switches() == before, (before, machine.switches())
        assert not machine.lines("alert")


def the_newest_wins():
    with Machine() as machine:
        machine.hear(begun("cupdice"), "wav/cupdice.wav")
        machine.hear(samples("shipbell")[RATE * 30 // 1000:], "wav/shipbell.wav")  # Alone, but for 30 ms at most.
        machine.hear(begun("klaxon"), "wav/klaxon.wav")
        machine.hear(samples("click"), *["wav/aooga.wav", "wav/key.wav"] * 20, "wav/click.wav")
        assert not any(machine.heard(samples(name)) for name in ("cupdice", "klaxon", "aooga"))


def a_file_is_heard_or_alerts():
    good = (ROOT / "wav/key.wav").read_bytes()
    files = {"nothing": b"", "cut in its head": good[:30], "no samples": good[:44],
             "of another kind": b"FORM" + good[4:], "without a channel": good[:22] + bytes(2) + good[24:]}
    with Machine() as machine:
        os.mkfifo(machine.folder / "pipe")
        for name, contents in files.items():
            (machine.folder / name).write_bytes(contents)
        for alerts, name in enumerate((*files, "missing", ".", "pipe"), 1):
            machine.play(machine.folder / name)
            until(lambda: len(machine.lines("alert")) == alerts, PATIENCE)
        machine.hear(samples("key"), "wav/key.wav")
        assert len(machine.lines("alert")) == alerts, name


def a_server_that_comes_and_comes_back_is_found():
    with Machine(server=False) as machine:
        machine.play("wav/klaxon.wav", "wav/missing.wav")
        until(lambda: machine.lines("alert"), PATIENCE)  # Of the missing file the player hears in any case.
        for name in "key", "shipbell":  # What plays, or has ended, when the server goes.
            machine.play("wav/aooga.wav")
            time.sleep(1)
            machine.start_server()
            machine.hear(samples("key"), "wav/key.wav")
            assert not any(machine.heard(begun(name)) for name in ("klaxon", "aooga"))
            machine.play(f"wav/{name}.wav")
            machine.server.kill()
            machine.server.wait()
        machine.start_server()
        machine.hear(samples("key"), "wav/key.wav")
        assert len(machine.lines("alert")) == 1


def nothing_waits_for_a_hung_server():
    for rounds in 2, 0, 0, 0, 0:  # Hung again and again, and from the first sound to the end.
        with Machine() as machine:
            for _ in range(rounds):
                machine.server.send_signal(SIGSTOP)
                machine.play(*["wav/klaxon.wav", "wav/aooga.wav"] * 20)
                time.sleep(2)
                machine.server.send_signal(SIGCONT)
                machine.hear(samples("click"), "wav/click.wav")
                assert not any(machine.heard(begun(name)) for name in ("klaxon", "aooga"))
            machine.server.send_signal(SIGSTOP)
            machine.play("wav/klaxon.wav", "wav/aooga.wav")
            time.sleep(0.5)
    assert median(ends[-5:]) < 1, ends


def the_end_may_come_at_any_moment():
    for server in (False,) * 10 + (True,) * 5:
        with Machine(server=server) as machine:
            machine.program.stdin.write("wav/klaxon.wav\nwav/aooga.wav\n")


if __name__ == "__main__":
    for case in (every_sound_is_heard_whole_and_then_nothing_wakes, the_newest_wins, a_file_is_heard_or_alerts,
                 a_server_that_comes_and_comes_back_is_found, nothing_waits_for_a_hung_server,
                 the_end_may_come_at_any_moment):
        case()
        print(case.__name__.replace("_", " "), flush=True)
    assert median(calls) < 2, calls  # No handler waits for a sound.
    print("6 passed, 0 failed")
