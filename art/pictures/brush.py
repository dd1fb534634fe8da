"""The brushes that every picture of the game shares.

One hand draws them all: the light comes from the upper left, a dark line of
the same weight goes round every thing, and the same brass, wood and ivory
are used everywhere.  A picture is a list of SVG elements plus the gradients
they use; Sheet keeps both.
"""
import math

BOARD = (41, 65, 137)       # the board's blue
NAVY = (0, 0, 128)          # the title's and the options' navy
INK = "#120f24"             # the line round things
LIGHT = (-0.6, -0.68, 0.42) # towards the light: left, up, and out of the page


def hexa(c):
    return "#%02x%02x%02x" % tuple(max(0, min(255, int(round(v)))) for v in c)


def rgb(h):
    h = h.lstrip("#")
    return tuple(int(h[i:i + 2], 16) for i in (0, 2, 4))


def mix(a, b, t):
    """From colour a to colour b, t between 0 and 1; tuples or hex strings."""
    if isinstance(a, str):
        a = rgb(a)
    if isinstance(b, str):
        b = rgb(b)
    t = max(0.0, min(1.0, t))
    return tuple(x + (y - x) * t for x, y in zip(a, b))


def ramp(stops, t):
    """The colour at t on a list of (place, colour)."""
    if t <= stops[0][0]:
        return mix(stops[0][1], stops[0][1], 0)
    for (p, c), (q, d) in zip(stops, stops[1:]):
        if t <= q:
            return mix(c, d, (t - p) / (q - p) if q > p else 1)
    return mix(stops[-1][1], stops[-1][1], 0)


# shadow, body, light, glint
WOOD = ("#5a2a0e", "#c27a34", "#f2b766", "#ffe9b4")
BRASS = ("#5a3a08", "#bd8a26", "#f2cd62", "#fff6c4")
STEEL = ("#2c3a50", "#8796aa", "#cfdae4", "#ffffff")
ROPE = ("#5b4522", "#b8955a", "#e4ca90", "#fff2cc")
IVORY = ("#7d6844", "#d8c79c", "#f6edd2", "#fffdf4")


def tone(stuff, v):
    """A stuff's colour under brightness v (0 shadow ... 1 glint)."""
    return hexa(ramp([(0, stuff[0]), (.42, stuff[1]), (.75, stuff[2]), (1, stuff[3])], v))


class Sheet:
    def __init__(self, width, height, pixels=None, bleed=0):
        self.w, self.h, self.bleed = width, height, bleed
        self.pixels = pixels or (width + 2 * bleed, height + 2 * bleed)
        self.defs, self.body, self.n = [], [], 0

    def add(self, text):
        self.body.append(text)

    def name(self):
        self.n += 1
        return "g%d" % self.n

    def linear(self, x1, y1, x2, y2, stops):
        i = self.name()
        self.defs.append(
            '<linearGradient id="%s" gradientUnits="userSpaceOnUse" x1="%.2f" y1="%.2f" x2="%.2f" y2="%.2f">%s</linearGradient>'
            % (i, x1, y1, x2, y2, self._stops(stops)))
        return "url(#%s)" % i

    def radial(self, cx, cy, r, stops, fx=None, fy=None):
        i = self.name()
        self.defs.append(
            '<radialGradient id="%s" gradientUnits="userSpaceOnUse" cx="%.2f" cy="%.2f" r="%.2f" fx="%.2f" fy="%.2f">%s</radialGradient>'
            % (i, cx, cy, r, cx if fx is None else fx, cy if fy is None else fy, self._stops(stops)))
        return "url(#%s)" % i

    @staticmethod
    def _stops(stops):
        out = []
        for s in stops:
            o = ' stop-opacity="%.3f"' % s[2] if len(s) > 2 else ""
            out.append('<stop offset="%.3f" stop-color="%s"%s/>' % (s[0], s[1], o))
        return "".join(out)

    def blur(self, dev, room=50):
        """A softening; room is how far beyond a shape it may reach, in percent."""
        i = self.name()
        self.defs.append('<filter id="%s" x="-%d%%" y="-%d%%" width="%d%%" height="%d%%">'
                         '<feGaussianBlur stdDeviation="%s"/></filter>' % (i, room, room, 100 + 2 * room, 100 + 2 * room, dev))
        return "url(#%s)" % i

    def clip(self, shape):
        i = self.name()
        self.defs.append('<clipPath id="%s">%s</clipPath>' % (i, shape))
        return "url(#%s)" % i

    def circle(self, cx, cy, r, fill, extra=""):
        self.add('<circle cx="%.2f" cy="%.2f" r="%.2f" fill="%s" %s/>' % (cx, cy, r, fill, extra))

    def ring(self, cx, cy, r, stroke, width, extra=""):
        self.circle(cx, cy, r, "none", 'stroke="%s" stroke-width="%.2f" %s' % (stroke, width, extra))

    def path(self, d, fill, extra=""):
        self.add('<path d="%s" fill="%s" %s/>' % (d, fill, extra))

    def poly(self, pts, fill, extra=""):
        self.path(line(pts) + "Z", fill, extra)

    def text(self):
        return ('<svg xmlns="http://www.w3.org/2000/svg" width="%g" height="%g" viewBox="%g %g %g %g">\n<defs>\n%s\n</defs>\n%s\n</svg>\n'
                % (self.pixels[0], self.pixels[1], -self.bleed, -self.bleed, self.w + 2 * self.bleed, self.h + 2 * self.bleed, "\n".join(self.defs), "\n".join(self.body)))

    def save(self, name):
        with open(name, "w", encoding="ascii", newline="\n") as f:
            f.write(self.text())


def line(pts):
    return "M" + "L".join("%.2f %.2f" % (p[0], p[1]) for p in pts)


def smooth(pts, closed=False):
    """A soft line through the points."""
    n = len(pts)
    d = "M%.2f %.2f" % (pts[0][0], pts[0][1])
    for i in range(n if closed else n - 1):
        if closed:
            p0, p1, p2, p3 = pts[(i - 1) % n], pts[i], pts[(i + 1) % n], pts[(i + 2) % n]
        else:
            p0, p1, p2, p3 = pts[max(i - 1, 0)], pts[i], pts[i + 1], pts[min(i + 2, n - 1)]
        d += "C%.2f %.2f %.2f %.2f %.2f %.2f" % (
            p1[0] + (p2[0] - p0[0]) / 6, p1[1] + (p2[1] - p0[1]) / 6,
            p2[0] - (p3[0] - p1[0]) / 6, p2[1] - (p3[1] - p1[1]) / 6, p2[0], p2[1])
    return d + ("Z" if closed else "")


def turned(sheet, x, y, angle, profile, stuff, weight, outline=True):
    """A thing turned on a lathe: profile is (distance along, half width) from
    (x, y) in the direction of angle.  Its lit side is the one towards the
    light, whichever way it points."""
    c, s = math.cos(angle), math.sin(angle)
    nx, ny = -s, c
    left = [(x + c * a - nx * w, y + s * a - ny * w) for a, w in profile]
    right = [(x + c * a + nx * w, y + s * a + ny * w) for a, w in profile]
    d = smooth(left) + smooth(right[::-1]).replace("M", "L", 1) + "Z"
    widest = max(w for a, w in profile)
    mid = sum(a for a, w in profile) / len(profile)
    mx, my = x + c * mid, y + s * mid
    stops = []
    for k in (-1, -.75, -.5, -.25, 0, .25, .5, .75, 1):
        z = math.sqrt(max(0, 1 - k * k))
        v = nx * k * LIGHT[0] + ny * k * LIGHT[1] + z * LIGHT[2]
        stops.append(((k + 1) / 2, tone(stuff, .3 + .62 * v)))
    fill = sheet.linear(mx - nx * widest, my - ny * widest, mx + nx * widest, my + ny * widest, stops)
    if outline:
        sheet.path(d, INK, 'stroke="%s" stroke-width="%.2f" stroke-linejoin="round"' % (INK, weight * 2))
    sheet.path(d, fill)


def lit_ring(sheet, cx, cy, inner, outer, stuff, flip=False, extra=""):
    """A flat ring whose face catches the light on one side."""
    k = -1 if flip else 1
    a = outer * .72 * k
    fill = sheet.linear(cx - a, cy - a, cx + a, cy + a,
                        [(0, tone(stuff, 1)), (.22, tone(stuff, .8)), (.55, tone(stuff, .45)), (1, tone(stuff, .1))])
    sheet.ring(cx, cy, (inner + outer) / 2, fill, outer - inner, extra)


def ball(sheet, cx, cy, r, stuff, weight=0):
    if weight:
        sheet.circle(cx, cy, r + weight, INK)
    sheet.circle(cx, cy, r, sheet.radial(cx, cy, r * 1.1, [
        (0, tone(stuff, 1)), (.35, tone(stuff, .75)), (.75, tone(stuff, .4)), (1, tone(stuff, .1))],
        cx - r * .4, cy - r * .45))


def wheel(sheet, cx, cy, r, weight, spokes=8, turn=0.0, hub=True):
    """A ship's wheel; r reaches to the ends of its handles."""
    u = r / 100.0
    step = 2 * math.pi / spokes
    # the spokes and handles, in one turned piece each
    for k in range(spokes):
        a = turn + k * step
        # the king spoke's handle carries turned rings, as on every ship
        turned(sheet, cx, cy, a, [(8 * u, 5.5 * u), (20 * u, 6 * u), (27 * u, 4.2 * u), (33 * u, 5 * u), (42 * u, 6.2 * u),
                                  (49 * u, 4.4 * u), (56 * u, 5 * u)], WOOD, weight)
        turned(sheet, cx, cy, a, [(70 * u, 4.6 * u), (75 * u, 4.2 * u), (80 * u, 6.4 * u), (87 * u, 7.8 * u), (93 * u, 7.2 * u),
                                  (97 * u, 5.2 * u), (99.5 * u, 2 * u)], WOOD, weight)
    # the rim: a dark line, then two bevels and a face of wood, a brass band let in
    inner, outer = 50 * u, 73 * u
    sheet.ring(cx, cy, (inner + outer) / 2, INK, outer - inner + 2 * weight)
    lit_ring(sheet, cx, cy, inner, outer, WOOD)
    lit_ring(sheet, cx, cy, inner, inner + 4 * u, WOOD, flip=True)
    lit_ring(sheet, cx, cy, inner + 4 * u, outer - 4 * u, ("#7d4219", "#c67f3a", "#eab066", "#ffd79a"))
    sheet.ring(cx, cy, (inner + outer) / 2, "#3a1a08", 8.4 * u, 'opacity=".55"')
    lit_ring(sheet, cx, cy, (inner + outer) / 2 - 3.2 * u, (inner + outer) / 2 + 3.2 * u, BRASS)
    for k in range(spokes):
        a = turn + (k + .5) * step
        # the joints of the rim's pieces
        sheet.add('<path d="%s" stroke="#3a1a08" stroke-width="%.2f" opacity=".7" fill="none"/>' % (
            line([(cx + math.cos(a) * inner, cy + math.sin(a) * inner), (cx + math.cos(a) * outer, cy + math.sin(a) * outer)]), 1.1 * u))
    for k in range(spokes):
        a = turn + k * step
        ball(sheet, cx + math.cos(a) * (inner + outer) / 2, cy + math.sin(a) * (inner + outer) / 2, 3.6 * u, BRASS, weight * .35)
    if hub:
        sheet.circle(cx, cy, 21 * u + weight, INK)
        lit_ring(sheet, cx, cy, 0.1, 21 * u, WOOD)
        lit_ring(sheet, cx, cy, 12 * u, 18 * u, BRASS)
        lit_ring(sheet, cx, cy, 11 * u, 13 * u, BRASS, flip=True)
        ball(sheet, cx, cy, 9.5 * u, BRASS, weight * .5)


PIPS = {
    1: [(0, 0)], 2: [(-1, -1), (1, 1)], 3: [(-1, -1), (0, 0), (1, 1)],
    4: [(-1, -1), (1, -1), (-1, 1), (1, 1)],
    5: [(-1, -1), (1, -1), (-1, 1), (1, 1), (0, 0)],
    6: [(-1, -1), (-1, 0), (-1, 1), (1, -1), (1, 0), (1, 1)],
}


def die(sheet, cx, cy, size, yaw, pitch, roll, top, front, side, weight, shadow=None):
    """An ivory die seen in the round; the angles turn it, in degrees."""
    a, b, c = (math.radians(v) for v in (yaw, -pitch, roll))

    def turn(p):
        x, y, z = p
        x, z = x * math.cos(a) + z * math.sin(a), -x * math.sin(a) + z * math.cos(a)
        y, z = y * math.cos(b) - z * math.sin(b), y * math.sin(b) + z * math.cos(b)
        x, y = x * math.cos(c) - y * math.sin(c), x * math.sin(c) + y * math.cos(c)
        return x, y, z
    # faces: outward normal, then the face's right and down
    faces = [((0, -1, 0), (1, 0, 0), (0, 0, 1), top),
             ((0, 0, 1), (1, 0, 0), (0, 1, 0), front),
             ((1, 0, 0), (0, 0, -1), (0, 1, 0), side),
             ((-1, 0, 0), (0, 0, 1), (0, 1, 0), side)]
    h = size / 2.0
    soft = .17
    seen = []
    for n, r, d, v in faces:
        N = turn(n)
        if N[2] > 0.02:
            seen.append((N, turn(n), turn(r), turn(d), v))
    # the rounded body: the outline of the three faces, with round corners
    k = 1 - soft
    body = ""
    for N, nn, rr, dd, v in seen:
        pts = [(cx + h * k * (nn[0] + i * rr[0] + j * dd[0]), cy + h * k * (nn[1] + i * rr[1] + j * dd[1]))
               for i, j in ((-1, -1), (1, -1), (1, 1), (-1, 1))]
        body += line(pts) + "Z"
    wide = 2 * h * soft
    if shadow:
        sheet.path(body, "#000014", 'stroke="#000014" stroke-width="%.2f" stroke-linejoin="round" opacity="%.2f" transform="translate(%.1f %.1f)" filter="%s"'
                   % (wide, shadow[1], size * .05, size * .09, sheet.blur(shadow[0])))
    sheet.path(body, INK, 'stroke="%s" stroke-width="%.2f" stroke-linejoin="round"' % (INK, wide + 2 * weight))
    edge = sheet.linear(cx - h, cy - h, cx + h, cy + h, [(0, "#ffffff"), (.5, "#f7efd8"), (1, "#a28a5c")])
    sheet.path(body, edge, 'stroke="%s" stroke-width="%.2f" stroke-linejoin="round"' % (edge, wide))
    for N, nn, rr, dd, v in seen:
        lit = sum(p * q for p, q in zip(N, LIGHT))
        m = "matrix(%.5f %.5f %.5f %.5f %.3f %.3f)" % (
            rr[0] * h, rr[1] * h, dd[0] * h, dd[1] * h, cx + nn[0] * h, cy + nn[1] * h)
        base = .58 + .42 * lit
        f = 1 - soft * .62
        # across each face the light falls off away from its source
        gx = -(rr[0] * LIGHT[0] + rr[1] * LIGHT[1])
        gy = -(dd[0] * LIGHT[0] + dd[1] * LIGHT[1])
        gl = math.hypot(gx, gy) or 1
        fill = sheet.linear(-gx / gl, -gy / gl, gx / gl, gy / gl,
                            [(0, tone(IVORY, base + .12)), (1, tone(IVORY, base - .13))])
        sheet.add('<g transform="%s"><rect x="%.3f" y="%.3f" width="%.3f" height="%.3f" rx=".24" fill="%s"/>' % (m, -f, -f, 2 * f, 2 * f, fill))
        for px, py in PIPS[v]:
            x, y = px * .5, py * .5
            pip = sheet.linear(x - .13 - .06 * gx, y - .13, x + .13, y + .13, [(0, "#05051e"), (1, "#2b2f72")])
            sheet.add('<circle cx="%.3f" cy="%.3f" r=".205" fill="%s" opacity=".75"/>' % (x + .02 * gx, y + .02 * gy, tone(IVORY, base + .35)))
            sheet.add('<circle cx="%.3f" cy="%.3f" r=".185" fill="%s"/>' % (x, y, pip))
        sheet.add("</g>")
