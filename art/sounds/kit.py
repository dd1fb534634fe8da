"""The workshop's tools: time, noise, filters, struck bodies and the last coat.

Every sound here is a one-dimensional numpy array of floats at RATE samples a
second.  Nothing in this file knows which sound it is working on.
"""

import struct

import numpy as np

RATE = 44100


# --- time and chance --------------------------------------------------------

def seconds(length):
    """The moments of a sound `length` seconds long."""
    return np.arange(int(round(length * RATE))) / RATE


def chance(seed):
    """A source of random numbers whose stream numpy promises never to change,
    so that a sound does not turn into another one with the next numpy."""
    return np.random.RandomState(seed)


def curve(t, *points):
    """Straight lines through (time, value) points."""
    times, values = zip(*points)
    return np.interp(t, times, values)


def glide(t, *points):
    """Like curve, but through pitches: equal steps in time are equal
    intervals to the ear, and the corners are rounded as a real weight turning
    would round them."""
    times, values = zip(*points)
    bent = np.interp(t, times, np.log(values))
    return np.exp(smooth(bent, 0.03))


def smooth(signal, width):
    """Rounds off corners shorter than `width` seconds."""
    n = max(3, int(width * RATE) | 1)
    window = np.hanning(n + 2)[1:-1]
    window /= window.sum()
    padded = np.pad(signal, n // 2, mode="edge")
    return np.convolve(padded, window, mode="valid") if n < 64 else \
        convolve(padded, window)[n - 1:n - 1 + len(signal)]


def turning(frequency):
    """The phase, in radians, of something turning at a changing frequency."""
    return 2 * np.pi * (np.cumsum(frequency) - frequency[0]) / RATE


# --- putting sounds together ------------------------------------------------

def place(track, sound, at, gain=1.0):
    """Adds a sound to a track at a moment; what hangs over the end is cut."""
    start = int(round(at * RATE))
    if start >= len(track):
        return
    stop = min(len(track), start + len(sound))
    track[start:stop] += gain * sound[:stop - start]


def convolve(a, b):
    size = 1
    while size < len(a) + len(b):
        size *= 2
    return np.fft.irfft(np.fft.rfft(a, size) * np.fft.rfft(b, size),
                        size)[:len(a) + len(b) - 1]


# --- filters ----------------------------------------------------------------

def shape(signal, response):
    """Filters with a complex response given as a function of frequency.  The
    generous padding keeps the end of the ringing from returning at the start."""
    size = 1
    while size < 2 * len(signal) + RATE // 4:
        size *= 2
    f = np.fft.rfftfreq(size, 1 / RATE)
    return np.fft.irfft(np.fft.rfft(signal, size) * response(f),
                        size)[:len(signal)]


def low_pass(signal, corner, q=0.707):
    return shape(signal, lambda f: 1 / (1 - (f / corner) ** 2
                                        + 1j * f / corner / q))


def high_pass(signal, corner, q=0.707):
    return shape(signal, lambda f: -(f / corner) ** 2
                 / (1 - (f / corner) ** 2 + 1j * f / corner / q))


def band(signal, low, high):
    return low_pass(high_pass(signal, low), high)


def formants(signal, peaks, floor=0.05):
    """What a horn or a mouth does to a buzz: resonances given as
    (frequency, width, gain), side by side, over a little of the plain buzz."""
    def response(f):
        total = np.full(len(f), floor, dtype=complex)
        for centre, width, gain in peaks:
            total += gain * 1j * f * width / (centre ** 2 - f ** 2
                                              + 1j * f * width)
        return total
    return shape(signal, response)


# --- things that are struck -------------------------------------------------

def ring(modes, length):
    """What a body does after a blow of no duration: a sum of its own tones.
    A mode is (frequency, seconds to fall by 60 dB, strength)."""
    t = seconds(length)
    total = np.zeros(len(t))
    for frequency, fall, strength in modes:
        if frequency < RATE * 0.45:
            total += strength * np.exp(-6.908 * t / fall) \
                * np.sin(2 * np.pi * frequency * t)
    return total


def soften(signal, contact):
    """A blow has a duration: the longer the two bodies touch, the fewer high
    tones they wake.  Leather is long, bone on brass is very short."""
    n = max(2, int(contact * RATE))
    pulse = np.sin(np.pi * (np.arange(n) + 0.5) / n) ** 2
    return convolve(signal, pulse / pulse.sum())[:len(signal)]


def struck(modes, contact, length):
    return soften(ring(modes, length), contact)


def detuned(modes, rng, spread):
    """The same body struck in another place: its tones are nearly where they
    were, and each answers more or less loudly."""
    return [(f * (1 + spread * rng.uniform(-1, 1)), d * rng.uniform(0.8, 1.2),
             a * rng.uniform(0.45, 1.0)) for f, d, a in modes]


def burst(rng, length, fall):
    """A puff of white noise falling by 60 dB in `fall` seconds."""
    t = seconds(length)
    return rng.standard_normal(len(t)) * np.exp(-6.908 * t / fall)


def air(signal, rng, size, amount):
    """The place around the sound: a short, dark, diffuse answer."""
    tail = low_pass(burst(rng, size, size), 3200)
    tail[:int(0.004 * RATE)] = 0
    tail /= np.sqrt(np.sum(tail ** 2))
    wet = convolve(signal, tail)[:len(signal)]
    return signal + amount * wet


# --- the last coat ----------------------------------------------------------

def k_weighted(signal):
    """As loud as the ear finds each frequency (the broadcasters' curve)."""
    def biquad(f, b, a):
        z = np.exp(-2j * np.pi * f / RATE)
        return (b[0] + b[1] * z + b[2] * z * z) / (a[0] + a[1] * z + a[2] * z * z)

    def response(f):
        k = np.tan(np.pi * 1681.974450955533 / RATE)
        q, vh = 0.7071752369554196, 10 ** (3.999843853973347 / 20)
        vb = vh ** 0.4996667741545416
        shelf = biquad(f, (vh + vb * k / q + k * k, 2 * (k * k - vh),
                           vh - vb * k / q + k * k),
                       (1 + k / q + k * k, 2 * (k * k - 1), 1 - k / q + k * k))
        k, q = np.tan(np.pi * 38.13547087602444 / RATE), 0.5003270373238773
        rumble = biquad(f, (1, -2, 1), (1 + k / q + k * k, 2 * (k * k - 1),
                                        1 - k / q + k * k))
        # The rumble filter's own gain at high frequencies is part of the curve.
        return shelf * rumble
    return shape(signal, response)


def loudness(signal):
    """Loudness in LUFS: blocks of 0.4 s, the quiet ones left out.  A sound
    shorter than a block counts as one block with silence around it."""
    block, step = int(0.4 * RATE), int(0.1 * RATE)
    weighted = k_weighted(np.pad(signal, (0, max(0, block - len(signal)))))
    power = np.array([np.mean(weighted[i:i + block] ** 2) for i in
                      range(0, len(weighted) - block + 1, step)]) + 1e-12
    heard = power[power > 10 ** ((-70 + 0.691) / 10)]
    heard = heard[heard > heard.mean() / 10] if len(heard) else power
    return -0.691 + 10 * np.log10(heard.mean())


def held_under(signal, ceiling):
    """Turns the gain down around the few highest peaks, a little before they
    come and a little after, so that a sound full of blows can be as loud as
    a steady one."""
    reach = int(0.003 * RATE)
    wanted = np.minimum(1, ceiling / np.maximum(np.abs(signal), 1e-9))
    padded = np.pad(wanted, reach, constant_values=1)
    lowest = np.lib.stride_tricks.sliding_window_view(
        padded, 2 * reach + 1).min(axis=1)
    window = np.hanning(2 * reach + 3)[1:-1]
    window /= window.sum()
    gain = convolve(np.pad(lowest, reach, mode="edge"),
                    window)[2 * reach:2 * reach + len(signal)]
    return signal * gain


def faded(signal, start, end):
    """Ends that cannot click."""
    n, m = int(start * RATE), int(end * RATE)
    out = signal.copy()
    out[:n] *= 0.5 - 0.5 * np.cos(np.pi * np.arange(n) / n)
    out[-m:] *= 0.5 + 0.5 * np.cos(np.pi * (np.arange(m) + 1) / m)
    return out


def centred(signal, start, end):
    """Without offset, yet still starting and ending at nothing."""
    weight = faded(np.ones(len(signal)), start, end)
    return signal - weight * signal.sum() / weight.sum()


def finished(signal, peak, level=None, fade=0.03, attack=0.0006):
    """Without rumble or offset, ends faded, at its loudness and under its
    peak.  `level` is a loudness in LUFS; without it only the peak is set."""
    signal = high_pass(signal, 30)
    signal = centred(faded(signal, attack, fade), attack, fade)
    ceiling = 10 ** (peak / 20)
    if level is not None:
        # Holding the peaks down costs loudness, so the two take turns.
        for _ in range(6):
            signal = signal * 10 ** ((level - loudness(signal)) / 20)
            signal = centred(held_under(signal, ceiling), attack, fade)
    else:
        signal = signal * (ceiling / np.max(np.abs(signal)))
    return signal


def write(path, signal):
    data = np.clip(np.round(signal * 32767), -32768, 32767).astype("<i2").tobytes()
    with open(path, "wb") as out:
        out.write(struct.pack("<4sI4s4sIHHIIHH4sI", b"RIFF", 36 + len(data),
                              b"WAVE", b"fmt ", 16, 1, 1, RATE, RATE * 2, 2, 16,
                              b"data", len(data)))
        out.write(data)
