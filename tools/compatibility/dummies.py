# SPDX-License-Identifier: MIT
"""An X server with three monitors and no hardware: its life, its arrangements, what it shows."""

import ctypes
import os
import re
import subprocess
import time
from pathlib import Path

PATIENCE = 30  # seconds
DESKTOP = (2400, 1600)
SIZES = {"DUMMY0": (1280, 720), "DUMMY1": (1024, 768), "DUMMY2": (1024, 768)}


def run(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout.strip()


def until(condition, patience=PATIENCE):
    latest = time.monotonic() + patience
    while not condition():
        if time.monotonic() > latest:
            return False
        time.sleep(0.1)
    return True


def end(process):
    """An X server that is told to end just before it sleeps sleeps on: it is told again until it has gone."""
    while process.poll() is None:
        process.terminate()
        time.sleep(0.02)


class Server:
    """Runs while its block does."""

    def __enter__(self):
        read, write = os.pipe()
        self.server = subprocess.Popen(
            ["Xorg", "-displayfd", str(write), "-config", str(Path(__file__).with_name("monitors.conf").resolve()),
             "-noreset", "-novtswitch", "-sharevts", "-nolisten", "tcp", "-logfile", "/dev/null"],
            pass_fds=[write], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.environ["DISPLAY"] = ":" + os.read(read, 20).decode().strip()
        for output in ("DUMMY1", "DUMMY2"):
            run("xrandr", "--addmode", output, "1024x768")
        return self

    def __exit__(self, *_):
        end(self.server)


class Session(Server):
    """The same with a window manager, and without a bus."""

    def __enter__(self):
        super().__enter__()
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = "disabled:"
        self.manager = subprocess.Popen(["openbox", "--sm-disable"], stderr=subprocess.DEVNULL)
        return self

    def __exit__(self, *_):
        end(self.manager)
        super().__exit__()


class TwoMonitors(Server):
    """The primary one, which a show is for, and another one on its right."""

    def __enter__(self):
        super().__enter__()
        arrange({"DUMMY0": (0, 0), "DUMMY1": (1280, 0)}, desktop=(2304, 768))
        return self


class Monitor:
    """Where a monitor lies, in device pixels, and how many of them make a point."""

    def __init__(self, output, origin, scale=1):
        self.output, self.scale = output, scale
        self.left, self.top = origin
        self.width, self.height = SIZES[output]

    def at(self, x, y):
        """The pixel of a place in points; a negative one counts from the far edge."""
        points = self.width / self.scale, self.height / self.scale
        x, y = (p if p >= 0 else size + p for p, size in zip((x, y), points))
        return self.left + int(x * self.scale), self.top + int(y * self.scale)

    def has_its_size(self, line):
        """Of a window in xwininfo's list: at its place, and as large, or by less than a point larger."""
        place = re.search(r" (\d+)x(\d+)\+%d\+%d " % (self.left, self.top), line)
        return bool(place) and all(0 <= int(length) - own < self.scale
                                   for length, own in zip(place.groups(), (self.width, self.height)))

    def edges(self):
        """The pixels at its corners and in the middles of its edges."""
        right, bottom = self.left + self.width - 1, self.top + self.height - 1
        return [(x, y) for x in (self.left, (self.left + right) // 2, right)
                for y in (self.top, (self.top + bottom) // 2, bottom)
                if (x, y) != ((self.left + right) // 2, (self.top + bottom) // 2)]


def arrange(arrangement, primary=None, desktop=DESKTOP):
    """All in one request: no monitor is off in between that is to stay on. The first one is the primary."""
    primary = primary or next(iter(arrangement))
    command = ["xrandr", "--fb", "%dx%d" % desktop]
    for output, size in SIZES.items():
        if output in arrangement:
            command += ["--output", output, "--mode", "%dx%d" % size, "--pos", "%dx%d" % arrangement[output]]
            command += ["--primary"] if output == primary else []
        else:
            command += ["--output", output, "--off"]
    run(*command)
    run("xrandr", "--query")  # only when it is asked does the driver say that another monitor is connected


class Screen:
    """What the whole desktop shows: every pixel is looked up when it is asked for, which is a matter of microseconds,
    where a picture of three monitors takes a second of a busy machine."""

    _xlib, _display = None, None

    def __init__(self):
        if not Screen._display:
            Screen._xlib = ctypes.CDLL("libX11.so.6")
            for function, result, arguments in (
                    ("XOpenDisplay", ctypes.c_void_p, [ctypes.c_char_p]),
                    ("XDefaultRootWindow", ctypes.c_ulong, [ctypes.c_void_p]),
                    ("XGetImage", ctypes.c_void_p, [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_int,
                                                    ctypes.c_uint, ctypes.c_uint, ctypes.c_ulong, ctypes.c_int]),
                    ("XGetPixel", ctypes.c_ulong, [ctypes.c_void_p, ctypes.c_int, ctypes.c_int]),
                    ("XDestroyImage", ctypes.c_int, [ctypes.c_void_p])):
                getattr(Screen._xlib, function).restype = result
                getattr(Screen._xlib, function).argtypes = arguments
            Screen._display = Screen._xlib.XOpenDisplay(None)

    def at(self, x, y):
        """Red, green and blue of a pixel."""
        xlib, display = Screen._xlib, Screen._display
        every_plane, z_pixmap = 2 ** 32 - 1, 2
        image = xlib.XGetImage(display, xlib.XDefaultRootWindow(display), int(x), int(y), 1, 1, every_plane, z_pixmap)
        pixel = xlib.XGetPixel(image, 0, 0)
        xlib.XDestroyImage(image)
        return pixel >> 16 & 255, pixel >> 8 & 255, pixel & 255
