"""Water: the heavy splash and the clean dive.

Water itself makes almost no sound; what is heard is the air it closes over.
Every bubble sings one short note, the smaller the higher, and the note rises
as the bubble nears the surface.  A few thousand of them are a splash.
"""

import numpy as np

from kit import (air, band, burst, chance, curve, glide, place, seconds, smooth,
                 soften, turning)


def bubble(radius, rise, loud=1.0):
    """One bubble; `radius` in millimetres, `rise` as the share of its pitch
    by which it climbs while it dies away."""
    pitch = 3000.0 / radius
    # Still water would let a large bubble sing on; broken water does not.
    dying = (0.13e3 / radius + 0.0072 * (radius * 1e-3) ** -1.5
             + 0.10 * min(pitch, 500))
    t = seconds(min(0.35, 6.0 / dying))
    moving = pitch * (1 + rise * dying * t * 0.35)
    onset = 1 - np.exp(-t * pitch * 1.5)
    return loud * onset * np.exp(-dying * t) * np.sin(turning(moving))


def bubbles(track, rng, count, moments, smallest, largest, steep, gain,
            calming=0.0):
    """A swarm.  Small bubbles are far more common than large ones, and
    `moments` says when, as a function of a number between 0 and 1.  The water
    calms: later bubbles are softer."""
    for _ in range(count):
        share = rng.uniform()
        radius = (smallest ** -steep + share
                  * (largest ** -steep - smallest ** -steep)) ** (-1 / steep)
        loud = gain * (radius / largest) ** 0.9 * rng.uniform(0.2, 1.0) ** 2
        rise = rng.uniform(0.0, 0.25) if rng.uniform() < 0.6 \
            else rng.uniform(0.3, 1.1)
        late = rng.uniform()
        place(track, bubble(radius, rise, loud * np.exp(-calming * late)),
              moments(late))


def spray(rng, length, bands):
    """Noise in bands, each with its own course: the top of a splash comes
    and goes sooner than its body."""
    t = seconds(length)
    total = np.zeros(len(t))
    for low, high, gain, points in bands:
        level = np.exp(curve(t, *[(a, np.log(b)) for a, b in points]))
        # Water falls in lumps, so the hiss is never even.
        lumps = np.interp(t, np.arange(0, length + 0.02, 0.009),
                          rng.uniform(0.45, 1.25, int((length + 0.02) / 0.009) + 1))
        noise = band(rng.standard_normal(len(t)), low, high)
        total += gain * smooth(level, 0.006) * lumps * noise / noise.std()
    return total


def wateresplash():
    rng = chance(71)
    length = 1.85
    track = spray(rng, length, [
        (70, 260, 0.70, [(0, 0.5), (0.02, 1.0), (0.10, 0.35), (0.20, 0.75),
                         (0.45, 0.06), (length, 0.0008)]),
        (260, 800, 0.75, [(0, 0.6), (0.012, 1.0), (0.10, 0.40), (0.22, 0.8),
                          (0.55, 0.09), (length, 0.001)]),
        (800, 2200, 0.60, [(0, 0.8), (0.008, 1.0), (0.09, 0.40), (0.24, 0.65),
                           (0.70, 0.10), (1.2, 0.02),
                           (length, 0.002)]),
        (2200, 5200, 0.36, [(0, 0.9), (0.006, 1.0), (0.07, 0.40), (0.26, 0.50),
                            (0.80, 0.11), (1.3, 0.03),
                            (length, 0.004)]),
        (5200, 11000, 0.16, [(0, 1.0), (0.005, 1.0), (0.05, 0.35), (0.30, 0.45),
                             (0.90, 0.14), (1.4, 0.04),
                             (length, 0.005)])])
    # The flat blow on the surface.
    t = seconds(0.3)
    slap = np.sin(turning(58 + 95 * np.exp(-t / 0.03))) * np.exp(-t / 0.06)
    place(track, soften(slap, 0.004), 0.0, 1.6)
    place(track, band(burst(rng, 0.08, 0.05), 250, 3500), 0.0, 0.9)
    # The hole in the water falls in on itself: the large slow bubbles.
    bubbles(track, rng, 60, lambda u: 0.08 + 0.38 * u, 5, 22, 0.8, 2.2, 0.8)
    bubbles(track, rng, 900, lambda u: 0.05 + 0.95 * u ** 1.6, 0.8, 7, 1.2, 1.5, 1.0)
    # Drops falling back, fewer and fewer.
    bubbles(track, rng, 260, lambda u: 0.45 + 1.30 * u ** 1.25, 0.6, 3.4, 1.0,
            2.0, 1.0)
    return air(track, rng, 0.25, 0.15)


def dive1():
    """Somebody whistles the fall; then the water takes the diver with hardly
    a splash: one deep gulp, a ring of spray, a few bubbles coming up."""
    rng = chance(81)
    length = 1.85
    hit = 0.92
    t = seconds(length)
    fall = glide(t, (0, 2350), (0.12, 2300), (hit, 560), (length, 500))
    fall = fall * (1 + 0.007 * np.sin(2 * np.pi * 6.2 * t)
                   + 0.003 * smooth(rng.standard_normal(len(t)), 0.02) * 8)
    phase = turning(fall)
    breath = 1 + 2.2 * smooth(rng.standard_normal(len(t)), 0.004)
    whistle = (np.sin(phase) + 0.10 * np.sin(2 * phase + 0.4)
               + 0.035 * np.sin(3 * phase)) * (0.82 + 0.18 * breath)
    # The wind in the lips: noise that keeps to the note.
    wind = smooth(rng.standard_normal(len(t)), 0.0035) * 9 * np.sin(phase + 1.0)
    hiss = band(rng.standard_normal(len(t)), 2500, 8000) * 0.05
    level = smooth(curve(t, (0, 0.35), (0.05, 0.8), (0.5, 1.0), (hit - 0.10, 0.8),
                         (hit - 0.015, 0), (length, 0)), 0.02)
    track = 0.55 * level * (whistle + 0.25 * wind + hiss)
    # The plunge.
    plunge = spray(rng, length - hit, [
        (90, 380, 0.55, [(0, 0.3), (0.015, 1.0), (0.12, 0.25), (0.3, 0.03),
                         (length - hit, 0.0005)]),
        (380, 1500, 0.40, [(0, 0.4), (0.012, 1.0), (0.14, 0.22), (0.4, 0.03),
                           (length - hit, 0.0005)]),
        (1500, 6000, 0.24, [(0, 0.5), (0.008, 1.0), (0.12, 0.25), (0.5, 0.03),
                            (length - hit, 0.001)])])
    place(track, plunge, hit, 1.0)
    g = seconds(0.42)
    gulp = np.sin(turning(120 + 330 * (g / 0.42) ** 1.6)) \
        * np.exp(-g / 0.085) * (1 - np.exp(-g / 0.008))
    place(track, gulp, hit + 0.035, 1.5)
    after = np.zeros(len(t))
    bubbles(after, rng, 170, lambda u: hit + 0.06 + 0.75 * u ** 1.6,
            1.6, 10, 1.0, 1.5, 1.6)
    track += after
    return air(track, rng, 0.25, 0.12)
