"""A desktop of its own for the end-to-end tests: X server, window manager, session bus and accessibility bus.

Everything runs in a temporary home and is ended by its process id. `Desktop` puts what a program needs to find it all
into `os.environ`, so the accessibility bindings are imported only after it was entered (see `accessible.py`).
"""

import os
import shutil
import signal
import subprocess
import tempfile
import time
from pathlib import Path

import session_memory

BUS_CONFIGURATION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:tmpdir={folder}</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""


# A dark colour scheme, as the settings of a desktop write it: grounds and texts.
DARK_COLOURS = {
    "Window": ("49,54,59", "239,240,241"),
    "View": ("35,38,41", "239,240,241"),
    "Button": ("64,69,74", "239,240,241"),
    "Selection": ("61,174,233", "252,252,252"),
    "Tooltip": ("49,54,59", "239,240,241"),
}


def wait_until(condition, what, seconds=60.0):
    """Asks again and again until the condition gives something true, and returns that.

    `what` is a text, or a function that gives it when the time is over.
    """
    deadline = time.monotonic() + seconds
    while True:
        found = condition()
        if found:
            return found
        if time.monotonic() > deadline:
            raise AssertionError(f"waited {seconds:.0f} s in vain: {what() if callable(what) else what}")
        time.sleep(0.05)


class Desktop:
    """Use as a context manager. `size` is the screen's, in pixels; a `dark` one has a dark colour scheme."""

    def __init__(self, size="1280x800", scale=1, dark=False):
        self.size = size
        self.scale = scale
        self.dark = dark
        self.home = Path(tempfile.mkdtemp(prefix="zelta-e2e-"))
        self.runtime = session_memory.runtime_folder(self.home)
        self.processes = []

    def __enter__(self):
        try:
            self._start()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            if process.poll() is None:
                process.terminate()
        for process in reversed(self.processes):
            try:
                process.wait(5)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        self.runtime.cleanup()
        shutil.rmtree(self.home, ignore_errors=True)

    def start(self, *command, **options):
        process = subprocess.Popen([str(part) for part in command], **options)
        self.processes.append(process)
        return process

    def _start(self):
        runtime = self.runtime.name
        os.environ.update(
            HOME=str(self.home),
            XDG_RUNTIME_DIR=runtime,
            XDG_CONFIG_HOME=str(self.home / "config"),
            XDG_STATE_HOME=str(self.home / "state"),
            XDG_DATA_HOME=str(self.home / "data"),
            XDG_CACHE_HOME=str(self.home / "cache"),
            LC_ALL="C.UTF-8",
            TZ="UTC",
            QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
            QT_QPA_PLATFORM="xcb",
            QT_SCALE_FACTOR=str(self.scale),
            NO_AT_BRIDGE="0",
            # Nothing shall be announced on the network.
            DBUS_SYSTEM_BUS_ADDRESS=f"unix:path={runtime}/no-system-bus",
        )
        for name in ("LANGUAGE", "WAYLAND_DISPLAY", "AT_SPI_BUS_ADDRESS", "SESSION_MANAGER", "XDG_CURRENT_DESKTOP",
                     "KDE_FULL_SESSION", "KDE_SESSION_VERSION"):
            os.environ.pop(name, None)
        if self.dark:
            self._choose_dark_colours()
        self._start_display()
        self._start_buses()
        self._start_window_manager()

    def _choose_dark_colours(self):
        settings = self.home / "config" / "kdeglobals"
        settings.parent.mkdir(exist_ok=True)
        settings.write_text("[General]\nwidgetStyle=Fusion\n[KDE]\nwidgetStyle=Fusion\n" + "".join(
            f"[Colors:{part}]\nBackgroundNormal={ground}\nForegroundNormal={text}\nBackgroundAlternate={ground}\n"
            "ForegroundInactive=161,169,177\n" for part, (ground, text) in DARK_COLOURS.items()))
        os.environ.update(XDG_CURRENT_DESKTOP="KDE", KDE_FULL_SESSION="true", KDE_SESSION_VERSION="5")

    def _start_display(self):
        reader, writer = os.pipe()
        self.display_server = self.start(
            "Xvfb", "-displayfd", writer, "-screen", "0", f"{self.size}x24", "-nolisten", "tcp",
            # Without this it starts over when its last client goes, and takes those along who are about to come.
            "-noreset",
            pass_fds=[writer], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
        )
        os.close(writer)
        with os.fdopen(reader) as numbers:
            number = numbers.readline().strip()
        if not number:
            raise AssertionError("Xvfb did not start")
        os.environ["DISPLAY"] = f":{number}"

    def _start_window_manager(self):
        self.start("openbox", stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_until(self._has_window_manager, "the window manager to start")

    def _start_buses(self):
        configuration = self.home / "bus.conf"
        configuration.write_text(BUS_CONFIGURATION.format(folder=self.home))
        bus = self.start(
            "dbus-daemon", f"--config-file={configuration}", "--nofork", "--print-address",
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
        )
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
        self.start(
            "/usr/libexec/at-spi-bus-launcher", "--launch-immediately",
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
        )
        wait_until(self._has_accessibility_bus, "the accessibility bus to start")

    @staticmethod
    def _has_window_manager():
        answer = subprocess.run(
            ["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], capture_output=True, text=True, check=False
        )
        return "window id" in answer.stdout

    @staticmethod
    def _has_accessibility_bus():
        answer = subprocess.run(
            ["dbus-send", "--session", "--print-reply", "--dest=org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus.GetAddress"],
            capture_output=True, text=True, check=False,
        )
        return answer.returncode == 0

    # The keyboard, the mouse and the screen.

    @staticmethod
    def xdotool(*arguments):
        return subprocess.run(
            ["xdotool", *map(str, arguments)], capture_output=True, text=True, check=True
        ).stdout.strip()

    def press(self, *keys):
        for key in keys:
            self.xdotool("key", "--clearmodifiers", key)

    def type(self, text):
        self.xdotool("type", "--delay", 15, text)

    def double_click(self, x, y):
        self.xdotool("mousemove", int(x), int(y), "click", "--repeat", 2, "--delay", 60, 1)

    def click(self, x, y):
        self.xdotool("mousemove", int(x), int(y), "click", 1)

    def set_clipboard(self, text):
        process = self.start("xclip", "-selection", "clipboard", "-quiet", stdin=subprocess.PIPE, text=True,
                             stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        process.stdin.write(text)
        process.stdin.close()
        wait_until(lambda: subprocess.run(["xclip", "-selection", "clipboard", "-o"], capture_output=True, text=True,
                                          check=False).stdout == text, "the clipboard to hold the text")

    @staticmethod
    def screenshot(path, window="root"):
        subprocess.run(["import", "-window", str(window), "-strip", str(path)], check=True)


def focused_window():
    """The number of the window that has the keyboard, whosever it is."""
    answer = subprocess.run(["xdotool", "getwindowfocus"], capture_output=True, text=True, check=False)
    return answer.stdout.strip()


def kill_at_once(process):
    """As if the power had gone: no chance to save anything."""
    process.send_signal(signal.SIGKILL)
    process.wait()
