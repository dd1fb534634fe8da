#!/usr/bin/env python3
"""The program as a player meets it who does not see: a game by keys, from what a screen reader is told alone.
Usage: env -u XDG_RUNTIME_DIR dbus-run-session -- by_ear_test.py build/release/tolvane"""

import re
import subprocess
import sys
from os import environ
from pathlib import Path

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib

sys.path.append(str(Path(__file__).resolve().parents[2] / "tools"))
from player import Player, until


class Listener(Player):
    """Hears what is said, and notes which part the keyboard has chosen."""
    def __init__(self, program):
        super().__init__(program, DBUS_SESSION_BUS_ADDRESS=environ["DBUS_SESSION_BUS_ADDRESS"])
        (self.folder / "lastgame.inf").write_bytes("\r\n".join("2 0 4 1 12 9 0 0 1 1".split()).encode() + b"\r\n")
        self.game = subprocess.Popen([self.program], cwd=self.folder, env=self.environment)
        self.words, self.chosen, self.names = [], "", {}
        self.wait(lambda: "Restart Previous Game" in self.parts())
        self.reader = Atspi.EventListener.new(self.hear)  # One that is started after the game.
        for kind in ("state-changed:showing", "state-changed:focused", "property-change:accessible-name",
                     "announcement"):
            self.reader.register(f"object:{kind}")

    def hear(self, event):
        if "name" in event.type:
            self.names.pop(event.source, None)
        elif "announcement" in event.type:
            self.words.append(event.any_data)
        elif event.detail1 and "showing" in event.type and event.source.get_role() == Atspi.Role.NOTIFICATION:
            if event.source not in self.names:  # Readers keep what they have heard until they are told that it changed.
                self.names[event.source] = event.source.get_name()
            self.words.append(self.names[event.source])
        elif event.detail1 and "focused" in event.type:
            self.chosen = event.source.get_name()

    def wait(self, what):
        def happened():
            while GLib.MainContext.default().iteration(False):
                pass
            assert self.game.poll() is None, "the game has ended"
            return what()
        happened.__doc__ = f"heard {self.words}, chosen {self.chosen}"
        return until(happened, 60, 0.01)

    def next(self, beginning):
        """The next words, which begin like this."""
        words = self.wait(lambda: self.words).pop(0)
        assert words.startswith(beginning), (beginning, words)
        print(words, flush=True)
        return words

    def press(self, key, answer):
        self.tell("xdotool", "key", key)
        return self.next(answer)

    def parts(self):
        """The names of what the window holds that has the keyboard, in their order."""
        return [part.get_name() for game in children(Atspi.get_desktop(0)) for window in children(game)
                if window.get_state_set().contains(Atspi.StateType.ACTIVE) for part in children(window)]

    def turn(self):
        """Sets aside the highest die of each throw, and all of the last one's if they suffice. Returns the last words."""
        for throw in 1, 2, 3:
            said = self.press("t", "Throw ")
            faces = sorted(re.findall(r"\d", re.search(r"Throw \d: ([^.]*)\.", said)[1]), reverse=True)
            for face in faces if throw == 3 else faces[:1]:
                if "Turn over." not in said:
                    said = self.press(face, f"{face} on ")
        return said


def children(parent):
    return [parent.get_child_at_index(i) for i in range(parent.get_child_count())]


def a_saved_game(player):
    player.tell("xdotool", "key", "Tab")
    player.wait(lambda: "Restart Previous Game" in player.chosen)
    player.press("space", "Tolvane. ORANGE TO PLAY. ROUND 4 OF 4.")
    said = player.turn()
    totals = {"Orange": 12, "Magenta": 9}
    for seat, then in ("Orange", "Magenta to play. ROUND 4 OF 4."), ("Magenta", "End of game."):
        while "Turn over." not in said:
            said = player.next("")
        scored, total = map(int, re.search(rf"{seat} scored (\d+)\. {seat} has (\d+)\.", said).groups())
        totals[seat] += scored
        assert total == totals[seat], (said, totals)
        said = player.next(then)
    scores = [f"{seat} {total}" for seat, total in totals.items()]
    assert said.endswith(f" {', '.join(scores)}."), said
    assert set(scores) <= set(player.parts()), (scores, player.parts())
    player.press("s", f"{', '.join(scores)}.")
    assert player.words == [], "each thing is said once"


if __name__ == "__main__":
    with Listener(sys.argv[1]) as listener:
        a_saved_game(listener)
    print("1 passed, 0 failed")
