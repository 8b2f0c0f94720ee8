"""Start-up to the first drawn window, median of five, as a Markdown section.

Each run gets fresh settings folders. "First launch" starts with none, as
a new user does; "later launch" starts after one earlier run left its
settings. The probe prints the monotonic clock at its first frame; the
clock here is taken just before the process starts.

    python3 bench/startup.py BUILD/bench/brenlow-bench-startup
"""
import os
import platform
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

probe = sys.argv[1]


def once(mode, seed):
    scratch = tempfile.mkdtemp(prefix="brenlow-startup-")
    env = dict(os.environ, HOME=scratch, XDG_CONFIG_HOME=scratch + "/config",
               XDG_DATA_HOME=scratch + "/data", XDG_CACHE_HOME=scratch + "/cache")
    try:
        if seed:
            subprocess.run([probe, mode], env=env, check=True, capture_output=True)
        start = time.monotonic_ns()
        out = subprocess.run([probe, mode], env=env, check=True, capture_output=True, text=True)
        return (int(out.stdout.split()[-1]) - start) / 1e6
    finally:
        shutil.rmtree(scratch)


def median_ms(mode, seed):
    once(mode, seed)  # warms the page cache
    return statistics.median(once(mode, seed) for _ in range(5))


rows = [
    ("`brenlow`, first launch (first-run window and main window)", median_ms("brenlow", False)),
    ("`brenlow`, later launch (main window)", median_ms("brenlow", True)),
    ("an empty Qt Widgets window of the same size", median_ms("bare", False)),
]
print("## Start-up to the first drawn window\n")
print("From starting the process to the first frame of its first window, under")
print(f"Xvfb with the xcb platform, median of five runs, on {os.cpu_count()} cores")
print(f"({platform.system()} {platform.release()}). The aim is under 500 ms.\n")
print("| program | median ms |")
print("|---|---|")
for name, ms in rows:
    print(f"| {name} | {ms:.0f} |")
print("\nThe empty window is the floor that any Qt Widgets program pays here:")
print("loading Qt, connecting to the display, drawing one frame.")
