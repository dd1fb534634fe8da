"""Wood, leather and bone: the clicks, the dice and the diving board."""

import numpy as np

from kit import (air, band, burst, chance, curve, detuned, glide, high_pass,
                 low_pass,
                 place, seconds, soften, struck, turning)


# --- the clicks -------------------------------------------------------------

def click():
    """A fingernail on a thin panel: higher, drier."""
    rng = chance(11)
    track = np.zeros(len(seconds(0.10)))
    panel = [(715, 0.040, 0.80), (938, 0.034, 0.65), (1268, 0.030, 0.85),
             (1985, 0.022, 0.70), (2710, 0.017, 0.50), (3890, 0.011, 0.30)]
    place(track, struck(panel, 0.0006, 0.095), 0.0005)
    place(track, band(burst(rng, 0.02, 0.008), 900, 4200), 0.0005, 0.16)
    return track


def click1():
    """A knuckle on a thicker board: lower, rounder, with the box under it."""
    rng = chance(12)
    track = np.zeros(len(seconds(0.13)))
    board = [(246, 0.062, 0.42), (431, 0.056, 0.90), (568, 0.046, 0.65),
             (871, 0.036, 0.62), (1340, 0.026, 0.42), (2120, 0.016, 0.22)]
    place(track, struck(board, 0.0011, 0.125), 0.0005)
    place(track, band(burst(rng, 0.02, 0.010), 400, 2400), 0.0005, 0.12)
    return track


# --- the dice ---------------------------------------------------------------

LEATHER = [(168, 0.060, 0.45), (287, 0.050, 0.60), (455, 0.036, 0.70),
           (742, 0.026, 0.70), (1180, 0.018, 0.55), (1890, 0.012, 0.40)]
BONE = [(2350, 0.016, 0.55), (3420, 0.014, 1.00), (4810, 0.011, 0.80),
        (6650, 0.008, 0.55), (9100, 0.006, 0.30)]
TABLE = [(196, 0.060, 0.40), (342, 0.050, 0.65), (561, 0.040, 0.85),
         (918, 0.032, 1.00), (1433, 0.025, 0.95), (2240, 0.019, 0.80),
         (3310, 0.014, 0.60), (5020, 0.010, 0.40)]

SHAKE_END = 1.2
SETTLED = 1.6


def shaken(rng):
    """Five dice in a cup that goes up and down and a little to and fro.  Their
    flights are worked out and every knock is noted as (moment, what was hit,
    strength): the swarm of a real rattle comes from nothing else."""
    count, radius, step = 5, 0.009, 1e-4
    half = np.array([0.034, 0.034, 0.045])
    place_ = rng.uniform(-0.8, 0.8, (count, 3)) * (half - radius)
    speed = rng.uniform(-1, 1, (count, 3)) * 0.8
    knocks = []
    steps = int(SHAKE_END / step)
    t = np.arange(steps + 2) * step
    beat = 2 * np.pi * (4.6 * t + 0.45 * t ** 2)
    strength = curve(t, (0, 1.0), (0.9, 1.05), (SHAKE_END, 1.25))
    cup = np.stack([0.022 * np.sin(0.5 * beat + 0.7), 0.010 * np.sin(beat + 1.9),
                    -0.042 * np.cos(beat)], axis=1) * strength[:, None]
    push = np.gradient(np.gradient(cup, step, axis=0), step, axis=0)
    for i in range(steps):
        speed[:, 2] -= 9.81 * step
        speed -= push[i] * step
        place_ += speed * step
        over = np.abs(place_) > half - radius
        for die, axis in zip(*np.nonzero(over & (speed * place_ > 0))):
            knocks.append((i * step, "leather", abs(speed[die, axis])))
            speed[die, axis] *= -0.45
            # A cube never bounces straight: some of the blow goes sideways.
            speed[die] += rng.normal(0, 0.10, 3) * abs(speed[die, axis])
        place_ = np.clip(place_, -(half - radius), half - radius)
        for a in range(count):
            for b in range(a + 1, count):
                apart = place_[a] - place_[b]
                distance = np.sqrt(apart @ apart)
                if 0 < distance < 2 * radius:
                    normal = apart / distance
                    closing = (speed[a] - speed[b]) @ normal
                    if closing < 0:
                        knocks.append((i * step, "bone", -closing))
                        kick = 0.5 * 1.6 * closing * normal
                        speed[a] -= kick
                        speed[b] += kick
    return knocks


def thrown(rng):
    """Where and how hard each of the five dice meets the table: hops that
    shorten, then the flutter of a cube falling onto its face."""
    knocks = []
    for die in range(5):
        at = SHAKE_END + 0.035 + 0.028 * die + rng.uniform(0, 0.012)
        blow = rng.uniform(0.8, 1.0)
        hop = rng.uniform(0.085, 0.120)
        while at < SETTLED - 0.01 and blow > 0.035:
            knocks.append((at, blow))
            # A corner often touches first and an edge right after it.
            if rng.uniform() < 0.4:
                knocks.append((at + rng.uniform(0.004, 0.011),
                               blow * rng.uniform(0.3, 0.6)))
            at += hop
            keep = rng.uniform(0.48, 0.66)
            hop *= keep
            blow *= keep
            if hop < 0.007:
                break
    return [(at, blow) for at, blow in knocks if at < SETTLED]


def cupdice():
    rng = chance(31)
    track = np.zeros(len(seconds(1.70)))
    cup = np.zeros(len(track))
    for at, what, speed in shaken(rng):
        hard = min(speed, 4.0)
        if hard < 0.08:
            continue
        if what == "leather":
            # A hard knock is also a bright one: the leather is pressed flat.
            contact = 0.0016 / (1 + 0.6 * hard)
            blow = struck(detuned(LEATHER, rng, 0.08), contact, 0.09)
            place(cup, blow, at, 0.42 * hard)
            place(cup, soften(struck(detuned(BONE, rng, 0.1), 0.00025, 0.03),
                              0.0002), at, 0.30 * hard)
        else:
            place(cup, struck(detuned(BONE, rng, 0.1), 0.00012, 0.03), at,
                  1.50 * hard)
    # Heard through the mouth of the cup: a hollow, and less of the top.
    cup = low_pass(high_pass(cup, 140), 6500) + 0.5 * band(cup, 330, 620)
    track += air(cup, rng, 0.12, 0.15)
    table = np.zeros(len(track))
    for at, blow in thrown(rng):
        board = struck(detuned(TABLE, rng, 0.10), 0.0003, 0.09)
        die = struck(detuned(BONE, rng, 0.08), 0.00010, 0.03)
        place(table, board, at, 3.4 * blow)
        place(table, die, at, 2.6 * blow ** 1.2)
    track += air(high_pass(table, 140), rng, 0.12, 0.13)
    return track


# --- the diving board -------------------------------------------------------

def divboard():
    """A plank on its bar.  After the jump it flaps, each time slower and
    weaker, and each time it slaps the bar and its own tones are heard; while
    it is bent they are pulled up, so that the tone sways with the flapping."""
    rng = chance(41)
    length = 1.55
    t = seconds(length)
    rate = glide(t, (0, 23), (0.35, 17), (0.9, 11), (length, 7.5))
    flap = turning(rate)
    swing = np.exp(-1.7 * t)
    bend = swing * np.cos(flap)
    track = np.zeros(len(t))
    turns = flap / (2 * np.pi)
    slaps = np.interp(np.arange(int(turns[-1]) + 1), turns, t)
    plank = [(98, 0.46, 0.65), (171, 0.40, 0.90), (268, 0.34, 1.0),
             (397, 0.27, 0.90), (612, 0.20, 0.75), (884, 0.15, 0.60),
             (1310, 0.10, 0.45), (1985, 0.07, 0.32), (2870, 0.05, 0.20)]
    # One slap after another wakes the same plank; the tones sway together.
    for frequency, fall, strength in plank:
        moving = turning(frequency * (1 + 0.13 * bend + 0.05 * swing))
        level = np.zeros(len(t))
        for n, at in enumerate(slaps):
            since = np.clip(t - at, 0, None)
            hit = np.exp(-6.908 * since / (fall * 0.7)) * (t >= at)
            hit *= 1 - np.exp(-since / 0.0012)
            softer = np.exp(-at * (1.25 + frequency / 1500))
            level += hit * softer * rng.uniform(0.8, 1.1)
        track += strength * level * np.sin(moving)
    for at in slaps:
        place(track, band(burst(rng, 0.05, 0.022), 500, 3800), at,
              0.45 * np.exp(-2.0 * at))
    return air(track, rng, 0.2, 0.15)
