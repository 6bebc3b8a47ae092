"""The project's files, as git knows them, for the checks of this folder."""
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]


def tracked(*patterns):
    """Tracked and new files that match the patterns, as paths from the root."""
    listed = subprocess.run(
        ["git", "ls-files", "--cached", "--others", "--exclude-standard", "--", *patterns],
        cwd=ROOT, capture_output=True, text=True, check=True).stdout
    return [Path(name) for name in sorted(set(listed.splitlines())) if (ROOT / name).exists()]


def cpp_sources():
    return tracked("*.cpp", "*.h")


def report(name, faults):
    """Prints one line, and each fault; exits 1 when there are any."""
    print(f"{'FAIL' if faults else 'OK'} {name}")
    for fault in faults:
        print(f"  {fault}")
    sys.exit(1 if faults else 0)
