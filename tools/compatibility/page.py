# SPDX-License-Identifier: MIT
"""page.py RESULTS: writes docs/compatibility.md from the rows that session.py printed."""

import sys
from pathlib import Path

PROGRAMS = {
    "impress": "LibreOffice Impress 7.4",
    "evince": "Evince 43",
    "okular": "Okular 22.12",
    "chromium": "Chromium 156",
}
MANAGERS = ["openbox", "xfwm4", "kwin_x11", "mutter", "i3"]
ACTIONS = ["start", "page keys", "laser", "laser: slide kept", "laser: focus kept", "ink", "ink: slide kept",
           "ink: focus kept", "board", "board: slide kept", "board: focus kept", "end", "panel"]

HEAD = """# Compatibility

Real presentation programs of Debian 12, each under five window managers on a display of its own (Xvfb, 1280 by 720),
played with the pen simulator by `scripts/compatibility`. Every slide has a colour of its own, so what the screen shows
says which slide it is. The tables were put together from several runs on a loaded machine: presentations that missed
a time limit there, or that the script had not set up right, were run again.

- **start**, **end**: a long press of key 2, "slide show on or off". *own key*: the program starts its show by
  another key, which the presenter presses; see below.
- **page keys**: the pen's page up and page down turn the slides.
- **laser**, **ink**, **board**: the tool shows over the running show, with the slide of that moment behind it; for the
  laser the show also keeps the focus meanwhile.
- **slide kept**, **focus kept**: after a tool was closed, and the click and the page up that follow it have been given
  three seconds, the same slide comes up and stays, and the show's window has the focus.
- **panel**: a second start shows the settings panel in its full size, without a frame or title bar.
"""

TAIL = """
## Shows that start by another key

| program | start | end |
| --- | --- | --- |
| Okular | control, shift and P | escape |
| Chromium, Firefox (not tried) | F11 | F11 |

F5, which the pen's "slide show on or off" posts, loads the document again there. Press the program's own key on the
keyboard instead and leave that action of the pen alone: the page keys and all tools work as in any other program, and a
closed tool neither clicks nor turns a page.

Under i3 the note that Okular shows at its first presentation keeps the show from filling the screen, and the script did
not get past it: that column is not tried. The pen has no part in it.

## Monitors and scales

`tools/compatibility/monitors.py` runs the program on an X server with three monitors: the primary one alone, left,
right, below, and in the middle of gaps; scales 1, 1.25, 1.5, 2, and different ones side by side. In each, laser and
annotation have to cover the primary monitor and nothing else, the dot has to be under the pointer and as large as its
points, title, buttons and ink at their places and in their size, and a click on the exit button has to close. Then
another monitor becomes the primary one, or one goes, under each open tool, which has to follow. A panel on a monitor
that goes has to come back whole on one that stays. With words, only the rows that have them all are played.

With one scale for all, every row held that was played: laser and annotation alone, left, right and below at each scale,
and all tools at scale 1 under monitors that change. With different scales annotation failed in nine rows and the laser
in six, until what they are painted in followed the scale; since then annotation held in all sixteen rows of "2 beside 1"
and "1 beside 2", and the laser right of a monitor of a smaller scale. The whole list has not been played in one piece
since, which takes an hour on a loaded machine.

One row is open: an open spotlight, when the primary monitor of scale 2 goes and one of scale 1 is left, did not cover
that one in two of three plays.
"""


def main():
    results = {}
    for line in Path(sys.argv[1]).read_text().splitlines():
        program, manager, action, result = line.split("\t")
        results[program, action, manager] = result
    print(HEAD)
    for program, name in PROGRAMS.items():
        print("## %s\n\n| | %s |\n|%s" % (name, " | ".join(MANAGERS), " --- |" * (len(MANAGERS) + 1)))
        for action in ACTIONS:
            row = [results.get((program, action, manager), "not reached") for manager in MANAGERS]
            print("| %s | %s |" % (action, " | ".join(row)))
        print("\n| laser | ink |\n| --- | --- |\n| %s |\n" % " | ".join(
            "![%s in %s](pictures/compatibility/%s-%s.png)" % (tool, name, program, tool)
            for tool in ("laser", "ink")))
    print(TAIL.strip())


main()
