"""What the reports of this folder share: the release build, and tables of figures."""

import subprocess
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
BUILD = ROOT / "build/release"

REQUIRE_PACKAGES = """
. scripts/packages.sh
zelta_require_packages "${zelta_build_packages[@]}" "${zelta_run_packages[@]}" \
  "${zelta_test_packages[@]}" "${zelta_bench_packages[@]}"
"""


def build():
    """Installs what is missing and builds the release preset."""
    subprocess.run(["bash", "-c", REQUIRE_PACKAGES], cwd=ROOT, check=True)
    subprocess.run(["cmake", "--preset", "release"], cwd=ROOT, check=True, stdout=subprocess.DEVNULL)
    subprocess.run(["cmake", "--build", "--preset", "release"], cwd=ROOT, check=True, stdout=subprocess.DEVNULL)


def write_document(chapters, path):
    """A document with so many chapters, made by the program's own code."""
    subprocess.run([BUILD / "bench/zelta_document_bench", "--write-document", str(chapters), path], check=True)


def print_row(name, values, form="{:>12.3f}"):
    print(f"{name:<34}" + "".join(form.format(value) for value in values))
