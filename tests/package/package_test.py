#!/usr/bin/env python3
"""The Debian package: without a complaint of Debian's checkers, installed into a tree of its own, played by a new
player, and removed again. Usage: package_test.py SOURCES"""

import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(sys.argv[1]).resolve()
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


def without_a_complaint(deb, tree):
    silent("lintian", "-EvIL", "+pedantic", "--show-overrides", "--allow-root", deb.with_suffix(".changes"))
    silent("desktop-file-validate", tree / f"usr/share/applications/{NAME}.desktop")
    metainfo = tree / f"usr/share/metainfo/{NAME}.metainfo.xml"
    assert "successful" in (said := say("appstreamcli", "validate", "--pedantic", "--no-net", metainfo)), said
    assert not re.search("^[EWP]:", said, re.MULTILINE), said  # What it only notes differs from release to release.
    page = say("zcat", tree / "usr/share/man/man6/tolvane.6.gz")
    silent("groff", "-man", "-ww", "-z", "-Kutf8", "-Tutf8", input=page)
    assert f"Tolvane {VERSION}" in page
    for place, pattern in {ROOT / "CHANGELOG.md": r"## (\S+) ", metainfo: r'<release version="(.*?)"',
                           ROOT / "packaging/debian/changelog": r"\((.*?)\)"}.items():
        assert re.search(pattern, place.read_text())[1] == VERSION, place


def plays_without_a_folder(tree):
    """Whoever has no folder to write to is told that nothing is kept, and plays."""
    for folders in ({}, {"HOME": "/proc/none"}, {"HOME": str(tree.parent), "XDG_DATA_HOME": "saved"}):
        game = subprocess.run(["timeout", "2", tree / "usr/games/tolvane"], stderr=subprocess.PIPE, text=True,
                              env={"PATH": "/usr/bin:/bin", "QT_QPA_PLATFORM": "offscreen", **folders})
        assert game.returncode == 124, game  # It was ended.
        assert "cannot be kept" in game.stderr, game


with tempfile.TemporaryDirectory() as folder:
    folder = Path(folder)
    tree = folder / "tree"
    for part in ("info", "triggers", "updates"):
        (tree / "var/lib/dpkg" / part).mkdir(parents=True)
    for part in ("status", "available"):
        (tree / "var/lib/dpkg" / part).touch()
    dpkg = ("fakeroot", "dpkg", f"--root={tree}", "--log=/dev/null", "--force-not-root", "--force-depends")

    say(ROOT / "packaging/deb", folder / "made")
    deb, = (folder / "made").glob("*.deb")
    say(*dpkg, "--install", deb)
    without_a_complaint(deb, tree)
    plays_without_a_folder(tree)
    say(ROOT / "packaging/debian/tests/turn", tree, cwd=ROOT)
    say(*dpkg, "--purge", "tolvane")
    assert os.listdir(tree) == ["var"], os.listdir(tree)
print("1 passed, 0 failed")
