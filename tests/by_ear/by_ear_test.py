#!/usr/bin/env python3
"""The program as a player meets it who does not see: whole games by keys, from what a screen reader is told alone."""

import re
import subprocess
import sys
import tempfile
from os import environ
from pathlib import Path

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib

sys.path.append(str(Path(__file__).resolve().parents[2] / "tools"))
from player import Player, until

ICONS = ("SHIP", "CAPTAIN", "MATE", "CREW", "CARGO")
FIT = {"SHIP": "6", "CAPTAIN": "5", "MATE": "4"}


class Listener(Player):
    """Hears what is said, notes which part the keyboard has chosen, and counts how often a name changes."""
    def __init__(self, program):
        super().__init__(program, DBUS_SESSION_BUS_ADDRESS=environ["DBUS_SESSION_BUS_ADDRESS"])
        self.words, self.chosen, self.moves, self.names = [], "", 0, 0
        self.reader = Atspi.EventListener.new(self.hear)

    def start(self):
        self.game = subprocess.Popen([self.program], cwd=self.folder, env=self.environment)

    def listen(self):
        for kind in ("state-changed:showing", "state-changed:focused", "property-change:accessible-name",
                     "announcement"):
            self.reader.register(f"object:{kind}")

    def hear(self, event):
        if "name" in event.type:
            self.names += 1
        elif "announcement" in event.type:
            self.words.append(event.any_data)
        elif event.detail1 and "showing" in event.type and event.source.get_role() == Atspi.Role.NOTIFICATION:
            self.words.append(event.source.get_name())
        elif event.detail1 and "focused" in event.type:
            self.chosen, self.moves = event.source.get_name(), self.moves + 1

    def wait(self, what, seconds=60):
        def happened():
            while GLib.MainContext.default().iteration(False):
                pass
            assert self.game.poll() is None, "the game has ended"
            return what()
        happened.__doc__ = f"{what.__doc__}; heard {self.words[-9:]}, chosen {self.chosen}"
        return until(happened, seconds, 0.01)

    def next(self, beginning=""):
        """The next words, which begin like this."""
        words = self.wait(lambda: self.words).pop(0)
        assert words.startswith(beginning), (beginning, words)
        print(words, flush=True)
        return words

    def press(self, key, answer=None):
        self.tell("xdotool", "key", key)
        return None if answer is None else self.next(answer)

    def parts(self):
        """The names of what the window holds that has the keyboard, in their order."""
        return [part.get_name() for game in children(Atspi.get_desktop(0)) for window in children(game)
                if window.get_state_set().contains(Atspi.StateType.ACTIVE) for part in children(window)]

    def choose(self, key, wanted):
        """Presses `key` until the part that it chooses has `wanted` in its name."""
        for _ in range(12):
            if wanted in self.chosen:
                return
            before = self.moves
            self.press(key)
            try:
                self.wait(lambda: self.moves > before, 5)
            except AssertionError:
                pass  # It went nowhere.
        raise AssertionError(f"{key} does not lead to {wanted}, but to {self.chosen}")

    def throw(self, key):
        """Throws the dice, and returns what is said when they have come to rest."""
        before = self.names
        words = self.press(key, "Throw ")
        assert 0 < self.names - before < 20, f"{self.names - before} names changed during a roll"
        return words


def children(parent):
    return [parent.get_child_at_index(i) for i in range(parent.get_child_count())]


def a_saved_game_by_digits(player):
    (player.folder / "lastgame.inf").write_bytes("\r\n".join("2 0 4 1 12 9 0 0 1 1".split()).encode() + b"\r\n")
    player.start()
    # A reader that is started after the game.
    player.wait(lambda: "Restart Previous Game" in player.parts())
    player.listen()
    player.choose("Tab", "Restart Previous Game")
    player.press("space", "Tolvane. ORANGE TO PLAY. ROUND 4 OF 4.")
    taken, over = set(), ""
    while "Turn over." not in over:
        over = player.throw("t")
        row = re.findall(r"\d", re.search(r"Throw \d(?:: ([^.]*))?\.", over)[1] or "")
        while "Turn over." not in over:
            fits = next((icon for icon in FIT if icon not in taken and FIT[icon] in row), None)
            if not fits and len(taken) < 3:
                break  # The next throw may bring it.
            fits = fits or next(icon for icon in ICONS if icon not in taken)
            face = FIT.get(fits) or row[0]
            over = player.press(face, f"{face} on {fits}.")
            taken.add(fits)
            row.remove(face)
    totals = {"Orange": 12, "Magenta": 9}
    for seat, then in ("Orange", "Magenta to play. ROUND 4 OF 4."), ("Magenta", "End of game."):
        while "Turn over." not in over:
            over = player.next()
        scored, total = map(int, re.search(rf"{seat} scored (\d+)\. {seat} has (\d+)\.", over).groups())
        totals[seat] += scored
        assert total == totals[seat], (over, totals)
        over = player.next(then)
    lead = totals["Orange"] - totals["Magenta"]
    result = f"{'ORANGE' if lead > 0 else 'MAGENTA'} HAS WON!" if lead else "IT'S A DRAW."
    scores = [f"{seat} {total}" for seat, total in totals.items()]
    assert over == f"End of game. {result} {', '.join(scores)}.", over
    assert set(scores) <= set(player.parts()), (scores, player.parts())
    player.press("s", f"{', '.join(scores)}.")
    assert player.words == [], "each thing is said once"


def a_third_throw_by_tab_arrows_and_space(player):
    player.listen()
    player.start()
    player.next("Tolvane, a dice game.")
    player.choose("Tab", "OK")
    player.press("space", "Options.")
    player.choose("Tab", "3 players")
    player.press("space", "Tolvane. ORANGE TO PLAY. ROUND 1 OF 4.")
    turned = False
    while not turned:  # In more than half of the game's twelve turns a third throw has what is asked for.
        for _ in range(3):
            player.choose("Tab", "Throw Dice")
            if "Turn over." in player.throw("space"):
                break
            for icon in FIT:
                put(player, icon, FIT[icon])
        else:
            # A 6, a 5 and a 4 lie on their icons, and no throw is left: the turn ends with the last two dice.
            put(player, "CREW")
            assert "Turn over." in put(player, "CARGO"), player.words
            turned = True
        assert re.search(r"to play\. ROUND \d OF 4\.", player.next()), "no hand-over"
        assert player.chosen not in ("New Game", "Exit"), "no choice comes to rest there by itself"


def put(player, icon, face="[1-6]"):
    """Puts a die of the row that shows `face`, if there is one, on the icon, if that is empty; returns what is said."""
    names = player.parts()
    dice = [name for name in names if re.match(rf"{face}, die \d, in the row", name)]
    if not dice or not any(name.startswith(icon) and name.endswith("empty") for name in names):
        return ""
    go(player, ", die ", range(1, 6), int(re.search(r"die (\d)", dice[0])[1]), ("Left", "Right"))
    player.press("space", f"{dice[0][0]} picked up.")
    go(player, "takes", ICONS, icon, ("Up", "Down"))
    return player.press("space", f"{dice[0][0]} on {icon}.")


def go(player, kind, order, wanted, keys):
    """Goes along the dice, which tell their number, or along the icons, to the one that is wanted."""
    player.choose("Tab", kind)
    chosen = next(place for place in order if re.search(rf"die {place}\b|{place}, takes", player.chosen))
    player.choose(keys[order.index(chosen) < order.index(wanted)], f"die {wanted}" if kind == ", die " else wanted)


if __name__ == "__main__":
    if sys.argv[2:] != ["on a bus of its own"]:
        with tempfile.TemporaryDirectory(prefix="tolvane-bus-") as folder:
            sys.exit(subprocess.run(["dbus-run-session", "--", sys.executable, *sys.argv, "on a bus of its own"],
                                    env={**environ, "XDG_RUNTIME_DIR": folder}).returncode)
    for test in (a_saved_game_by_digits, a_third_throw_by_tab_arrows_and_space):
        with Listener(sys.argv[1]) as listener:
            test(listener)
    print("2 passed, 0 failed")
