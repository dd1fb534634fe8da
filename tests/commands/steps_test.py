#!/usr/bin/python3
"""What ./play, ./check and packaging/deb have in common: whatever ends a step ends all that it started, and
a step that fails shows why. Usage: steps_test.py SOURCES"""

import os
import pty
import signal
import subprocess
import sys
import tempfile
import time

sys.path.append(f"{sys.argv[1]}/tools")
from player import until  # noqa: E402

HEAD = f"cd {sys.argv[1]}; set -euo pipefail; steps=1; source tools/setup.sh; "
# A child, a daemon in a session of its own, and one without any environment but in the step's group.
FAMILY = 'family() { setsid sleep 1000 & env -i sleep 1000 & sleep 1000; }; run "Waiting" family'
FAILING = 'failing() { printf "[7/9] on the way\\n"; echo "the reason" >&2; false; }; run "Failing" failing'


def sleepers():
    """Every `sleep 1000` there is."""
    return set(subprocess.run(["pgrep", "-fx", "sleep 1000"], capture_output=True, text=True).stdout.split())


def at_a_terminal(script, end=None):
    """Runs the script; when its three sleepers are there, `end` ends it. Returns its status and what it said."""
    others = sleepers()
    pid, terminal = pty.fork()
    if pid == 0:
        os.execvp("bash", ["bash", "-c", script])
    if end:
        until(lambda: len(sleepers() - others) == 3, 30)
        time.sleep(0.5)
        end(pid, terminal)
    said = b""
    try:
        while more := os.read(terminal, 4096):
            said += more
    except OSError:  # The terminal's other side has been closed by the last who held it.
        pass
    status = os.waitstatus_to_exitcode(os.waitpid(pid, 0)[1])
    assert not sleepers() - others, "what it started still runs"
    return status, said.decode()


with tempfile.TemporaryDirectory() as folder:
    os.environ["TMPDIR"] = folder
    for way, expected in ((lambda pid, terminal: os.write(terminal, b"\3"), 130),
                          (lambda pid, terminal: os.kill(pid, signal.SIGTERM), 143),
                          (lambda pid, terminal: os.kill(pid, signal.SIGHUP), 129)):
        status, said = at_a_terminal(HEAD + FAMILY, way)
        assert status == expected, (status, said)
        assert not os.listdir(folder), os.listdir(folder)
    status, said = at_a_terminal(HEAD + FAILING)
    assert status == 1 and "failed" in said and "the reason" in said, (status, said)
print("1 passed, 0 failed")
