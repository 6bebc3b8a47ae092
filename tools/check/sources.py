"""The project's files, for the checks of this folder: as git knows them, or where git does
not answer (an unpacked archive, another user's clone) all that lie in the tree."""
import fnmatch
import os
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
NOT_SOURCES = {".git", "build"}


def from_git():
    """Tracked and new files, or None."""
    try:
        listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others",
                                 "--exclude-standard"],
                                cwd=ROOT, capture_output=True, text=True, check=False)
    except FileNotFoundError:
        return None
    names = [name for name in listed.stdout.split("\0") if name]
    return names if listed.returncode == 0 and names else None


def from_tree():
    for folder, folders, files in os.walk(ROOT):
        if Path(folder) == ROOT:
            folders[:] = [name for name in folders if name not in NOT_SOURCES]
        yield from (os.path.relpath(os.path.join(folder, name), ROOT) for name in files)


def tracked(*patterns):
    """The files whose names match one of the patterns, as paths from the root."""
    listed = from_git() or from_tree()
    return [Path(name) for name in sorted(set(listed))
            if any(fnmatch.fnmatch(name, pattern) for pattern in patterns)
            and (ROOT / name).exists()]


def cpp_sources():
    return tracked("*.cpp", "*.h")


def report(name, faults):
    """Prints one line, and each fault; exits 1 when there are any."""
    print(f"{'FAIL' if faults else 'OK'} {name}")
    for fault in faults:
        print(f"  {fault}")
    sys.exit(1 if faults else 0)
