"""A show whose truth is in the sound: at each click that is heard Zelta is pressed, and later its chapters are compared
with the places of the clicks in what another program recorded."""

import os
import re
import subprocess
import threading
import time
from pathlib import Path

import numpy
from clicks import NEAR, RATE
from desktop import wait_until
from osc_recorder import Recorder
from presses import Keyboard, RemoteControl, chapters_in, document_root, now
from shortcuts import CODE_OF_F6, CODE_OF_F7, stored_shortcut
from surface import document_with_templates

# So close to a change of the recorder nothing is pressed: such a click may be half in the recording.
EDGE = 0.15
# So many of the last lines tell of the clicks that come.
RECENT = 100


class Clicks:
    """What zelta_sound_clicks prints, read by a thread. It says of each click before it is heard."""

    def __init__(self, desktop, program, *arguments):
        self.process = desktop.start(program, *arguments, stdout=subprocess.PIPE, text=True)
        self.lines = []
        self.heard = threading.Condition()
        self.thread = threading.Thread(target=self._read, daemon=True)
        self.thread.start()

    def _read(self):
        for line in self.process.stdout:
            with self.heard:
                self.lines.append(line)
                self.heard.notify_all()

    def end(self):
        self.process.terminate()
        self.process.wait(10)
        self.thread.join(10)
        self.process.stdout.close()

    def next_after(self, moment, seconds=5):
        """When the next click is heard that is not yet due at the moment."""
        deadline = now() + seconds
        with self.heard:
            while now() < deadline:
                coming = [click for click in self._due([line.split() for line in self.lines[-RECENT:]]) if click > moment]
                if coming:
                    return min(coming)
                self.heard.wait(0.05)
        raise AssertionError("no click comes")

    @staticmethod
    def _due(words):
        """When the clicks in these lines are heard, as well as it is known already."""
        zeros = [float(value) for kind, value in words if kind == "zero"][-NEAR:]
        return [int(value) / RATE + numpy.median(zeros) for kind, value in words if kind == "click" and zeros]


class JackClicks(Clicks):
    """What zelta_jack_clicks prints."""

    @staticmethod
    def _due(words):
        stretches = [word for word in words if word[0] == "stretch"][-NEAR:]
        zeros = [float(moment) - int(frame) / RATE for _, frame, moment in stretches]
        return [int(word[1]) / RATE + min(zeros) for word in words if word[0] == "due" and zeros]


class Zelta:
    """The whole program with a document and settings of its own, which follows a recorder. Each press is noted; a start
    makes no chapter, so there is one chapter for each press."""

    def __init__(self, desktop, name, kind, port=0, starts_recorder=False, marks_chapters=False):
        self.desktop = desktop
        self.kind = kind
        self.home = desktop.home / name
        (self.home / "zelta").mkdir(parents=True)
        settings = {"ZLNewChapterOnStartSetting": "false", "ZLRecorderKindSetting": kind, "ZLOBSPortSetting": str(port),
                    "ZLOBSHostSetting": "127.0.0.1", "ZLRecorderStartsWithZeltaSetting": str(starts_recorder).lower(),
                    "ZLRecorderMarksChaptersSetting": str(marks_chapters).lower(),
                    "ZLToggleRecordingKeyCombo": f'"{stored_shortcut(CODE_OF_F6, 0)}"',
                    "ZLNewChapterKeyCombo": f'"{stored_shortcut(CODE_OF_F7, 0)}"'}
        lines = ["[General]", *(f"{key}={value}" for key, value in settings.items())]
        (self.home / "zelta/zelta.conf").write_text("\n".join(lines) + "\n")
        self.path = self.home / "show.zelta"
        self.path.write_bytes(document_with_templates([]))
        self.presses = []

    def chapters(self):
        return sorted(chapter["TimeStamp"] for chapter in chapters_in(self.path))

    def base_of(self, recording):
        """What the clock read when the recorder began this file of its own."""
        return next(file["Reading"] for file in document_root(self.path)["RecorderFiles"]
                    if Path(file["Path"]).name == recording.name)


class HeadlessZelta(Zelta):
    def start(self):
        self.program = Recorder(self.home, "--follow", self.kind, "--osc-port", "0", self.path)
        # It ends with the desktop when the test fails.
        self.desktop.processes.append(self.program.reader.process)
        self.remote = RemoteControl(self.program.port)
        self.said = 0

    def press(self):
        self.presses.append(self.remote.press("newChapter"))

    def toggle(self):
        self.remote.press("toggleRecording")

    def wait_for(self, text):
        """Among what was not waited for yet."""
        def is_said():
            for number, line in enumerate(list(self.program.reader.lines)[self.said:]):
                if re.search(text, line):
                    self.said += number + 1
                    return True
            return False

        wait_until(is_said, lambda: f"“{text}”, not {self.program.reader.lines}")

    def wait_until_ready(self):
        self.wait_for(" answers.")

    def wait_until_following(self):
        self.wait_for("(Started|Joined|Zelta's clock runs)")

    def wait_until_stopped(self):
        self.wait_for("^paused at")

    def kill(self):
        self.remote.close()
        self.program.reader.stop()

    def end(self):
        self.program.write("quit")
        if self.program.reader.process.wait(30) != 0:
            raise AssertionError(self.program.reader.lines)
        self.remote.close()
        self.program.reader.stop()


class WindowZelta(Zelta):
    """Pressed by keys."""

    def __init__(self, desktop, program, *arguments, **settings):
        super().__init__(desktop, *arguments, **settings)
        self.command = [program, self.path]
        self.keyboard = Keyboard()

    def start(self):
        from window import Window

        os.environ.update(XDG_CONFIG_HOME=str(self.home), XDG_STATE_HOME=str(self.home / "state"))
        self.window = Window(self.desktop, self.command).wait_until_shown()
        self.window.wait_for_keyboard()

    def press(self):
        self.presses.append(self.keyboard.press("F7"))

    def toggle(self):
        self.keyboard.press("F6")

    def lamp(self):
        accessible = self.window.accessible
        status = accessible.find_all(self.window.frame, "status bar")[0]
        texts = [node.name for node in accessible.find_all(status, "push button") if accessible.is_showing(node)]
        return next((text for text in texts if ": " in text), "")

    def wait_until_ready(self):
        wait_until(lambda: self.lamp().endswith(": ready"), lambda: f"the lamp, not {self.lamp()}")

    def wait_until_following(self):
        wait_until(lambda: self.lamp().endswith(": following"), lambda: f"the lamp, not {self.lamp()}")

    def wait_until_stopped(self):
        wait_until(lambda: not self.window.is_recording(), "the clock to stop")

    def kill(self):
        self.window.kill()

    def end(self):
        self.window.desktop.press("ctrl+s", "ctrl+q")
        self.window.process.wait(30)


class Presses:
    """Presses every Zelta that listens at each click, in a thread of its own, while it is let."""

    def __init__(self, clicks):
        self.clicks = clicks
        self.pressed = []
        self.is_ended = False
        self.may_press = threading.Event()
        self.between = threading.Lock()
        self.thread = threading.Thread(target=self._run, daemon=True)
        self.thread.start()

    def _run(self):
        while not self.is_ended:
            moment = self.clicks.next_after(now() + 0.01)
            time.sleep(max(0.0, moment - now()))
            with self.between:
                if self.may_press.is_set():
                    for zelta in self.pressed:
                        zelta.press()

    def go_on(self, *zeltas):
        """Presses these from the next click on that is not near this moment."""
        time.sleep(EDGE)
        with self.between:
            self.pressed = list(zeltas)
            self.may_press.set()

    def hold(self):
        """No click before the call is near its end."""
        with self.between:
            self.may_press.clear()
        time.sleep(EDGE)

    def end(self):
        self.is_ended = True
        self.thread.join(10)


def misses(zelta, moments, recordings):
    """For each press: by how many seconds the chapter misses its click in the recording. `recordings` are pairs of the
    moment of their beginning, what the clock read then and the places of the clicks, in their order. A press that came
    late, as the click was heard, counts as late."""
    chapters = zelta.chapters()
    if len(chapters) != len(zelta.presses):
        raise AssertionError(f"{len(chapters)} chapters for {len(zelta.presses)} presses")
    found = []
    for press, chapter in zip(zelta.presses, chapters):
        click = moments[numpy.argmin(abs(moments - press))]
        base, places = next((base, places) for began, base, places in reversed(recordings) if began < press)
        wanted = chapter - base - (press - click)
        found.append(wanted - places[numpy.argmin(abs(places - wanted))])
    return numpy.array(found)
