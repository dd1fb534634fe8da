#!/usr/bin/env python3
"""Every picture and sound that the program names is there, is what it should be, and decodes."""

import re
import subprocess
from pathlib import Path

from PIL import Image

ROOT = Path(__file__).resolve().parents[2]
BOXES = {  # In twips, 15 to a pixel; drawn at four times that.
    "opening": (4800, 3120), "logo2": (1500, 2085), "logo3": (915, 1260), "wheel2": (975, 975),
    "sextant": (975, 975), "compass": (975, 975), "anchor": (975, 975), "cargo2": (975, 975),
    "start": (2835, 3525), "board": (3600, 2700), "example": (1800, 2580)}

sources = "".join(path.read_text() for room in ("game", "screens") for path in (ROOT / room).glob("*.[ch]*"))
pictures = set(re.findall(r"images\\(\w+)\.jpg", sources, re.IGNORECASE))
sounds = set(re.findall(r"wav\\(\w+\.wav)", sources))
assert pictures == set(BOXES), pictures ^ set(BOXES)
for name, box in BOXES.items():
    with Image.open(ROOT / f"Images/{name}.jpg") as picture:
        picture.load()
        assert picture.format == "JPEG" and picture.info["dpi"] == (384, 384), name
        assert picture.size == tuple(twips * 4 // 15 for twips in box), (name, picture.size)
assert sounds == {path.name for path in (ROOT / "wav").iterdir()}, sounds
subprocess.run([ROOT / "art/sounds/check"], check=True)  # Format, length, level and ends of every sound.
print("1 passed, 0 failed")
