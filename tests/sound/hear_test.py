#!/usr/bin/env python3
"""Sounds heard for real, on PulseAudio without a loudspeaker, whatever becomes of the server: what is recorded is
compared with the files sample by sample. Silence between samples is let pass, so a slow machine changes nothing.
Usage: hear_test.py build/release/play_sounds [CASE...]"""

import os
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import threading
import time
import wave
from pathlib import Path
from statistics import median

import numpy

sys.path.append(str(Path(__file__).resolve().parents[2] / "tools"))
from player import ROOT, until

DRIVER = Path(sys.argv[1]).resolve()
RATE = 44100
ALL = "click click1 key cupdice shipbell 4bells klaxon wateresplash divboard dive1 aooga".split()
first_calls, later_calls = [], []  # Milliseconds that passed, milliseconds worked, waits.
ends, hung_ends = [], []  # Milliseconds.
PATIENCE = 60  # Seconds: on a machine at its limits a process may take a long time to come or go.


def samples(sound):
    with wave.open(str(ROOT / f"wav/{sound}.wav")) as file:
        return numpy.frombuffer(file.readframes(file.getnframes()), "<i2")


def wav(data, coding=1, channels=1, rate=RATE, bits=16, size=None):
    """A WAV file's bytes; `size` is what it says it holds, if that is not the truth."""
    size = len(data) if size is None else size
    frame = channels * bits // 8
    return (b"RIFF" + struct.pack("<I", min(size + 36, 0xffffffff)) + b"WAVEfmt "
            + struct.pack("<IHHIIHH", 16, coding, channels, rate, rate * frame & 0xffffffff, frame & 0xffff, bits)
            + b"data" + struct.pack("<I", size) + data)


class Machine:
    """A sound server, which comes and goes, a listener, and the program with one player of sounds."""

    def __init__(self, driver=DRIVER, server=True):
        self.folder = Path(tempfile.mkdtemp(prefix="tolvane-"))
        self.environment = {**os.environ, "HOME": str(self.folder), "XDG_RUNTIME_DIR": str(self.folder),
                            "QT_QPA_PLATFORM": "offscreen"}
        for name in "DISPLAY", "PULSE_SERVER":
            self.environment.pop(name, None)
        self.server = self.program = None
        if server:
            self.start_server()
        self.program = subprocess.Popen([driver], cwd=ROOT, env=self.environment, text=True, bufsize=1,
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.lines = []
        self.reader = threading.Thread(target=lambda: self.lines.extend(self.program.stdout), daemon=True)
        self.reader.start()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        for process in filter(None, (self.program, self.server)):
            process.kill()
            process.wait()
        shutil.rmtree(self.folder)

    def start_server(self, device=True):
        self.server = subprocess.Popen(["pulseaudio", "-n", "--exit-idle-time=-1", "--high-priority=no", "-L",
                                        "module-native-protocol-unix"], env=self.environment, stderr=subprocess.DEVNULL)
        until(lambda: subprocess.run(["pactl", "info"], env=self.environment, capture_output=True).returncode == 0,
              PATIENCE)
        if device:
            self.plug_in()

    def plug_in(self):
        subprocess.run(["pactl", "load-module", "module-null-sink", "sink_name=deaf", f"rate={RATE}", "channels=1",
                        "norewinds=1"], env=self.environment, check=True, stdout=subprocess.DEVNULL)
        self.recording = Path(tempfile.mkstemp(dir=self.folder)[1])
        with open(self.recording, "wb") as file:  # The listener ends with the server.
            subprocess.Popen(["parec", "-d", "deaf.monitor", "--format=s16le", f"--rate={RATE}", "--channels=1",
                              "--latency-msec=1"], env=self.environment, stdout=file, stderr=subprocess.DEVNULL)
        until(lambda: self.recording.stat().st_size, PATIENCE)

    def stop_server(self):
        self.server.kill()
        self.server.wait()

    def play(self, *paths):
        """Asks for the sounds, one after the other, and returns when the player has been called for them."""
        calls = len(self.calls())
        self.program.stdin.write("".join(f"{path}\n" for path in paths))
        until(lambda: len(self.calls()) == calls + len(paths), PATIENCE)

    def calls(self):
        return [tuple(map(float, line.split()[1:])) for line in list(self.lines) if line.startswith("call")]

    def alerts(self):
        return self.lines.count("alert\n")

    def heard(self, sound, since=0):
        recorded = numpy.fromfile(self.recording, "<i2")[since:]
        return sound[sound != 0].tobytes() in recorded[recorded != 0].tobytes()

    def hear(self, path, sound):
        since = self.recording.stat().st_size // 2
        self.play(path)
        self.until_heard(sound, since, path)

    def until_heard(self, sound, since=0, path=""):
        def found():
            return self.heard(sound, since)
        found.__doc__ = f"heard {path}"
        until(found, PATIENCE)

    def end(self, times=ends):
        start = time.monotonic()
        self.program.stdin.close()
        assert self.program.wait(PATIENCE) == 0
        times.append((time.monotonic() - start) * 1000)
        self.reader.join()
        first, *later = self.calls()
        first_calls.append(first)
        later_calls.extend(later)


def every_sound_is_heard_whole():
    with Machine() as machine:
        for name in ALL + ["click", "click"]:
            machine.hear(rf"WAV\{name}.wav", samples(name))
        assert machine.alerts() == 0
        machine.end()


def the_newest_wins():
    with Machine() as machine:
        old, new = samples("cupdice"), samples("shipbell")
        machine.hear("wav/cupdice.wav", old[:RATE // 4])
        machine.play("wav/shipbell.wav")
        machine.until_heard(new[RATE * 30 // 1000:])  # All of it alone, but for 30 ms at most.
        assert not machine.heard(old)
        machine.hear("wav/klaxon.wav", samples("klaxon")[:RATE // 4])
        machine.play(*["wav/aooga.wav", "wav/key.wav"] * 20, "wav/click.wav")  # Before the server can make a stream.
        machine.until_heard(samples("click"))
        assert not machine.heard(samples("klaxon")) and not machine.heard(samples("aooga"))
        machine.end()


def every_kind_of_wav_file_is_heard():
    sound = samples("klaxon")[:RATE // 4]
    coarse = (sound >> 8).astype("<i2")
    wide = (sound.astype("<i4") << 8).astype("<i4").view("u1").reshape(-1, 4)
    unknown = 0xffffffff
    with Machine() as machine:
        for name, contents in {
                "8 bits": (wav((coarse + 128).astype("u1").tobytes(), bits=8), coarse << 8),
                "24 bits": (wav(wide[:, :3].tobytes(), bits=24), sound),
                "32 bits": (wav((sound.astype("<i4") << 16).tobytes(), bits=32), sound),
                "float": (wav((sound / 32768).astype("<f4").tobytes(), coding=3, bits=32), sound),
                "stereo": (wav(numpy.repeat(sound, 2).tobytes(), channels=2), sound),
                "streamed": (wav(sound.tobytes(), size=unknown), sound),
                "streamed, size never filled in": (wav(sound.tobytes(), size=0), sound),
                "cut short": (wav(sound.tobytes(), size=10 * len(sound)), sound)}.items():
            path = machine.folder / f"{name}.wav"
            path.write_bytes(contents[0])
            machine.hear(path, contents[1])
        assert machine.alerts() == 0
        machine.end()


def what_is_no_sound_alerts():
    sound = samples("click").tobytes()
    good = wav(sound)
    with Machine() as machine:
        os.mkfifo(machine.folder / "pipe")
        bad = {"nothing": b"", "noise": bytes(range(256)) * 99, "no samples": wav(b""), "cut in its head": good[:30],
               "no WAVE": good.replace(b"WAVE", b"RAVE"), "another kind of file": b"FORM" + good[4:],
               "no channel": wav(sound, channels=0), "many channels": wav(sound, channels=999),
               "standing still": wav(sound, rate=0), "too fast": wav(sound, rate=0x7fffffff),
               "unknown coding": wav(sound, coding=0x1234), "no bits": wav(sound, bits=0)}
        for name, contents in bad.items():
            (machine.folder / name).write_bytes(contents)
        alerts = 0
        for name in [*bad, "pipe", "missing", "."]:
            machine.play(machine.folder / name)
            alerts += 1
            until(lambda: machine.alerts() == alerts, PATIENCE)
        machine.hear("wav/click.wav", samples("click"))
        machine.play(machine.folder / "pipe")
        machine.end()


def a_server_that_comes_later_is_found():
    with Machine(server=False) as machine:
        machine.play("wav/klaxon.wav", "wav/missing.wav")
        until(machine.alerts, PATIENCE)  # Of the missing file the player hears in any case.
        machine.play("wav/aooga.wav")
        time.sleep(1)
        machine.start_server(device=False)
        machine.play("wav/cupdice.wav")  # Without a device: silence.
        time.sleep(1)
        machine.plug_in()
        machine.hear("wav/key.wav", samples("key"))
        assert not any(machine.heard(samples(name)[:RATE // 4]) for name in ("klaxon", "aooga", "cupdice"))
        assert machine.alerts() == 1
        machine.end()


def a_server_that_comes_back_is_found():
    with Machine() as machine:
        for name in "key", "shipbell":  # Away while nothing plays, and then while something does.
            machine.hear("wav/key.wav", samples("key"))
            machine.play(f"wav/{name}.wav")
            machine.stop_server()
            time.sleep(2.5)
            machine.play("wav/aooga.wav")
            time.sleep(0.5)
            machine.start_server()
            machine.hear("wav/click.wav", samples("click"))
            assert not machine.heard(samples("aooga")[:RATE // 4])
        machine.end()


def nothing_waits_for_a_hung_server():
    for heard_before in False, True:
        with Machine() as machine:
            if heard_before:
                machine.hear("wav/key.wav", samples("key"))
            for _ in range(2):
                machine.server.send_signal(signal.SIGSTOP)
                machine.play(*["wav/klaxon.wav", "wav/aooga.wav"] * 20)
                time.sleep(2)
                machine.server.send_signal(signal.SIGCONT)
                machine.hear("wav/click.wav", samples("click"))
                assert not any(machine.heard(samples(name)[:RATE // 4]) for name in ("klaxon", "aooga"))
            machine.server.send_signal(signal.SIGSTOP)
            machine.play("wav/klaxon.wav")
            machine.end(hung_ends)
    for _ in range(3):  # Hung from the first sound to the end.
        with Machine() as machine:
            machine.server.send_signal(signal.SIGSTOP)
            machine.play(*["wav/klaxon.wav", "wav/aooga.wav"] * 20)
            time.sleep(0.5)
            machine.end(hung_ends)
    assert median(hung_ends) < 1000, hung_ends


def the_end_may_come_at_any_moment():
    for _ in range(20):
        with Machine(server=False) as machine:
            machine.play("wav/klaxon.wav")
            machine.program.stdin.write("wav/aooga.wav\n")
            machine.end()


def without_its_module_the_program_is_silent():
    with tempfile.TemporaryDirectory() as folder:
        with Machine(shutil.copy(DRIVER, folder)) as machine:
            machine.play("wav/klaxon.wav", "wav/missing.wav")
            time.sleep(0.5)
            machine.play("wav/aooga.wav")
            machine.end()
            recorded = numpy.fromfile(machine.recording, "<i2")
            assert machine.alerts() == 0 and not recorded.any()


def nothing_wakes_after_the_last_sound():
    with Machine() as machine:
        machine.hear("wav/click.wav", samples("click"))
        time.sleep(1)

        def switches():
            tasks = Path(f"/proc/{machine.program.pid}/task").glob("*/status")
            return [line for task in sorted(tasks) for line in task.read_text().split("\n") if "ctxt_switches" in line]
        before = switches()
        time.sleep(2)
        assert switches() == before, (before, switches())
        machine.end()


if __name__ == "__main__":
    cases = [every_sound_is_heard_whole, the_newest_wins, every_kind_of_wav_file_is_heard, what_is_no_sound_alerts,
             a_server_that_comes_later_is_found, a_server_that_comes_back_is_found, nothing_waits_for_a_hung_server,
             the_end_may_come_at_any_moment, without_its_module_the_program_is_silent,
             nothing_wakes_after_the_last_sound]
    cases = [case for case in cases if case.__name__ in sys.argv[2:]] or cases
    for case in cases:
        start = time.monotonic()
        case()
        print(f"{case.__name__.replace('_', ' ')}: {time.monotonic() - start:.1f} s", flush=True)
    for what, calls in ("first calls", first_calls), ("later calls", later_calls):
        passed, worked, waits = zip(*calls)
        print(f"{what}: {median(passed):.3f} ms, worked {median(worked):.3f} ms (longest {max(passed):.3f} and "
              f"{max(worked):.3f}); {sum(map(bool, waits))} of {len(calls)} waited")
        # On a busy machine time passes, and now and then the other thread holds what is shared.
        assert median(worked) < 2 and sum(map(bool, waits)) <= len(calls) / 4
    for what, times in ("ends", ends), ("ends with a hung server", hung_ends):
        print(f"{what}: {median(times or [0]):.1f} ms, longest {max(times, default=0):.1f}")
    print(f"{len(cases)} passed, 0 failed")
