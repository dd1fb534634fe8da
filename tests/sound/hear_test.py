#!/usr/bin/env python3
"""Sounds heard for real, on PulseAudio without a loudspeaker, whatever becomes of the server: what is recorded is
compared with the files sample by sample. Silence between samples is let pass, so a slow machine changes nothing.
Usage: hear_test.py build/release/play_sounds"""

import os
import re
import shutil
import struct
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
ALL = "click click1 key cupdice shipbell 4bells klaxon wateresplash divboard dive1 aooga".split()
PATIENCE = 60  # Seconds: on a machine at its limits a process may take a long time to come or go.
calls, ends = [], []  # Milliseconds that each call took, seconds that each end took.


def samples(sound):
    with wave.open(str(ROOT / f"wav/{sound}.wav")) as file:
        return numpy.frombuffer(file.readframes(file.getnframes()), "<i2")


def wav(data, coding=1, channels=1, rate=RATE, bits=16, size=None):
    """A WAV file's bytes; `size` is what it says it holds, if that is not the truth."""
    size = len(data) if size is None else size
    frame = channels * bits // 8
    return (b"RIFF" + struct.pack("<I", size + 36 & 0xffffffff) + b"WAVEfmt "
            + struct.pack("<IHHIIHH", 16, coding, channels, rate, rate * frame, frame, bits)
            + b"data" + struct.pack("<I", size) + data)


class Machine:
    """A sound server, which comes and goes, a listener, and the program with one player of sounds."""

    def __init__(self, driver=DRIVER, server=True):
        self.folder = Path(tempfile.mkdtemp(prefix="tolvane-"))
        self.recording, self.said = self.folder / "recording", self.folder / "said"
        self.environment = {**os.environ, "HOME": str(self.folder), "XDG_RUNTIME_DIR": str(self.folder),
                            "PULSE_SERVER": f"unix:{self.folder}/pulse/native", "QT_QPA_PLATFORM": "offscreen"}
        self.server = self.start_server() if server else None
        with open(self.said, "w") as said:
            self.program = subprocess.Popen([driver], cwd=ROOT, env=self.environment, text=True, bufsize=1,
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

    def heard_of(self, *names):
        """Whether any of these has been heard, or began."""
        return any(self.heard(samples(name)[:RATE // 4]) for name in names)

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
        for name in ALL + ["click", "click"]:
            machine.hear(samples(name), rf"WAV\{name}.wav")
        time.sleep(1)
        before = machine.switches()
        time.sleep(2)
        assert machine.switches() == before, (before, machine.switches())
        assert not machine.lines("alert")


def the_newest_wins():
    with Machine() as machine:
        machine.hear(samples("cupdice")[:RATE // 4], "wav/cupdice.wav")
        machine.hear(samples("shipbell")[RATE * 30 // 1000:], "wav/shipbell.wav")  # Alone, but for 30 ms at most.
        machine.hear(samples("klaxon")[:RATE // 4], "wav/klaxon.wav")
        machine.hear(samples("click"), *["wav/aooga.wav", "wav/key.wav"] * 20, "wav/click.wav")
        assert not any(machine.heard(samples(name)) for name in ("cupdice", "klaxon", "aooga"))


def a_file_is_heard_or_alerts():
    sound = samples("klaxon")[:RATE // 4]
    coarse = (sound >> 8).astype("<i2")
    wide = (sound.astype("<i4") << 8).astype("<i4").view("u1").reshape(-1, 4)
    good = wav(sound.tobytes())
    with Machine() as machine:
        os.mkfifo(machine.folder / "pipe")
        for name, contents, heard in (
                ("8 bits", wav((coarse + 128).astype("u1").tobytes(), bits=8), coarse << 8),
                ("24 bits", wav(wide[:, :3].tobytes(), bits=24), sound),
                ("float", wav((sound / 32768).astype("<f4").tobytes(), coding=3, bits=32), sound),
                ("stereo", wav(numpy.repeat(sound, 2).tobytes(), channels=2), sound),
                ("streamed", wav(sound.tobytes(), size=0xffffffff), sound),
                ("cut short", wav(sound.tobytes(), size=10 * len(sound)), sound),
                ("nothing", b"", None), ("noise", bytes(range(256)) * 99, None), ("no samples", wav(b""), None),
                ("cut in its head", good[:30], None), ("another kind of file", b"FORM" + good[4:], None),
                ("no channel", wav(good, channels=0), None), ("standing still", wav(good, rate=0), None),
                ("unknown coding", wav(good, coding=0x1234), None), ("no bits", wav(good, bits=0), None),
                ("missing", None, None), (".", None, None), ("pipe", None, None), ("good again", good, sound)):
            alerts = len(machine.lines("alert"))
            if contents is not None:
                (machine.folder / name).write_bytes(contents)
            if heard is None:
                machine.play(machine.folder / name)
                until(lambda: len(machine.lines("alert")) > alerts, PATIENCE)
            else:
                machine.hear(heard, machine.folder / name)
            assert len(machine.lines("alert")) == alerts + (heard is None), name


def a_server_that_comes_and_comes_back_is_found():
    with Machine(server=False) as machine:
        machine.play("wav/klaxon.wav", "wav/missing.wav")
        until(lambda: machine.lines("alert"), PATIENCE)  # Of the missing file the player hears in any case.
        for name in "key", "shipbell":  # What plays, or has ended, when the server goes.
            machine.play("wav/aooga.wav")
            time.sleep(1)
            machine.start_server()
            machine.hear(samples("key"), "wav/key.wav")
            assert not machine.heard_of("klaxon", "aooga")
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
                assert not machine.heard_of("klaxon", "aooga")
            machine.server.send_signal(SIGSTOP)
            machine.play("wav/klaxon.wav", "wav/aooga.wav")
            time.sleep(0.5)
    assert median(ends[-5:]) < 1, ends


def the_end_may_come_at_any_moment():
    for server in (False,) * 10 + (True,) * 5:
        with Machine(server=server) as machine:
            machine.play("wav/klaxon.wav")
            machine.program.stdin.write("wav/aooga.wav\n")


def without_its_module_the_program_is_silent():
    with tempfile.TemporaryDirectory() as folder, Machine(shutil.copy(DRIVER, folder)) as machine:
        machine.play("wav/klaxon.wav", "wav/missing.wav")
        time.sleep(0.5)
        assert not machine.lines("alert") and not numpy.fromfile(machine.recording, "<i2").any()


if __name__ == "__main__":
    for case in (every_sound_is_heard_whole_and_then_nothing_wakes, the_newest_wins, a_file_is_heard_or_alerts,
                 a_server_that_comes_and_comes_back_is_found, nothing_waits_for_a_hung_server,
                 the_end_may_come_at_any_moment, without_its_module_the_program_is_silent):
        case()
        print(case.__name__.replace("_", " "), flush=True)
    assert median(calls) < 2, calls  # No handler waits for a sound.
    print("7 passed, 0 failed")
