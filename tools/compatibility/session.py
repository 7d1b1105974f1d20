# SPDX-License-Identifier: MIT
"""One presentation in one program under one window manager, played with the pen on the present display."""

import os
import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path

import decks

WIDTH, HEIGHT = 1280, 720
PATIENCE = 30  # seconds for what must come
QUIET = 3      # seconds in which nothing may happen any more: the refocus comes a second after a tool closes
POINTER = (400, 300)
DOT = (0, 255, 90)  # what the slider's 600 stands for

WINDOW_MANAGERS = {
    "openbox": ["openbox", "--sm-disable"],
    "xfwm4": ["xfwm4", "--compositor=off"],
    "kwin_x11": ["kwin_x11"],
    "mutter": ["mutter", "--x11"],
    "i3": ["i3", "-c", "i3.config"],
}

# name, deck, command, keys that start and end the show where the pen's do not
PROGRAMS = {
    "impress": (decks.fodp, ["soffice", "--impress", "--norestore", "--nologo", "DECK"], None, None),
    "evince": (decks.pdf, ["evince", "DECK"], None, None),
    "okular": (decks.pdf, ["okular", "DECK"], "ctrl+shift+p", "Escape"),
    "chromium": (decks.html, ["chromium", "--no-sandbox", "--test-type", "--no-first-run", "--disable-gpu",
                              "--disable-dev-shm-usage", "--password-store=basic", "DECK"], "F11", "F11"),
}


class OwnKey(Exception):
    """The program is told by a key of its own."""


class Missed(Exception):
    """Something that must come did not."""


def run(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout.strip()


def xdo(*words):
    return run("xdotool", *words)


class Screen:
    """A picture of the whole screen."""

    def __init__(self):
        self.pixels = subprocess.run(["import", "-silent", "-window", "root", "-depth", "8", "rgb:-"],
                                     capture_output=True, check=True).stdout

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


class Presentation:
    def __init__(self, binaries, manager, program, pictures):
        self.manager, self.program, self.pictures = manager, program, pictures
        self.folder = Path(tempfile.mkdtemp())
        self.processes = []
        for name in ("VexaOrbilo", "pen-simulator"):
            shutil.copy(Path(binaries) / name, self.folder)
        (self.folder / "VexaPenSetting.xml").write_text(
            "<PenSetting FirstRun='1'><Setting><ShowPrivacyWindow>0</ShowPrivacyWindow><Key2P>1</Key2P>"
            "<Key3P>3</Key3P><Key4P>2</Key4P><LaserPenSize>20</LaserPenSize><LaserPenColor>600</LaserPenColor>"
            "<Language>2</Language></Setting></PenSetting>")
        (self.folder / "i3.config").write_text("font pango:monospace 8\n")

    def start(self, *command, log):
        output = (self.folder / log).open("wb")
        self.processes.append(subprocess.Popen(command, stdout=output, stderr=output, cwd=self.folder,
                                               start_new_session=True))

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

    def comes(self, what, condition):
        await_(what, condition)
        return True

    def play(self):
        make, command, own_start, own_end = PROGRAMS[self.program]
        deck = self.folder / ("slides." + {"fodp": "fodp", "pdf": "pdf", "html": "html"}[make.__name__])
        make(deck)
        self.start(*WINDOW_MANAGERS[self.manager], log="manager.log")
        await_("window manager", lambda: "window id" in run("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"), 90)
        self.start(str(self.folder / "VexaOrbilo"), log="program.log")
        await_("the prompt of the start", lambda: " 300x60+" in run("xwininfo", "-root", "-tree"))
        time.sleep(2 * QUIET)  # until it has faded
        self.start(*[str(deck) if word == "DECK" else word for word in command], log="viewer.log")
        await_("the slides' window", self.focus_viewer, 90)
        if not stays(lambda: True):
            return
        self.focus_viewer()

        self.check("start", lambda: self.begin(own_start, own_end))
        if Screen().slide() == 0:
            raise Missed("no show to go on with")
        self.check("page keys", self.page_through)
        self.check("laser", self.laser)
        self.check("ink", lambda: self.over("ink", ("key1", "long")))
        self.check("board", lambda: self.over("board", ("key3", "long")))
        self.check("end", lambda: self.finish(own_end))
        self.check("panel", self.panel)

    def focus_viewer(self):
        for window in xdo("search", "--onlyvisible", "--name", "slides|Slides").split():
            if "VexaOrbilo" not in run("xprop", "-id", window, "WM_CLASS"):
                xdo("windowactivate", window)
                xdo("windowfocus", window)  # Mutter follows no activation without a time
                return True
        return False

    def begin(self, own_start, own_end):
        if own_start:
            xdo("key", own_start)
            if stays(lambda: xdo("search", "--onlyvisible", "--name", "^Information")):
                # How a show is left is explained at the first one, not to be shown again.
                for key in ("alt+d", "Return", own_end, own_start):
                    xdo("key", key)
                    time.sleep(1)
            await_("the show by its own key", lambda: Screen().slide() == 1)
            raise OwnKey
        self.pen("key2", "long")
        return self.comes("the show", lambda: Screen().slide() == 1)

    def page_through(self):
        stays(lambda: True)
        for key, slide in (("Next", 2), ("Prior", 1), ("Next", 2), ("Next", 3)):
            xdo("key", key)
            await_("slide %d" % slide, lambda wanted=slide: Screen().slide() == wanted)
        return True

    def kept(self, name, focus):
        self.check(name + ": slide kept", lambda: stays(lambda: True) and self.comes(
            "the slide", lambda: Screen().slide() == 3) and stays(lambda: Screen().slide() == 3))
        self.check(name + ": focus kept", lambda: xdo("getwindowfocus") == focus)
        while Screen().slide() not in (0, 3):  # for what comes after
            xdo("key", "Next" if Screen().slide() < 3 else "Prior")
            time.sleep(1)

    def laser(self):
        focus = xdo("getwindowfocus")
        xdo("mousemove", *map(str, POINTER))
        self.pen("key4", "hold")
        shown = False
        try:
            await_("the dot", lambda: near(Screen().at(*POINTER), DOT) and Screen().slide() == 3, 10)
            shown = xdo("getwindowfocus") == focus
            self.picture("laser")
        finally:
            self.pen("key4", "release")
        await_("the dot's end", lambda: not near(Screen().at(*POINTER), DOT))
        self.kept("laser", focus)
        return shown

    def over(self, name, keys):
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


def main():
    binaries, manager, program, pictures = sys.argv[1:]
    presentation = Presentation(binaries, manager, program, pictures)
    try:
        presentation.play()
    except Missed as missed:
        print("%s under %s: %s did not come" % (program, manager, missed), file=sys.stderr)
        for log in presentation.folder.glob("*.log"):
            print(log.name, log.read_text(errors="replace")[-600:], file=sys.stderr)
        run("import", "-window", "root", "/tmp/compat-%s-%s.png" % (manager, program))
    finally:
        presentation.end()


main()
