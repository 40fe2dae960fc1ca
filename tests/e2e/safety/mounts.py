"""File systems that no other program on the machine sees."""

import os
import subprocess
import sys

# Set in the copy of a test that has mounts of its own.
MARK = "ZELTA_TEST_OWN_MOUNTS"


def enter_mount_namespace(*arguments):
    """Starts this test anew, with `arguments` in front of those that are left, in a place where file systems can be mounted,
    if there is a way to one."""
    if MARK in os.environ:
        return
    for options in ("-rm", "-m"):
        if subprocess.run(["unshare", options, "true"], capture_output=True, check=False).returncode == 0:
            os.environ[MARK] = "1"
            os.execvp("unshare", ["unshare", options, sys.executable, sys.argv[0], *arguments, *sys.argv[1:]])
    print("No mount namespace is permitted here: tests of a full and of a read-only disk are skipped.", flush=True)


def mount(test, folder, size):
    """A small disk at `folder`, as long as the test case runs, which is skipped where that is not possible."""
    if MARK not in os.environ:
        test.skipTest("no mount namespace is permitted here")
    folder.mkdir()
    subprocess.run(["mount", "-t", "tmpfs", "-o", f"size={size}", "tmpfs", folder], check=True)
    test.addCleanup(subprocess.run, ["umount", "-l", folder], check=True)
    return folder


def fill(test, ballast):
    """Writes to the file until nothing more fits on its disk."""
    with open(ballast, "wb", buffering=0) as stream, test.assertRaises(OSError):
        while True:
            stream.write(bytes(4096))
