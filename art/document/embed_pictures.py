"""Copies a document from the first file to the second, with its linked pictures inside it."""
import base64
import pathlib
import re
import sys

source, target = map(pathlib.Path, sys.argv[1:])


def embedded(link):
    picture = base64.b64encode((source.parent / link[1]).read_bytes()).decode()
    return f'<draw:image><office:binary-data>{picture}</office:binary-data></draw:image>'


target.write_text(re.sub(r'<draw:image xlink:href="([^"]+)"/>', embedded, source.read_text()))
