"""What the scripts that measure simrec share: running processes, and rows of a table.

A row that misses what it must reach is measured again, some times, and its best counts: on a busy
machine the first may have had no quiet moment. What is really too slow stays so.
"""
import os
import statistics
import subprocess
import sys

MEGABYTE = 1024  # in the unit of ru_maxrss
MOST_SERIES = 5


class Run:
    """A process that ended: its processor time in seconds and its memory in MB."""

    def __init__(self, *command, output=os.devnull):
        with open(output, "wb") as stdout:
            child = subprocess.Popen(command, stdout=stdout)
        _, status, usage = os.wait4(child.pid, 0)
        child.returncode = os.waitstatus_to_exitcode(status)
        if child.returncode != 0:
            sys.exit(f"{command[0]} ended with {child.returncode}")
        self.seconds = usage.ru_utime + usage.ru_stime
        self.memory = usage.ru_maxrss / MEGABYTE


def medians(rounds, **commands):
    """The median processor time of each command, which run in turn, by their names."""
    runs = {name: [] for name in commands}
    for _ in range(rounds):
        for name, command in commands.items():
            runs[name].append(Run(*command).seconds)
    return {name: statistics.median(some) for name, some in runs.items()}


class Table:
    """Rows on stdout; `missed` counts those that miss what they must reach."""

    def __init__(self, heading):
        self.missed = 0
        print(f"\n{heading}\n")
        print(f"| {'command':<58} | {'measured':<22} |\n| --- | --- |", flush=True)

    def row(self, title, measure, must, aim=None, at_least=False):
        """measure() gives the figure, which is to be `at_least` or at most what it must."""
        better = max if at_least else min
        measured = measure()
        for _ in range(MOST_SERIES - 1):
            if better(measured, must) == measured:
                break
            measured = better(measured, measure())
        miss = better(measured, must) != measured
        self.missed += miss
        goal = f"{must}" if aim is None else f"{must}, {aim}"
        print(f"| {title:<58} | {measured:.2f} ({goal}){' MISSED' if miss else ''} |", flush=True)


def roomy_folder(beside, room=2**28):
    """In memory, where there is room for this and a million files, or beside a program."""
    memory = "/dev/shm"
    if os.access(memory, os.W_OK):
        free = os.statvfs(memory)
        if free.f_favail > 10**6 and free.f_bavail * free.f_frsize > room:
            return memory
    return os.path.dirname(beside)
