"""The game's emblem, a ship's wheel and dice, and the application's icon."""
import math
import sys
from brush import Sheet, BOARD, NAVY, INK, hexa, wheel, die


def emblem(width, height, ground):
    s = Sheet(400, 556, (width, height))
    # the smaller emblem's box is a hair wider in proportion: fit it in, middled
    s.add('<rect x="-50" y="-50" width="500" height="656" fill="%s"/>' % hexa(ground))
    # a margin all round: nothing of it, not even a shadow, touches the frame
    s.add('<g transform="translate(200 278) scale(.92) translate(-200 -281)">')
    glow = s.radial(200, 196, 190, [(0, "#6f8fe0", .42), (.55, "#5a78d0", .2), (1, "#5a78d0", 0)])
    s.circle(200, 196, 190, glow)
    s.circle(206, 204, 150, "none", 'stroke="#00000c" stroke-width="44" opacity=".35" filter="%s"' % s.blur(7))
    wheel(s, 200, 196, 190, 4.2, turn=math.pi / 8 * 0)
    soft = (6, .55)
    die(s, 96, 424, 108, 34, 30, -7, 5, 1, 3, 4.2, soft)
    die(s, 305, 420, 108, -38, 30, 7, 2, 4, 1, 4.2, soft)
    die(s, 202, 450, 128, -34, 32, -2, 6, 5, 4, 4.2, soft)
    s.add("</g>")
    return s


def icon(pixels):
    s = Sheet(512, 512, (pixels, pixels))
    s.circle(256, 256, 160, s.radial(200, 200, 230, [(0, "#3a5cb0"), (.6, "#1a2f74"), (1, "#0b1440")]))
    wheel(s, 256, 256, 250, 7)
    die(s, 362, 362, 190, -32, 32, -3, 6, 5, 4, 7, (12, .5))
    return s


GOLD = ("#ffe6a6", "#e6a448", "#a8641e")


def small_wheel(s, c, ring, width, tip, spokes, spoke, handle, line):
    """A wheel of few strokes: a blue ground, spokes, a ring and handles."""
    gold = s.linear(c - tip * .7, c - tip * .7, c + tip * .7, c + tip * .7, [(0, GOLD[0]), (.5, GOLD[1]), (1, GOLD[2])])

    def ray(count, r0, r1, w, colour, cap):
        d = ""
        for k in range(count):
            a = k * 2 * math.pi / count
            d += "M%.3f %.3fL%.3f %.3f" % (c + math.cos(a) * r0, c + math.sin(a) * r0, c + math.cos(a) * r1, c + math.sin(a) * r1)
        s.add('<path d="%s" stroke="%s" stroke-width="%.3f" stroke-linecap="%s"/>' % (d, colour, w, cap))
    ray(8, ring, tip - handle / 2, handle + 2 * line, INK, "round")
    s.circle(c, c, ring + width / 2 + line, INK)
    s.circle(c, c, ring, "#1b3a94")
    ray(spokes, 0, ring, spoke, gold, "butt")
    ray(8, ring, tip - handle / 2, handle, gold, "round")
    s.ring(c, c, ring - width / 2, INK, line * .8, 'opacity=".8"')
    s.ring(c, c, ring, gold, width)


def small_die(s, x, side, line, corner, pips, pip, square):
    s.add('<rect x="%g" y="%g" width="%g" height="%g" rx="%g" fill="%s"/>' % (x - line, x - line, side + 2 * line, side + 2 * line, corner + line, INK))
    s.add('<rect x="%g" y="%g" width="%g" height="%g" rx="%g" fill="%s"/>' % (x, x, side, side, corner, s.linear(x, x, x + side, x + side, [(0, "#ffffff"), (1, "#e6d8b0")])))
    for px, py in pips:
        if square:
            s.add('<rect x="%g" y="%g" width="%g" height="%g" fill="#0a0a48"/>' % (x + px, x + py, pip, pip))
        else:
            s.circle(x + px, x + py, pip / 2.0, "#0a0a48")


def small_icon(n):
    """At 16 and 32 only the wheel's ring, spokes and handles and one face of a
    die stay, set on whole pixels."""
    s = Sheet(n, n)
    if n == 16:
        small_wheel(s, 7.5, 4.6, 1.5, 7.4, 4, 1.0, 1.3, .55)
        small_die(s, 9, 6, 1, .8, ((1, 1), (4, 1), (1, 4), (4, 4)), 1, True)
        s.circle(7.5, 7.5, 1.3, GOLD[0])
    else:
        small_wheel(s, 14.5, 8.6, 3.0, 14.3, 8, 1.5, 2.7, .9)
        s.circle(14.5, 14.5, 3.1, INK)
        s.circle(14.5, 14.5, 2.3, GOLD[0])
        small_die(s, 18, 13, 1, 2.2, ((3.5, 3.5), (9.5, 3.5), (6.5, 6.5), (3.5, 9.5), (9.5, 9.5)), 2.5, False)
    return s


if __name__ == "__main__":
    out = sys.argv[1]
    emblem(400, 556, NAVY).save(out + "/logo2.svg")
    emblem(244, 336, BOARD).save(out + "/logo3.svg")
    icon(512).save(out + "/tolvane.svg")
    small_icon(16).save(out + "/tolvane16.svg")
    small_icon(32).save(out + "/tolvane32.svg")
