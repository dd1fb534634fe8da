#!/usr/bin/env python3
"""The Debian package: built twice to the same bytes, without a complaint of Debian's checkers, installed into a tree of
its own, played by a new player from its desktop entry, and removed again. Usage: package_test.py SOURCES"""

import configparser
import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(sys.argv[1]).resolve()
sys.path += [str(ROOT / "tools"), str(ROOT / "tests/end_to_end")]
from player import MAGENTA  # noqa: E402
from play_test import Board  # noqa: E402

VERSION = re.search(r"project\(tolvane VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text())[1]
NAME = "org.example.tolvane"


def say(*command, **options):
    """Runs a command that has to end well and returns all it said."""
    done = subprocess.run([str(word) for word in command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          **options)
    assert done.returncode == 0, (command, done.stdout)
    return done.stdout


def silent(*command, **options):
    assert not (said := say(*command, **options)), (command, said)


def build(folder, **environment):
    say(ROOT / "packaging/deb", folder, env={**os.environ, **environment})
    return folder / next(name for name in os.listdir(folder) if name.endswith(".deb"))


class Newcomer(Board):
    """A player with nothing in the home folder yet, who starts the game that is installed below `tree`."""

    data = ".local/share/tolvane"

    def __init__(self, tree):
        super().__init__(tree / "usr/games/tolvane", XDG_RUNTIME_DIR=str(tree.parent))
        for path in self.folder.iterdir():
            if path.is_symlink():
                path.unlink()
        entry = configparser.ConfigParser(interpolation=None)
        entry.read(tree / f"usr/share/applications/{NAME}.desktop")
        self.command = ["env", *entry["Desktop Entry"]["Exec"].split()]
        self.environment["PATH"] = f"{tree}/usr/games:/usr/bin:/bin"
        self.environment.pop("XDG_DATA_HOME", None)


def without_a_complaint(deb, tree):
    silent("lintian", "-EvIL", "+pedantic", "--show-overrides", "--allow-root", deb.with_suffix(".changes"))
    silent("desktop-file-validate", tree / f"usr/share/applications/{NAME}.desktop")
    metainfo = tree / f"usr/share/metainfo/{NAME}.metainfo.xml"
    assert "successful" in (said := say("appstreamcli", "validate", "--pedantic", "--no-net", metainfo)), said
    assert not re.search("^[EWP]:", said, re.MULTILINE), said  # What it only notes differs from release to release.
    page = say("zcat", tree / "usr/share/man/man6/tolvane.6.gz")
    silent("sh", "-c", "groff -man -ww -z -Kutf8", input=page)
    assert f"Tolvane {VERSION}" in page
    for place, pattern in {ROOT / "CHANGELOG.md": r"## (\S+) ", metainfo: r'<release version="(.*?)"',
                           ROOT / "packaging/debian/changelog": r"\((.*?)\)"}.items():
        assert re.search(pattern, place.read_text())[1] == VERSION, place
    document = (tree / "usr/share/doc/tolvane/Tolvane Rules.doc").read_bytes()
    assert document == (ROOT / "Tolvane Rules.doc").read_bytes()


def a_turn(tree):
    with Newcomer(tree) as player:
        player.start()
        player.new_game(2)
        player.finish_turn()
        player.dice_turn(MAGENTA)
        saved = player.leave()
        player.end()
        player.start()
        player.restart()
        player.dice_turn(MAGENTA)
        assert player.leave() == saved and saved[1] == 1, saved
        player.end()
        links = {path.name for path in (player.folder / player.data).iterdir() if path.is_symlink() and path.exists()}
        assert links == {"Images", "wav", "Tolvane Rules.doc"}, links
        made = {path.name for path in (*player.folder.iterdir(), *(player.folder / ".local/share").iterdir())}
        assert made - {".cache", ".config"} == {".local", "tolvane"}, made  # Those are the libraries'.


if __name__ == "__main__":
    with tempfile.TemporaryDirectory() as folder:
        folder = Path(folder)
        tree = folder / "tree"
        for part in ("info", "triggers", "updates"):
            (tree / "var/lib/dpkg" / part).mkdir(parents=True)
        for part in ("status", "available"):
            (tree / "var/lib/dpkg" / part).touch()
        dpkg = ("fakeroot", "dpkg", f"--root={tree}", "--log=/dev/null", "--force-not-root", "--force-depends")

        deb = build(folder / "one")
        say(*dpkg, "--install", deb)
        without_a_complaint(deb, tree)
        a_turn(tree)
        say(*dpkg, "--purge", "tolvane")
        assert os.listdir(tree) == ["var"], os.listdir(tree)

        again = build(folder / "two", TZ="Asia/Tokyo", LC_ALL="C", CCACHE_DISABLE="1")
        assert deb.read_bytes() == again.read_bytes(), "built twice, the packages differ"
    print("1 passed, 0 failed")
