"""The title's painting: a full-rigged ship under all plain sail, running
toward a low evening sun over a long swell.

The ship, her sails and the sea are built in the round, in metres, and seen
through one eye; every scrap of cloth and water takes its colour from how it
lies to the sun and the sky.  The same numbers always give the same painting.
"""
import math
import random
import sys
from brush import Sheet, hexa, rgb, mix, ramp, line, smooth

WIDE, HIGH = 1280, 832
BLEED = 20
HORIZON = 566.0
EYE = 9.6           # metres above the sea
FAR = 130.0         # metres from the eye to the ship
FOCUS = 1755.0
CX = 800.0          # the ship's place across the picture
SUN = (212.0, 524.0)
KEY = (-0.80, 0.50, -0.12)   # the light on the ship: left, up, a little this way


def unit(v):
    l = math.sqrt(sum(x * x for x in v)) or 1.0
    return tuple(x / l for x in v)


KEY = unit(KEY)
SIDE_KEY = unit((-.72, .42, -.50))   # what reaches her side and her headsails


def see(p):
    """World (right, up, away) to the picture."""
    k = FOCUS / (p[2] + FAR)
    return CX + p[0] * k, HORIZON - (p[1] - EYE) * k


def step(a, b, x):
    t = max(0.0, min(1.0, (x - a) / (b - a)))
    return t * t * (3 - 2 * t)


# ---- a soft noise, the same every time -------------------------------------

_dice = random.Random(1871)
_LATTICE = [_dice.random() for _ in range(65536)]


def noise(x, y):
    xi, yi = math.floor(x), math.floor(y)
    fx, fy = x - xi, y - yi
    fx, fy = fx * fx * (3 - 2 * fx), fy * fy * (3 - 2 * fy)

    def at(i, j):
        return _LATTICE[((i & 255) + ((j & 255) << 8) + 57 * (j & 15)) & 65535]
    a = at(xi, yi) * (1 - fx) + at(xi + 1, yi) * fx
    b = at(xi, yi + 1) * (1 - fx) + at(xi + 1, yi + 1) * fx
    return a * (1 - fy) + b * fy


def cloudy(x, y, octaves=5):
    s, a, t = 0.0, .5, 0.0
    for _ in range(octaves):
        s += a * noise(x, y)
        t += a
        x, y, a = x * 1.62 - y * 1.21 + 17.1, x * 1.21 + y * 1.62 + 9.7, a * .52
    return s / t


# ---- sky --------------------------------------------------------------------

WARM = [(0, "#ffeaae"), (.05, "#ffd586"), (.14, "#ffb264"), (.26, "#f28a5a"), (.40, "#c9666a"),
        (.56, "#87517c"), (.74, "#4b3d78"), (1.0, "#1f2560")]
COOL = [(0, "#f0b08a"), (.06, "#e39a86"), (.15, "#c47a86"), (.28, "#95628a"), (.42, "#66508a"),
        (.58, "#46427f"), (.76, "#2d3270"), (1.0, "#161c52")]


def clear_sky(x, y):
    t = max(0.0, (HORIZON - y) / HORIZON)
    d = abs(x - SUN[0]) / 1000.0
    c = mix(ramp(WARM, t), ramp(COOL, t), step(.05, 1.0, d))
    r = math.hypot((x - SUN[0]) * .8, y - SUN[1])
    g = math.exp(-r / 95.0) * .75 + math.exp(-(r / 330.0) ** 2) * .25
    return mix(c, (255, 236, 178), min(1, g))


def cover(x, y):
    """How thick the cloud stands at a place in the picture."""
    t = (HORIZON - y) / HORIZON
    # long banks lying low, drawn out by the distance
    near = .35 + t * 1.5
    bank = cloudy(x / (210 * near) + 3.1, (HORIZON - y) / (58 * near) + 1.7, 6)
    lift = .545 + .11 * math.sin(x / 190.0 + 1.0) * step(.05, .3, t)
    low = step(lift - .10, lift + .16, bank + .13 * step(.0, .06, t) * (1 - step(.20, .46, t)) - .10 * step(.40, .6, t))
    # high streaks combed by the wind
    k = .33
    sx, sy = x * math.cos(k * .6) - y * .2, y + x * .17
    streak = cloudy(sx / 420.0 + 40, sy / 46.0 + 12, 5)
    high = step(.50, .74, streak) * step(.26, .55, t) * .75
    return low, high


def painted_sky(x, y):
    base = clear_sky(x, y)
    t = (HORIZON - y) / HORIZON
    low, high = cover(x, y)
    # the clouds are lit from the sun's side, that is from below and the left
    dx, dy = SUN[0] - x, SUN[1] + 30 - y
    l = math.hypot(dx, dy) or 1
    e = 13.0
    l2, h2 = cover(x + dx / l * e, y + dy / l * e)
    near = math.exp(-math.hypot(dx * .7, dy) / 420.0)
    if high > .003:
        lit = max(0.0, min(1.0, .55 + (high - h2) * 3.2))
        c = mix(mix("#5a4a86", "#8c5f8e", 1 - t), mix("#ffb98a", "#ffe2a8", near), lit * (.5 + .5 * near + .2 * (1 - t)))
        base = mix(base, c, high * .8)
    if low > .003:
        lit = max(0.0, min(1.0, .24 + (low - l2) * 2.9))
        shade = mix(mix("#6d4a7e", "#a3617c", near * 1.4), "#3c3672", step(.15, .6, t))
        glow = mix(mix("#f39a78", "#ffd795", min(1, near * 1.7)), "#d98a94", step(.25, .6, t))
        c = mix(shade, glow, lit)
        base = mix(base, c, low * (.9 - .35 * (1 - step(.0, .08, t))))
    return base


def lens(x, y, length, thick, a, bend=0.0):
    """One touch of a soft brush."""
    c, s = math.cos(a), math.sin(a)
    h = length / 2.0
    x0, y0, x1, y1 = x - c * h, y - s * h, x + c * h, y + s * h
    nx, ny = -s, c
    b0, b1 = bend + thick, bend - thick
    return "M%.1f %.1fQ%.1f %.1f %.1f %.1fQ%.1f %.1f %.1f %.1fZ" % (
        x0, y0, x + nx * b0, y + ny * b0, x1, y1, x + nx * b1, y + ny * b1, x0, y0)


def runs(s, rows):
    """Rows of coloured cells as few shapes as may be: (y, height, [(x, width, colour)])."""
    for y, h, cells in rows:
        i = 0
        while i < len(cells):
            x, w, c = cells[i]
            j = i + 1
            while j < len(cells) and cells[j][2] == c:
                w += cells[j][1]
                j += 1
            s.add('<path d="M%g %gh%gv%gh-%gz" fill="%s"/>' % (x, y, w + .6, h + .6, w + .6, c))
            i = j


def sky(s):
    dice = random.Random(7)
    cell = 4
    rows = []
    y = -24
    while y < HORIZON + 6:
        cells = []
        for x in range(-24, WIDE + 24, cell):
            cells.append((x, cell, hexa(painted_sky(x + cell / 2, min(y + cell / 2, HORIZON - 1)))))
        rows.append((y, cell, cells))
        y += cell
    i = s.blur(2.6)
    s.add('<g filter="%s">' % i)
    runs(s, rows)
    s.add("</g>")
    # touches of the brush, along the clouds
    for _ in range(5200):
        x, y = dice.uniform(-10, WIDE + 10), HORIZON * (dice.random() ** .85)
        c = painted_sky(x + dice.uniform(-7, 7), min(HORIZON - 2, max(0, y + dice.uniform(-5, 5))))
        v = dice.uniform(-.05, .07)
        c = mix(c, (255, 240, 220) if v > 0 else (30, 20, 70), abs(v))
        t = (HORIZON - y) / HORIZON
        a = -.17 * step(.2, .6, t) + dice.gauss(0, .06 + .09 * t)
        s.path(lens(x, y, dice.uniform(14, 30 + 44 * t), dice.uniform(1.2, 2.0 + 4.0 * t), a, dice.uniform(-4, 4) * t),
               hexa(c), 'opacity="%.2f"' % dice.uniform(.2, .45))
    # the sun
    x, y = SUN
    s.circle(x, y, 420, s.radial(x, y, 420, [(0, "#fff0b8", .75), (.12, "#ffe09a", .5), (.35, "#ffb870", .2), (1, "#ff9a60", 0)]))
    s.circle(x, y, 66, s.radial(x, y, 66, [(0, "#fffdf0", 1), (.38, "#fffbe6", 1), (.46, "#fff0b4", .75), (1, "#ffdf90", 0)]))
    # thin bars of cloud across its face
    s.add('<g filter="%s">' % s.blur("2.2 0.6"))
    for yy, w, o in ((y + 9, 76, .5), (y + 16, 120, .6), (y + 25, 170, .45), (y - 34, 100, .25)):
        for k in range(5):
            s.path(lens(x + dice.uniform(-.6, .6) * w, yy + dice.gauss(0, 1.6), w * dice.uniform(.5, 1.1), dice.uniform(1.2, 3.2), dice.gauss(0, .012)),
                   "#e58a5c", 'opacity="%.2f"' % (o * dice.uniform(.5, 1)))
    s.add("</g>")


# ---- the sea ------------------------------------------------------------------

_w = random.Random(23)
WAVES = []
for wavelength, height in ((74, 1.9), (47, 1.35), (29, .78), (17, .42), (11, .26), (7.2, .165), (4.6, .10), (3.0, .06), (1.9, .034)):
    for spread in (-.62, .05, .55):
        a = .30 + spread + _w.gauss(0, .16)      # from the right rear to the left front, but never all one way
        k = 2 * math.pi / (wavelength * _w.uniform(.82, 1.2))
        WAVES.append((-math.sin(a) * k, -math.cos(a) * k, height * (.56 if spread == .05 else .36), _w.uniform(0, 7)))


def swell(x, z, fine):
    """Height and slopes of the sea; waves shorter than fine metres are left out."""
    h = hx = hz = 0.0
    for kx, kz, a, ph in WAVES:
        k = math.hypot(kx, kz)
        cut = step(fine * .7, fine * 1.6, 6.283 / k)
        if cut <= 0:
            continue
        th = kx * x + kz * z + ph
        # a sharpened crest: exp(sin) instead of sin
        e = math.exp(1.1 * (math.sin(th) - 1))
        h += cut * a * (2 * e - .72)
        d = cut * a * 2 * e * 1.1 * math.cos(th)
        hx += d * kx
        hz += d * kz
    return h, hx, hz


SUNWARD = unit(((SUN[0] - CX) / FOCUS, (HORIZON - SUN[1]) / FOCUS, 1.0))


def far_water(px):
    """The sea at the edge of sight: darker than the sky but under the sun."""
    warm = math.exp(-(abs(px - SUN[0]) / 110.0) ** 1.3)
    return mix(mix(clear_sky(px, HORIZON - 5), (64, 58, 122), .66), mix(clear_sky(px, HORIZON - 5), (226, 140, 92), .35), warm)


def water(x, z, h, hx, hz, px, py, fine):
    """The colour of the sea where it is seen."""
    dist = z + FAR
    n = unit((-hx, 1.0, -hz))
    v = unit((-x, EYE - h, -dist))
    nv = max(0.02, sum(a * b for a, b in zip(n, v)))
    r = tuple(2 * nv * a - b for a, b in zip(n, v))
    f = .03 + .97 * (1 - nv) ** 4.2
    f = min(.92, f)
    # where in the sky the mirrored ray ends
    e = max(.0, r[1]) / math.sqrt(r[0] ** 2 + r[2] ** 2 + 1e-9)
    sx = CX + FOCUS * r[0] / max(.25, abs(r[2]))
    sy = HORIZON - FOCUS * min(.34, e * .62 + .006)
    sky_c = clear_sky(max(-200, min(1500, sx)), max(0, sy))
    # the sea's own colour, greener where a crest lets the light through
    thin = step(.4, 2.2, h) * step(-.1, .5, hz * .8 - hx * .25 + .12)
    own = mix(mix("#081238", "#15406a", step(-1.4, 1.8, h)), "#2f8f90", thin * .6)
    c = mix(own, sky_c, f)
    # the sun's path
    g = max(0.0, sum(a * b for a, b in zip(unit((r[0], max(r[1], .0), r[2])), SUNWARD)))
    side = (px - SUN[0]) / (34 + (py - HORIZON) * .46)
    path = math.exp(-side * side)
    c = mix(c, (255, 190, 104), min(.9, path * (.26 + .66 * g ** 34)))
    c = mix(c, (255, 246, 206), min(.97, path * 1.1 * g ** 260))
    # air between
    air = 1 - math.exp(-dist / 1500.0)
    c = mix(c, far_water(px), air * .70)
    return c


def sea(s):
    y = HORIZON + 1.0
    ys = []
    while y < HIGH + 120:
        ys.append(y)
        y += .9 + (y - HORIZON) * .0062
    cols = 300
    grid = []
    for y in ys:
        dist = FOCUS * EYE / (y - HORIZON)
        fine = dist * dist / (FOCUS * EYE) * 1.4
        row = []
        for i in range(cols + 1):
            sx = -60 + (WIDE + 120) * i / cols
            X = (sx - CX) * dist / FOCUS
            Z = dist - FAR
            h, hx, hz = swell(X, Z, fine)
            px, py = see((X, h, Z))
            row.append((px, py, X, Z, h, hx, hz, fine))
        grid.append(row)
    under = []
    for k in range(17):
        x = k * 80.0
        under.append((k / 16.0, hexa(far_water(x))))
    s.add('<rect x="-20" y="%g" width="1320" height="300" fill="%s"/>' % (HORIZON, s.linear(0, 0, 1280, 0, under)))
    s.add('<g filter="%s">' % s.blur("2.1 0.75"))
    for a, b in zip(grid, grid[1:]):
        i = 0
        while i < cols:
            px, py, X, Z, h, hx, hz, fine = b[i]
            j = i + 1
            c = water(X, Z, h, hx, hz, px, py, fine)
            q = tuple(int(v / 4 + .5) for v in c)
            while j < cols and j - i < 12:
                m = b[j]
                c2 = water(m[2], m[3], m[4], m[5], m[6], m[0], m[1], m[7])
                if tuple(int(v / 4 + .5) for v in c2) != q:
                    break
                j += 1
            pts = [(g[0], g[1]) for g in a[i:j + 1]] + [(g[0], g[1] + .8) for g in b[i:j + 1]][::-1]
            col = hexa(c)
            s.add('<path d="%s" fill="%s" stroke="%s" stroke-width=".7"/>' % ("M" + "L".join("%.1f %.1f" % p for p in pts) + "Z", col, col))
            i = j
    s.add("</g>")


def touches(s, seed, count, y0, y1, foam):
    """Brushwork on the water: short strokes along the crests, glints on the
    sun's path, foam where a crest breaks."""
    dice = random.Random(seed)
    for _ in range(count):
        t = dice.random() ** .8
        py = y0 + (y1 - y0) * t
        sx = dice.uniform(-20, WIDE + 20)
        dist = FOCUS * EYE / (py - HORIZON)
        X, Z = (sx - CX) * dist / FOCUS, dist - FAR
        fine = dist * dist / (FOCUS * EYE) * .5
        h, hx, hz = swell(X, Z, fine)
        px, qy = see((X, h, Z))
        u = FOCUS / dist / 20.0
        c = water(X, Z, h, hx + dice.gauss(0, .05), hz + dice.gauss(0, .07), px, qy, fine)
        tilt = math.atan2(-hx * .6, 1) * .8
        ln = dice.uniform(8, 26) * (.5 + u)
        s.path(lens(px, qy, ln, dice.uniform(.5, 1.3) * (.5 + u), tilt, dice.uniform(-1.2, .2) * u), hexa(c), 'opacity="%.2f"' % dice.uniform(.35, .75))
        side = (px - SUN[0]) / (26 + (qy - HORIZON) * .40)
        if dice.random() < math.exp(-side * side) * .55:
            s.path(lens(px + dice.uniform(-6, 6), qy, dice.uniform(4, 20) * (.5 + u), dice.uniform(.5, 1.2) * (.5 + u), tilt * .5),
                   dice.choice(("#fffbe0", "#fff0bc", "#ffdc90", "#ffc878")), 'opacity="%.2f"' % dice.uniform(.5, .95))


def glints(s):
    """The road of light below the sun."""
    dice = random.Random(61)
    # its soft ground: narrow at the sea's edge, widening toward the eye
    s.add('<g filter="%s">' % s.blur("16 5", 100))
    s.poly([(SUN[0] - 26, HORIZON + 5), (SUN[0] + 26, HORIZON + 5), (SUN[0] + 86, HIGH + 30), (SUN[0] - 86, HIGH + 30)],
           s.linear(0, HORIZON, 0, HIGH, [(0, "#fff0b8", .72), (.18, "#ffd890", .42), (.6, "#ffb870", .16), (1, "#ffb070", .06)]))
    s.add("</g>")
    marks = []
    for _ in range(4200):
        d = 1.5 + (HIGH - HORIZON + 6) * dice.random() ** 1.6
        sx = SUN[0] + dice.gauss(0, 1) * (13 + d * .25)
        dist = FOCUS * EYE / d
        X, Z = (sx - CX) * dist / FOCUS, dist - FAR
        h, hx, hz = swell(X, Z, dist * .008)
        # only the faces that lean the right way throw the light back
        if dice.random() > step(-.16, .10, hz + .02) * .9 + .06 + .5 * step(46, 6, d):
            continue
        px, qy = see((X, h, Z))
        marks.append((qy, px, d, hx))
    for qy, px, d, hx in sorted(marks):
        u = d / 190.0
        far = abs(px - SUN[0]) / (30 + d * .5)
        c = mix("#fffbe4", "#ffc070", min(1, far * .8 + dice.random() * .4))
        s.path(lens(px, qy, dice.uniform(5, 24) * (.35 + u), dice.uniform(.6, 1.7) * (.4 + u), -hx * .4 + dice.gauss(0, .04)), hexa(c),
               'opacity="%.2f"' % (dice.uniform(.45, .95) * (1 - .5 * min(1, far))))


def foam(s, seed, y0, y1):
    """White horses: foam lies along the crests and trails down their backs."""
    dice = random.Random(seed)
    marks = []
    for _ in range(26000):
        py = y0 + (y1 - y0) * dice.random() ** .9
        sx = dice.uniform(-20, WIDE + 20)
        dist = FOCUS * EYE / (py - HORIZON)
        X, Z = (sx - CX) * dist / FOCUS, dist - FAR
        h, hx, hz = swell(X, Z, dist * .012)
        patch = cloudy(X / 13.0 + 5, Z / 9.0 + 8, 3)
        if h < 1.15 or patch < .53:
            continue
        v = step(1.15, 2.5, h) * step(.53, .66, patch)
        if dice.random() > v:
            continue
        px, qy = see((X, h + .04, Z))
        marks.append((qy, px, v, dist, hx))
    for qy, px, v, dist, hx in sorted(marks):
        u = FOCUS / dist / 20.0
        warm = math.exp(-abs(px - SUN[0]) / 420.0)
        c = mix(mix("#c9c2e0", "#fff1dc", .35 + .65 * warm), "#ffffff", dice.uniform(0, .3))
        air = 1 - math.exp(-dist / 900.0)
        c = mix(c, (190, 140, 150), air * .5)
        s.path(lens(px, qy, dice.uniform(5, 24) * (.4 + u), dice.uniform(.4, 1.5) * (.4 + u), -hx * .3 + dice.gauss(0, .06)),
               hexa(c), 'opacity="%.2f"' % (dice.uniform(.25, .65) * (.5 + .5 * v)))


# ---- the ship -------------------------------------------------------------------

YAW, HEEL, PITCH = math.radians(33), math.radians(4.5), math.radians(2.2)
FWD = (-math.cos(YAW), 0.0, -math.sin(YAW))
PORT = (math.sin(YAW), 0.0, -math.cos(YAW))
SINK = -.55


def world(f, h, p):
    """From the ship's own measure (forward, up, to port) to the world's."""
    f, h = f * math.cos(PITCH) - h * math.sin(PITCH), f * math.sin(PITCH) + h * math.cos(PITCH)
    h, p = h * math.cos(HEEL) - p * math.sin(HEEL), h * math.sin(HEEL) + p * math.cos(HEEL)
    return (FWD[0] * f + PORT[0] * p, h + SINK, FWD[2] * f + PORT[2] * p)


def spot(f, h, p):
    return see(world(f, h, p))


def shipwise(v):
    """A direction of the world in the ship's own measure."""
    f = v[0] * FWD[0] + v[2] * FWD[2]
    p = v[0] * PORT[0] + v[2] * PORT[2]
    h = v[1]
    h, p = h * math.cos(HEEL) + p * math.sin(HEEL), -h * math.sin(HEEL) + p * math.cos(HEEL)
    f, h = f * math.cos(PITCH) + h * math.sin(PITCH), -f * math.sin(PITCH) + h * math.cos(PITCH)
    return f, h, p


KEY_S = shipwise(KEY)
SIDE_S = shipwise(SIDE_KEY)
SUN_S = shipwise(SUNWARD)
BRACE = math.radians(21)
NORM = (math.cos(BRACE), 0.0, math.sin(BRACE))      # the way the sails blow
ALONG = (-math.sin(BRACE), 0.0, math.cos(BRACE))    # along the yards, to port

# mast: its place, then the yards from below: height and half length
MASTS = {
    "mizzen": (-14.0, [(15.2, 7.6), (23.2, 6.9), (29.6, 5.2), (34.6, 3.7)], 38.6),
    "main": (-.8, [(16.6, 10.8), (27.0, 9.0), (35.0, 6.7), (41.0, 4.7)], 46.0),
    "fore": (12.6, [(16.0, 10.0), (25.6, 8.4), (33.0, 6.3), (38.6, 4.4)], 43.0),
}
FOOT = {"main": 7.2, "fore": 7.6}

LIT, MIDDLE, DARK = rgb("#fff0cc"), rgb("#e2b892"), rgb("#54477a")


class Square:
    """A square sail between its yard and the one below."""

    def __init__(self, mast, top, half_top, foot, half_foot, depth):
        self.m, self.t, self.ht, self.b, self.hb, self.d = mast, top, half_top, foot, half_foot, depth

    def at(self, u, v):
        half = (self.ht + (self.hb - self.ht) * v) * (1 - .045 * math.sin(math.pi * v))
        hgt = self.t + (self.b - self.t) * v
        hgt += (self.t - self.b) * .16 * (1 - u * u) * v ** 2.4
        full = (1 - abs(u) ** 2.3) * (math.sin(math.pi * v ** .85 * .86) ** .8 if v > 0 else 0)
        belly = self.d * full
        o = .7 + belly
        return (self.m + NORM[0] * o + ALONG[0] * u * half, hgt, NORM[2] * o + ALONG[2] * u * half)

    def hides(self, p):
        """How much of the sun it takes from a place on another sail."""
        ln = KEY_S[0] * NORM[0] + KEY_S[2] * NORM[2]
        o = .7 + self.d * .6
        t = ((self.m + NORM[0] * o - p[0]) * NORM[0] + (NORM[2] * o - p[2]) * NORM[2]) / ln
        if t <= .8:
            return 0.0
        q = tuple(a + t * b for a, b in zip(p, KEY_S))
        v = (self.t - q[1]) / (self.t - self.b)
        if not -.1 < v < 1.1:
            return 0.0
        half = self.ht + (self.hb - self.ht) * v
        u = ((q[0] - self.m) * ALONG[0] + q[2] * ALONG[2]) / half
        return step(1.08, .96, abs(u)) * step(-.05, .04, v) * step(1.03, .88 - .14 * (1 - min(1, u * u)), v)


class Fore:
    """A three-cornered sail on a stay."""

    def __init__(self, tack, head, clew, depth):
        self.a, self.b, self.c, self.d = tack, head, clew, depth

    def at(self, u, v):
        # v from head to foot, u from the stay to the leech
        luff = tuple(h + (t - h) * v for h, t in zip(self.b, self.a))
        leech = tuple(h + (t - h) * v for h, t in zip(self.b, self.c))
        p = tuple(x + (y - x) * u for x, y in zip(luff, leech))
        k = 4 * u * (1 - u) * math.sin(math.pi * min(1, v * .93)) ** .7 * self.d
        drop = -1.0 * 4 * u * (1 - u) * v ** 4
        hollow = -.3 * math.sin(math.pi * v) * u
        return (p[0] + k * .30 - hollow, p[1] + drop + k * .1, p[2] + k)


def cloth(n, p, sails, me):
    """The colour of canvas lying to the sun as n says."""
    square = isinstance(me, Square)
    d = sum(a * b for a, b in zip(n, KEY_S if square else SIDE_S))
    sh = 0.0
    for o in sails:
        if o is not me:
            sh = max(sh, o.hides(p))
    lit = max(0.0, d) * (1 - .62 * sh)
    # the low sun behind her shines through the cloth
    glow = max(0.0, -sum(a * b for a, b in zip(n, SUN_S))) * (1 - .45 * sh)
    c = mix(DARK, MIDDLE, step(-.02, .62, lit + (.10 if square else .24) * glow))
    c = mix(c, LIT, step(.40, 1.0, lit * 1.12))
    c = mix(c, (255, 196, 122), (.12 if square else .34) * glow)
    # the glow comes off the water from below, the cool from the sky above
    c = mix(c, (255, 176, 110), .20 * max(0, -n[1] + .25))
    c = mix(c, (60, 62, 130), .13 * step(18, 46, p[1]))
    return c


def draw_sail(s, sail, sails, nu, nv, u0=-1.0, reefs=(), seams=10):
    g = [[sail.at(u0 + (1 - u0) * i / nu, j / float(nv)) for i in range(nu + 1)] for j in range(nv + 1)]
    q = [[spot(*p) for p in row] for row in g]
    edge = q[0] + [r[-1] for r in q[1:]] + q[-1][::-1][1:] + [r[0] for r in q[::-1][1:]]
    s.poly(edge, "#3a2a48", 'stroke="#2e2040" stroke-width="1.3" stroke-linejoin="round"')
    s.add('<g clip-path="%s"><g filter="%s">' % (s.clip('<path d="%sZ"/>' % line(edge)), s.blur(1.15)))
    for j in range(nv):
        for i in range(nu):
            a, b, c, d = g[j][i], g[j][i + 1], g[j + 1][i + 1], g[j + 1][i]
            e1 = [c[k] - a[k] for k in range(3)]
            e2 = [b[k] - d[k] for k in range(3)]
            n = unit((e1[1] * e2[2] - e1[2] * e2[1], e1[2] * e2[0] - e1[0] * e2[2], e1[0] * e2[1] - e1[1] * e2[0]))
            if (n[0] + .6 * n[2] if isinstance(sail, Square) else n[2]) < 0:
                n = tuple(-k for k in n)
            p = tuple((a[k] + b[k] + c[k] + d[k]) / 4 for k in range(3))
            col = cloth(n, p, sails, sail)
            v = (j + .5) / nv
            # the shade under the yard, and the cloths' own unevenness
            col = mix(col, (52, 40, 80), .34 * (1 - step(0, .13, v)))
            w = .055 * (noise(p[2] * 2.2 + 60, p[1] * .35 + p[0]) - .5)
            col = tuple(x * (1 + w) for x in col)
            h = hexa(col)
            s.poly([q[j][i], q[j][i + 1], q[j + 1][i + 1], q[j + 1][i]], h, 'stroke="%s" stroke-width="2"' % h)
    s.add("</g></g>")
    # the seams between the cloths
    for k in range(1, seams):
        u = u0 + (1 - u0) * k / seams
        s.add('<path d="%s" fill="none" stroke="#4a3560" stroke-width=".7" opacity=".26"/>' % line([spot(*sail.at(u, j / 14.0)) for j in range(15)]))
    for v in reefs:
        pts = [sail.at(u0 + (1 - u0) * i / 16.0, v) for i in range(17)]
        s.add('<path d="%s" fill="none" stroke="#6a4a62" stroke-width="1.4" opacity=".36"/>' % line([spot(*p) for p in pts]))
        for i in range(1, 24):
            u = u0 + (1 - u0) * i / 24.0
            s.add('<path d="%s" stroke="#5a3f58" stroke-width=".8" opacity=".5"/>' % line([spot(*sail.at(u, v)), spot(*sail.at(u, v + .045))]))
    # light catches the weather edge
    s.add('<path d="%s" fill="none" stroke="#fff4d8" stroke-width="1.1" opacity=".5"/>' % line([r[0] for r in q]))


def rope(s, a, b, w=.8, o=.75, sag=0.0, colour="#2b1c30"):
    pts = []
    for i in range(9):
        t = i / 8.0
        p = tuple(x + (y - x) * t for x, y in zip(a, b))
        pts.append(spot(p[0], p[1] - sag * 4 * t * (1 - t), p[2]))
    s.add('<path d="%s" fill="none" stroke="%s" stroke-width="%.2f" opacity="%.2f"/>' % (smooth(pts), colour, w, o))


def spar(s, a, b, wa, wb, colours=("#f0b878", "#8a4f34", "#2e1826")):
    """A round timber: lit along its left or upper side."""
    p, q = spot(*a), spot(*b)
    dx, dy = q[0] - p[0], q[1] - p[1]
    l = math.hypot(dx, dy) or 1
    nx, ny = -dy / l, dx / l
    if nx * -.8 + ny * -.6 < 0:
        nx, ny = -nx, -ny
    pts = [(p[0] + nx * wa, p[1] + ny * wa), (q[0] + nx * wb, q[1] + ny * wb), (q[0] - nx * wb, q[1] - ny * wb), (p[0] - nx * wa, p[1] - ny * wa)]
    w = max(wa, wb)
    mx, my = (p[0] + q[0]) / 2, (p[1] + q[1]) / 2
    f = s.linear(mx + nx * w, my + ny * w, mx - nx * w, my - ny * w, [(0, colours[0]), (.35, colours[1]), (1, colours[2])])
    s.poly(pts, f, 'stroke="#1e1226" stroke-width=".7" stroke-linejoin="round"')


LONG, BEAM = 22.0, 5.7


def sheer(t):
    return 5.7 + (1.9 * t * t if t > 0 else 2.6 * t * t)


def poop(t):
    return .75 * step(-.53, -.56, t)


def rail(t):
    return sheer(t) + poop(t)


def breadth(t, k):
    """Half the hull's breadth at t along her (-1 stern, 1 stem), k up her side."""
    b = BEAM
    if t > 0:
        b *= max(0.0, 1 - t ** (1.9 + .9 * max(0, k))) ** .9
    else:
        b *= 1 - (.20 + .42 * (1 - k)) * (-t) ** 3
    return b * (1 - .07 * k * k)


def side(t, k):
    if t > 0:
        f = t * LONG * (1 - .12 * max(0.0, 1 - k) ** 1.5)       # the stem rakes
    else:
        f = t * LONG + (1.1 * (1 - k) * (-t) ** 8)      # and so does the stern
    # only the topsides rise with the poop; the stripes below run on fair
    return (f, sheer(t) * k + poop(t) * max(0.0, k - .8) * 5, breadth(t, k))


def hull(s):
    # the far bulwark's inner side and the deck
    n = 46
    ts = [-1 + 2 * i / float(n) for i in range(n + 1)]
    far = [spot(t * LONG, rail(t), -breadth(t, 1)) for t in ts]
    low = [spot(t * LONG, rail(t) - 1.5, -breadth(t, 1)) for t in ts]
    near = [spot(t * LONG, rail(t) - 1.5, breadth(t, 1)) for t in ts]
    s.poly(far + low[::-1], "#5b3a34", 'stroke="#2a1824" stroke-width="1"')
    s.poly(low + near[::-1], "#8a5f48")
    # deck houses and a boat
    for a, b, w, h in ((-.26, -.14, 1.3, 1.9), (.22, .38, 1.2, 1.9)):
        for face, col in (([(a, 0, -w), (b, 0, -w), (b, h, -w), (a, h, -w)], "#5a3b3a"),
                          ([(b, 0, -w), (b, 0, w), (b, h, w), (b, h, -w)], "#c89468"),
                          ([(a, 0, w), (b, 0, w), (b, h, w), (a, h, w)], "#7d5650"),
                          ([(a, h, -w), (b, h, -w), (b, h, w), (a, h, w)], "#a27860")):
            s.poly([spot(t * LONG, rail(t) - 1.5 + y, z) for t, y, z in face], col, 'stroke="#2a1824" stroke-width=".8"')
    for name, (m, yards, top) in MASTS.items():
        spar(s, (m, 4, 0), (m - .2, 12, 0), 5.2, 5.0)


def lap(t):
    """How high the sea stands against her side."""
    p = world(t * LONG, 0, breadth(t, .05) + 2.0)
    h = swell(p[0], p[2], 6)[0]
    # she heels and lifts her head, so the sea stands higher on her quarter
    return max(-.5, min(.9, .1 + .42 * h + .5 * (noise(t * 7, 4) - .5))) - .8 * world(t * LONG, 0, breadth(t, .05))[1]


def waterline():
    out = []
    for i in range(61):
        t = -1 + i / 30.0
        f, h, b = side(t, .05)
        out.append(spot(f, lap(t), b + .1))
    return out


def hull_side(s):
    wl = waterline()
    s.add('<g clip-path="%s">' % s.clip('<path d="%sL%.1f 0L%.1f 0Z"/>' % (
        smooth([(wl[0][0] + 60, wl[0][1])] + wl + [(wl[-1][0] - 330, wl[-1][1] - 10)]), wl[-1][0] - 330, wl[0][0] + 60)))
    hull_paint(s)
    s.add("</g>")


def hull_paint(s):
    n = 72
    # stripes by their height up the side: colour from the paint, light from the lie
    stripes = [(-.12, .10, "#6e2f24"), (.10, .14, "#d9b27a"), (.14, .50, "#2a1b22"), (.50, .53, "#120c14"),
               (.53, .73, "#f0d6a2"), (.73, .76, "#120c14"), (.76, .95, "#33212a"), (.95, 1.0, "#c8923e")]

    def stripes_at(t, k):
        return side(t, k)
    # the beak, in the middle line under the bowsprit
    beak = [(18.6, -.4, 0), (20.4, 1.6, 0), (22.0, 4.2, 0), (23.6, 6.4, 0), (25.4, 8.2, 0), (26.9, 9.4, 0), (26.6, 10.1, 0),
            (25.0, 9.5, 0), (22.8, 8.3, 0), (20.6, 7.4, 0), (19.5, 3.0, 0)]
    s.path(smooth([spot(*p) for p in beak], True), s.linear(*(spot(26, 9, 0) + spot(19, 1, 0) + ([(0, "#8a563a"), (.45, "#40262a"), (1, "#1a1018")],))),
           'stroke="#140c16" stroke-width="1.2"')
    for pts, w in ((((21.5, 4.6, .3), (23.2, 6.5, .2), (25.0, 8.2, .1), (26.6, 9.5, 0)), 2.0),
                   (((21.6, 6.3, .6), (23.2, 7.4, .3), (25.0, 8.8, .1), (26.5, 9.8, 0)), 1.5)):
        s.add('<path d="%s" fill="none" stroke="#e8b860" stroke-width="%.1f" opacity=".9"/>' % (smooth([spot(*p) for p in pts]), w))
    # the figurehead
    fig = [(25.0, 7.9, 0), (26.6, 8.2, 0), (27.8, 9.0, 0), (28.5, 10.2, 0), (28.0, 10.5, 0), (27.3, 9.8, 0), (26.4, 9.3, 0)]
    x, y = spot(28.45, 10.75, 0)
    gold = s.linear(*(spot(29, 11, 0) + spot(26, 8, 0) + ([(0, "#fff0c0"), (.45, "#e0a848"), (1, "#6a3c18")],)))
    s.circle(x, y, 5.2, gold, 'stroke="#2a1418" stroke-width=".9"')
    s.path(smooth([spot(*p) for p in fig], True), gold, 'stroke="#2a1418" stroke-width=".9"')
    s.add('<path d="%s" fill="none" stroke="#5a3414" stroke-width="1" opacity=".8"/>' % smooth([spot(*p) for p in ((25.6, 8.6, 0), (27.0, 8.9, 0), (27.9, 9.7, 0))]))
    for sign, k0, k1, paint in [(-1,) + q for q in stripes] + [(1,) + q for q in stripes]:
        for i in range(0 if sign > 0 else int(n * .8), n):
            t0, t1 = -1 + 2 * i / float(n), -1 + 2 * (i + 1) / float(n)
            a, b, c, d = (side(t0, k0), side(t1, k0), side(t1, k1), side(t0, k1))
            tm, km = (t0 + t1) / 2, (k0 + k1) / 2
            p, pf, pk = side(tm, km), side(tm + .012, km), side(tm, km + .04)
            e1, e2 = [x - y for x, y in zip(pf, p)], [x - y for x, y in zip(pk, p)]
            nn = unit((e1[1] * e2[2] - e1[2] * e2[1], e1[2] * e2[0] - e1[0] * e2[2], e1[0] * e2[1] - e1[1] * e2[0]))
            if nn[2] < 0:
                nn = tuple(-x for x in nn)
            if sign < 0:
                nn = (nn[0], nn[1], -nn[2])
                if nn[0] * math.sin(YAW) + nn[2] * math.cos(YAW) < 0:
                    continue
            a, b, c, d = [(q[0], q[1], q[2] * sign) for q in (a, b, c, d)]
            lit = max(0, sum(x * y for x, y in zip(nn, SIDE_S)))
            base = rgb(paint)
            v = .66 + 1.0 * lit
            col = tuple(x * v for x in base)
            col = mix(col, (255, 196, 128), .34 * lit ** 1.5)
            # the evening sky and the sea lie in the varnish
            col = mix(col, (110, 90, 150), .12 + .10 * (1 - km))
            col = mix(col, (20, 14, 36), .35 * step(.25, -.12, km))
            h = hexa(col)
            s.poly([spot(*q) for q in (a, b, c, d)], h, 'stroke="%s" stroke-width=".8"' % h)
    for k in (.2, .26, .32, .38, .44, .81, .87):
        s.add('<path d="%s" fill="none" stroke="#0c0812" stroke-width=".8" opacity=".4"/>' % line([spot(*side(-1 + 2 * i / 60.0, k)) for i in range(60)]))
        s.add('<path d="%s" fill="none" stroke="#e0a080" stroke-width=".6" opacity=".22" transform="translate(0 1.1)"/>' % line([spot(*side(-1 + 2 * i / 60.0, k)) for i in range(60)]))
    # ports in the light strake
    for i in range(11):
        t = -.80 + i * .148
        w = .022
        s.poly([spot(*side(*q)) for q in ((t - w, .57), (t + w, .57), (t + w, .70), (t - w, .70))], "#1c1220", 'stroke="#5a3a2a" stroke-width=".8"')
        s.add('<path d="%s" stroke="#b98a58" stroke-width="1" opacity=".9"/>' % line([spot(*side(t - w, .70)), spot(*side(t + w, .70))]))
    # lamplight in the cabin's side windows
    for i in range(3):
        t = -.955 + i * .045
        s.poly([spot(*side(*q)) for q in ((t - .013, .79), (t + .013, .79), (t + .013, .91), (t - .013, .91))], "#ffd070", 'stroke="#c8923e" stroke-width="1.1"')
    # channels that spread the shrouds
    for name, (m, yards, top) in MASTS.items():
        pts = [(m - 4.6, .76), (m + .8, .76)]
        t0, t1 = pts[0][0] / LONG, pts[1][0] / LONG
        a, b = side(t0, .77), side(t1, .77)
        s.poly([spot(*a), spot(*b), spot(b[0], b[1], b[2] + .7), spot(a[0], a[1], a[2] + .7)], "#3a2428", 'stroke="#140c16" stroke-width=".8"')
    # the anchor, catted and lashed
    a = side(.84, .97)
    spar(s, (a[0], a[1], a[2] - .6), (a[0] + .7, a[1] + .5, a[2] + 1.5), 2.2, 1.8)
    p = spot(a[0] + .7, a[1] - .1, a[2] + 1.5)
    for col, w, o in (("#0c0810", 3.4, 0), ("#7d7488", 1.3, -.5)):
        s.add('<g transform="translate(%.1f %.1f) rotate(-14)"><path d="M0 0v4M-5 5h10M0 4v18M-8 14q2 8 8 8q6 0 8 -8" fill="none" stroke="%s" stroke-width="%.1f" stroke-linecap="round"/></g>' % (p[0] + o, p[1] + o, col, w))


def shrouds(s, m, yards, top, sign, o):
    head = yards[0][0] + 2.2
    t0 = [(m + .3 - k * 1.0) for k in range(6)]
    feet = [(f, rail(f / LONG) * .80, sign * (breadth(f / LONG, .8) + .6)) for f in t0]
    tops = [(m - .2 - .12 * k, head, sign * .5) for k in range(6)]
    for a, b in zip(feet, tops):
        rope(s, a, b, .9, o)
    for j in range(1, 17):
        t = j / 18.0
        l = tuple(x + (y - x) * t for x, y in zip(feet[0], tops[0]))
        r = tuple(x + (y - x) * t for x, y in zip(feet[-1], tops[-1]))
        rope(s, l, r, .6, o * .7)
    # topmast shrouds from the top's edge
    h2 = yards[1][0] + 2.0
    for k in range(3):
        rope(s, (m - .4 - k * .7, head + .2, sign * 1.9), (m - .3, h2, sign * .2), .7, o)
    for j in range(1, 10):
        t = j / 11.0
        a, b = (m - .4, head + .2, sign * 1.9), (m - 1.8, head + .2, sign * 1.9)
        c = (m - .3, h2, sign * .2)
        rope(s, tuple(x + (y - x) * t for x, y in zip(a, c)), tuple(x + (y - x) * t for x, y in zip(b, c)), .5, o * .6)
    # backstays
    for k, hh in ((5.4, yards[1][0] + 2), (6.4, yards[2][0] + 2), (7.2, yards[3][0] + 1)):
        f = m - k
        rope(s, (f, rail(max(-1, f / LONG)) * .9, sign * breadth(max(-1, f / LONG), .9)), (m - .2, hh, 0), .8, o)


def build_sails():
    out = {}
    for name, (m, yards, top) in MASTS.items():
        row = []
        if name in FOOT:
            y, h = yards[0]
            row.append(Square(m, y - .3, h * .93, FOOT[name], h * .90, 4.7))
        for k in (1, 2, 3):
            y, h = yards[k]
            fy, fh = yards[k - 1]
            row.append(Square(m, y - .25, h * .93, fy + .35, fh * .93, (0, 4.3, 3.2, 2.2)[k]))
        out[name] = row
    return out


def pennant(s, at, length, drop, colours, seed):
    """A long flag streaming the way the wind goes, forward and to port."""
    dice = random.Random(seed)
    x, y = spot(*at)
    n = 18
    up, dn = [], []
    ph = dice.uniform(0, 6)
    for i in range(n + 1):
        t = i / float(n)
        px = x - length * t
        py = y + math.sin(t * 7 + ph) * 4.2 * t + t * length * .10
        w = drop * (1 - .82 * t) / 2
        up.append((px, py - w))
        dn.append((px, py + w))
    s.poly(up + dn[::-1], s.linear(x, y, x - length, y, [(0, colours[0]), (.25, colours[1]), (.45, colours[0]), (.7, colours[1]), (1, colours[0])]),
           'stroke="#2a1020" stroke-width=".6"')


def ship(s):
    sails = build_sails()
    every = [q for r in sails.values() for q in r]
    hull(s)
    for sign in (-1,):
        for name in ("mizzen", "main", "fore"):
            m, yards, top = MASTS[name]
            shrouds(s, m, yards, top, sign, .5)
    # bowsprit and jib-boom
    BOW = (32.0, 13.4, 0)
    TIP = (39.5, 16.6, 0)
    spar(s, (18.0, 7.2, 0), BOW, 6.0, 4.4)
    hull_side(s)
    spar(s, (29.5, 12.6, 0), TIP, 3.0, 1.5)
    spar(s, BOW, (31.6, 8.6, 0), 1.8, 1.0)
    for a, b in ((TIP, (31.6, 8.6, 0)), (BOW, (22.6, 3.2, 0)), ((31.6, 8.6, 0), (22.4, 4.4, 0)), (BOW, (22, 7.0, 3.2))):
        rope(s, a, b, .9, .8)
    order = ("mizzen", "main", "fore")
    for idx, name in enumerate(order):
        m, yards, top = MASTS[name]
        # stays leading forward and down
        if name != "fore":
            nm = MASTS[order[idx + 1]][0]
            for h0, h1 in ((yards[0][0] + 2, 6.5), (yards[1][0] + 2, 18.5), (yards[2][0] + 1.6, 27.0), (yards[3][0] + 1, 35.0)):
                rope(s, (m, h0, 0), (nm, h1, 0), .8, .6)
        if name == "mizzen":
            # the driver, on its gaff and boom
            gaff, boom = (-23.5, 19.5, 1.6), (-26.5, 8.6, 2.6)
            drv = Gaff((m - .6, 8.4, 0), (m - .6, 14.6, 0), gaff, boom, 1.7)
            spar(s, (m, 8.0, 0), (-27.2, 8.3, 2.7), 2.6, 1.6)
            draw_sail(s, drv, every, 24, 26, 0.0, (.82,), 9)
            spar(s, (m, 14.8, 0), (-24.2, 20.0, 1.7), 2.2, 1.2)
        # mast
        spar(s, (m - .1, 8, 0), (m - .3, yards[0][0] + 3, 0), 5.0, 4.4)
        spar(s, (m - .2, yards[0][0] + 1, 0), (m - .4, yards[1][0] + 2.6, 0), 3.5, 2.7)
        spar(s, (m - .3, yards[1][0] + 1, 0), (m - .5, yards[2][0] + 2.0, 0), 2.5, 1.8)
        spar(s, (m - .4, yards[2][0] + 1, 0), (m - .6, top, 0), 1.7, .9)
        x, y = spot(m - .6, top, 0)
        s.circle(x, y, 2.3, "#f0c060")
        shrouds(s, m, yards, top, 1, .8)
        # tops
        h = yards[0][0] + 2.2
        s.poly([spot(m + 1.0, h, -2), spot(m + 1.0, h, 2), spot(m - 1.6, h, 2.1), spot(m - 1.6, h, -2.1)], "#5a3830", 'stroke="#1a1020" stroke-width="1"')
        # braces run aft
        for k, (hy, hl) in enumerate(yards):
            arm = (m + .7 * NORM[0] + ALONG[0] * hl, hy, .7 * NORM[2] + ALONG[2] * hl)
            if name == "mizzen":
                back = (m + 9, 18 + 7 * k, 0)
            else:
                prev = MASTS[order[idx - 1]]
                back = (prev[0], (7 if k == 0 else prev[1][k - 1][0] + 2), 0)
            rope(s, arm, back, .55, .4, .25)
        # the sails from below, each with the yard it hangs from
        row = sails[name]
        if name == "mizzen":
            hy, hl = yards[0]
            spar(s, tuple_arm(m, hy, -hl), tuple_arm(m, hy, hl), 1.9, 1.9)
        for k, q in enumerate(row):
            yk = k + (1 if name == "mizzen" else 0)
            hy, hl = yards[yk]
            nu = (40, 36, 30, 24)[yk]
            reefs = {0: (.16,), 1: (.14, .30), 2: (.16,), 3: ()}[yk]
            draw_sail(s, q, every, nu, nu - 4, -1.0, reefs, (12, 11, 8, 6)[yk])
            th = (2.4, 2.1, 1.6, 1.2)[yk]
            mid = tuple_arm(m, hy, 0)
            spar(s, mid, tuple_arm(m, hy, -hl), th, th * .5)
            spar(s, mid, tuple_arm(m, hy, hl), th, th * .5)
            # lifts
            for e in (-1, 1):
                rope(s, tuple_arm(m, hy, e * hl * .97), (m, hy + (3.6, 3.2, 2.6, 1.6)[yk], 0), .55, .5)
            # buntlines over the belly
            for u in (-.45, 0, .45):
                s.add('<path d="%s" fill="none" stroke="#6a4a5a" stroke-width=".6" opacity=".4"/>' % line([spot(*q.at(u, j / 10.0)) for j in range(11)]))
        if name in FOOT:
            # tacks and sheets of the course
            q = row[0]
            for u in (-1, 1):
                c = q.at(u, 1)
                f = m + (8 if u < 0 else -7)
                f = max(-20, min(19, f))
                rope(s, c, (f, rail(f / LONG), u * breadth(f / LONG, 1)), .8, .7)
        if name == "fore":
            # the headsails, the innermost first
            fm = m - .2
            stays = [((30.2, 12.9, 0), (fm, 26.8, 0), (19.0, 9.6, 3.0), 1.7),
                     ((34.6, 14.6, 0), (fm, 33.8, 0), (22.6, 11.6, 3.2), 1.7),
                     ((38.8, 16.2, 0), (fm, 38.8, 0), (27.0, 14.0, 3.0), 1.6)]
            rope(s, (27.0, 10.9, 0), (m, 18.0, 0), 1.0, .7)
            for tack, head, clew, depth in stays:
                rope(s, tack, head, 1.0, .85)
                # the sail does not reach all the way up its stay
                hd = tuple(t + (h - t) * .86 for t, h in zip(tack, head))
                tk = tuple(t + (h - t) * .05 for t, h in zip(tack, head))
                j = Fore(tk, hd, clew, depth)
                draw_sail(s, j, [], 22, 40, 0.0, (), 6)
                rope(s, clew, (17.5, 7.6, 3.4), .8, .7)
    for name, ln, c, seed in (("main", 118, ("#e23a2e", "#8a1420"), 3), ("fore", 74, ("#f4ead0", "#b89a90"), 4), ("mizzen", 66, ("#3a5ac8", "#1c2a78"), 5)):
        m, yards, top = MASTS[name]
        pennant(s, (m - .6, top - .6, 0), ln, 11 if name == "main" else 9, c, seed)


def tuple_arm(m, h, u):
    return (m + .7 * NORM[0] + ALONG[0] * u, h, .7 * NORM[2] + ALONG[2] * u)


class Gaff:
    """A four-cornered fore-and-aft sail: tack, throat, peak, clew."""

    def __init__(self, tack, throat, peak, clew, depth):
        self.a, self.b, self.c, self.e, self.d = tack, throat, peak, clew, depth

    def at(self, u, v):
        top = tuple(x + (y - x) * u for x, y in zip(self.b, self.c))
        bot = tuple(x + (y - x) * u for x, y in zip(self.a, self.e))
        p = tuple(x + (y - x) * v for x, y in zip(top, bot))
        k = 4 * u * (1 - u) * (.35 + .65 * math.sin(math.pi * v)) * self.d
        return (p[0], p[1] + .4 * 4 * u * (1 - u) * v ** 3, p[2] + k)


def mirror(s):
    """Her dark likeness in the water, broken by the swell."""
    pts = [spot(t * LONG, .3, breadth(t, .05)) for t in [-1 + i / 20.0 for i in range(41)]]
    s.add('<g filter="%s" opacity=".62">' % s.blur(5))
    low = [(x + 10 + 26 * (noise(x / 20.0, 3) - .5), y + 34 + 20 * noise(x / 26.0, 9)) for x, y in pts]
    s.poly([(x, y - 8) for x, y in pts] + low[::-1], "#0d0f2c")
    s.add("</g>")
    dice = random.Random(77)
    x0, x1 = min(p[0] for p in pts), max(p[0] for p in pts)
    for _ in range(420):
        x = dice.uniform(x0 - 30, x1 + 30)
        y0 = min(pts, key=lambda p: abs(p[0] - x))[1]
        d = dice.random() ** 1.5 * 118
        # hull first, then the glimmer of the canvas
        c = "#0e1030" if d < 42 else dice.choice(("#c99a86", "#8f6c86", "#5a4a78", "#e0b08c"))
        s.path(lens(x + dice.gauss(0, 6), y0 + 8 + d, dice.uniform(14, 52), dice.uniform(.8, 2.4), dice.gauss(0, .05), dice.uniform(-2, 2)), c,
               'opacity="%.2f"' % (dice.uniform(.25, .6) * (1 - d / 170.0) * (1 if d < 42 else .55)))


def wake(s, behind):
    """The bow wave, the foam along her side, and the wake; what lies on her
    far side is painted before she is."""
    dice = random.Random(98 if behind else 99)

    def blob(x, y, l, t, a, o, dark=False):
        c = mix("#fff6ea", "#c8b6d6", dice.random() * .8) if not dark else rgb("#2a3a66")
        s.path(lens(x, y, l, t, a, dice.uniform(-1.5, 1.5)), hexa(c), 'opacity="%.2f"' % o)
    wl = waterline()
    if not behind:
        along_side(s, dice, blob, wl)
    bow_wave(s, dice, blob, -1 if behind else 1)
    if not behind:
        return
    astern(s, dice, blob)


def along_side(s, dice, blob, wl):
    # what her quarter leaves behind joins the wake
    for i in range(330):
        t = dice.random() ** 1.3
        f = -17 - t * 34
        p = world(f, 0, 2.6 + dice.gauss(0, .9) + t * 4)
        h = swell(p[0], p[2], 5)[0]
        x, y = see((p[0], .3 * (1 - t) + (h * .75 + .1) * t, p[2]))
        blob(x, y, dice.uniform(8, 26), dice.uniform(.7, 2.0), dice.gauss(-.06, .1), dice.uniform(.3, .8) * (1 - .4 * t))
    # the soft ground of the foam
    s.add('<g filter="%s">' % s.blur(2.4))
    s.path(smooth(wl + [(x - 4, y + 9 + 7 * noise(x / 17.0, 2)) for x, y in wl[::-1]], True), "#efe2ea", 'opacity=".55"')
    s.add("</g>")
    for x, y in wl:
        for _ in range(int(17 * noise(x / 34.0, 6))):
            blob(x + dice.gauss(0, 9), y + 2 + abs(dice.gauss(0, 5.5)), dice.uniform(6, 22), dice.uniform(.8, 2.4), dice.gauss(.05, .12), dice.uniform(.35, .9))

def bow_wave(s, dice, blob, sign):
    """The wave thrown off the bow: a curl that peaks at the stem and runs aft, spreading."""
    bx, by = spot(20.0, .6, 0)
    if sign > 0:
        s.add('<g filter="%s" opacity=".8">' % s.blur(2.6))
        crest = [spot(20.6 - 16 * t, 2.3 * math.exp(-t * 5) + .25, breadth(max(0, 20.6 - 16 * t) / LONG, .05) + .2 + 3.2 * t) for t in [k / 12.0 for k in range(13)]]
        base_ = [spot(20.4 - 16 * t, 0, breadth(max(0, 20.4 - 16 * t) / LONG, .05) + .8 + 5.0 * t) for t in [k / 12.0 for k in range(13)]]
        s.path(smooth(crest) + smooth(base_[::-1]).replace("M", "L", 1) + "Z", s.linear(bx, by, bx + 190, by + 20, [(0, "#fff4e6", 1), (.5, "#e6d6e4", .8), (1, "#c8b6d6", 0)]))
        s.add("</g>")
    for i in range(900 if sign > 0 else 240):
        t = dice.random() ** 1.25
        f = 20.4 - t * 27
        off = sign * (breadth(min(1, max(0, f) / LONG), .05) + .15 + 7.0 * t ** 1.1 * dice.uniform(.75, 1.04))
        lift = 3.1 * math.exp(-t * 5.2) * dice.random() ** .6 + .5 * (1 - t) * dice.random()
        x, y = spot(f, lift, off)
        k = 1 - t
        blob(x, y, dice.uniform(4, 16) * (.6 + .6 * t), dice.uniform(.8, 2.8) * (.5 + .6 * k), dice.gauss(.16, .2), dice.uniform(.3, .85) * (.35 + .65 * k))
    if sign > 0:
        for i in range(170):
            a = dice.uniform(-2.9, -.6)
            r = abs(dice.gauss(0, 20))
            s.circle(bx + 4 + math.cos(a) * r * 1.3, by + math.sin(a) * r * .8, dice.uniform(.5, 1.5), "#fff8ee", 'opacity="%.2f"' % dice.uniform(.3, .85))


def astern(s, dice, blob):
    """The wake, away to the right."""
    for i in range(1300):
        t = dice.random() ** 1.1
        f = -19 - t * 95
        w = 3.6 + 10 * t
        e = dice.uniform(-1, 1)
        if dice.random() < .6:
            e = (1 if dice.random() < .62 else -1) * (1 - abs(dice.gauss(0, .13)))
        p = world(f, 0, e * w)
        h, hx, hz = swell(p[0], p[2], 5)
        x, y = see((p[0], h * .75 + .1, p[2]))
        if x > WIDE + 30:
            continue
        blob(x, y, dice.uniform(6, 26), dice.uniform(.5, 1.7), dice.gauss(-.02, .08), dice.uniform(.25, .7) * (1 - .55 * t))


def gull(s, x, y, size, bank, flap, light=True):
    """A gull on the wind: two bent wings, a body, a dark edge to the wing."""
    c, n = math.cos(bank), math.sin(bank)

    def P(u, v):
        return (x + size * (u * c - v * n), y + size * (u * n + v * c))
    body = "#f4ecea" if light else "#4a3a5e"
    shade = "#8a7a9a" if light else "#33284a"
    wing = "#d9d0da" if light else "#3d3054"
    tip = "#2a2238"
    for m in (-1, 1):
        up = flap
        top = [(0, -.04), (m * .28, -.26 * up), (m * .52, -.30 * up), (m * .80, -.14 * up), (m * 1.06, .10 * up)]
        bot = [(m * .78, -.03 * up), (m * .50, -.14 * up), (m * .26, -.08 * up), (m * .05, .10)]
        d = smooth([P(*q) for q in top]) + smooth([P(*q) for q in bot]).replace("M", "L", 1) + "Z"
        s.path(d, s.linear(*(P(0, -.3) + P(m * .6, .12) + ([(0, body if m < 0 else wing), (1, shade)],))))
        s.path(smooth([P(*q) for q in top[3:]]) + "L" + line([P(*q) for q in (bot[0], (m * .74, -.12 * up))])[1:] + "Z", tip, 'opacity=".85"')
    d = smooth([P(*q) for q in ((-.20, .01), (-.10, -.06), (.06, -.05), (.26, .05), (.12, .10), (-.06, .10))], True)
    s.path(d, s.linear(*(P(0, -.07) + P(0, .11) + ([(0, body), (1, shade)],))))
    if light:
        a, b = P(-.20, .01), P(-.26, .035)
        s.add('<path d="%s" stroke="#e09030" stroke-width="%.2f"/>' % (line([a, b]), size * .04))


def main(out):
    # painted past the frame on every side, and cut to size when it is dry:
    # a softened edge would let the bare canvas through
    s = Sheet(WIDE, HIGH, None, BLEED)
    sky(s)
    # the sea's edge melts into the air
    sea(s)
    touches(s, 31, 5200, HORIZON + 3, HIGH + 20, False)
    foam(s, 41, HORIZON + 8, HIGH + 30)
    # cat's-paws on the far water, too far off to be waves
    dice = random.Random(13)
    for _ in range(700):
        d = 1.2 + 34 * dice.random() ** 1.3
        x = dice.uniform(-30, WIDE + 30)
        warm = math.exp(-abs(x - SUN[0]) / (40 + d * 1.5))
        c = mix(far_water(x), dice.choice(((40, 46, 112), (255, 206, 160), (52, 56, 120))), .55)
        if dice.random() < warm:
            c = mix(c, "#fff2c4", .8)
        s.path(lens(x, HORIZON + d, dice.uniform(8, 30) + d * dice.uniform(.4, 2), .35 + d * .022, 0), hexa(c), 'opacity="%.2f"' % dice.uniform(.3, .7))
    # another trader, hull down in the haze
    x, y, c = 1190, HORIZON + 1, hexa(mix(clear_sky(1190, HORIZON - 16), (58, 44, 104), .62))
    for dx, w, h in ((-9, 6.5, 23), (0, 7.5, 27), (9, 6, 20)):
        s.path("M%.1f %.1fQ%.1f %.1f %.1f %.1fL%.1f %.1fQ%.1f %.1f %.1f %.1fZ" % (
            x + dx - w, y - 4, x + dx - w * 1.1, y - h * .6, x + dx - w * .35, y - h, x + dx + w * .3, y - h,
            x + dx + w * .55, y - h * .6, x + dx + w * .5, y - 4), c, 'opacity=".8"')
    s.path("M%.1f %.1fL%.1f %.1fL%.1f %.1fZ" % (x - 14, y - 18, x - 14, y - 5, x - 25, y - 6), c, 'opacity=".8"')
    s.path("M%.1f %.1fL%.1f %.1fL%.1f %.1fL%.1f %.1fZ" % (x - 19, y - 4, x + 18, y - 5, x + 15, y + 1, x - 15, y + 1), c)
    # where sea and sky meet the air is thick: bright under the sun, violet away from it
    s.add('<g filter="%s">' % s.blur("12 2.6", 400))
    s.add('<rect x="-60" y="%g" width="1400" height="7" fill="%s"/>' % (HORIZON - 4, s.linear(0, 0, 1280, 0, [
        (0, "#ffcf90", .55), (.166, "#ffe6ac", .85), (.4, "#f0a884", .5), (.7, "#a8708e", .5), (1, "#7a5a8c", .55)])))
    s.add("</g>")
    glints(s)
    mirror(s)
    wake(s, True)
    ship(s)
    wake(s, False)
    for g in ((150, 168, 40, .16, 1.05, True), (470, 250, 30, -.18, 1.0, True), (405, 300, 22, .15, .8, True), (540, 190, 17, -.1, 1.1, True),
              (330, 212, 14, .2, .9, False), (1120, 300, 26, .22, 1.0, True), (1176, 346, 17, -.1, .8, False),
              (96, 330, 12, .1, 1.0, False), (132, 352, 9, -.1, .9, False), (1060, 160, 12, .1, 1.0, False)):
        gull(s, *g)
    # the corners fall back a little, so that the eye stays with the ship
    s.add('<rect x="-20" y="-20" width="1320" height="872" fill="%s"/>' % s.radial(600, 430, 830, [(0, "#000020", 0), (.62, "#000020", 0), (1, "#04042a", .46)]))
    s.save(out + "/opening.svg")


if __name__ == "__main__":
    main(sys.argv[1])
