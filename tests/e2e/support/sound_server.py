"""A sound server of the test's own: PulseAudio, or PipeWire where ZELTA_TEST_SOUND_SERVER says "pipewire"."""

import os
import shlex
import subprocess

from desktop import wait_until

PROTOCOL = "load-module module-native-protocol-unix auth-anonymous=1 socket={socket}\n"

OUTPUTS = """load-module module-null-sink sink_name=left_card sink_properties="device.description='Left\\ Card'" norewinds=1
load-module module-null-sink sink_name=right_card sink_properties="device.description='Right\\ Card'" norewinds=1
set-default-sink left_card
"""


class SoundServer:
    """A sound server with two outputs, and an ear at each. Other outputs are told as lines of its script."""

    def __init__(self, desktop, outputs=OUTPUTS, place=None):
        """`desktop` starts its processes. What the server writes goes into the new folder `place`, by default in the
        home of the desktop."""
        self.desktop = desktop
        place = place or desktop.home / "sound"
        place.mkdir(mode=0o700)
        places = {name: str(place) for name in ("HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_STATE_HOME")}
        environment = {**os.environ, **places}
        if os.environ.get("ZELTA_TEST_SOUND_SERVER") == "pipewire":
            self.start_pipewire(place, outputs, environment)
        else:
            self.start_pulseaudio(place, outputs, environment)

    def start_pulseaudio(self, place, outputs, environment):
        script = place / "pulse.pa"
        script.write_text(PROTOCOL.format(socket=place / "socket") + outputs)
        os.environ["PULSE_SERVER"] = f"unix:{place}/socket"
        self.desktop.start("pulseaudio", "-n", "-F", script, "--daemonize=no", "--exit-idle-time=-1", "--disable-shm=yes",
                           "--use-pid-file=no", "--realtime=no", "--high-priority=no", "--log-level=error", env=environment)
        self.wait_for_answer()

    def start_pipewire(self, place, outputs, environment):
        """Its own session manager, on a bus of its own, joins what plays and what listens. Both end with PipeWire."""
        os.environ["PULSE_SERVER"] = f"unix:{place}/pulse/native"
        self.desktop.start("pipewire", env=environment)
        wait_until((place / "pipewire-0").exists, "PipeWire to start")
        self.desktop.start("dbus-run-session", "--", "wireplumber", env=environment)
        self.desktop.start("pipewire-pulse", env=environment)
        self.wait_for_answer()
        for line in outputs.splitlines():
            subprocess.run(["pactl", *shlex.split(line)], capture_output=True, check=True)

    @staticmethod
    def wait_for_answer():
        wait_until(lambda: subprocess.run(["pactl", "info"], capture_output=True, check=False).returncode == 0,
                   "the sound server to answer")

    def listen(self, output):
        """Returns the file that everything which is played there goes into."""
        heard = self.desktop.home / f"{output}.raw"
        with heard.open("wb") as file:
            self.desktop.start("parec", "-d", f"{output}.monitor", "--format=s16le", "--latency-msec=20", stdout=file)
        wait_until(lambda: heard.stat().st_size > 0, f"the ear at {output}")
        return heard


def is_silent(heard):
    return not any(heard.read_bytes())
