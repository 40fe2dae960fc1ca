#!/usr/bin/env python3
"""What ./run says to a person who has just got the sources, on a computer where the tools are replaced by stand-ins."""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROJECT = Path(sys.argv.pop(1)).resolve()

BUILD = """#!/bin/sh
echo "cmake $*" >&2
mkdir -p build/app/src/app
echo 'echo the program: "$@"' > build/app/src/app/zelta
chmod +x build/app/src/app/zelta
"""


class RunScriptTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="zelta-run-")
        self.addCleanup(folder.cleanup)
        self.sources = Path(folder.name) / "sources"
        self.tools = Path(folder.name) / "tools"
        self.installed = Path(folder.name) / "installed"
        (self.sources / "scripts").mkdir(parents=True)
        self.tools.mkdir()
        for name in ("run", "scripts/packages.sh"):
            shutil.copy(PROJECT / name, self.sources / name)
        self.installed.write_text("")
        self.add_tool("dpkg-query", f'#!/bin/sh\nsed "s/^/installed /; s/$/,/" {self.installed}\n')
        self.add_tool("apt-get", f"""#!/bin/sh
echo "apt-get $*" >&2
for word; do case $word in install|update|-*) ;; *) echo $word >> {self.installed} ;; esac; done
""")
        self.add_tool("sudo", '#!/bin/sh\nexec "$@"\n')
        self.add_tool("nproc", "#!/bin/sh\necho 2\n")
        self.add_tool("cmake", BUILD)

    def add_tool(self, name, text):
        tool = self.tools / name
        tool.write_text(text)
        tool.chmod(0o755)

    def run_it(self, *words):
        environment = dict(os.environ, PATH=f"{self.tools}:{os.environ['PATH']}")
        answer = subprocess.run([self.sources / "run", *words], capture_output=True, text=True, check=True, env=environment)
        self.assertEqual(answer.stdout, f"the program: {' '.join(words)}\n")
        return answer.stderr.splitlines()

    def test_the_first_start_says_what_it_will_install_and_how_long_that_takes_before_it_does_anything(self):
        lines = self.run_it("formats")
        first_deed = next(i for i, line in enumerate(lines) if line.startswith(("apt-get", "cmake")))
        said = lines[:first_deed]
        self.assertRegex(said[0], r"^zelta: First \d+ packages are installed, .*, then Zelta is built\. This takes about \d+ min")
        self.assertRegex(said[1], r"^zelta: installing .*\bqt6-base-dev\b")

    def test_what_is_there_already_counts_for_nothing(self):
        first = self.run_it("formats")
        self.assertEqual([line for line in self.run_it("formats") if line.startswith("zelta:")], [])
        (self.sources / "build/app/src/app/zelta").unlink()
        again = self.run_it("--version")
        self.assertRegex(again[0], r"^zelta: First Zelta is built\. This takes about \d+ min, once\.$")
        self.assertLess(self.minutes(again), self.minutes(first))
        self.assertFalse(any(line.startswith("apt-get") for line in again), again)

    @staticmethod
    def minutes(lines):
        return int(re.search(r"about (\d+) min", lines[0])[1])


if __name__ == "__main__":
    unittest.main()
