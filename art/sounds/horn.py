"""Diaphragms: the ship's klaxon and the old motor horn.

In both a toothed wheel turned by a motor clicks over a stud in the middle of
a steel diaphragm, at the narrow end of a horn.  The pitch is the number of
teeth that pass in a second, so it follows the motor as it runs up and down;
no two teeth are quite the same height, which is the roughness one hears.
"""

import numpy as np

from kit import (RATE, air, chance, convolve, curve, formants, glide, high_pass,
                 ring, seconds, smooth)

FINER = 8  # teeth are placed this much finer than the samples


def teeth(rng, t, pitch, wheel, uneven):
    """Pulses, one for each tooth, of a wheel with `wheel` teeth.  They are set
    between the samples, or the ear would hear the grid as a second note."""
    passed = np.cumsum(pitch) / RATE
    heights = 1 + uneven * rng.uniform(-1, 1, wheel)
    places = uneven * 0.12 * rng.uniform(-1, 1, wheel)
    number = np.arange(0, int(passed[-1]))
    when = np.interp(0.3 + number + places[number % wheel]
                     + 0.006 * rng.standard_normal(len(number)), passed, t)
    fine = np.zeros(len(t) * FINER)
    spot = np.round(when * RATE * FINER).astype(int)
    keep = spot < len(fine)
    np.add.at(fine, spot[keep], heights[number % wheel][keep]
              * (1 + 0.05 * rng.standard_normal(keep.sum())))
    # A tooth presses for about a quarter of a millisecond and lets go quickly.
    n = int(0.00026 * RATE * FINER)
    press = np.concatenate([np.linspace(0, 1, int(n * 0.7)),
                            np.linspace(1, -0.35, int(n * 0.2)),
                            np.linspace(-0.35, 0, int(n * 0.4))])
    return convolve(fine, press)[:len(fine):FINER]


def driven(pulses, diaphragm):
    """The diaphragm rings after every tooth, and cannot move as far inwards,
    onto the stud, as outwards."""
    moved = convolve(pulses, ring(diaphragm, 0.05))[:len(pulses)]
    moved /= np.sqrt(np.mean(moved ** 2))
    return np.where(moved > 0, np.tanh(0.5 * moved) / 0.5,
                    np.tanh(1.5 * moved) / 1.5)


def klaxon():
    rng = chance(61)
    length = 1.6
    t = seconds(length)
    pitch = glide(t, (0, 150), (0.10, 318), (0.22, 352), (1.15, 344),
                  (1.34, 300), (length, 175))
    pitch = pitch * (1 + 0.006 * np.sin(2 * np.pi * 17 * t))
    buzz = driven(teeth(rng, t, pitch, 10, 0.22),
                  [(980, 0.007, 1.0), (2310, 0.006, 0.9), (3950, 0.005, 0.8)])
    sound = formants(buzz, [(420, 260, 0.60), (880, 320, 0.60),
                            (1480, 380, 0.80), (2350, 520, 0.90),
                            (3300, 700, 0.80), (5200, 1400, 0.50)], 0.15)
    level = curve(t, (0, 0.55), (0.05, 0.85), (0.14, 1.0), (1.15, 0.95),
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
                  [(760, 0.007, 0.9), (1720, 0.006, 0.9), (2900, 0.005, 0.8)])
    ah = formants(buzz, [(720, 200, 1.0), (1180, 240, 0.95), (2450, 420, 0.75),
                         (3500, 700, 0.55)], 0.12)
    ooo = formants(buzz, [(425, 160, 1.0), (830, 190, 0.75), (2250, 500, 0.50),
                          (3200, 700, 0.35)], 0.11)
    open_ = smooth(curve(t, (0, 0.85), (0.28, 1), (0.46, 0), (1.04, 0),
                         (1.14, 1), (length, 0.9)), 0.03)
    level = smooth(curve(t, (0, 0.4), (0.05, 0.75), (0.26, 0.8), (0.42, 1.0),
                         (1.00, 1.0), (1.055, 0.22), (1.085, 0.22),
                         (1.13, 1.0), (1.40, 0.85), (length, 0.0)), 0.025)
    sound = level * (open_ * ah / ah.std() + (1 - open_) * 0.80 * ooo / ooo.std())
    return air(high_pass(sound, 120), rng, 0.15, 0.14)
