"""A command of the program to its end, with what it used."""

import os
import resource
import subprocess


class MeasuredRun:
    """Output and errors pass through files in `folder`. No more than `most_written` bytes are written into a file."""

    def __init__(self, folder, *command, most_seconds=60, most_written=resource.RLIM_INFINITY):
        def limit():
            resource.setrlimit(resource.RLIMIT_CPU, (most_seconds, most_seconds))
            resource.setrlimit(resource.RLIMIT_FSIZE, (most_written, most_written))

        with open(folder / "out", "w+b") as out, open(folder / "error", "w+b") as error:
            process = subprocess.Popen([*map(str, command)], stdout=out, stderr=error, restore_signals=False, preexec_fn=limit,
                                       env={**os.environ, "LC_ALL": "C.UTF-8", "LANGUAGE": ""})
            _, state, usage = os.wait4(process.pid, 0)
            self.status = process.returncode = os.waitstatus_to_exitcode(state)
            #: Of the processor, which other programs on the machine do not lengthen much.
            self.seconds = usage.ru_utime + usage.ru_stime
            #: At its largest.
            self.memory = usage.ru_maxrss * 1024
            out.seek(0)
            self.output = out.read(1_000_000).decode()
            error.seek(0)
            self.error = error.read().decode()
