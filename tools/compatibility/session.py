# SPDX-License-Identifier: MIT
"""One presentation in one program under one window manager, played with the pen. Prints a row for each action."""

import os
import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path
from random import Random

import decks
import dummies
from dummies import run
from programs import CONFIGURATION, PROFILES, PROGRAMS
from working import rests

WIDTH, HEIGHT = 1280, 720  # of the screen, or of the primary monitor
CONSOLE = {"X=%d" % WIDTH, "Y=0"}  # on the monitor beside, of which Mutter chooses the mode by itself
SHOW = {"X=0", "Y=0", "WIDTH=%d" % WIDTH, "HEIGHT=%d" % HEIGHT}
PATIENCE = 30  # seconds for what must come
QUIET = 3      # seconds in which nothing may happen any more: the refocus comes a second after a tool closes
POINTER = (400, 300)
DOT = (0, 255, 90)  # what the slider's 600 stands for
RADIUS = 40         # of every held tool
RESTING = 12        # the slide on which the tools are played: others before and behind it
HELD = {"spotlight": 0, "magnifier": 1, "laser": 2}
TOGGLED = {"ink": ("key1", "long"), "board": ("key3", "long")}

WINDOW_MANAGERS = {
    "openbox": ["openbox", "--sm-disable"],
    "xfwm4": ["xfwm4", "--compositor=off"],
    "kwin_x11": ["kwin_x11"],
    "mutter": ["mutter", "--x11"],
    "i3": ["i3", "-c", "i3.config"],
}


class OwnKey(Exception):
    """The program is told by a key of its own."""


class Missed(Exception):
    """Something that must come did not."""


def xdo(*words):
    return run("xdotool", *words)


class Screen:
    """A picture of the screen, or of what a window that fills it has drawn, whether that is shown or not."""

    def __init__(self, window="root"):
        self.pixels = subprocess.run(["import", "-silent", "-window", window, "-crop", "%dx%d+0+0" % (WIDTH, HEIGHT),
                                      "-depth", "8", "rgb:-"], capture_output=True, check=window == "root").stdout

    def at(self, x, y):
        place = 3 * (y * WIDTH + x)
        return tuple(self.pixels[place:place + 3])

    def slide(self):
        """The number of the slide that fills the screen; 0 when none does."""
        for number, colour in enumerate(decks.COLOURS, 1):
            if all(near(self.at(x, y), colour) for x in (150, WIDTH - 150) for y in (3, HEIGHT - 4)):
                return number
        return 0


def near(colour, other):
    return len(colour) == 3 and all(abs(a - b) <= 12 for a, b in zip(colour, other))


def magnified(screen):
    """The ring lies between the lens's radius and two pixels more."""
    x, y = POINTER
    return all(screen.at(x + side * (RADIUS + 1), y)[1] > 180 for side in (1, -1))


def lit(screen):
    x, y = POINTER
    slide = decks.COLOURS[RESTING - 1]
    return near(screen.at(x, y), slide) and not near(screen.at(x + 2 * RADIUS, y), slide)


# What tells that a held tool stands at the pointer, with the slide behind it.
SEEN = {"laser": lambda screen: near(screen.at(*POINTER), DOT) and screen.slide() == RESTING,
        "magnifier": magnified,
        "spotlight": lit}


def await_(what, condition, patience=PATIENCE):
    end = time.monotonic() + patience
    while not condition():
        if time.monotonic() > end:
            raise Missed(what)
        time.sleep(0.1)


def stays(condition):
    """Whether it holds when everything has come to rest."""
    end = time.monotonic() + QUIET
    while time.monotonic() < end:
        time.sleep(0.1)
    return condition()


def lies(window, place):
    return place <= set(xdo("getwindowgeometry", "--shell", window).split())


class Presentation:
    key2 = 1  # slide show on or off
    title = "slides|Slides"

    def __init__(self, binaries, manager, program, pictures):
        self.manager, self.program, self.pictures = manager, program, pictures
        self.folder = Path(tempfile.mkdtemp())
        self.processes, self.companion = [], None
        for name in ("VexaOrbilo", "pen-simulator"):
            shutil.copy(Path(binaries) / name, self.folder)
        (self.folder / "i3.config").write_text("font pango:monospace 8\n")
        if program in PROFILES:
            name, text = PROFILES[program]
            profile = CONFIGURATION / name
            profile.parent.mkdir(parents=True, exist_ok=True)
            profile.write_text(text)

    def start(self, *command, log):
        output = (self.folder / log).open("wb")
        self.processes.append(subprocess.Popen(command, stdout=output, stderr=output, cwd=self.folder,
                                               start_new_session=True))
        return self.processes[-1]

    def start_manager(self):
        self.start(*WINDOW_MANAGERS[self.manager], log="manager.log")
        await_("window manager", lambda: "window id" in run("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"), 90)

    def start_with(self, tool):
        """The program, anew, with this tool in key 4."""
        if self.companion:
            self.companion.terminate()
            self.companion.wait(30)
        (self.folder / "VexaPenSetting.xml").write_text(
            "<PenSetting FirstRun='1'><Setting><ShowPrivacyWindow>0</ShowPrivacyWindow><Key2P>%d</Key2P>"
            "<Key3P>3</Key3P><Key4P>%d</Key4P><LaserPenSize>%d</LaserPenSize><LaserPenColor>600</LaserPenColor>"
            "<MagnifierSize>%d</MagnifierSize><MagnifierColor>600</MagnifierColor><SportLightSize>%d</SportLightSize>"
            "<SportLightTran>255</SportLightTran><Language>2</Language></Setting></PenSetting>"
            % (self.key2, HELD[tool], RADIUS, RADIUS, RADIUS))
        self.companion = self.start(str(self.folder / "VexaOrbilo"), log="program.log")
        prompt = lambda: " 300x60+" in run("xwininfo", "-root", "-tree")
        await_("the prompt of the start", prompt)
        await_("the panel's withdrawal", lambda: not xdo("search", "--onlyvisible", "--name", "^MainWindow$"))
        time.sleep(2 * QUIET)  # until the prompt has faded

    def end(self):
        for process in reversed(self.processes):
            try:
                os.killpg(process.pid, 15)
                process.wait(10)
            except (ProcessLookupError, subprocess.TimeoutExpired):
                process.kill()
        shutil.rmtree(self.folder, ignore_errors=True)

    def pen(self, *words):
        subprocess.run([str(self.folder / "pen-simulator"), *words], check=True)

    def picture(self, name):
        if self.manager == "openbox" and name in ("laser", "ink"):
            target = Path(self.pictures) / ("%s-%s.png" % (self.program, name))
            subprocess.run(["import", "-silent", "-window", "root", "-resize", "480x270", "-colors", "64",
                            "-strip", str(target)], check=True)

    def check(self, action, test):
        try:
            result = "yes" if test() else "no"
        except OwnKey:
            result = "own key"
        except Missed as missed:
            result = "no"
            print("%s under %s, %s: no sign of %s" % (self.program, self.manager, action, missed), file=sys.stderr)
        print("\t".join((self.program, self.manager, action, result)), flush=True)
        return result != "no"

    def comes(self, what, condition):
        await_(what, condition)
        return True

    def play(self):
        make, command, own_start, own_end = PROGRAMS[self.program]
        deck = self.folder / ("slides." + {"fodp": "fodp", "pdf": "pdf", "html": "html"}[make.__name__])
        make(deck)
        self.start_manager()
        self.start_with("laser")
        viewer = self.start(*[str(deck) if word == "DECK" else word for word in command], log="viewer.log")
        await_("the slides' window", self.focus_viewer, 90)
        # Impress takes F5 long before it is ready: then its show begins without the console.
        await_("a program that has started", lambda: rests(viewer), 90)
        await_("the focus of the slides' window", self.focus_viewer)

        self.check("start", lambda: self.begin(own_start))
        if Screen().slide() == 0:
            raise Missed("no show to go on with")
        self.check("page keys", self.page_through)
        self.check("laser", lambda: self.held("laser"))
        self.check("ink", lambda: self.over("ink"))
        self.check("board", lambda: self.over("board"))
        self.check("wildly", self.wildly)
        self.check("end", lambda: self.finish(own_end))
        for tool in ("spotlight", "magnifier"):
            self.check(tool, lambda tool=tool: self.in_another_show(tool, own_start, own_end))
        self.check("panel", self.panel)

    def focus_viewer(self):
        """Asks for it; whether it is there."""
        for window in xdo("search", "--onlyvisible", "--name", self.title).split():
            if "VexaOrbilo" not in run("xprop", "-id", window, "WM_CLASS"):
                xdo("windowactivate", window)
                xdo("windowfocus", window)  # Mutter follows no activation without a time
                return xdo("getwindowfocus") == window
        return False

    def begin(self, own_start):
        if own_start:
            xdo("key", own_start)
        else:
            self.pen("key2", "long")
        try:
            await_("the show", lambda: Screen().slide() != 0)
        except Missed:
            self.have_it_painted()
        if own_start:
            raise OwnKey
        if self.program == "console":
            await_("the console", lambda: self.window_at(CONSOLE))
        return True

    def window_at(self, place):
        windows = xdo("search", "--onlyvisible", "--class", "soffice").split()
        return next((window for window in windows if lies(window, place)), None)

    def have_it_painted(self):
        """Mutter sometimes goes on showing an older picture of a window that has drawn the show, until it draws again."""
        slide = Screen(self.window_at(SHOW) or xdo("getwindowfocus")).slide()
        if slide == 0:
            raise Missed("the show, in its window either")
        print("%s under %s: the show was drawn and not shown" % (self.program, self.manager), file=sys.stderr)
        for key, wanted in (("Next", slide + 1), ("Prior", slide)):
            xdo("key", key)
            await_("slide %d" % wanted, lambda wanted=wanted: Screen().slide() == wanted)

    def page_through(self):
        stays(lambda: True)
        for key, slide in (("Next", 2), ("Prior", 1), *(("Next", slide) for slide in range(2, RESTING + 1))):
            xdo("key", key)
            await_("slide %d" % slide, lambda wanted=slide: Screen().slide() == wanted)
        return True

    def rest(self):
        """Back on the slide of the tools, wherever the show is."""
        while Screen().slide() not in (0, RESTING):
            before = Screen().slide()
            xdo("key", "Next" if before < RESTING else "Prior")
            await_("another slide", lambda before=before: Screen().slide() not in (0, before))

    def kept(self, name, focus):
        resting = lambda: Screen().slide() == RESTING
        kept = lambda: stays(lambda: True) and dummies.until(resting) and stays(resting)
        if not self.check(name + ": slide kept", kept):
            print("it is slide %d now" % Screen().slide(), file=sys.stderr)
        self.check(name + ": focus kept", lambda: self.has_it(xdo("getwindowfocus"), focus))
        self.rest()  # for what comes after

    def has_it(self, now, before):
        """The click behind a tool may take the focus from the console, but only to the show."""
        return now == before or self.program == "console" and lies(now, SHOW)

    def held(self, tool):
        focus = xdo("getwindowfocus")
        xdo("mousemove", *map(str, POINTER))
        self.pen("key4", "hold")
        shown = False
        try:
            await_("the " + tool, lambda: SEEN[tool](Screen()), 10)
            shown = xdo("getwindowfocus") == focus
            self.picture(tool)
        finally:
            self.pen("key4", "release")
        await_("its end", lambda: Screen().slide() != 0 and not SEEN[tool](Screen()))
        self.kept(tool, focus)
        return shown

    def in_another_show(self, tool, own_start, own_end):
        self.start_with(tool)
        await_("the focus of the slides' window", self.focus_viewer)
        stays(lambda: True)
        try:
            self.begin(own_start)
        except OwnKey:
            pass
        stays(lambda: True)
        self.rest()
        shown = self.held(tool)
        try:
            self.finish(own_end)
        except OwnKey:
            pass
        return shown

    def wildly(self):
        """Twenty times some tool is opened, or closed where it is open, at any pace; in the end all are closed."""
        random = Random(self.program + self.manager)
        focus, is_open = xdo("getwindowfocus"), dict.fromkeys(("laser", *TOGGLED), False)
        for tool in random.choices(list(is_open), k=20):
            self.turn(tool, is_open)
            time.sleep(random.uniform(0, 0.3))
        for tool in [tool for tool in is_open if is_open[tool]]:
            self.turn(tool, is_open)
        await_("the show", lambda: Screen().slide() != 0, 10)
        self.kept("wildly", focus)
        return True

    def turn(self, tool, is_open):
        is_open[tool] = not is_open[tool]
        self.pen(*TOGGLED.get(tool, ("key4", "hold" if is_open[tool] else "release")))

    def over(self, name):
        keys = TOGGLED[name]
        focus = xdo("getwindowfocus")
        before = Screen().pixels
        self.pen(*keys)
        await_(name, lambda: Screen().pixels != before, 10)
        stays(lambda: True)
        if name == "ink":
            self.pen("drag", "300", "250", "500", "420", "700", "250", "900", "420")
            stays(lambda: True)
        shown = Screen().pixels != before
        self.picture(name)
        self.pen(*keys)
        await_("its end", lambda: Screen().slide() != 0)
        self.kept(name, focus)
        return shown

    def panel(self):
        """A second start shows it: floating, whole and without a frame."""
        subprocess.run([str(self.folder / "VexaOrbilo")], check=True, stderr=subprocess.DEVNULL)
        await_("the panel", lambda: xdo("search", "--onlyvisible", "--name", "^MainWindow$"), 10)
        stays(lambda: True)
        window = xdo("search", "--onlyvisible", "--name", "^MainWindow$").split()[0]
        geometry = xdo("getwindowgeometry", "--shell", window).split()
        frame = run("xprop", "-id", window, "_NET_FRAME_EXTENTS").partition("=")[2].replace(" ", "")
        self.picture("panel")
        return {"WIDTH=999", "HEIGHT=650"} <= set(geometry) and frame in ("", "0,0,0,0")

    def finish(self, own_end):
        if own_end:
            xdo("key", own_end)
            await_("the end by its own key", lambda: Screen().slide() == 0)
            raise OwnKey
        self.pen("key2", "long")
        return self.comes("the end", lambda: Screen().slide() == 0)
