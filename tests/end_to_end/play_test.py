#!/usr/bin/env python3
"""The program as a player meets it: from the title screen through turns, rules and the saved game."""

import sys
import time
from pathlib import Path
from urllib.parse import unquote

sys.path.append(str(Path(__file__).resolve().parents[2] / "tools"))
from player import BOARD, MAGENTA, ORANGE, Player, until

TOTAL_OF_MAGENTA = {3: (499, 456, 89, 45), 1: (560, 448, 89, 45)}


class Board(Player):
    row = 288  # Where the dice lie; the board against the computer has them higher.

    def options(self):
        self.click(118, 399)  # OK.

    def new_game(self, players):
        self.options()
        time.sleep(0.5)
        self.find_window(363)
        self.click(50 + 86 * (players - 1), 336)
        self.row = 280 if players == 1 else 288
        self.find_window(798)

    def die_at_home(self, die):
        return self.colour(358 + 80 * die, self.row + 6) != BOARD

    def taken(self, icon):
        """Whether a die lies on the icon."""
        return self.colour(190, 102 + 80 * icon) in (ORANGE, MAGENTA)

    def put(self, die, icon):
        self.drag((384 + 80 * die, self.row + 32), (216, 128 + 80 * icon))
        return self.taken(icon)

    def throw(self):
        self.click(545, self.row - 36)
        time.sleep(2.3)

    def turn_over(self):
        """Whether the throw counter has gone."""
        counter = self.see(432, self.row - 120, 225, 49)
        return (counter == BOARD).all()

    def gather(self):
        """Drags all dice back to the row."""
        for icon in range(5):
            while self.taken(icon):
                self.drag((216, 128 + 80 * icon), (384, self.row + 32))

    def finish_turn(self):
        for _ in range(3):
            self.throw()
        if self.turn_over():
            return
        self.gather()
        for icon in range(5):  # A 6, a 5 and a 4 are there, so every icon finds its die.
            assert any(self.die_at_home(die) and self.put(die, icon) for die in range(5)), icon
        assert self.turn_over()

    def dice_turn(self, colour):
        until(lambda: all(self.colour(358 + 80 * i, self.row + 6) == colour for i in range(5)), 6)

    def leave(self):
        self.click(745, 545)
        self.find_window(363)
        return [int(line) for line in (self.folder / "lastgame.inf").read_bytes().decode().split("\r\n")[:-1]]

    def end(self):
        self.click(246, 399)
        self.game.wait(5)
        assert self.game.returncode == 0


def three_players(player):
    player.start()
    player.new_game(3)
    player.throw()
    assert player.put(2, 3), "CREW takes any die"
    refused = [die for die in (0, 1, 3, 4) if not player.put(die, 0)]
    assert refused or player.taken(0)
    assert all(player.die_at_home(die) for die in refused), "a refused die goes home"
    player.finish_turn()
    player.dice_turn(MAGENTA)
    player.throw()
    saved = player.leave()
    assert (saved[0], saved[1], saved[2], saved[3]) == (3, 1, 1, 0), saved
    player.end()

    player.start()  # A new process plays on.
    player.click(181, 363)
    player.find_window(798)
    player.dice_turn(MAGENTA)
    assert player.turn_over(), "no throw has been made in the turn that starts afresh"
    player.throw()
    assert not player.turn_over()
    assert player.leave() == saved


def against_the_computer(player):
    player.new_game(1)
    player.finish_turn()
    player.dice_turn(MAGENTA)
    before = player.see(*TOTAL_OF_MAGENTA[1])
    places = set()
    while player.colour(358, player.row + 6) != ORANGE:
        # Between the icons and the row of dice there is nothing but what glides.
        ys, xs = (player.see(255, 90, 95, 400) == MAGENTA).all(axis=2).nonzero()
        if len(xs):
            places.add((int(xs.min()), int(ys.min())))
    assert len(places) >= 5, places
    seen = (player.see(*TOTAL_OF_MAGENTA[1]) != before).any()
    saved = player.leave()
    assert saved[:4] == [2, 0, 2, 1] and seen == (saved[5] > 0), saved
    print(f"the computer scored {saved[5]}; its dice were seen at {len(places)} places on their way")


def rules(player):
    player.options()
    time.sleep(0.5)
    player.find_window(363)
    player.click(158, 388)  # The maker's web address.
    player.click(112, 142)
    player.find_window(800)
    for _ in range(2):
        player.click(733, 580)
        time.sleep(0.5)
    player.click(150, 580)  # The rules to print.
    opened = player.folder / "opened"
    until(lambda: opened.exists() and len(opened.read_text().splitlines()) == 2)
    address, document = opened.read_text().splitlines()
    assert address == "https://tolvane.example/" and unquote(document).endswith("/Tolvane Rules.doc"), (address, document)


def record_what_is_opened(folder):
    """Makes a small program of the test's own open web pages and documents."""
    applications = folder / ".local/share/applications"
    applications.mkdir(parents=True)
    recorder = folder / "recorder"
    recorder.write_text(f'#!/bin/sh\necho "$1" >> "{folder}/opened"\n')
    recorder.chmod(0o755)
    kinds = ("x-scheme-handler/https", "application/msword", "text/html")
    (applications / "recorder.desktop").write_text(
        f"[Desktop Entry]\nType=Application\nName=Recorder\nExec={recorder} %u\nMimeType={';'.join(kinds)};\n")
    (applications / "mimeapps.list").write_text(
        "[Default Applications]\n" + "".join(f"{kind}=recorder.desktop\n" for kind in kinds))


if __name__ == "__main__":
    with Board(sys.argv[1]) as player:
        record_what_is_opened(player.folder)
        three_players(player)
        against_the_computer(player)
        rules(player)
    print("3 passed, 0 failed")
