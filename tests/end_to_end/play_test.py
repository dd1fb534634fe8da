#!/usr/bin/env python3
"""The program as a player meets it: from the title screen through turns, rules and the saved game."""

import sys
from pathlib import Path
from urllib.parse import unquote

sys.path.append(str(Path(__file__).resolve().parents[2] / "tools"))
from player import BOARD, MAGENTA, ORANGE, Player, until


class Board(Player):
    data = "."  # Below the folder: where the saved game stands.

    def options(self):
        self.click(118, 399)  # OK.
        self.find_window(363)

    def new_game(self, players):
        self.options()
        self.click(50 + 86 * (players - 1), 336)
        self.find_window(798)

    def restart(self):
        self.click(181, 363)
        self.find_window(798)

    def die_at_home(self, die):
        return self.colour(358 + 80 * die, 294) != BOARD

    def taken(self, icon):
        """Whether a die lies on the icon."""
        return self.colour(190, 102 + 80 * icon) in (ORANGE, MAGENTA)

    def lift(self, die):
        """Whether a die of the row follows the mouse: while dice roll, none does."""
        self.mouse(*self.at(384 + 80 * die, 320), "mousedown", 1)
        for x in 310, 300:
            self.mouse(*self.at(x, 320), "sleep", 0.05)
        return not self.die_at_home(die) or self.mouse("mouseup", 1)

    def put(self, die, icon):
        """Drops a die of the row beside the icon, from where it jumps onto that or back home. Whether it was taken."""
        until(lambda: self.lift(die))
        self.mouse(*self.at(236, 128 + 80 * icon), "sleep", 0.1, "mouseup", 1)
        until(lambda: self.taken(icon) or self.die_at_home(die))
        return not self.die_at_home(die)

    def counter(self):
        return self.see(432, 168, 225, 49)

    def turn_over(self):
        """Whether the throw counter has gone."""
        return (self.counter() == BOARD).all()

    def throw(self):
        """Throws when the dice have come to rest from the throw before."""
        before = self.counter()
        until(lambda: self.click(545, 252) or (self.counter() != before).any())

    def finish_turn(self, throws=3):
        for icon in range(5):  # All dice are thrown each time.
            until(lambda: not self.taken(icon) or self.drag((216, 128 + 80 * icon), (384, 320)))
        for _ in range(throws):
            self.throw()
        until(lambda: self.turn_over() or self.lift(0))
        if not self.turn_over():
            self.mouse(*self.at(384, 320), "mouseup", 1)
            until(lambda: self.die_at_home(0))
            for icon in range(5):  # A 6, a 5 and a 4 are there, so every icon finds its die.
                assert any(self.die_at_home(die) and self.put(die, icon) for die in range(5)), icon
            until(self.turn_over)

    def dice_turn(self, colour):
        until(lambda: all(self.colour(358 + 80 * die, 294) == colour for die in range(5)), 20)

    def leave(self):
        self.click(745, 545)
        self.find_window(363)
        return [int(line) for line in (self.folder / self.data / "lastgame.inf").read_text().splitlines()]

    def end(self):
        self.click(246, 399)
        assert self.game.wait(10) == 0


def two_players(player):
    player.start()
    player.new_game(2)
    player.throw()
    assert player.put(2, 3), "CREW takes any die"
    assert not player.put(0, 3), "CREW has one"
    player.finish_turn(throws=2)
    player.dice_turn(MAGENTA)
    player.throw()
    saved = player.leave()
    assert saved[:4] == [2, 1, 1, 0], saved
    player.end()

    player.start()  # A new process plays on.
    player.restart()
    player.dice_turn(MAGENTA)
    assert player.turn_over(), "no throw has been made in the turn that starts afresh"
    assert player.leave() == saved


def the_rules_to_print(player):
    opened = player.folder / "opened"
    player.options()
    for page in (112, 142), (733, 580), (733, 580):
        player.click(*page)
        player.find_window(800)
    player.click(150, 580)
    until(opened.exists)
    assert unquote(opened.read_text()).endswith("/Tolvane Rules.doc\n"), opened.read_text()


if __name__ == "__main__":
    with Board(sys.argv[1]) as player:
        opener = player.folder / "xdg-open"
        opener.write_text(f'#!/bin/sh\necho "$1" > "{player.folder}/opened"\n')
        opener.chmod(0o755)
        player.environment["PATH"] = f"{player.folder}:{player.environment['PATH']}"
        two_players(player)
        the_rules_to_print(player)
    print("2 passed, 0 failed")
