# SPDX-License-Identifier: MIT
"""The programs that are played: how each is started, and what is set in it before."""

import os
from pathlib import Path

import decks

CONFIGURATION = Path(os.environ["HOME"]) / ".config"
FIREFOX = ["firefox-esr", "--no-remote", "--profile", str(CONFIGURATION / "firefox")]

# name, deck, command, keys that start and end the show where the pen's do not
IMPRESS = (decks.fodp, ["soffice", "--impress", "--norestore", "--nologo", "DECK"], None, None)
PROGRAMS = {
    "impress": IMPRESS,
    "console": IMPRESS,  # with the presenter console, on two monitors
    "evince": (decks.pdf, ["evince", "DECK"], None, None),
    "okular": (decks.pdf, ["okular", "DECK"], "ctrl+shift+p", "Escape"),
    "chromium": (decks.html, ["chromium", "--no-sandbox", "--test-type", "--no-first-run", "--disable-gpu",
                              "--disable-dev-shm-usage", "--password-store=basic", "DECK"], "F11", "F11"),
    "firefox": (decks.html, [*FIREFOX, "DECK"], "F11", "F11"),
    "firefox-pdf": (decks.pdf, [*FIREFOX, "DECK"], "ctrl+alt+p", "Escape"),
}

# Without the pages and questions of a first start.
FIREFOX_SET_UP = ("firefox/user.js", "".join('user_pref("%s", %s);\n' % preference for preference in (
    ("browser.aboutwelcome.enabled", "false"), ("browser.startup.homepage_override.mstone", '"ignore"'),
    ("browser.shell.checkDefaultBrowser", "false"), ("datareporting.policy.dataSubmissionEnabled", "false"),
    ("termsofuse.bypassNotification", "true"), ("network.captive-portal-service.enabled", "false"),
    ("network.connectivity-service.enabled", "false"))))

# What a presenter has set before. At its first show Okular explains how one is left; Impress shows the slides beside the
# primary monitor, as on a projector that is not the primary one, until it is told which to take.
PROFILES = {
    "okular": ("okularrc", "[Notification Messages]\npresentationInfo=false\n"),
    "console": ("libreoffice/4/user/registrymodifications.xcu",
                '<oor:items xmlns:oor="http://openoffice.org/2001/registry"><item oor:path="/org.openoffice.Office.Impress'
                '/Misc"><prop oor:name="Display" oor:op="fuse"><value>1</value></prop></item></oor:items>\n'),
    **dict.fromkeys(("firefox", "firefox-pdf", "firefox-film"), FIREFOX_SET_UP),
}
