#!/usr/bin/env python3
"""The program's windows under several window managers, and a turn under a Wayland compositor."""

import re
import subprocess
import sys
import time
from pathlib import Path

import numpy
from PIL import ImageGrab

sys.path.append(str(Path(__file__).resolve().parents[2] / "tools"))
from player import BOARD, Player, until

DISPLAY = (1280, 1024)
NAVY, BACKDROP, RULES = (0, 0, 128), (49, 135, 215), (0, 0, 255)
SMALL = (363, 438)  # The inside of the title and of the options.


class Watcher(Player):
    """Finds windows by their colour, as eyes do: so it needs nobody to tell it where they are."""

    def display_seen(self):
        return numpy.array(ImageGrab.grab(xdisplay=self.display))[:, :, :3]

    def box(self, colour):
        """The left, top, width and height of all that has this colour; none if it is but a few spots."""
        rows, columns = (self.display_seen() == colour).all(axis=2).nonzero()
        if len(rows) < 3000:
            return None
        return (int(columns.min()), int(rows.min()), int(columns.max() - columns.min() + 1),
                int(rows.max() - rows.min() + 1))

    def wait_for(self, colour, size):
        def stands():
            found = self.box(colour)
            if self.game.poll() is not None:
                raise AssertionError(f"the program has ended with {self.game.returncode}")
            still, seen[0] = found == seen[0], found
            return still and found and abs(found[2] - size[0]) < 8 and abs(found[3] - size[1]) < 40
        seen = [None]
        until(stands, 20, 0.1)
        self.origin = seen[0][:2]
        return seen[0]

    def is_covered(self):
        return tuple(self.display_seen()[DISPLAY[1] // 2, 5]) == BACKDROP  # Panels are at the top or the bottom.

    def launch(self):
        self.game = subprocess.Popen([self.program], cwd=self.folder, env=self.environment)
        return self.wait_for(NAVY, SMALL)

    def to_options(self):
        self.click(118, 399)  # OK.
        until(self.is_covered)
        self.wait_for(NAVY, SMALL)

    def switch_backdrop(self, pairs):
        for _ in range(pairs):
            for covered in (False, True):
                self.click(60, 228)  # Hide Desktop.
                until(lambda: self.is_covered() == covered)
                self.wait_for(NAVY, SMALL)


class Compositor(Watcher):
    """A player under Weston, which shows itself in a window of the X server."""

    def __init__(self, program):
        super().__init__(program, manager=(
            "weston", "--backend=x11-backend.so", "--use-pixman", f"--width={DISPLAY[0]}",
            f"--height={DISPLAY[1]}", "--socket=wayland-test", "--idle-time=0"),
            ASAN_OPTIONS="detect_leaks=0")  # What the libraries for Wayland leak has no names.

    def is_managed(self):
        return (self.folder / "wayland-test").exists() and self.display_seen().any()

    def launch(self):
        x_server = self.environment.pop("DISPLAY")
        self.environment["WAYLAND_DISPLAY"] = "wayland-test"
        stands = super().launch()
        self.environment["DISPLAY"] = x_server  # The mouse is the X server's.
        return stands


def places_after_mapping(log):
    """Of each window of the root that was mapped: the places it has had since."""
    now, since = {}, {}
    for event in log.split("\n\n"):
        place = re.search(r"window (0x\w+), \((-?\d+),(-?\d+)\), width (\d+), height (\d+)", event)
        if event.lstrip().startswith("ConfigureNotify") and place:
            now[place[1]] = place.groups()[1:]
            if place[1] in since:
                since[place[1]].add(place.groups()[1:])
        mapped = re.search(r"MapNotify event.* window (0x\w+), override", event.replace("\n", " "))
        if mapped and mapped[1] in now:
            since[mapped[1]] = {now[mapped[1]]}
    return since


def first_window_stands_still(player):
    with open(player.folder / "events", "w") as log:
        watch = subprocess.Popen(["xev", "-root", "-event", "substructure"], env=player.environment, stdout=log)
        player.launch()
        watch.terminate()
        watch.wait()
    places = places_after_mapping((player.folder / "events").read_text())
    moved = {window: seen for window, seen in places.items() if len(seen) > 1}
    assert not moved, f"a window jumped: {moved}"


def stands_in_the_middle(player):
    left, top, width, height = player.wait_for(NAVY, SMALL)
    window = player.tell("xdotool", "getactivewindow").strip()
    frame = [int(n) for n in re.findall(r"\d+", player.tell("xprop", "-id", window, "_NET_FRAME_EXTENTS"))]
    assert len(frame) == 4, frame
    spare = (DISPLAY[0] - width - frame[0] - frame[1], DISPLAY[1] - height - frame[2] - frame[3])
    assert abs(left - frame[0] - spare[0] / 2) <= 2 and abs(top - frame[2] - spare[1] / 2) <= 2, (left, top, frame)


def backdrop_comes_and_goes(player):
    player.to_options()
    player.switch_backdrop(12)
    player.click(20 - player.origin[0], 20 - player.origin[1])
    player.wait_for(NAVY, SMALL)  # Still in front.


def minimised_with_the_backdrop(player):
    for _ in range(3):
        options = player.tell("xdotool", "getactivewindow").strip()
        player.tell("xdotool", "windowminimize", options)
        until(lambda: not player.is_covered() and not player.box(NAVY))
        player.tell("xdotool", "windowactivate", options)
        until(player.is_covered)
        player.wait_for(NAVY, SMALL)


def turn_under_wayland(player):
    player.launch()
    player.to_options()
    player.switch_backdrop(2)
    player.click(112, 142)  # The Rules open in front of the options.
    player.wait_for(RULES, (800, 600))
    player.click(750, 14)
    player.wait_for(NAVY, SMALL)
    player.click(136, 336)
    player.wait_for(BOARD, (800, 570))
    crew_before = player.colour(190, 342)
    player.click(545, 252)
    until(lambda: (player.see(432, 168, 225, 49) != BOARD).any())  # The throw is counted.
    time.sleep(2.3)  # A roll.
    player.drag((384, 320), (216, 368))
    until(lambda: player.colour(190, 342) != crew_before)
    player.click(745, 545)
    player.wait_for(NAVY, SMALL)
    assert (player.folder / "lastgame.inf").read_bytes().startswith(b"2\r\n")
    player.click(246, 399)
    player.game.wait(10)
    assert player.game.returncode == 0, player.game.returncode


if __name__ == "__main__":
    # Fluxbox tells nobody what its frames will be like, so a first window cannot but jump there.
    for manager, foretells in (("openbox", True), ("icewm", True), ("fluxbox", False)):
        with Watcher(sys.argv[1], manager=(manager,)) as player:
            print(manager, flush=True)
            first_window_stands_still(player) if foretells else player.launch()
            stands_in_the_middle(player)
            backdrop_comes_and_goes(player)
            minimised_with_the_backdrop(player)
    print("weston", flush=True)
    with Compositor(sys.argv[1]) as player:
        turn_under_wayland(player)
    print("13 passed, 0 failed")
