#!/usr/bin/env python3
"""Runs a program beside a real Avahi, on a network, a message bus and a /run that exist only for both.

Nothing of this needs a privilege: an unprivileged user namespace is enough.
"""

import os
import shutil
import subprocess
import sys
import tempfile
import time

TOOLS = ["unshare", "ip", "mount", "dbus-daemon", "avahi-daemon"]
INSIDE = "--inside"
SKIPPED = 77
DEADLINE_SECONDS = 60
BUS = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig><type>system</type><listen>unix:path={folder}/bus</listen><auth>EXTERNAL</auth>
<policy context="default"><allow send_destination="*"/><allow receive_sender="*"/><allow own="*"/></policy></busconfig>
"""
AVAHI = """[server]
host-name=zelta-test
allow-interfaces=lo
use-ipv4=yes
use-ipv6=no
[publish]
publish-workstation=no
publish-hinfo=no
"""


def end(process: subprocess.Popen) -> None:
    process.terminate()
    try:
        process.wait(DEADLINE_SECONDS)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()


def wait_for(what: str, condition, process: subprocess.Popen) -> None:
    deadline = time.monotonic() + DEADLINE_SECONDS
    while not condition():
        if process.poll() is not None or time.monotonic() > deadline:
            raise RuntimeError(f"{what} did not start")
        time.sleep(0.05)


def give_avahi_user_number_zero(folder: str) -> None:
    """Avahi wants its folder to be owned by its user, but the only user that exists here is root."""
    for name in ("passwd", "group"):
        with open(f"/etc/{name}", encoding="utf-8") as file:
            others = [line for line in file if not line.startswith("avahi:")]
        own = "avahi:x:0:0::/run/avahi-daemon:/bin/false\n" if name == "passwd" else "avahi:x:0:\n"
        with open(f"{folder}/{name}", "w", encoding="utf-8") as file:
            file.writelines([own, *others])
        subprocess.run(["mount", "--bind", f"{folder}/{name}", f"/etc/{name}"], check=True)


def prepare_network(folder: str) -> None:
    subprocess.run(["mount", "-t", "tmpfs", "none", "/run"], check=True)
    give_avahi_user_number_zero(folder)
    subprocess.run(["ip", "link", "set", "lo", "up"], check=True)
    subprocess.run(["ip", "link", "set", "lo", "multicast", "on"], check=True)


def run_inside(command: list[str], folder: str) -> int:
    prepare_network(folder)
    for name, text in (("bus.conf", BUS.format(folder=folder)), ("avahi.conf", AVAHI)):
        with open(f"{folder}/{name}", "w", encoding="utf-8") as file:
            file.write(text)
    environment = os.environ | {"DBUS_SYSTEM_BUS_ADDRESS": f"unix:path={folder}/bus"}
    started = []
    try:
        started.append(subprocess.Popen(["dbus-daemon", f"--config-file={folder}/bus.conf", "--nofork"]))
        wait_for("dbus-daemon", lambda: os.path.exists(f"{folder}/bus"), started[-1])
        daemon = ["avahi-daemon", "-f", f"{folder}/avahi.conf", "--no-drop-root", "--no-chroot", "--no-rlimits"]
        started.append(subprocess.Popen(daemon, env=environment))
        wait_for("avahi-daemon", lambda: os.path.exists("/run/avahi-daemon/pid"), started[-1])
        return subprocess.run(command, env=environment).returncode
    finally:
        for process in reversed(started):
            end(process)


def main() -> int:
    # A user's path may lack the folders of the administrator's programs.
    os.environ["PATH"] += os.pathsep + "/usr/sbin" + os.pathsep + "/sbin"
    if sys.argv[1] == INSIDE:
        with tempfile.TemporaryDirectory() as folder:
            return run_inside(sys.argv[2:], folder)
    missing = [tool for tool in TOOLS if not shutil.which(tool)]
    if missing:
        print("skipped, missing tools:", ", ".join(missing))
        return SKIPPED
    apart = ["unshare", "--map-root-user", "--net", "--mount"]
    if subprocess.run([*apart, "true"]).returncode != 0:
        print("skipped: this computer forbids a network of one's own (unshare --map-root-user --net --mount)")
        return SKIPPED
    return subprocess.run([*apart, sys.executable, __file__, INSIDE, *sys.argv[1:]]).returncode


if __name__ == "__main__":
    sys.exit(main())
