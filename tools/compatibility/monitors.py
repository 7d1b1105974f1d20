# SPDX-License-Identifier: MIT
"""monitors.py BIN: the program on three monitors of a server without hardware, in all arrangements and scales.

Prints a row for each and ends with 1 when one of them is wrong. Needs Xorg with its dummy driver, xrandr, xdotool and
ImageMagick, and may need root for Xorg."""

import os
import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path

PATIENCE = 30  # seconds
DESKTOP = (2400, 1600)
DOT, RADIUS = (0, 255, 90), 20  # what the slider's 600 stands for; points
SIZES = {"DUMMY0": (1280, 720), "DUMMY1": (1024, 768), "DUMMY2": (1024, 768)}

# The place of each monitor that is on. The first one is the primary.
ARRANGEMENTS = {
    "alone": {"DUMMY0": (0, 0)},
    "primary left": {"DUMMY0": (0, 0), "DUMMY1": (1280, 0)},
    "primary right": {"DUMMY0": (1024, 0), "DUMMY1": (0, 0)},
    "primary below": {"DUMMY0": (0, 768), "DUMMY1": (0, 0)},
    "primary in the middle, with gaps": {"DUMMY0": (1100, 800), "DUMMY1": (0, 0), "DUMMY2": (1200, 0)},
}
SCALES = {
    "1": {},
    "1.25": {"QT_SCALE_FACTOR": "1.25"},
    "1.5": {"QT_SCALE_FACTOR": "1.5"},
    "2": {"QT_SCALE_FACTOR": "2"},
    "2 beside 1": {"QT_SCALE_FACTOR": "1", "QT_SCREEN_SCALE_FACTORS": "DUMMY0=2;DUMMY1=1;DUMMY2=1"},
    "1.5 beside 1": {"QT_SCALE_FACTOR": "1", "QT_SCREEN_SCALE_FACTORS": "DUMMY0=1.5;DUMMY1=1;DUMMY2=1"},
    "1 beside 2": {"QT_SCALE_FACTOR": "1", "QT_SCREEN_SCALE_FACTORS": "DUMMY0=1;DUMMY1=2;DUMMY2=2"},
}
FACTOR = {"2 beside 1": 2, "1.5 beside 1": 1.5, "1 beside 2": 1}


def run(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout.strip()


def until(condition, patience=PATIENCE):
    end = time.monotonic() + patience
    while not condition():
        if time.monotonic() > end:
            return False
        time.sleep(0.1)
    return True


class Screen:
    def __init__(self):
        picture = subprocess.run(["import", "-silent", "-window", "root", "-depth", "8", "ppm:-"],
                                 capture_output=True, check=True).stdout
        header = picture.split(b"\n", 3)
        self.width, self.height = map(int, header[1].split())
        self.pixels = header[3]

    def at(self, x, y):
        place = 3 * (int(y) * self.width + int(x))
        return tuple(self.pixels[place:place + 3])


def arrange(arrangement):
    """All in one request: no monitor is off in between that is to stay on."""
    command = ["xrandr", "--fb", "%dx%d" % DESKTOP]
    for number, (output, size) in enumerate(SIZES.items()):
        if output in arrangement:
            command += ["--output", output, "--mode", "%dx%d" % size, "--pos", "%dx%d" % arrangement[output]]
            command += ["--primary"] if output == next(iter(arrangement)) else []
        else:
            command += ["--output", output, "--off"]
    run(*command)


class Program:
    def __init__(self, binaries, environment):
        self.folder = Path(tempfile.mkdtemp())
        for name in ("VexaOrbilo", "pen-simulator"):
            shutil.copy(Path(binaries) / name, self.folder)
        (self.folder / "VexaPenSetting.xml").write_text(
            "<PenSetting FirstRun='1'><Setting><ShowPrivacyWindow>0</ShowPrivacyWindow><Key3P>3</Key3P>"
            "<Key4P>2</Key4P><LaserPenSize>%d</LaserPenSize><LaserPenColor>600</LaserPenColor>"
            "</Setting></PenSetting>" % RADIUS)
        self.environment = {**os.environ, **environment}
        self.process = self.start()
        until(lambda: "300x" in run("xwininfo", "-root", "-tree") or self.process.poll() is not None, 3)
        until(lambda: not run("xdotool", "search", "--onlyvisible", "--name", "MainWindow"))

    def start(self):
        return subprocess.Popen([str(self.folder / "VexaOrbilo")], env=self.environment,
                                stderr=subprocess.DEVNULL)

    def pen(self, *words):
        subprocess.run([str(self.folder / "pen-simulator"), *words], check=True)

    def end(self):
        self.process.terminate()
        self.process.wait(10)
        shutil.rmtree(self.folder)


def dot_follows(program, arrangement, factor):
    """The dot is where the pointer is, as large as its points, and goes."""
    left, top = next(iter(arrangement.values()))
    width, height = SIZES[next(iter(arrangement))]
    for x, y in ((left + 200, top + 150), (left + width - 150, top + height - 120)):
        run("xdotool", "mousemove", str(x), str(y))
        program.pen("key4", "hold")
        radius = RADIUS * factor
        there = until(lambda x=x, y=y: Screen().at(x, y) == DOT)
        picture = Screen()
        right = all(picture.at(x + a * (radius - 3), y + b * (radius - 3)) == DOT and
                    picture.at(x + a * (radius + 3), y + b * (radius + 3)) != DOT
                    for a, b in ((1, 0), (-1, 0), (0, 1), (0, -1)))
        program.pen("key4", "release")
        if not (there and right and until(lambda x=x, y=y: Screen().at(x, y) != DOT)):
            return False
    return True


def board_covers_the_primary(program, arrangement):
    """It fills the primary monitor to its corners and leaves the others alone."""
    before = Screen()
    places = {output: [(left + 2, top + 2), (left + SIZES[output][0] - 3, top + SIZES[output][1] - 3)]
              for output, (left, top) in arrangement.items()}
    primary = next(iter(arrangement))
    covered = lambda picture, output: [picture.at(*place) != before.at(*place) for place in places[output]]
    program.pen("key3", "long")
    right = until(lambda: all(covered(Screen(), primary)))
    picture = Screen()
    right = right and not any(any(covered(picture, output)) for output in arrangement if output != primary)
    program.pen("key3", "long")
    return right and until(lambda: not any(covered(Screen(), primary)))


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
    return any(left >= x and top >= y and left + width <= x + SIZES[output][0] and
               top + height <= y + SIZES[output][1] for output, (x, y) in arrangement.items())


def panel_comes_back(program):
    """Shown on a second monitor that goes, the panel is whole on the one that stays."""
    both = ARRANGEMENTS["primary left"]
    arrange(both)
    program.start().wait(30)
    if not until(panel_place, 10):
        return False
    window = run("xdotool", "search", "--onlyvisible", "--name", "MainWindow").split()[0]
    run("xdotool", "windowmove", window, "1290", "20")
    until(lambda: panel_place() and panel_place()[0] >= 1280, 5)
    arrange(ARRANGEMENTS["alone"])
    program.start().wait(30)
    return until(lambda: panel_is_whole(ARRANGEMENTS["alone"]), 10)


def main():
    binaries = sys.argv[1]
    read, write = os.pipe()
    server = subprocess.Popen(
        ["Xorg", "-displayfd", str(write), "-config", str(Path(__file__).with_name("monitors.conf").resolve()),
         "-noreset", "-novtswitch", "-sharevts", "-nolisten", "tcp", "-logfile", "/dev/null"],
        pass_fds=[write], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    os.environ["DISPLAY"] = ":" + os.read(read, 20).decode().strip()
    manager, wrong = None, 0
    try:
        for output in ("DUMMY1", "DUMMY2"):
            run("xrandr", "--addmode", output, "1024x768")
        manager = subprocess.Popen(["openbox", "--sm-disable"], stderr=subprocess.DEVNULL)
        run("xsetroot", "-solid", "#204060")
        for name, arrangement in ARRANGEMENTS.items():
            arrange(arrangement)
            for scale, environment in SCALES.items():
                program = Program(binaries, environment)
                results = {"dot": dot_follows(program, arrangement, FACTOR.get(scale) or float(scale)),
                           "board": board_covers_the_primary(program, arrangement)}
                program.end()
                wrong += not all(results.values())
                print("%-34s%-14s%s" % (name, scale, results), flush=True)
        program = Program(binaries, {})
        back = panel_comes_back(program)
        program.end()
        wrong += not back
        print("%-34s%-14s%s" % ("a monitor goes", "1", {"panel": back}))
    finally:
        for process in (manager, server):
            if process:
                process.terminate()
                process.wait(10)
    return 1 if wrong else 0


sys.exit(main())
