"""OBS Studio on the desktop of a test, with a sound output of its own that it records, and no question asked."""

import importlib.util
import os
import shutil
import socket
import subprocess
from pathlib import Path

from desktop import wait_until
from sound_server import SoundServer

PASSWORD = "open sesame"

SOUND = """load-module module-null-sink sink_name=studio rate=48000 channels=2 norewinds=1
set-default-sink studio
"""

GLOBAL = """[General]
FirstRun=true
EnableAutoUpdates=false
[Basic]
Profile=Untitled
ProfileDir=Untitled
SceneCollection=Untitled
SceneCollectionFile=Untitled
[OBSWebSocket]
FirstLoad=false
ServerEnabled=true
ServerPort={port}
AuthRequired=true
ServerPassword={password}
"""

PROFILE = """[General]
Name=Untitled
[SimpleOutput]
FilePath={folder}
RecFormat=mkv
RecEncoder=x264
RecQuality=Small
[Video]
BaseCX=320
BaseCY=240
OutputCX=320
OutputCY=240
FPSType=1
FPSInt={frames}
FPSCommon={frames}
[Audio]
SampleRate=48000
"""

# One that can split its recording on demand and can hold chapters, from version 30.2 on.
SPLITTING_PROFILE = PROFILE + """[Output]
Mode=Advanced
[AdvOut]
RecType=Standard
RecFilePath={folder}
RecFormat2=hybrid_mp4
RecEncoder=obs_x264
RecSplitFile=true
RecSplitFileType=Manual
"""


def free_port():
    with socket.socket() as taken:
        taken.bind(("127.0.0.1", 0))
        return taken.getsockname()[1]


def is_installed():
    """With the library of a client of another make."""
    return shutil.which("obs") is not None and importlib.util.find_spec("websocket") is not None


def start_sound(desktop):
    """A sound server whose one output is called "studio"."""
    SoundServer(desktop, SOUND)


class OBSStudio:
    def __init__(self, desktop, frames=30, profile=PROFILE):
        self.desktop = desktop
        self.port = free_port()
        self.folder = desktop.home / "recordings"
        self.folder.mkdir()
        configuration = Path(os.environ["XDG_CONFIG_HOME"]) / "obs-studio"
        profiles = configuration / "basic/profiles/Untitled"
        profiles.mkdir(parents=True)
        (configuration / "global.ini").write_text(GLOBAL.format(port=self.port, password=PASSWORD))
        (profiles / "basic.ini").write_text(profile.format(folder=self.folder, frames=frames))
        self.process = None

    def start(self):
        environment = dict(os.environ, LIBGL_ALWAYS_SOFTWARE="1")
        self.process = self.desktop.start("obs", "--multi", "--disable-shutdown-check", "--minimize-to-tray",
                                          env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_until(self._listens, "OBS Studio to listen")

    def _listens(self):
        with socket.socket() as knock:
            return knock.connect_ex(("127.0.0.1", self.port)) == 0

    def files(self):
        return sorted(self.folder.iterdir())
