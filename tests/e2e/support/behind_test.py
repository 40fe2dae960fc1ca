"""The base of all tests of a recorder that stands behind another program."""

import os
import shutil

from desktop import wait_until
from desktop_test import DesktopTest
from osc_peers import free_port
from other_program import OtherProgram


class BehindTest(DesktopTest):
    # What takes the keyboard; it has a `reader`.
    other_program = OtherProgram

    def start_behind(self, program):
        """Starts the recorder, then a program that takes the keyboard from it."""
        self.port = free_port()
        # What it keeps would be back at the next start.
        self.addCleanup(shutil.rmtree, os.environ["XDG_STATE_HOME"])
        self.start_process(program, "--osc-port", self.port)
        import accessible  # The bindings look for their bus when they are imported.

        self.accessible = accessible
        self.program = accessible.application()
        frame = accessible.find(self.program, "frame")
        self.table = accessible.find(frame, "table", "Chapters")
        self.other = self.other_program()
        self.addCleanup(self.other.reader.stop)
        # The toolkit waits a tenth of a second for another window of the program before it believes this.
        wait_until(lambda: not accessible.is_active(frame), "the recorder to know that another program is in front")

    def titles(self):
        return [row[4] for row in self.accessible.table_texts(self.table)]
