# SPDX-License-Identifier: MIT
"""page.py PROGRAMS MONITORS: writes docs/compatibility.md from the rows that play.py and monitors.py printed, and ends
with 1 when something did not work or was not reached."""

import sys
from pathlib import Path

PROGRAMS = {
    "impress": "LibreOffice Impress 7.4",
    "console": "LibreOffice Impress 7.4 with its presenter console",
    "evince": "Evince 43",
    "okular": "Okular 22.12",
    "chromium": "Chromium 156",
    "firefox": "Firefox 153",
    "firefox-pdf": "The PDF viewer of Firefox 153",
}
PLAYERS = {"mpv": "mpv 0.35", "vlc": "VLC 3.0", "firefox-film": "Firefox 153"}
MANAGERS = ["openbox", "xfwm4", "kwin_x11", "mutter", "i3"]
TOOLS = ["laser", "spotlight", "magnifier", "ink", "board"]
ACTIONS = ["start", "page keys",
           *(tool + ending for tool in TOOLS for ending in ("", ": slide kept", ": focus kept")),
           "wildly: slide kept", "wildly: focus kept", "end", "panel"]
FILM_ACTIONS = ["pause", "play", *TOOLS, "screenshot"]
MISSING = "not reached"

HEAD = """# Compatibility

Real presentation programs of Debian 12, each under five window managers on a display of its own (Xvfb, 1280 by 720),
played with the pen simulator by `scripts/compatibility`. The deck has twenty slides, each with a colour of its own, so
what the screen shows says which slide it is; the tools are played on the twelfth.

- **start**, **end**: a long press of key 2, "slide show on or off". *own key*: the program starts its show by
  another key, which the presenter presses; see below.
- **page keys**: the pen's page up and page down turn the slides.
- **laser**, **spotlight**, **magnifier**, **ink**, **board**: the tool shows over the running show, with the slide of
  that moment behind it; with a held tool the show also keeps the focus meanwhile.
- **slide kept**, **focus kept**: after a tool was closed, and the click and the page up that follow it have been given
  three seconds, the same slide comes up and stays, and the show's window has the focus.
- **wildly**: laser, ink and board opened and closed in any order, over each other, twenty times at any pace; in the end
  all are closed.
- **panel**: a second start shows the settings panel in its full size, without a frame or title bar.
"""

CONSOLE = """The show is on the primary monitor and the console on one beside it (an X server with the dummy driver), after Impress
was told to show there: see below. **start** also means that the console comes, **focus kept** that the focus is where it
was or has gone from the console to the show, where the page keys do the same.
"""

PRESENTER = """## The presenter console of Impress

Of two monitors Impress takes the one that is *not* the primary one for the slides, and the primary one for its console.
The tools belong to the primary one: when the projector is that, the audience sees the console, and when the laptop is,
the tools show over the console. Press "Exchange" on the console once: the slides change places with it, and later shows
begin like that too, also after Impress was started anew (tried under openbox).

Impress that has only just opened a file starts a show without its console: with F5 at once or a second after the window
came, it was missing in three shows of three under openbox and of three under Mutter.
"""

OWN_KEYS = """## Shows that start by another key

| program | start | end |
| --- | --- | --- |
| Okular | control, shift and P | escape |
| Chromium, Firefox | F11 | F11 |
| the PDF viewer of Firefox | control, alt and P | escape |

F5, which the pen's "slide show on or off" posts, loads the document again there. Press the program's own key on the
keyboard instead and leave that action of the pen alone: the page keys and all tools work as in any other program, and a
closed tool neither clicks nor turns a page.
"""

FILMS = """## Films

A film without sound in full screen, made by ffmpeg, which has another colour every half second; key 2 held is "player
pause or play". In Firefox it is a `<video>` in a page, which a double click has brought to full screen.

- **pause**, **play**: the film stands, and runs again, and fills the screen meanwhile.
- **laser**, **spotlight**, **magnifier**, **ink**, **board**: the tool shows, and the picture behind it stands, or the
  board covers it; after it was closed the film runs, fills the screen and has the focus. With ink and board something was
  drawn and clicked before, of which the film has to notice nothing.
- **screenshot**: a picture of the screen is in its folder, and the film goes on as above.
"""

FILMS_BY_HAND = """A tool shows the picture of the moment in which it was opened; the film goes on behind it. Pause it before:
"player pause or play" reaches it under an open tool too (tried with mpv and VLC under openbox).

The space bar goes to what has the focus: in Firefox click or double-click the film first.

After the pen's "slide show on" a closed tool clicks into the lower right corner and posts page up, also into a film that
was begun meanwhile. Tried under openbox, with a laser:

| film in full screen | that click and page up | "slide show off" (escape) |
| --- | --- | --- |
| VLC | nothing | leaves full screen |
| mpv | a film with chapters jumps to the next one, which is what page up means there; without chapters not tried | leaves full screen |
| Firefox | the film pauses | leaves full screen |

Use "slide show on or off" for slide shows only; without it, as in the table above, nothing is clicked.
"""

MONITORS = """## Monitors and scales

The same run plays the program on an X server with three monitors (`tools/compatibility/monitors.py`): the primary one
alone, left, right, below, and in the middle of gaps, at scales of 1 to 2, and with different ones side by side. In each,
laser and annotation have to cover the primary monitor and nothing else, the dot has to be under the pointer and as large
as its points, title, buttons and ink at their places and in their size, and a click on the exit button has to close.
Then another monitor becomes the primary one, or one goes, under each open tool, which has to follow. A panel on a monitor
that goes has to come back whole on one that stays.
"""

TRAYS = """## Trays

Tried by hand with Xfce's panel 4.18, LXQt's panel 1.2 (both through the session bus) and trayer 1.1 (on the display), each
there before the program and started after it: the icon is seen, a click on it shows the settings panel, its menu has
"Settings", which does too, and "Quit", with which the program ends.

![The icon and its menu in the panels of Xfce and LXQt and in trayer](pictures/compatibility/trays.png)
"""


def rows(path, keys):
    """The results by what they are of. Lines without tabs are the talk of programs that were started."""
    split = (line.split("\t") for line in Path(path).read_text().splitlines())
    return {tuple(words[:keys]): words[keys] for words in split if len(words) == keys + 1}


def table(first, columns, lines):
    """Each line is its name and its cells."""
    print("| %s | %s |\n|%s" % (first, " | ".join(columns), " --- |" * (len(columns) + 1)))
    for name, cells in lines:
        print("| %s | %s |" % (name, " | ".join(cells)))
    print()


def outcomes(results, program, actions):
    return [(action, [results.get((program, manager, action), MISSING) for manager in MANAGERS]) for action in actions]


def programs(results):
    for program, name in PROGRAMS.items():
        print("## %s\n" % name)
        if program == "console":
            print(CONSOLE)
        table("", MANAGERS, outcomes(results, program, ACTIONS))
        print("| laser | ink |\n| --- | --- |\n| %s |\n" % " | ".join(
            "![%s in %s](pictures/compatibility/%s-%s.png)" % (tool, name, program, tool)
            for tool in ("laser", "ink")))


def films(results):
    print(FILMS)
    for player, name in PLAYERS.items():
        table(name, MANAGERS, outcomes(results, player, FILM_ACTIONS))
    print(FILMS_BY_HAND)


def monitors(results):
    scales = list(dict.fromkeys(scale for _, scale, _ in results))
    arrangements = dict.fromkeys((name, tool) for name, _, tool in results)
    table("monitors, tool", scales, [("%s, %s" % (name, tool), [results.get((name, scale, tool), "-") for scale in scales])
                                     for name, tool in arrangements])


def main():
    played, arranged = rows(sys.argv[1], 3), rows(sys.argv[2], 3)
    print(HEAD)
    programs(played)
    print(PRESENTER)
    print(OWN_KEYS)
    films(played)
    print(MONITORS)
    monitors(arranged)
    print(TRAYS.strip())
    right = all(outcome in ("yes", "own key")
                for names, actions in ((PROGRAMS, ACTIONS), (PLAYERS, FILM_ACTIONS)) for program in names
                for _, line in outcomes(played, program, actions) for outcome in line)
    return 0 if right and arranged and set(arranged.values()) == {"yes"} else 1


sys.exit(main())
