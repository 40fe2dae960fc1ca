#!/usr/bin/env python3
"""Runs a program on an X server with a window manager that exist only for it, and ends both by their process ids."""

import os
import shutil
import subprocess
import sys
import tempfile
import time

TOOLS = ["Xvfb", "openbox", "xdotool", "setxkbmap", "xprop"]
DEADLINE_SECONDS = 60


def start_server() -> tuple[subprocess.Popen, str]:
    reading, writing = os.pipe()
    command = ["Xvfb", "-displayfd", str(writing), "-screen", "0", "640x480x24", "-nolisten", "tcp", "-noreset"]
    server = subprocess.Popen(command, pass_fds=[writing], stderr=subprocess.DEVNULL)
    os.close(writing)
    # The number arrives when the server takes connections; an end of file means that it has given up.
    with os.fdopen(reading) as answer:
        number = answer.readline().strip()
    if not number:
        raise RuntimeError("Xvfb did not start")
    return server, f":{number}"


def wait_for_window_manager(environment: dict[str, str]) -> None:
    deadline = time.monotonic() + DEADLINE_SECONDS
    while time.monotonic() < deadline:
        found = subprocess.run(
            ["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], env=environment, capture_output=True, text=True
        )
        if "window id" in found.stdout:
            return
        time.sleep(0.05)
    raise RuntimeError("openbox did not start")


def end(process: subprocess.Popen) -> None:
    process.terminate()
    try:
        process.wait(DEADLINE_SECONDS)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()


def run(command: list[str], home: str) -> int:
    environment = os.environ | {
        "HOME": home,
        "XDG_CONFIG_HOME": f"{home}/config",
        "XDG_CACHE_HOME": f"{home}/cache",
        "XDG_RUNTIME_DIR": home,
        "QT_QPA_PLATFORM": "xcb",
        "LC_ALL": "C.UTF-8",
        "DBUS_SESSION_BUS_ADDRESS": "disabled:",
    }
    server, environment["DISPLAY"] = start_server()
    manager = None
    try:
        manager = subprocess.Popen(["openbox"], env=environment, stderr=subprocess.DEVNULL)
        wait_for_window_manager(environment)
        return subprocess.run(command, env=environment).returncode
    finally:
        if manager:
            end(manager)
        end(server)


def main() -> int:
    missing = [tool for tool in TOOLS if not shutil.which(tool)]
    if missing:
        print("missing tools:", ", ".join(missing))
        return 1
    with tempfile.TemporaryDirectory() as home:
        return run(sys.argv[1:], home)


if __name__ == "__main__":
    sys.exit(main())
