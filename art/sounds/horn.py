"""Diaphragms: the ship's klaxon and the old motor horn.

In both a toothed wheel turned by a motor clicks over a stud in the middle of
a steel diaphragm, at the narrow end of a horn.  The pitch is the number of
teeth that pass in a second, so it follows the motor as it runs up and down;
no two teeth are quite the same height, which is the roughness one hears.
"""

import numpy as np

from kit import (air, band, chance, convolve, curve, formants, glide,
                 high_pass, ring, seconds, smooth)

RATE_UP = 8  # teeth are placed this much finer than the samples


def teeth(rng, t, pitch, wheel, uneven):
    """Pulses, one for each tooth, of a wheel with `wheel` teeth.  They are set
    between the samples, or the ear would hear the grid as a second note."""
    passed = np.cumsum(pitch) / len(t) * (t[-1] + t[1])
    heights = 1 + uneven * rng.uniform(-1, 1, wheel)
    places = uneven * 0.12 * rng.uniform(-1, 1, wheel)
    number = np.arange(0, int(passed[-1]))
    when = np.interp(0.3 + number + places[number % wheel]
                     + 0.006 * rng.standard_normal(len(number)), passed, t)
    fine = np.zeros(len(t) * RATE_UP)
    spot = np.round(when * 44100 * RATE_UP).astype(int)
    keep = spot < len(fine)
    np.add.at(fine, spot[keep], heights[number % wheel][keep]
              * (1 + 0.05 * rng.standard_normal(keep.sum())))
    # A tooth presses for about a third of a millisecond and lets go quickly.
    n = int(0.00042 * 44100 * RATE_UP)
    press = np.concatenate([np.linspace(0, 1, int(n * 0.7)),
                            np.linspace(1, -0.35, int(n * 0.2)),
                            np.linspace(-0.35, 0, int(n * 0.4))])
    return convolve(fine, press)[:len(fine):RATE_UP]


def driven(pulses, diaphragm):
    """The diaphragm rings after every tooth, and cannot move as far inwards,
    onto the stud, as outwards."""
    moved = convolve(pulses, ring(diaphragm, 0.05))[:len(pulses)]
    moved /= np.sqrt(np.mean(moved ** 2))
    return np.where(moved > 0, np.tanh(0.9 * moved), np.tanh(2.2 * moved) / 2.2)


def klaxon():
    rng = chance(61)
    length = 1.6
    t = seconds(length)
    pitch = glide(t, (0, 150), (0.10, 318), (0.22, 352), (1.15, 344),
                  (1.34, 300), (length, 175))
    pitch = pitch * (1 + 0.006 * np.sin(2 * np.pi * 17 * t))
    buzz = driven(teeth(rng, t, pitch, 10, 0.22),
                  [(980, 0.012, 1.0), (2310, 0.008, 0.7), (3950, 0.005, 0.4)])
    sound = formants(buzz, [(420, 160, 0.55), (905, 170, 1.0),
                            (1480, 220, 0.75), (2350, 320, 0.65),
                            (3300, 450, 0.45), (5200, 900, 0.22)], 0.06)
    level = curve(t, (0, 0.35), (0.05, 0.8), (0.14, 1.0), (1.15, 0.95),
                  (1.36, 0.6), (length, 0.0))
    return air(high_pass(sound * smooth(level, 0.02), 180), rng, 0.18, 0.16)


def aooga():
    """"Ah" while the motor starts, "OOO" at full speed, a catch, and "gah"
    as it runs down.  The flap of the horn is open, nearly shut, open."""
    rng = chance(62)
    length = 1.75
    t = seconds(length)
    pitch = glide(t, (0, 150), (0.12, 196), (0.30, 208), (0.46, 392),
                  (0.62, 415), (0.98, 408), (1.07, 330), (1.14, 232),
                  (1.42, 212), (length, 138))
    buzz = driven(teeth(rng, t, pitch, 7, 0.16),
                  [(760, 0.014, 1.0), (1720, 0.009, 0.6), (2900, 0.006, 0.35)])
    ah = formants(buzz, [(720, 130, 1.0), (1180, 170, 0.8), (2450, 280, 0.40),
                         (3500, 420, 0.22)], 0.05)
    ooo = formants(buzz, [(425, 110, 1.0), (830, 130, 0.75), (2250, 260, 0.22),
                          (3200, 400, 0.10)], 0.025)
    open_ = smooth(curve(t, (0, 0.85), (0.28, 1), (0.46, 0), (1.04, 0),
                         (1.14, 1), (length, 0.9)), 0.03)
    level = smooth(curve(t, (0, 0.4), (0.05, 0.75), (0.26, 0.8), (0.42, 1.0),
                         (1.00, 1.0), (1.055, 0.22), (1.085, 0.22),
                         (1.13, 1.0), (1.40, 0.85), (length, 0.0)), 0.025)
    sound = level * (open_ * ah + (1 - open_) * 1.25 * ooo)
    return air(high_pass(sound, 120), rng, 0.15, 0.14)
