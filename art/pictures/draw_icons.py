"""The five things a player looks for: a ship's wheel, a sextant, a compass
rose, an anchor and a hand of bananas.  Each lies in the same brass-rimmed
medallion; the corners are the board's blue, so that no box shows."""
import math
import sys
from brush import (BOARD, BRASS, INK, IVORY, LIGHT, ROPE, STEEL, WOOD, Sheet, ball, hexa, line, lit_ring, mix, ramp, smooth,
                   tone, turned, wheel)

SIZE = 260
C = 130.0
W = 3.4      # the line round things


def medallion(s):
    s.add('<rect width="260" height="260" fill="%s"/>' % hexa(BOARD))
    s.circle(C + 2, C + 3.5, 119, "#0a1130", 'opacity=".55" filter="%s"' % s.blur(2.2))
    s.circle(C, C, 121, INK)
    lit_ring(s, C, C, 103, 118.5, BRASS)
    lit_ring(s, C, C, 113, 118.5, ("#7b5312", "#d09c34", "#f7d878", "#fffbe0"))
    s.ring(C, C, 112.7, "#4a2f06", 1.3, 'opacity=".7"')
    # a milled edge
    for k in range(72):
        a = k * math.pi / 36
        s.add('<path d="%s" stroke="#4a2f06" stroke-width="1.1" opacity=".32"/>' % line(
            [(C + math.cos(a) * 112.6, C + math.sin(a) * 112.6), (C + math.cos(a) * 118.2, C + math.sin(a) * 118.2)]))
    lit_ring(s, C, C, 103, 107.5, ("#6b480e", "#bd8a26", "#f2cd62", "#fff6c4"), flip=True)
    s.ring(C, C, 107.5, "#4a2f06", 1.0, 'opacity=".6"')
    s.circle(C, C, 104, INK)
    s.circle(C, C, 102, s.radial(C, C, 120, [(0, "#2a56a0"), (.5, "#183a78"), (.82, "#0d2250"), (1, "#081638")], C - 34, C - 40))
    # the ground is engraved with fine rays under the enamel
    rays = ""
    for k in range(48):
        a, b = k * math.pi / 24, (k + .5) * math.pi / 24
        rays += "M%.2f %.2fL%.2f %.2fL%.2f %.2fZ" % (C, C, C + math.cos(a) * 102, C + math.sin(a) * 102, C + math.cos(b) * 102, C + math.sin(b) * 102)
    s.path(rays, "#9cc4ff", 'opacity=".07"')
    # the rim's shadow falls on the ground from the upper left
    clip = s.clip('<circle cx="130" cy="130" r="102"/>')
    s.add('<g clip-path="%s"><circle cx="136" cy="138" r="114" fill="none" stroke="#01040f" stroke-width="20" opacity=".6" filter="%s"/></g>' % (clip, s.blur(5)))


def begin():
    s = Sheet(SIZE, SIZE)
    medallion(s)
    return s


def drop(s, shapes):
    """The thing's shadow on the enamel."""
    s.add('<g transform="translate(5 7)" opacity=".5" filter="%s">%s</g>' % (s.blur(3.2), shapes))


def outlined(s, d, fill, extra=""):
    s.path(d, INK, 'stroke="%s" stroke-width="%.2f" stroke-linejoin="round"' % (INK, 2 * W))
    s.path(d, fill, extra)


def ship():
    s = begin()
    sh = '<circle cx="130" cy="130" r="57" fill="none" stroke="#000" stroke-width="22"/>'
    for k in range(8):
        a = k * math.pi / 4
        sh += '<path d="%s" stroke="#000" stroke-width="12" stroke-linecap="round"/>' % line(
            [(C + math.cos(a) * 12, C + math.sin(a) * 12), (C + math.cos(a) * 86, C + math.sin(a) * 86)])
    drop(s, sh)
    wheel(s, C, C, 98, W)
    return s


def captain():
    s = begin()
    # drawn a little small, and brought up to fill its ground
    s.add('<g transform="translate(130 132) scale(1.13) translate(-132 -123)">')
    px, py = 130.0, 50.0            # the pivot of the index arm
    half = math.radians(35)
    R0, R1 = 112.0, 137.0

    def at(r, a):
        return px + r * math.sin(a), py + r * math.cos(a)

    def arc_band(r0, r1, a0, a1):
        x0, y0 = at(r1, a0)
        x1, y1 = at(r1, a1)
        x2, y2 = at(r0, a1)
        x3, y3 = at(r0, a0)
        return "M%.2f %.2fA%.2f %.2f 0 0 0 %.2f %.2fL%.2f %.2fA%.2f %.2f 0 0 1 %.2f %.2fZ" % (
            x0, y0, r1, r1, x1, y1, x2, y2, r0, r0, x3, y3)

    sh = '<path d="%s"/>' % arc_band(R0, R1, -half, half)
    for a in (-half, half, math.radians(9)):
        sh += '<path d="%s" stroke="#000" stroke-width="12"/>' % line([(px, py), at(R1 + (12 if 0 < a < half else 0), a)])
    sh += '<path d="M118 96H212" stroke="#000" stroke-width="18"/>'
    drop(s, sh)

    def bar(p, q, w, stuff=BRASS):
        a = math.atan2(q[1] - p[1], q[0] - p[0])
        turned(s, p[0], p[1], a, [(0, w), (math.hypot(q[0] - p[0], q[1] - p[1]), w)], stuff, W)

    # the frame: two legs, a cross-bar, a ring between them, and the limb
    e = math.radians(32.5)
    bar(at(78, -e), at(78, e), 3.4)
    bar(at(14, -e), at(R0 + 6, -e), 5.8)
    bar(at(14, e), at(R0 + 6, e), 5.8)
    d = arc_band(R0, R1, -half, half)
    fill = s.linear(60, 120, 190, 200, [(0, BRASS[3]), (.35, BRASS[2]), (.75, BRASS[1]), (1, "#7a5312")])
    outlined(s, d, fill)
    s.path(arc_band(R1 - 10.5, R1 - 2.2, -half * .955, half * .955),
           s.linear(60, 120, 190, 200, [(0, "#ffffff"), (1, "#c9ced8")]), 'stroke="#4a2f06" stroke-width="1"')
    for k in range(25):
        a = -half * .92 + k * half * 1.84 / 24
        long = k % 4 == 0
        s.add('<path d="%s" stroke="#1a1430" stroke-width="%.1f"/>' % (
            line([at(R1 - 10, a), at(R1 - (3 if long else 6.5), a)]), 1.7 if long else 1.0))
    # the telescope on the right leg
    ty = 96
    turned(s, 122, ty, 0, [(0, 10.5), (9, 10.5), (10, 8), (40, 7.4), (41, 9.2), (50, 9.2), (51, 6.6), (74, 6.2), (75, 8), (86, 8.4), (89, 7.2)], BRASS, W)
    for x0, x1 in ((124, 130), (164, 171)):
        s.add('<path d="M%g %gV%g" stroke="#4a2f06" stroke-width="1.6" opacity=".6"/>' % (x0 - .2 + 7, ty - 8, ty + 8))
    s.add('<ellipse cx="122" cy="96" rx="3.4" ry="8.6" fill="%s" stroke="%s" stroke-width="1.2"/>' % (
        s.linear(118, 88, 126, 104, [(0, "#e8f6ff"), (.5, "#7fb2dc"), (1, "#274a7c")]), INK))
    # the horizon glass on the left leg
    g = "M80 84L100 79L103 106L83 110Z"
    outlined(s, g, s.linear(80, 80, 104, 110, [(0, "#ffffff"), (.45, "#cfe6f5"), (.5, "#8fb4d4"), (1, "#3d648f")]))
    # the index arm, over everything, with its vernier and clamp
    a = math.radians(9)
    d = arc_band(R0 - 5, R1 + 3, a - math.radians(7), a + math.radians(7))
    turned(s, px, py, math.pi / 2 - a, [(-8, 7), (6, 7.4), (30, 5.4), (R0 - 6, 6.2)], BRASS, W)
    outlined(s, d, s.linear(130, 150, 175, 195, [(0, "#fff6c4"), (.5, BRASS[2]), (1, BRASS[1])]))
    d = arc_band(R0 + 3, R1 - 5, a - math.radians(4.6), a + math.radians(4.6))
    s.path(d, "#0f2450", 'stroke="#4a2f06" stroke-width="1.2"')
    for k in range(5):
        b = a - math.radians(3.4) + k * math.radians(1.7)
        s.add('<path d="%s" stroke="#ffe9a8" stroke-width="1.1"/>' % line([at(R1 - 7, b), at(R1 - (15 if k == 2 else 11), b)]))
    x, y = at(R1 + 9, a)
    turned(s, x, y, -a, [(-10, 6.5), (-7, 7.5), (7, 7.5), (10, 6.5)], BRASS, W)
    for k in (-6, -2, 2, 6):
        s.add('<path d="%s" stroke="#4a2f06" stroke-width="1" opacity=".7"/>' % line([(x + k * math.cos(a), y - 7 - k * math.sin(a)), (x + k * math.cos(a), y + 7 - k * math.sin(a))]))
    # the index mirror and the pivot's knob
    g = "M114 34L139 30L143 46L118 50Z"
    outlined(s, g, s.linear(114, 30, 143, 50, [(0, "#ffffff"), (.45, "#dff0fa"), (.52, "#93b8d6"), (1, "#3d648f")]))
    ball(s, px, py + 8, 9.5, BRASS, W)
    ball(s, px, py + 8, 4, ("#3a2406", "#7a5312", "#bd8a26", "#f2cd62"), .8)
    s.add("</g>")
    return s


def mate():
    s = begin()
    # a graduated ring lies under the star
    s.ring(C, C, 66, INK, 17)
    lit_ring(s, C, C, 61, 71, BRASS)
    for k in range(64):
        a = k * math.pi / 32
        s.add('<path d="%s" stroke="#3a2406" stroke-width="%.1f"/>' % (line(
            [(C + math.cos(a) * 61.8, C + math.sin(a) * 61.8), (C + math.cos(a) * 70.2, C + math.sin(a) * 70.2)]), 1.8 if k % 4 == 0 else .9))

    def star(r, waist, turn, lights, darks, n=4):
        step = 2 * math.pi / n
        out, facets = [], []
        for k in range(n):
            a = turn + k * step
            tip = (C + r * math.cos(a), C + r * math.sin(a))
            l = (C + waist * math.cos(a - step / 2), C + waist * math.sin(a - step / 2))
            q = (C + waist * math.cos(a + step / 2), C + waist * math.sin(a + step / 2))
            out += [l, tip]
            facets.append((a, tip, l, q))
        d = line(out) + "Z"
        return d, facets

    def facets_of(facets, r):
        for a, tip, l, q in facets:
            # looking out along a point, its left half is ivory, its right crimson
            for side, p in ((-1, l), (1, q)):
                nx, ny = math.cos(a + side * math.pi / 2), math.sin(a + side * math.pi / 2)
                v = .5 + .5 * -(nx * .66 + ny * .75)
                if side < 0:
                    c0, c1 = tone(IVORY, .62 + .36 * v), tone(IVORY, .42 + .36 * v)
                else:
                    c0 = hexa(mix("#5a0d1c", "#c8303a", .25 + .6 * v))
                    c1 = hexa(mix("#3a0814", "#a8242f", .1 + .6 * v))
                s.poly([(C, C), tip, p], s.linear(tip[0], tip[1], C, C, [(0, c0), (1, c1)]), 'stroke="%s" stroke-width=".6" stroke-linejoin="round"' % c1)
            s.add('<path d="%s" stroke="#1a1024" stroke-width="1" opacity=".55"/>' % line([(C, C), tip]))

    big, fb = star(98, 27, -math.pi / 2, 0, 0)
    mid, fm = star(74, 24, -math.pi / 4, 0, 0)
    drop(s, '<path d="%s"/><path d="%s"/>' % (big, mid))
    for d, f, r in ((mid, fm, 74), (big, fb, 98)):
        # a gilt edge inside the dark line lifts the dark halves off the ground
        s.path(d, INK, 'stroke="%s" stroke-width="%.2f" stroke-linejoin="miter" stroke-miterlimit="3"' % (INK, 2 * W + 4))
        gilt = s.linear(60, 60, 200, 200, [(0, "#fff6c4"), (.5, "#f2cd62"), (1, "#c08c2a")])
        s.path(d, gilt, 'stroke="%s" stroke-width="4.4" stroke-linejoin="miter" stroke-miterlimit="3"' % gilt)
        facets_of(f, r)
    s.circle(C, C, 14 + W, INK)
    lit_ring(s, C, C, 8, 14, BRASS)
    ball(s, C, C, 9, ("#0b1a44", "#24509a", "#7fb2ea", "#ffffff"), 1.2)
    return s


def crew():
    s = begin()
    # arms and flukes, drawn as one forging
    def arm(m):
        def P(x, y):
            return "%.2f %.2f" % (C + m * x, y)
        return ("M" + P(0, 196) + "C" + P(30, 196) + " " + P(54, 178) + " " + P(62, 150)
                + "L" + P(48, 155) + "L" + P(67, 118) + "L" + P(88, 153) + "L" + P(76, 150.5)
                + "C" + P(68, 194) + " " + P(34, 214) + " " + P(0, 222) + "Z")
    left, right = arm(-1), arm(1)
    shank = "M122 74L119 196L130 214L141 196L138 74Z"
    drop(s, '<path d="%s"/><path d="%s"/><path d="%s"/><path d="M78 86H182" stroke="#000" stroke-width="16" stroke-linecap="round"/><circle cx="130" cy="52" r="15" fill="none" stroke="#000" stroke-width="9"/>' % (left, right, shank))
    for d in (left, right, shank):
        s.path(d, INK, 'stroke="%s" stroke-width="%.2f" stroke-linejoin="round"' % (INK, 2 * W))
    # ring
    s.ring(C, 52, 15.5, INK, 9 + 2 * W)
    lit_ring(s, C, 52, 11, 20, STEEL)
    lit_ring(s, C, 52, 11, 13.5, STEEL, flip=True)
    # arms: lit upper face, dark underside
    for d, m in ((left, -1), (right, 1)):
        s.path(d, s.linear(C + m * 20, 140, C + m * 34, 222, [(0, tone(STEEL, .98 if m < 0 else .8)), (.5, tone(STEEL, .62)), (1, tone(STEEL, .22))]))
        ridge = "M%.1f 209C%.1f 204 %.1f 186 %.1f 148" % (C, C + m * 34, C + m * 62, C + m * 69)
        under = ridge + "L%.1f 152L%.1f 150.5C%.1f 194 %.1f 214 %.1f 222Z" % (C + m * 86, C + m * 76, C + m * 68, C + m * 34, C)
        s.path(under, "#18243c", 'opacity="%.2f"' % (.32 if m < 0 else .5))
        s.add('<path d="%s" fill="none" stroke="#ffffff" stroke-width="1.6" opacity="%.2f"/>' % (ridge, .75 if m < 0 else .4))
        # the palm: two facets
        a, b, t, mid = (C + m * 48, 155), (C + m * 88, 153), (C + m * 67, 118), (C + m * 69, 150)
        lf, rf = (a, b) if m > 0 else (b, a)
        s.poly([t, lf, mid], tone(STEEL, .97))
        s.poly([t, rf, mid], tone(STEEL, .36))
    # shank: a square bar seen on its edge
    s.poly([(122, 74), (119, 196), (130, 214), (130, 74)], s.linear(119, 0, 130, 0, [(0, tone(STEEL, .99)), (1, tone(STEEL, .8))]))
    s.poly([(138, 74), (141, 196), (130, 214), (130, 74)], s.linear(130, 0, 141, 0, [(0, tone(STEEL, .5)), (1, tone(STEEL, .28))]))
    # the wooden stock, iron-hooped
    turned(s, 74, 87, 0, [(0, 6.5), (6, 8.2), (40, 10), (56, 10.6), (72, 10), (106, 8.2), (112, 6.5)], WOOD, W)
    for x in (84, 121, 139, 176):
        turned(s, x - 3.2, 87, 0, [(0, 11.2), (6.4, 11.2)], STEEL, 1.0)
    # a rope made fast to the ring, winding round the shank
    strands(s, [(142, 60), (157, 72), (160, 100), (146, 114)], 4.6)
    strands(s, [(114, 131), (118, 127), (130, 122), (143, 116), (147, 113)], 4.6)
    strands(s, [(113, 160), (117, 156), (130, 151), (143, 145), (147, 142)], 4.6)
    return s


def strands(s, pts, w):
    """A laid rope along a soft line."""
    d = smooth(pts)
    s.add('<path d="%s" fill="none" stroke="%s" stroke-width="%.2f" stroke-linecap="round"/>' % (d, INK, 2 * w + 2 * W * .8))
    s.add('<path d="%s" fill="none" stroke="%s" stroke-width="%.2f" stroke-linecap="round"/>' % (d, ROPE[2], 2 * w))
    # dense points along the same curve
    run = []
    n = len(pts)
    for i in range(n - 1):
        p0, p1, p2, p3 = pts[max(i - 1, 0)], pts[i], pts[i + 1], pts[min(i + 2, n - 1)]
        for k in range(24):
            t = k / 24.0
            run.append(tuple(.5 * (2 * b + (c - a) * t + (2 * a - 5 * b + 4 * c - e) * t * t + (3 * b - a - 3 * c + e) * t ** 3)
                             for a, b, c, e in zip(p0, p1, p2, p3)))
    run.append(pts[-1])
    s.add('<path d="%s" fill="none" stroke="%s" stroke-width="%.2f" stroke-linecap="round" transform="translate(1.1 1.5)" opacity=".55"/>' % (line(run), ROPE[0], w * .9))
    acc, last = 0.0, run[0]
    for i in range(1, len(run)):
        acc += math.hypot(run[i][0] - last[0], run[i][1] - last[1])
        if acc >= 5.4:
            acc = 0
            a = math.atan2(run[i][1] - last[1], run[i][0] - last[0])
            nx, ny, tx, ty = -math.sin(a), math.cos(a), math.cos(a), math.sin(a)
            x, y = run[i]
            s.add('<path d="M%.2f %.2fQ%.2f %.2f %.2f %.2f" fill="none" stroke="%s" stroke-width="1.7"/>' % (
                x + nx * w * .95 - tx * 2.4, y + ny * w * .95 - ty * 2.4, x + tx * .6, y + ty * .6,
                x - nx * w * .95 + tx * 2.4, y - ny * w * .95 + ty * 2.4, ROPE[0]))
        last = run[i]


PEEL = ("#8a5a06", "#e0a818", "#ffdc3e", "#fff7b0")


def banana(s, p0, p1, p2, p3, width, bright=0.0):
    """One finger along a curve from the crown p0 to the tip p3."""
    def at(t):
        u = 1 - t
        x, y = (u ** 3 * a + 3 * u * u * t * b + 3 * u * t * t * c + t ** 3 * d for a, b, c, d in zip(p0, p1, p2, p3))
        dx, dy = (3 * u * u * (b - a) + 6 * u * t * (c - b) + 3 * t * t * (d - c) for a, b, c, d in zip(p0, p1, p2, p3))
        l = math.hypot(dx, dy) or 1
        return x, y, -dy / l, dx / l

    def half(t):
        # a thin neck, a full body, a blunt tip
        if t < .16:
            return width * (.42 + .10 * (t / .16))
        if t < .4:
            k = (t - .16) / .24
            return width * (.52 + .48 * (3 * k * k - 2 * k ** 3))
        if t < .72:
            return width
        k = (t - .72) / .28
        return width * (1 - .72 * k * k * (1.4 - .4 * k))

    N = 36
    ts = [i / float(N) for i in range(N + 1)]

    def edge(f):
        return [(x + nx * half(t) * f, y + ny * half(t) * f) for t in ts for x, y, nx, ny in [at(t)]]
    d = line(edge(-1)) + "L" + line(edge(1)[::-1])[1:] + "Z"
    s.path(d, INK, 'stroke="%s" stroke-width="%.2f" stroke-linejoin="round"' % (INK, 2 * W))
    # the skin's facets: each is as bright as it faces the light
    cuts = [-1, -.62, -.08, .5, 1]
    for i in range(4):
        f0, f1 = cuts[i], cuts[i + 1]
        fm = (f0 + f1) / 2
        A, B = edge(f0), edge(f1)
        for j in range(N):
            t = ts[j]
            x, y, nx, ny = at(t + .5 / N)
            z = math.sqrt(max(0, 1 - fm * fm))
            v = fm * (nx * LIGHT[0] + ny * LIGHT[1]) + z * LIGHT[2]
            c = ramp([(0, PEEL[0]), (.4, PEEL[1]), (.72, PEEL[2]), (1, PEEL[3])], .5 + .5 * v + bright)
            # green at the neck
            c = mix(c, mix("#3f6a1c", "#a8c840", .4 + .5 * v), max(0, .75 - t * 3.4))
            c = hexa(c)
            s.poly([A[j], A[j + 1], B[j + 1], B[j]], c, 'stroke="%s" stroke-width=".7"' % c)
    for f in cuts[1:-1]:
        s.add('<path d="%s" fill="none" stroke="#7a5206" stroke-width=".9" opacity=".38"/>' % line(edge(f)[4:-2]))
    # the brown end
    x, y, nx, ny = at(1.0)
    tx, ty = ny, -nx
    h = half(1.0)
    tip = [(x + nx * h * 1.02, y + ny * h * 1.02), (x + nx * h * .8 + tx * 6, y + ny * h * .8 + ty * 6),
           (x - nx * h * .8 + tx * 6, y - ny * h * .8 + ty * 6), (x - nx * h * 1.02, y - ny * h * 1.02)]
    outlined(s, line(tip) + "Z", "#5a3a12")


def cargo():
    s = begin()
    s.add('<g transform="translate(-8 7)">')
    fingers = [
        # back to front
        ((166, 56), (206, 92), (212, 140), (188, 186), 16.5, -.16),
        ((162, 58), (186, 100), (184, 158), (148, 202), 17.5, -.07),
        ((157, 60), (160, 108), (144, 160), (104, 192), 18, .0),
        ((151, 58), (136, 100), (108, 140), (66, 160), 18, .06),
        ]
    sh = ""
    for p0, p1, p2, p3, w, b in fingers:
        sh += '<path d="M%g %gC%g %g %g %g %g %g" fill="none" stroke="#000" stroke-width="%g" stroke-linecap="round"/>' % (p0 + p1 + p2 + p3 + (2 * w,))
    drop(s, sh)
    for p0, p1, p2, p3, w, b in fingers:
        banana(s, p0, p1, p2, p3, w, b)
    d = "M141 66C141 56 147 48 150 36L168 32C170 44 176 54 179 62C168 70 152 72 141 66Z"
    outlined(s, d, s.linear(143, 36, 176, 70, [(0, "#e2e070"), (.4, "#a8b23a"), (1, "#4f6418")]))
    s.add('<path d="M154 62C156 52 157 46 157 38M166 62C164 52 163 46 163 37" fill="none" stroke="#3a4a10" stroke-width="1.4" opacity=".6"/>')
    d = "M149 38L151 29L167 25.5L169.5 34Z"
    outlined(s, d, s.linear(149, 26, 170, 38, [(0, "#a57a3a"), (1, "#4a2f0e")]))
    s.add("</g>")
    return s


if __name__ == "__main__":
    out = sys.argv[1]
    for name, draw in (("wheel2", ship), ("sextant", captain), ("compass", mate), ("anchor", crew), ("cargo2", cargo)):
        draw().save("%s/%s.svg" % (out, name))
