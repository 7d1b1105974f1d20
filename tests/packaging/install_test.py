#!/usr/bin/env python3
# install_test.py BUILD-FOLDER [TEST ...]
#
# Installs the built program into homes of its own, as `cmake --install` does and as the archive does, runs it there and
# uninstalls it again. Needs a display.
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

BUILD = pathlib.Path(sys.argv[1])
ID = "example.vexa.VexaOrbilo"
ARCHIVE = None


def tree(folder):
    """Every file, folder and link with what is in it."""
    found = {}
    for path in sorted(folder.rglob("*")):
        name = str(path.relative_to(folder))
        found[name] = ("link", os.readlink(path)) if path.is_symlink() else \
            ("folder",) if path.is_dir() else ("file", path.read_bytes())
    return found


def setUpModule():
    global ARCHIVE
    ARCHIVE = tempfile.TemporaryDirectory()
    subprocess.run(["cpack", "--config", BUILD / "CPackConfig.cmake", "-B", ARCHIVE.name],
                   check=True, stdout=subprocess.DEVNULL)
    [packed] = pathlib.Path(ARCHIVE.name).glob("VexaOrbilo-*.tar.gz")
    subprocess.run(["tar", "xzf", packed, "-C", ARCHIVE.name], check=True)


def tearDownModule():
    ARCHIVE.cleanup()


def unpacked():
    [script] = pathlib.Path(ARCHIVE.name).glob("VexaOrbilo-*/install.sh")
    return script.parent


class Installation(unittest.TestCase):
    prefix_name = ".local"

    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.home = pathlib.Path(temporary.name).resolve() / "a presenter's home & more"
        self.prefix = self.home / self.prefix_name
        (self.home / "Desktop").mkdir(parents=True)
        (self.home / "Desktop" / "slides.odp").write_text("mine")
        self.environment = {**os.environ, "HOME": str(self.home)}
        for name in ("XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME"):
            self.environment.pop(name, None)

    @property
    def folder(self):
        return self.prefix / "lib" / "VexaOrbilo"

    @property
    def autostart(self):
        return self.home / ".config" / "autostart" / "VexaOrbilo.desktop"

    def run_script(self, *command, code=0):
        result = subprocess.run([str(word) for word in command], env=self.environment, capture_output=True, text=True)
        self.assertEqual(result.returncode, code, result.stdout + result.stderr)
        return result.stdout + result.stderr

    def install(self):
        return self.run_script(unpacked() / "install.sh")

    def uninstall(self):
        return self.run_script(self.folder / "uninstall.sh")

    def turn_the_guide_off(self):
        (self.folder / "VexaPenSetting.xml").write_text(
            '<PenSetting FirstRun="1"><Setting><ShowPrivacyWindow>0</ShowPrivacyWindow></Setting></PenSetting>')

    def start(self, program):
        process = subprocess.Popen([str(program)], env=self.environment)
        self.addCleanup(lambda: (process.kill(), process.wait()))
        return process

    def wait_for(self, condition):
        for _ in range(600):
            if condition():
                return
            time.sleep(0.1)
        self.fail("it did not come")


class InstalledTree(Installation):
    def test_has_everything_in_its_place(self):
        self.install()
        for name in ("VexaOrbilo", "pen-simulator", "setAutoStartOpen.sh", "setAutoStartClose.sh", "uninstall.sh"):
            self.assertTrue(os.access(self.folder / name, os.X_OK), name)
        for name in ("bin/VexaOrbilo", "bin/pen-simulator"):
            self.assertEqual((self.prefix / name).resolve().parent, self.folder)
        for name in (f"applications/{ID}.desktop", f"dbus-1/services/{ID}.service", f"metainfo/{ID}.metainfo.xml",
                     f"icons/hicolor/scalable/apps/{ID}.svg", f"icons/hicolor/64x64/apps/{ID}.png",
                     "man/man1/VexaOrbilo.1", "man/man1/pen-simulator.1"):
            self.assertTrue((self.prefix / "share" / name).is_file(), name)

    def test_names_the_program_by_its_whole_path(self):
        self.install()
        program = f'Exec="{self.folder}/VexaOrbilo"\n'
        for name in (f"applications/{ID}.desktop", f"dbus-1/services/{ID}.service"):
            text = (self.prefix / "share" / name).read_text("utf-8")
            self.assertIn(program, text)
            self.assertNotIn("Exec=@", text)
        subprocess.run(["desktop-file-validate", self.prefix / "share/applications" / f"{ID}.desktop"], check=True)

    def test_is_the_same_from_cmake_and_from_the_archive(self):
        self.install()
        archive = tree(self.home)
        self.uninstall()
        self.run_script("cmake", "--install", BUILD, "--prefix", self.prefix, "--strip")
        self.assertEqual(tree(self.home), archive)

    def test_goes_below_another_folder_when_told(self):
        self.prefix = self.home / "opt"
        self.run_script(unpacked() / "install.sh", self.prefix)
        self.assertTrue((self.folder / "VexaOrbilo").is_file())
        self.assertFalse((self.home / ".local").exists())
        self.run_script(self.folder / "uninstall.sh", self.prefix)
        self.assertFalse(self.prefix.exists())

    def test_is_refused_where_the_desktop_could_not_name_it(self):
        for name in ("100%", "a=b", 'qu"ote', "$HOME", "back\\slash", "`id`", "two\nlines"):
            self.prefix = self.home / name
            self.assertIn("cannot name", self.run_script(unpacked() / "install.sh", self.prefix, code=1))
            self.assertFalse(self.prefix.exists())


class StartAtLogin(Installation):
    def test_is_registered_by_a_fresh_installation(self):
        self.install()
        self.assertIn(f'Exec="{self.folder}/VexaOrbilo"\n', self.autostart.read_text("utf-8"))

    def test_stays_off_at_an_upgrade_when_it_was_turned_off(self):
        self.install()
        (self.folder / "VexaPenSetting.xml").write_text("mine")
        self.run_script(self.folder / "setAutoStartClose.sh")
        self.install()
        self.assertFalse(self.autostart.exists())


class SessionBus(Installation):
    def test_starts_the_program_and_reaches_its_actions(self):
        self.install()
        self.turn_the_guide_off()
        entry = (self.prefix / "share/applications" / f"{ID}.desktop").read_text("utf-8")
        quit_command = entry.partition("[Desktop Action Quit]")[2].partition("\nExec=")[2].partition("\n")[0]
        shown = "xdotool search --onlyvisible --name '^MainWindow$'"
        # The bus takes the home folder from the user's account and not from HOME.
        self.environment["XDG_DATA_HOME"] = str(self.prefix / "share")
        self.run_script("dbus-run-session", "--", "timeout", "60", "sh", "-ec", f"""
            gdbus call --session --dest {ID} --object-path /example/vexa/VexaOrbilo \\
                --method org.freedesktop.Application.ActivateAction Settings [] {{}}
            until {shown}; do sleep 0.2; done
            {quit_command}
            while {shown}; do sleep 0.2; done
        """)


class Upgrade(Installation):
    def test_keeps_the_settings_and_renews_the_rest(self):
        self.install()
        fresh = tree(self.home)
        settings = self.folder / "VexaPenSetting.xml"
        settings.write_text("mine")
        for name in ("lib/VexaOrbilo/VexaOrbilo", f"share/applications/{ID}.desktop"):
            (self.prefix / name).write_text("of an older version")
        self.install()
        self.assertEqual(settings.read_text(), "mine")
        settings.unlink()
        self.assertEqual(tree(self.home), fresh)


class Uninstalling(Installation):
    def test_leaves_nothing_of_ours(self):
        before = tree(self.home)
        self.install()
        self.uninstall()
        self.assertEqual(tree(self.home), before)

    def test_leaves_what_others_put_there(self):
        (self.prefix / "share" / "applications").mkdir(parents=True)
        (self.prefix / "share" / "applications" / "other.desktop").write_text("other")
        (self.home / ".config" / "autostart").mkdir(parents=True)
        (self.home / ".config" / "autostart" / "other.desktop").write_text("other")
        before = tree(self.home)
        self.install()
        self.uninstall()
        self.assertEqual(tree(self.home), before)

    def test_ends_the_program_and_leaves_nothing_of_it_but_screenshots(self):
        before = tree(self.home)
        self.install()
        self.turn_the_guide_off()
        program = self.start(self.prefix / "bin" / "VexaOrbilo")
        simulator = self.prefix / "bin" / "pen-simulator"
        pictures = self.home / "Desktop" / "Vexa Orbilo"

        def screenshot():
            subprocess.run([simulator, "chord", "D", "key4", "click"], check=True, env=self.environment)
            return list(pictures.rglob("*.png")) or list(pictures.rglob("*.jpg"))

        self.wait_for(screenshot)
        self.uninstall()
        self.assertEqual(program.wait(20), 0)
        shutil.rmtree(pictures)
        # What the toolkit keeps for all programs of the user is not ours to take away.
        shared = {"qtshadercache", "mesa_shader_cache", "fontconfig"}
        for cache in (self.home / ".cache").glob("*"):
            if any(cache.name.startswith(name) for name in shared):
                shutil.rmtree(cache)
        if (self.home / ".cache").is_dir() and not list((self.home / ".cache").iterdir()):
            (self.home / ".cache").rmdir()
        self.assertEqual(tree(self.home), before)

    def test_where_nothing_is_installed_says_so(self):
        self.prefix.mkdir()
        self.assertIn("no Vexa Orbilo in", self.run_script(unpacked() / "uninstall.sh", code=1))


unittest.main(argv=[sys.argv[0], *sys.argv[2:]], verbosity=2)
