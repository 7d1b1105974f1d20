# SPDX-License-Identifier: MIT
"""monitors.py BIN [WORD ...]: the program on three monitors of a server without hardware, in all arrangements and scales,
and when these change under an open tool.

Prints a row for each, or for those in which each word is the arrangement, the scale or the tool, and ends with 1 when one
of them is wrong, or when there is none. Needs Xorg with its dummy driver, xrandr and xdotool; no root."""

import os
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

from dummies import Monitor, Screen, Session, arrange, run, until

BEFORE, AFTER = (0x20, 0x40, 0x60), (0x60, 0x20, 0x40)  # the desktop's colour when a tool opens, and later
DOT = (0, 255, 90)     # what the slider's 600 stands for
INK = (130, 255, 32)   # the pen's fifth colour
RADIUS, WIDTH = 20, 10  # points

# The place of each monitor that is on. The first one is the primary.
ARRANGEMENTS = {
    "alone": {"DUMMY0": (0, 0)},
    "primary left": {"DUMMY0": (0, 0), "DUMMY1": (1280, 0)},
    "primary right": {"DUMMY0": (1024, 0), "DUMMY1": (0, 0)},
    "primary below": {"DUMMY0": (0, 768), "DUMMY1": (0, 0)},
    "primary in the middle, with gaps": {"DUMMY0": (1100, 800), "DUMMY1": (0, 0), "DUMMY2": (1200, 0)},
}
# That of the first monitor and that of the others.
SCALES = {"1": (1, 1), "1.25": (1.25, 1.25), "1.5": (1.5, 1.5), "2": (2, 2),
          "2 beside 1": (2, 1), "1.5 beside 1": (1.5, 1), "1 beside 2": (1, 2)}
TOOLS = {"spotlight": 0, "magnifier": 1, "laser": 2, "annotation": ("key1", "long"), "board": ("key3", "long")}


def environment(scale):
    first, others = SCALES[scale]
    if first == others:
        return {"QT_SCALE_FACTOR": str(first)}
    return {"QT_SCALE_FACTOR": "1",
            "QT_SCREEN_SCALE_FACTORS": "DUMMY0=%s;DUMMY1=%s;DUMMY2=%s" % (first, others, others)}


def monitors(arrangement, scale):
    first, others = SCALES[scale]
    return [Monitor(output, place, first if output == "DUMMY0" else others)
            for output, place in arrangement.items()]


def click(place):
    run("xdotool", "mousemove", *map(str, place), "click", "1")


def paint_desktop(colour):
    run("xsetroot", "-solid", "#%02x%02x%02x" % colour)
    until(lambda: Screen().at(*map(lambda size: size - 1, (2400, 1600))) == colour)


class Program:
    def __init__(self, binaries, scale, tool="laser"):
        self.folder = Path(tempfile.mkdtemp())
        self.keys = TOOLS[tool]
        self.opened = False
        held = self.keys if isinstance(self.keys, int) else TOOLS["laser"]
        for name in ("VexaOrbilo", "pen-simulator"):
            shutil.copy(Path(binaries) / name, self.folder)
        (self.folder / "VexaPenSetting.xml").write_text(
            "<PenSetting FirstRun='1'><Setting><ShowPrivacyWindow>0</ShowPrivacyWindow><Key3P>3</Key3P>"
            "<Key4P>%d</Key4P><LaserPenSize>%d</LaserPenSize><LaserPenColor>600</LaserPenColor>"
            "<MagnifierSize>%d</MagnifierSize><MagnifierColor>600</MagnifierColor><SportLightSize>%d</SportLightSize>"
            "<SportLightTran>255</SportLightTran><PenColor0>4</PenColor0><PenThickness>3</PenThickness>"
            "</Setting></PenSetting>" % (held, RADIUS, RADIUS, RADIUS))
        self.environment = {**os.environ, **environment(scale)}
        self.process = self.start()
        until(lambda: "300x" in run("xwininfo", "-root", "-tree") or self.process.poll() is not None)
        until(lambda: not run("xdotool", "search", "--onlyvisible", "--name", "MainWindow"))

    def start(self):
        return subprocess.Popen([str(self.folder / "VexaOrbilo")], env=self.environment,
                                stderr=subprocess.DEVNULL)

    def pen(self, *words):
        subprocess.run([str(self.folder / "pen-simulator"), *words], check=True)

    def open(self):
        self.pen(*(("key4", "hold") if isinstance(self.keys, int) else self.keys))

    def close(self):
        self.pen(*(("key4", "release") if isinstance(self.keys, int) else self.keys))

    def end(self):
        self.process.terminate()
        self.process.wait(10)
        shutil.rmtree(self.folder)


def ringed(monitor, place, radius, inside, colour):
    """Four points of that distance around the place are of the colour inside, and no more beyond."""
    screen = Screen()
    x, y = place
    pixels = radius * monitor.scale
    return all((screen.at(x + a * (pixels + more), y + b * (pixels + more)) == colour) == wanted
               for a, b in ((1, 0), (-1, 0), (0, 1), (0, -1)) for more, wanted in ((-3, inside), (3, False)))


def laser_follows(primary):
    for place in (primary.at(100, 100), primary.at(-100, -90)):
        run("xdotool", "mousemove", *map(str, place))
        if not until(lambda place=place: ringed(primary, place, RADIUS, True, DOT)):
            return False
    return True


def spotlight_follows(primary):
    for place in (primary.at(100, 100), primary.at(-100, -90)):
        run("xdotool", "mousemove", *map(str, place))
        if not until(lambda place=place: Screen().at(*place) == BEFORE and ringed(primary, place, RADIUS, True, BEFORE)):
            return False
    return True


def magnifier_follows(primary):
    """Its ring lies between its radius and two points more."""
    for place in (primary.at(100, 100), primary.at(-100, -90)):
        run("xdotool", "mousemove", *map(str, place))
        x, y = place
        across = int((RADIUS + 1) * primary.scale)
        if not until(lambda x=x, y=y, across=across: Screen().at(x, y) == BEFORE and all(
                Screen().at(x + side * across, y)[1] > 150 for side in (1, -1))):
            return False
    return True


def title_is_placed(primary):
    screen = Screen()
    outside, *inside, other_side = [screen.at(*primary.at(primary.width / primary.scale / 2 + x, 20))
                                    for x in (-143, -134, 134, 143)]
    return outside == other_side and outside not in inside


def draws_and_has_its_controls(primary):
    """Title and buttons at their places and in their size, which the pointer finds; ink under the pointer."""
    points = primary.width / primary.scale
    middle = int(points - 60) // 2 + 30 - points / 2
    lit = lambda screen, offset: screen.at(*primary.at(points / 2 + offset - 21, -70))[0] > 200  # yellow, not grey
    # A window that is there already may still wait for its first frame.
    placed = until(lambda: title_is_placed(primary), 10)
    click(primary.at(points / 2 + middle, -70))
    erases = until(lambda: lit(Screen(), middle) and not lit(Screen(), middle - 80), 10)
    click(primary.at(points / 2 + middle - 80, -70))
    draws = until(lambda: lit(Screen(), middle - 80) and not lit(Screen(), middle), 10)
    (left, y), (right, _) = primary.at(60, 60), primary.at(160, 60)
    run("xdotool", "mousemove", str(left), str(y), "mousedown", "1", "mousemove", str((left + right) // 2), str(y),
        "mousemove", str(right), str(y), "mousemove", str(right + 1), str(y), "mouseup", "1", "mousemove_relative", "0", "200")
    half = WIDTH / 2 * primary.scale
    inked = until(lambda: [Screen().at((left + right) // 2, y + side * (half + more)) == INK
                           for side in (1, -1) for more in (-2, 2)] == [True, False] * 2, 10)
    return placed and erases and draws and inked


USED = {"laser": laser_follows, "spotlight": spotlight_follows, "magnifier": magnifier_follows,
        "annotation": draws_and_has_its_controls, "board": draws_and_has_its_controls}


def covers_only(primary, others):
    """Seen from the colour that the desktop has got since."""
    screen = Screen()
    covered = [screen.at(*place) != AFTER for place in primary.edges()]
    return all(covered) and not any(screen.at(*place) != AFTER for other in others for place in other.edges())


def goes(all_monitors):
    return until(lambda: all(Screen().at(*place) == AFTER for monitor in all_monitors for place in monitor.edges()))


def tool_in(program, tool, primary, others):
    """What is right of an open tool."""
    held = tool in ("laser", "spotlight", "magnifier")
    results = {"opens": program.opened,
               "covers": until(lambda: covers_only(primary, others)), "works": USED[tool](primary)}
    if held:
        program.close()
    else:  # the exit button
        points = primary.width / primary.scale
        click(primary.at(int(points - 60) // 2 + 110, -70))
    results["goes"] = goes([primary, *others])
    return results


def opened(binaries, scale, tool, monitor):
    paint_desktop(BEFORE)
    program = Program(binaries, scale, tool)
    run("xdotool", "mousemove", *map(str, monitor.at(200, 150)))
    program.open()
    program.opened = until(lambda: any("VexaOrbilo" in line and monitor.has_its_size(line)
                                       for line in run("xwininfo", "-root", "-tree").split("\n")))
    paint_desktop(AFTER)
    return program


def arrangements(binaries, wanted):
    for name, arrangement in ARRANGEMENTS.items():
        arrange(arrangement)
        for scale in SCALES:
            primary, *others = monitors(arrangement, scale)
            for tool in filter(lambda tool: wanted(name, scale, tool), ("laser", "annotation")):
                program = opened(binaries, scale, tool, primary)
                yield name, scale, tool, tool_in(program, tool, primary, others)
                program.end()


def changes(binaries, wanted):
    both = ARRANGEMENTS["primary left"]
    first, second = both
    for scale in ("1", "2 beside 1", "1 beside 2"):
        for tool in TOOLS:
            for name, arrangement, primary in (("another becomes the primary", both, second),
                                               ("the primary goes", {second: (0, 0)}, second),
                                               ("the other goes", {first: (0, 0)}, first)):
                if not wanted(name, scale, tool):
                    continue
                arrange(both)
                program = opened(binaries, scale, tool, monitors(both, scale)[0])
                arrange(arrangement, primary)
                paint_desktop(AFTER)
                now = sorted(monitors(arrangement, scale), key=lambda one, wanted=primary: one.output != wanted)
                yield name, scale, tool, tool_in(program, tool, now[0], now[1:])
                program.end()


def panel_place():
    """Left, top, width and height of the panel; nothing when it is hidden."""
    window = run("xdotool", "search", "--onlyvisible", "--name", "MainWindow").split()
    if not window:
        return None
    words = dict(line.split("=") for line in run("xdotool", "getwindowgeometry", "--shell", window[0]).split("\n"))
    return tuple(int(words[name]) for name in ("X", "Y", "WIDTH", "HEIGHT"))


def panel_is_whole(arrangement):
    place = panel_place()
    if not place:
        return False
    left, top, width, height = place
    return any(left >= one.left and top >= one.top and left + width <= one.left + one.width and
               top + height <= one.top + one.height for one in monitors(arrangement, "1"))


def panel_comes_back(binaries):
    """Shown on a second monitor that goes, the panel is whole on the one that stays."""
    both = ARRANGEMENTS["primary left"]
    arrange(both)
    program = Program(binaries, "1")
    program.start().wait(30)
    if not until(panel_place, 10):
        return False
    window = run("xdotool", "search", "--onlyvisible", "--name", "MainWindow").split()[0]
    run("xdotool", "windowmove", window, "1290", "20")
    until(lambda: panel_place() and panel_place()[0] >= 1280, 5)
    arrange(ARRANGEMENTS["alone"])
    program.start().wait(30)
    back = until(lambda: panel_is_whole(ARRANGEMENTS["alone"]), 10)
    program.end()
    return back


def main():
    binaries, *words = sys.argv[1:]
    wanted = lambda *row: all(word in row for word in words)
    played = wrong = 0
    with Session():
        for rows in (arrangements, changes):
            for name, scale, tool, results in rows(binaries, wanted):
                played += 1
                wrong += not all(results.values())
                failed = [what for what, right in results.items() if not right]
                print("\t".join((name, scale, tool, "no: " + ", ".join(failed) if failed else "yes")), flush=True)
        if wanted("a monitor goes", "1", "panel"):
            back = panel_comes_back(binaries)
            played += 1
            wrong += not back
            print("\t".join(("a monitor goes", "1", "panel", "yes" if back else "no")))
    return 1 if wrong or not played else 0


sys.exit(main())
