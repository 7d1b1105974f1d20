# SPDX-License-Identifier: MIT
"""A full-screen film in one player under one window manager, played with the pen. Prints a row for each action."""

import os
import shutil
import subprocess

import session
from session import DOT, HEIGHT, POINTER, RADIUS, SHOW, TOGGLED, WIDTH, await_, lies, near, stays, xdo
from programs import FIREFOX

PLACE = (640, 200)  # of the film's picture, which no player covers and no tool draws on
UNPRIVILEGED = "nobody"
ANYBODY = ["setpriv", "--reuid=" + UNPRIVILEGED, "--regid=nogroup", "--clear-groups"]


def by_key():
    xdo("key", "f")


def by_double_click():
    xdo("mousemove", *map(str, PLACE), "click", "--repeat", "2", "--delay", "100", "1")


# command, and how its user makes the film fill the screen
PLAYERS = {
    "mpv": (["mpv", "film.webm"], by_key),
    "vlc": (["vlc", "--no-qt-privacy-ask", "film.webm"], by_key),
    "firefox-film": ([*FIREFOX, "film.html"], by_double_click),
}


def make_film(folder):
    """Ten minutes in one colour, another in each picture and none as bright as a tool's, so that it changes while it
    runs and only then; and a page with it."""
    minute = folder / "minute.webm"
    convert = ["ffmpeg", "-nostdin", "-v", "error"]
    subprocess.run([*convert, "-f", "lavfi", "-i", "color=c=0x905050:s=128x72:r=2:d=60,hue=H=2*PI*t/5", "-c:v", "libvpx",
                    "-threads", "1", "-deadline", "realtime", "-cpu-used", "8", str(minute)], check=True)
    subprocess.run([*convert, "-stream_loop", "9", "-i", str(minute), "-c", "copy", str(folder / "film.webm")], check=True)
    (folder / "film.html").write_text('<!doctype html><title>Film</title><style>html,body{margin:0;height:100%}'
                                      'video{width:100%;height:100%}</style>'
                                      '<video src="film.webm" autoplay muted controls></video>')


def standing_at_pointer(tool, screen):
    """Whether the held tool is seen over a film of one colour."""
    x, y = POINTER
    if tool == "laser":
        return near(screen.at(x, y), DOT)
    if tool == "magnifier":
        return session.magnified(screen)
    return not near(screen.at(x, y), screen.at(x + 2 * RADIUS, y))


class Film(session.Presentation):
    key2 = 2  # player pause or play
    title = "film|Film"

    def play(self):
        make_film(self.folder)
        self.start_manager()
        self.start_with("laser")
        command, fill = PLAYERS[self.program]
        self.start(*self.as_a_user(command), log="viewer.log")
        await_("the film's window", self.focus_viewer, 90)
        await_("a player that has started", lambda: self.focus_viewer() and self.moves(), 90)
        stays(lambda: True)  # a key may be lost while a window still comes
        await_("the focus of the film's window", self.focus_viewer)
        fill()
        await_("the film in full screen", self.fills)
        self.have_it_run()
        xdo("mousemove", *map(str, POINTER))

        self.check("pause", self.pause)
        self.check("play", self.go_on)
        self.check("laser", lambda: self.held("laser"))
        for name in TOGGLED:
            self.check(name, lambda name=name: self.over(name))
        self.check("screenshot", self.screenshot)
        for tool in ("spotlight", "magnifier"):
            self.start_with(tool)
            await_("the focus of the film's window", self.focus_viewer)
            self.check(tool, lambda tool=tool: self.held(tool))

    def as_a_user(self, command):
        """VLC refuses to be started by root."""
        if self.program != "vlc" or os.getuid() != 0:
            return command
        home = self.folder / "home"
        home.mkdir()
        self.folder.chmod(0o755)
        shutil.chown(home, UNPRIVILEGED)
        return [*ANYBODY, "env", "-u", "DBUS_SESSION_BUS_ADDRESS", "HOME=%s" % home, "XDG_RUNTIME_DIR=%s" % home, *command]

    def colour(self):
        return session.Screen().at(*PLACE)

    def moves(self):
        """Whether anything on the screen does: where a player has its picture in a small window is its own affair."""
        before = session.Screen().pixels
        return session.dummies.until(lambda: session.Screen().pixels != before, 5)

    def have_it_run(self):
        """To Firefox a double click that comes slowly is a click too, which pauses."""
        stays(lambda: True)
        if not self.runs():
            xdo("key", "space")
        await_("the running film", self.runs)

    def runs(self):
        before = self.colour()
        return session.dummies.until(lambda: self.colour() != before, 5)

    def stands(self):
        before = self.colour()
        return stays(lambda: self.colour() == before)

    def fills(self):
        screen = session.Screen()
        middle = screen.at(*PLACE)
        return max(middle) > 60 and all(near(screen.at(x, y), middle) for x in (9, WIDTH - 9) for y in (3, HEIGHT // 2))

    def pause(self):
        self.pen("key2", "long")
        await_("the film's pause", self.stands)
        await_("its full screen", self.fills)
        return True

    def go_on(self):
        self.pen("key2", "long")
        await_("the film", self.runs)
        await_("its full screen", self.fills)
        return True

    def still_plays(self):
        """When all has come to rest: in full screen and with the focus, as before the tool."""
        stays(lambda: True)
        await_("the running film", self.runs)
        await_("its full screen", self.fills)
        return lies(xdo("getwindowfocus"), SHOW)

    def held(self, tool):
        self.pen("key4", "hold")
        try:
            await_("the " + tool, lambda: standing_at_pointer(tool, session.Screen()), 10)
            frozen = self.stands()
        finally:
            self.pen("key4", "release")
        await_("its end", lambda: not standing_at_pointer(tool, session.Screen()))
        return self.still_plays() and frozen

    def over(self, name):
        self.pen(*TOGGLED[name])
        await_(name, self.stands)
        self.pen("drag", "300", "250", "500", "420", "700", "250", "900", "420", "click", *map(str, POINTER))
        covered = self.stands()
        self.pen(*TOGGLED[name])
        return self.still_plays() and covered

    def screenshot(self):
        taken = lambda: [file for file in (session.CONFIGURATION.parent / "Desktop").rglob("*.png") if file.stat().st_size]
        self.pen("key4", "click")
        await_("the picture's file", taken)
        still = self.still_plays()
        size = session.run("identify", "-format", "%wx%h", str(taken()[0]))
        return still and size == "%dx%d" % (WIDTH, HEIGHT)
