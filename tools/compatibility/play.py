# SPDX-License-Identifier: MIT
"""play.py BIN PICTURES MANAGER PROGRAM: plays a program with the pen on the present display, or on two monitors of its own,
and prints a row for each action."""

import sys
from contextlib import nullcontext

import dummies
from film import PLAYERS, Film
from session import Missed, Presentation


def main():
    binaries, pictures, manager, program = sys.argv[1:]
    with dummies.TwoMonitors() if program == "console" else nullcontext():
        presentation = (Film if program in PLAYERS else Presentation)(binaries, manager, program, pictures)
        try:
            presentation.play()
        except Missed as missed:
            print("%s under %s: %s did not come" % (program, manager, missed), file=sys.stderr)
            for log in presentation.folder.glob("*.log"):
                print(log.name, log.read_text(errors="replace")[-600:], file=sys.stderr)
            dummies.run("import", "-window", "root", "/tmp/compat-%s-%s.png" % (manager, program))
        finally:
            presentation.end()


main()
