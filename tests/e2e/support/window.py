"""The program in a window, as a control surface, the keyboard and a screen reader reach it."""

import subprocess

from desktop import kill_at_once, wait_until
from osc_peers import free_port

CONTINUE = "Continue as if Never Stopped"
KEEP = "Stay Paused"
# What stands below these is many and never a message.
ROLES_WITHOUT_MESSAGES = {"menu bar", "table", "tool bar", "status bar"}


class Window:
    """One process with one document; `program` is its command line up to the options. Everything that waits has a bound."""

    def __init__(self, desktop, program, *arguments, osc_send=None):
        self.desktop = desktop
        self.log = desktop.home / "window.log"
        self.osc_port = free_port()
        outputs = ["--osc-send", f"127.0.0.1:{osc_send}"] if osc_send else []
        with open(self.log, "ab") as log:
            self.process = desktop.start(*program, "--osc-port", self.osc_port, *outputs, *arguments, stdout=log, stderr=log)

    def wait_until_shown(self):
        import accessible  # The bindings look for their bus when they are imported.

        self.accessible = accessible
        self.frame = wait_until(self.find_frame, "the window")
        return self

    def find_frame(self):
        assert self.process.poll() is None, self.log.read_text(errors="replace")[-4000:]
        for child in self.accessible.pyatspi.Registry.getDesktop(0):
            if child is not None and child.name == "zelta" and child.get_process_id() == self.process.pid:
                return (self.accessible.find_all(child, "frame") or [None])[0]
        return None

    def wait_for_keyboard(self):
        wait_until(self.has_keyboard, "the window to have the keyboard")

    def has_keyboard(self):
        answer = subprocess.run(["xdotool", "getwindowfocus", "getwindowpid"], capture_output=True, text=True, check=False)
        return answer.stdout.strip() == str(self.process.pid)

    # The messages above the table.

    def shown_in_messages(self, role):
        """Name and node of all of this role that are in sight."""
        found = []
        for node in self.accessible.everything_below(self.frame, ROLES_WITHOUT_MESSAGES):
            try:
                if self.accessible.role_of(node) == role and self.accessible.is_showing(node):
                    found.append((node.name, node))
            except Exception:  # Gone meanwhile.
                continue
        return found

    def button(self, name):
        """The button of a message; None when there is none."""
        return dict(self.shown_in_messages("push button")).get(name)

    def messages(self):
        return [text for text, _ in self.shown_in_messages("alert")]

    def wait_for_message(self, *parts):
        """One message that has all these parts."""
        wait_until(lambda: any(all(part in text for part in parts) for text in self.messages()),
                   lambda: f"a message with {parts}, not {self.messages()}")

    def wait_for_no_message(self):
        wait_until(lambda: not self.messages(), lambda: f"the messages to go, not {self.messages()}")

    def press(self, name):
        """Presses the button of a message."""
        self.accessible.press(wait_until(lambda: self.button(name), lambda: f"the button {name}, not {self.messages()}"))

    def offers_to_continue(self):
        return self.button(CONTINUE) is not None and self.button(KEEP) is not None

    # The clock and the chapters.

    def clock_text(self):
        return self.accessible.find_described(self.frame, "Recorded time").name

    def is_recording(self):
        """By the face of the record button."""
        return bool(self.accessible.find_all(self.frame, "push button", "Pause"))

    def titles(self):
        table = self.accessible.find(self.frame, "table", "Chapters")
        return [row[4] for row in self.accessible.table_texts(table)]

    def press_item(self, name):
        """Presses an item of a menu."""
        self.accessible.press(self.accessible.find(self.frame, "menu item", name))

    def kill(self):
        kill_at_once(self.process)

    def stop(self):
        if self.process.poll() is None:
            self.kill()
