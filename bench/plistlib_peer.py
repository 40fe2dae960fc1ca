#!/usr/bin/env python3
"""Times Python's plistlib on a document: reading the file, and making the bytes of what was read. Prints two medians in
milliseconds."""

import plistlib
import statistics
import sys
import time
from pathlib import Path


def median_milliseconds(work, rounds):
    figures = []
    for _ in range(rounds):
        start = time.perf_counter()
        result = work()
        figures.append((time.perf_counter() - start) * 1000)
        del result  # Giving it up again is not timed.
    return statistics.median(figures)


def read(path):
    # Faster than plistlib.load() on the open file, which seeks for every object.
    return plistlib.loads(path.read_bytes())


def main():
    path = Path(sys.argv[1])
    rounds = 3 if path.stat().st_size > 1_000_000 else 15
    value = read(path)
    print(median_milliseconds(lambda: read(path), rounds))
    print(median_milliseconds(lambda: plistlib.dumps(value, fmt=plistlib.FMT_BINARY), rounds))


if __name__ == "__main__":
    main()
