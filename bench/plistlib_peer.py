#!/usr/bin/env python3
"""Times Python's plistlib on a document: reading, and writing what was read. Prints two medians in milliseconds."""

import plistlib
import statistics
import sys
import time


def median_milliseconds(work, rounds):
    figures = []
    for _ in range(rounds):
        start = time.perf_counter()
        work()
        figures.append((time.perf_counter() - start) * 1000)
    return statistics.median(figures)


def main():
    data = open(sys.argv[1], "rb").read()
    rounds = 3 if len(data) > 1_000_000 else 15
    value = plistlib.loads(data)
    print(median_milliseconds(lambda: plistlib.loads(data), rounds))
    print(median_milliseconds(lambda: plistlib.dumps(value, fmt=plistlib.FMT_BINARY), rounds))


if __name__ == "__main__":
    main()
