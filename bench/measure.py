#!/usr/bin/env python3
"""Measures a shell command: median CPU seconds and largest peak memory in MB of some runs.

usage: measure.py COMMAND      prints "CPU MB", or "- -" when the command fails or takes
longer than five minutes
"""

import os
import statistics
import subprocess
import sys

LEAST_RUNS = 2
MOST_RUNS = 8
ENOUGH = 1.5  # seconds of processor time, which short jobs need more runs for
LONGEST = 300  # seconds


def run(command):
    process = subprocess.Popen(["timeout", str(LONGEST), "sh", "-c", command],
                               stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    if status != 0:
        raise RuntimeError(command)
    return usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024


try:
    runs = []
    while len(runs) < LEAST_RUNS or (len(runs) < MOST_RUNS and sum(cpu for cpu, _ in runs) < ENOUGH):
        runs.append(run(sys.argv[1]))
    print(f"{statistics.median(cpu for cpu, _ in runs):.4f} {max(peak for _, peak in runs):.0f}")
except RuntimeError:
    print("- -")
