"""Libraries of npm that tests use as peers, fetched once into the build folder, in the versions that a lock file names."""

import re
import shutil
import subprocess
from pathlib import Path

NETWORK_FAILURES = re.compile(
    r"\b(ENOTFOUND|EAI_AGAIN|ECONNREFUSED|ECONNRESET|ETIMEDOUT|ENETUNREACH|EHOSTUNREACH|ENOTCACHED|ERR_SOCKET_TIMEOUT)\b")


class CannotFetch(Exception):
    """There is no way to the libraries: no npm here, or no network."""


class PeerLibraries:
    """What package-lock.json in `source` names; `folder` keeps it between runs."""

    def __init__(self, folder, source):
        self.folder = Path(folder)
        self.source = Path(source)
        if not self._is_installed():
            self._install()

    def _is_installed(self):
        done = self.folder / "installed-lock.json"
        return done.exists() and done.read_bytes() == (self.source / "package-lock.json").read_bytes()

    def _install(self):
        shutil.rmtree(self.folder, ignore_errors=True)
        shutil.copytree(self.source, self.folder)
        if not shutil.which("npm") or not shutil.which("node"):
            raise CannotFetch("npm and node are not installed")
        command = ["npm", "ci", "--ignore-scripts", "--no-audit", "--no-fund", "--loglevel=error", "--fetch-retries=1",
                   "--fetch-retry-mintimeout=1000", "--fetch-retry-maxtimeout=1000", "--fetch-timeout=20000",
                   "--cache", str(self.folder / "cache")]
        answer = subprocess.run(command, cwd=self.folder, check=False, timeout=240, capture_output=True, text=True)
        if no_network := NETWORK_FAILURES.search(answer.stderr):
            raise CannotFetch(f"npm cannot fetch the libraries ({no_network[0]})")
        if answer.returncode != 0:
            raise AssertionError(f"npm ci failed: {answer.stderr}")
        shutil.copy(self.source / "package-lock.json", self.folder / "installed-lock.json")
