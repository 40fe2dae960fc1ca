#!/usr/bin/env python3
"""The password for OBS Studio in a real keyring, that of GNOME: typed once in the window, it is read again at the next start,
with a window and without one. It is never in a settings file, a document, a journal or a log."""

import os
import subprocess

from desktop import Desktop, wait_until
from obs_stand_in import StandInOBS
from osc_recorder import PROGRAM, Recorder
from window import Window

PASSWORD = "Simsalabim 4455"


def start_keyring(desktop):
    """Unlocked, on the bus of the desktop."""
    daemon = desktop.start("gnome-keyring-daemon", "--foreground", "--unlock", "--components=secrets",
                           stdin=subprocess.PIPE, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    daemon.stdin.write(b"a login\n")
    daemon.stdin.close()

    def answers():
        names = subprocess.run(["dbus-send", "--session", "--print-reply", "--dest=org.freedesktop.DBus", "/",
                                "org.freedesktop.DBus.NameHasOwner", "string:org.freedesktop.secrets"],
                               capture_output=True, text=True, check=False)
        return "boolean true" in names.stdout

    wait_until(answers, "the keyring")


def show_lamp(window, text):
    accessible = window.accessible
    status = accessible.find_all(window.frame, "status bar")[0]

    def lamps():
        return [node.name for node in accessible.find_all(status, "push button") if accessible.is_showing(node)]

    wait_until(lambda: text in lamps(), lambda: f"the lamp “{text}”, not {lamps()}")


def assert_nowhere_to_read(home):
    """In any file, plain or as UTF-16; the keyring's own is encrypted."""
    files = [path for path in home.rglob("*") if path.is_file() and not path.is_symlink()]
    assert any(path.name == "zelta.conf" for path in files)
    assert any("keyrings" in path.parts for path in files), "no keyring was written"
    for path in files:
        contents = path.read_bytes()
        for form in ("utf-8", "utf-16-le", "utf-16-be"):
            assert PASSWORD.encode(form) not in contents, f"the password stands in {path}"


def main():
    with Desktop() as desktop:
        os.environ.pop("ZELTA_OBS_PASSWORD", None)
        os.environ["QT_LOGGING_RULES"] = "zelta.*=true"
        start_keyring(desktop)
        studio = StandInOBS(PASSWORD)
        settings = desktop.home / "config/zelta"
        settings.mkdir(parents=True)
        (settings / "zelta.conf").write_text(f"[General]\nZLOBSHostSetting=127.0.0.1\nZLOBSPortSetting={studio.port}\n")

        window = Window(desktop, [PROGRAM]).wait_until_shown()
        window.wait_for_keyboard()
        desktop.press("alt+v")
        desktop.press("r")
        accessible = window.accessible
        recorder = accessible.find(accessible.application(), "frame", "Recorder")
        accessible.press(accessible.find(recorder, "radio button", "OBS Studio"))
        show_lamp(window, "OBS Studio: refused")
        field = accessible.find(recorder, "password text")
        field.queryComponent().grabFocus()
        desktop.type(PASSWORD)
        desktop.press("Return")
        show_lamp(window, "OBS Studio: ready")
        window.kill()

        window = Window(desktop, [PROGRAM]).wait_until_shown()
        show_lamp(window, "OBS Studio: ready")
        window.kill()

        plain = Recorder(desktop.home / "plain", "--follow", "obs", "--osc-port", "0", desktop.home / "show.zelta",
                         XDG_CONFIG_HOME=os.environ["XDG_CONFIG_HOME"], XDG_RUNTIME_DIR=os.environ["XDG_RUNTIME_DIR"])
        wait_until(lambda: plain.has_said("OBS Studio answers."), "an answer without a window")
        plain.reader.stop()
        assert not plain.has_said(PASSWORD)
        assert PASSWORD not in window.log.read_text()
        assert_nowhere_to_read(desktop.home)
        studio.kill()


if __name__ == "__main__":
    main()
