#!/usr/bin/env python3
"""Every sound heard for real: PulseAudio without a loudspeaker, recorded and compared with the files.
Usage: bench/hear.py build/release/hear_sounds"""

import subprocess
import sys
import tempfile
import time
import wave
from pathlib import Path

import numpy

sys.path.append(str(Path(__file__).resolve().parents[1] / "tools"))
from player import ROOT, until

RATE = 44100
ORDER = ("click click1 key cupdice shipbell 4bells klaxon wateresplash divboard dive1 aooga cupdice shipbell").split()


def samples(sound):
    with wave.open(str(ROOT / f"wav/{sound}.wav")) as file:
        return numpy.frombuffer(file.readframes(file.getnframes()), "<i2").astype(float)


def find(sound, heard, start):
    """Where in the recording, within 3 s from `start`, the sound fits best, and how well (1: exactly)."""
    window = heard[start:start + 3 * RATE + len(sound)]
    spectra = [numpy.fft.rfft(x, 1 << (len(window) + len(sound)).bit_length()) for x in (window, sound)]
    at = start + int(numpy.fft.irfft(spectra[0] * spectra[1].conj())[:3 * RATE].argmax())
    part = heard[at:at + len(sound)]
    return at, part @ sound[:len(part)] / numpy.sqrt((part @ part) * (sound @ sound) + 1)


def record(driver):
    with tempfile.TemporaryDirectory() as folder:
        environment = {"PATH": "/usr/bin", "HOME": folder, "XDG_RUNTIME_DIR": folder, "QT_QPA_PLATFORM": "offscreen"}
        server = subprocess.Popen(
            ["pulseaudio", "-n", "--exit-idle-time=-1", "-L", "module-native-protocol-unix", "-L",
             f"module-null-sink sink_name=deaf rate={RATE}"], env=environment, stderr=subprocess.DEVNULL)
        try:
            until(lambda: subprocess.run(["pactl", "info"], env=environment, capture_output=True).returncode == 0)
            with open(Path(folder) / "heard", "wb") as file:
                listener = subprocess.Popen(["parec", "-d", "deaf.monitor", "--format=s16le", f"--rate={RATE}",
                                             "--channels=1", "--latency-msec=1"], env=environment, stdout=file)
                time.sleep(3)  # What the server has already mixed by then, it mixed in long blocks.
                longest = subprocess.run([driver], cwd=ROOT, env=environment, capture_output=True, text=True).stdout
                listener.terminate()
                listener.wait()
            return numpy.fromfile(Path(folder) / "heard", "<i2").astype(float), float(longest)
        finally:
            server.terminate()
            server.wait()


if __name__ == "__main__":
    heard, longest = record(sys.argv[1])
    at = 0
    places = []
    for name in ORDER:
        sound = samples(name)
        if len(places) == len(ORDER) - 2:
            sound = sound[:RATE * 3 // 10]  # This one is cut off; its beginning must be there.
        at, likeness = find(sound, heard, at)
        print(f"{name}: heard at {at / RATE:.3f} s, likeness {likeness:.4f}")
        assert likeness > 0.99, name
        places.append(at)
        at += len(sound)
    cut, bell = places[-2:]
    old = samples("cupdice")[bell - cut:][:RATE // 10]
    new = samples("shipbell")[:len(old)]
    shares = numpy.linalg.lstsq(numpy.stack([old, new], 1)[RATE * 30 // 1000:],
                                heard[bell:bell + len(old)][RATE * 30 // 1000:], rcond=None)[0]
    print(f"30 ms after the newer sound starts: {shares[0]:.4f} of the older one left; longest call {longest} ms")
    assert abs(shares[0]) < 0.01 and longest < 2
    print("1 passed, 0 failed")
