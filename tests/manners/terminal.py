"""terminal.py TOOL COLLECTION: what the command shows on a terminal, and that it shows none of it elsewhere."""

import os
import re
import subprocess
import sys
import tempfile

import pexpect

COLOUR = re.compile(rb"\x1b\[[0-9;]*m")

tool, collection = sys.argv[1:]
folder = tempfile.TemporaryDirectory()


def on_terminal(arguments, **environment):
    """All that the command writes on a terminal of its own."""
    merged = {k: v for k, v in os.environ.items() if k != "NO_COLOR"}
    merged.update({"TERM": "xterm", **environment})
    child = pexpect.spawn(tool, arguments, env=merged, timeout=60, dimensions=(24, 80))
    child.expect(pexpect.EOF)
    child.close()
    return child.before


def pages(name):
    return os.path.join(folder.name, name)


progress = on_terminal(["report", collection, "-o", pages("a")])
assert b"\r" in progress.replace(b"\r\n", b""), "no progress on a terminal: %r" % progress
assert not progress.rstrip(b"\r\n\x1b[K ").endswith(b"..."), "the progress line stays: %r" % progress

quiet = on_terminal(["report", collection, "-o", pages("b"), "--quiet"])
assert quiet == b"", "--quiet is not: %r" % quiet

plain = subprocess.run([tool, "report", collection, "-o", pages("c")], capture_output=True, check=True)
assert b"\r" not in plain.stderr and b"\x1b" not in plain.stderr, "a file gets progress: %r" % plain.stderr

occupied = ["report", collection, "-o", pages("a")]
assert COLOUR.search(on_terminal(occupied)), "an error has no colour on a terminal"
for arguments, environment in ((["--no-color"], {}), ([], {"NO_COLOR": "1"}), ([], {"TERM": "dumb"})):
    text = on_terminal(occupied + arguments, **environment)
    assert not COLOUR.search(text) and b"error" in text, "%s %s: %r" % (arguments, environment, text)
    assert "TERM" not in environment or b"\x1b" not in text, "a dumb terminal gets controls: %r" % text

# The interrupt key while the collection is still awaited: no folder stays, neither the asked one nor a staging one.
os.mkfifo(pages("slow.mof"))
before = sorted(os.listdir(folder.name))
child = pexpect.spawn(tool, ["report", pages("slow.mof"), "-o", pages("f")], timeout=10)
writer = os.open(pages("slow.mof"), os.O_WRONLY)  # opens once the tool reads
child.sendintr()
child.expect(pexpect.EOF)
child.close()
assert child.exitstatus == 130 or child.signalstatus == 2, "exit %s, signal %s" % (child.exitstatus, child.signalstatus)
assert sorted(os.listdir(folder.name)) == before, "left behind: %s" % os.listdir(folder.name)
