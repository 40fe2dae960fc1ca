"""The runtime folder that a session gives to its user's programs."""

import os
import tempfile
from pathlib import Path

MEMORY = Path("/dev/shm")


def is_there():
    """Whether this system has a file system in memory."""
    return MEMORY.is_dir() and os.access(MEMORY, os.W_OK)


def runtime_folder(home):
    """A TemporaryDirectory in memory, as in a real session; in `home` where there is no memory for files."""
    return tempfile.TemporaryDirectory(prefix="zelta-session-", dir=MEMORY if is_there() else home)
