"""Brass and bronze: the latch and the ship's bell."""

import numpy as np

from kit import (air, band, burst, chance, detuned, place, ring, seconds,
                 soften, struck)


# --- the latch --------------------------------------------------------------

LATCH = [(1620, 0.070, 0.35), (2130, 0.095, 0.60), (2875, 0.120, 0.80),
         (3960, 0.150, 1.00), (4330, 0.120, 0.60), (5240, 0.115, 0.85),
         (6480, 0.095, 0.70), (8150, 0.070, 0.55), (10300, 0.045, 0.40)]
BOX = [(390, 0.040, 0.6), (705, 0.032, 0.7), (1120, 0.022, 0.5)]


def key():
    """The tongue lifts, slides, and drops home; then it chatters once or
    twice against its keep."""
    rng = chance(21)
    track = np.zeros(len(seconds(0.30)))
    place(track, struck(detuned(LATCH, rng, 0.03), 0.00016, 0.20), 0.0005, 0.60)
    slide = band(burst(rng, 0.07, 0.20), 2800, 7500)
    slide *= np.hanning(len(slide))
    place(track, slide, 0.004, 0.06)
    for at, gain in ((0.066, 1.0), (0.0825, 0.34), (0.0925, 0.14)):
        place(track, struck(detuned(LATCH, rng, 0.015), 0.00012, 0.22), at, gain)
        place(track, struck(BOX, 0.0008, 0.08), at, 0.55 * gain)
    return air(track, rng, 0.06, 0.10)


# --- the bell ---------------------------------------------------------------

PRIME = 784.0

# (ratio to the prime, seconds to fall by 60 dB, strength, beats a second).
# No bell is perfectly round, so each tone is two that nearly agree.
BELL = [(0.502, 5.20, 0.26, 0.8), (1.000, 4.40, 0.50, 1.7),
        (1.193, 4.20, 0.72, 2.3), (1.506, 2.40, 0.26, 3.1),
        (2.000, 3.60, 1.00, 1.4), (2.514, 1.70, 0.42, 4.3),
        (2.662, 1.60, 0.40, 3.7), (3.011, 2.20, 0.70, 2.9),
        (4.166, 1.40, 0.62, 4.8), (5.433, 0.90, 0.50, 6.1),
        (6.796, 0.60, 0.40, 7.5), (8.215, 0.38, 0.32, 9.4),
        (10.02, 0.22, 0.24, 11.0), (11.87, 0.14, 0.18, 12.0)]


def stroke(rng, length, force):
    """One blow of the clapper.  A harder blow touches for a shorter time and
    wakes more of the high tones."""
    modes = []
    for ratio, fall, strength, beats in BELL:
        share = rng.uniform(0.25, 0.36)
        strength *= force * rng.uniform(0.9, 1.1)
        modes.append((PRIME * ratio - beats / 2, fall, strength * (1 - share)))
        modes.append((PRIME * ratio + beats / 2, fall * 0.93, strength * share))
    sound = soften(ring(modes, length), 0.00014 / force)
    # The clapper itself: iron, short, and the scrape of the contact.
    iron = struck([(1870, 0.030, 0.5), (3150, 0.022, 0.8), (5230, 0.014, 0.6)],
                  0.0002, 0.06)
    place(sound, iron, 0, 0.60 * force)
    place(sound, band(burst(rng, 0.03, 0.012), 1800, 8000), 0, 0.30 * force)
    return sound


def damped(sound, length, start):
    """Lets the last of the ringing go within the file, as distance would."""
    t = seconds(length)
    rest = np.clip((t - start) / (length - start), 0, 1)
    return sound * np.cos(0.5 * np.pi * rest) ** 2


def shipbell():
    rng = chance(51)
    length = 2.4
    sound = air(stroke(rng, length, 1.0), rng, 0.35, 0.12)
    return damped(sound, length, 1.5)


def four_bells():
    """Two and two, as it is struck on board."""
    rng = chance(52)
    length = 3.7
    track = np.zeros(len(seconds(length)))
    for at, force in ((0.0, 0.94), (0.40, 1.0), (1.25, 0.92), (1.655, 1.0)):
        place(track, stroke(rng, length, force), at, 1.0)
    return damped(air(track, rng, 0.35, 0.12), length, 2.3)
