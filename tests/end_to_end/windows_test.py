#!/usr/bin/env python3
"""The program's windows under several window managers, and a turn under a Wayland compositor."""

import re
import sys
from pathlib import Path

import numpy
from PIL import ImageGrab
from Xlib import X
from Xlib.display import Display

from play_test import Board

sys.path.append(str(Path(__file__).resolve().parents[2] / "tools"))
from player import BOARD, until

DISPLAY = (1280, 1024)
NAVY, BACKDROP, RULES = (0, 0, 128), (49, 135, 215), (0, 0, 255)
SMALL = (363, 438)  # The inside of the title and of the options.


class Watcher(Board):
    """Finds windows by their colour, as eyes do: so it needs nobody to tell it where they are."""

    def display_seen(self):
        return numpy.array(ImageGrab.grab(xdisplay=self.display))[:, :, :3]

    def box(self, colour):
        """The left, top, width and height of all that has this colour; none if it is but a few spots."""
        there = (self.display_seen() == colour).all(axis=2)
        there[:40] = there[-40:] = False  # Panels.
        rows, columns = there.nonzero()
        return (int(columns.min()), int(rows.min()), int(numpy.ptp(columns) + 1),
                int(numpy.ptp(rows) + 1)) if len(rows) > 3000 else None

    def wait_for(self, colour=NAVY, size=SMALL):
        def stands():
            found = self.box(colour)
            assert self.game.poll() is None, f"the program has ended with {self.game.returncode}"
            still, seen[0] = found == seen[0], found
            return still and found and abs(found[2] - size[0]) < 8 and abs(found[3] - size[1]) < 40
        seen = [None]
        until(stands, 20, 0.1)
        self.origin = seen[0][:2]
        return seen[0]

    def find_window(self, width):
        self.wait_for(BOARD, (800, 570)) if width > 363 else self.wait_for()

    def is_covered(self):
        return tuple(self.display_seen()[DISPLAY[1] // 2, 5]) == BACKDROP  # Panels are at the top or the bottom.

    def switch_backdrop(self, pairs):
        self.click(118, 399)  # OK.
        until(self.is_covered)
        self.wait_for()
        for pair in range(pairs):
            self.click(60, 228)  # Hide Desktop.
            until(lambda: not self.is_covered())
            self.wait_for()
            if pair == 0:
                self.click(112, 142)  # The Rules.
                self.wait_for(RULES, (800, 600))
                blue = (self.display_seen() == RULES).all(axis=2).sum()
                assert blue > 0.7 * 800 * 600, f"the options are in front: {blue}"
                self.click(750, 14)
                self.wait_for()
            self.click(60, 228)
            until(self.is_covered)
            self.wait_for()


class Compositor(Watcher):
    """A player under Weston, which shows itself in a window of the X server."""

    def __init__(self, program):
        super().__init__(program, "1400x1024x24", (
            "weston", "--backend=x11-backend.so", "--use-pixman", f"--width={DISPLAY[0]}",
            f"--height={DISPLAY[1]}", "--socket=wayland-test", "--idle-time=0"),
            ASAN_OPTIONS="detect_leaks=0")  # What the libraries for Wayland leak has no names.
        self.command = ["env", "-u", "DISPLAY", "WAYLAND_DISPLAY=wayland-test", self.program]

    def is_managed(self):
        """Whether its pointer follows the mouse, which it does once the mouse has come in from outside."""
        seen = []
        for place in 500, 900, 500:
            self.mouse("mousemove", DISPLAY[0] + 50, place, "mousemove", place, place, "sleep", 0.2)
            seen.append(self.display_seen()[900:920, 900:920])
        return (seen[0] == seen[2]).all() and (seen[0] != seen[1]).any()


def stands_still_in_the_middle(player, foretells):
    watch = Display(player.display)
    watch.screen().root.change_attributes(event_mask=X.SubstructureNotifyMask)
    watch.sync()
    player.start()
    places, now = {}, {}  # Of each window of the root that was mapped: the places it has had since.
    for _ in range(watch.pending_events()):
        event = watch.next_event()
        window = getattr(event, "window", event).id if event.type in (X.ConfigureNotify, X.MapNotify) else 0
        if event.type == X.ConfigureNotify:
            now[window] = event.x, event.y, event.width, event.height
            places.get(window, set()).add(now[window])
        elif window in now:
            places[window] = {now[window]}
    watch.close()
    jumped = [seen for seen in places.values() if len(seen) > 1]
    assert not foretells or (places and not jumped), f"a window jumped: {jumped}"

    left, top, width, height = player.wait_for()
    window = player.tell("xdotool", "getactivewindow").strip()
    frame = [int(side) for side in re.findall(r"\d+", player.tell("xprop", "-id", window, "_NET_FRAME_EXTENTS"))]
    spare = (DISPLAY[0] - width - frame[0] - frame[1], DISPLAY[1] - height - frame[2] - frame[3])
    assert abs(left - frame[0] - spare[0] / 2) <= 2 and abs(top - frame[2] - spare[1] / 2) <= 2, (left, top, frame)


def backdrop_comes_and_goes(player):
    player.switch_backdrop(6)
    player.click(20 - player.origin[0], 20 - player.origin[1])
    player.wait_for()  # Still in front.
    for _ in range(3):
        options = player.tell("xdotool", "getactivewindow").strip()
        player.tell("xdotool", "windowminimize", options)
        until(lambda: not player.is_covered() and not player.box(NAVY))
        player.tell("xdotool", "windowactivate", options)
        until(player.is_covered)
        player.wait_for()


def pages_and_a_board(player):
    options = player.tell("xdotool", "getactivewindow").strip()
    player.click(112, 142)
    place = player.wait_for(RULES, (800, 600))
    player.mouse(*player.at(400, 560), "click", 1, *player.at(500, 500))
    assert player.wait_for(RULES, (800, 600)) == place, "a click has glued the page to the mouse"
    player.mouse("key", "Next")
    until(lambda: "Page 2" in player.tell("xdotool", "getactivewindow", "getwindowname"))
    player.tell("xdotool", "windowactivate", "--sync", options)
    player.mouse("key", "2")
    player.find_window(798)
    board = player.tell("xdotool", "getactivewindow").strip()
    player.tell("xdotool", "windowminimize", board)
    until(lambda: (player.box(BOARD) or (0,) * 4)[2] < 700)  # Page 2 has a picture of a board.
    if player.box(RULES):
        player.wait_for(RULES, (800, 600))
        player.click(750, 14)
    else:  # Openbox minimises all.
        player.tell("xdotool", "windowactivate", board)
    player.find_window(798)
    before = player.counter()
    until(lambda: player.mouse("key", "t") or (player.counter() != before).any())


def turn_under_wayland(player):
    player.start()
    player.switch_backdrop(2)
    player.click(136, 336)
    player.find_window(798)
    player.throw()
    assert player.put(0, 3), "CREW takes any die"
    assert player.leave()[0] == 2
    player.end()


if __name__ == "__main__":
    # Fluxbox tells nobody what its frames will be like, so a first window cannot but jump there.
    for manager, foretells in (("openbox", True), ("icewm", True), ("fluxbox", False)):
        with Watcher(sys.argv[1], manager=(manager,)) as player:
            print(manager, flush=True)
            stands_still_in_the_middle(player, foretells)
            backdrop_comes_and_goes(player)
            pages_and_a_board(player)
    print("weston", flush=True)
    with Compositor(sys.argv[1]) as player:
        turn_under_wayland(player)
    print("4 passed, 0 failed")
