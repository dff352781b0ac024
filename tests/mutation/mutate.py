#!/usr/bin/env python3
"""Makes one fault after another in a copy of the program, and tells which of them the tests see.

    tests/mutation/mutate.py [WORD...]

A word chooses the mutations whose file or text it occurs in; without one all of mutations.py are made. The copy and its build lie in
build/mutation and are used again. The tests' own files go into a directory in memory where there is one. Ends with status 1 when fewer
than nine of ten are caught.
"""

import os
import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path

sys.dont_write_bytecode = True
from mutations import MUTATIONS  # noqa: E402

ROOT = Path(__file__).resolve().parents[2]
COPY = ROOT / "build/mutation/source"
BUILD = ROOT / "build/mutation/build"
SLOW = "NwrfcService.*:PruebaDeServicio.*:Rehearsal.*:Workbook.*:FailingCalls.*:KilledWriter.*:Process.*"


def run(command, limit=None, **options):
    """Status and output; nothing as the status when the time is over."""
    try:
        done = subprocess.run(command, capture_output=True, text=True, errors="replace", timeout=limit, **options)
    except subprocess.TimeoutExpired:
        return None, ""
    return done.returncode, done.stdout + done.stderr


def update_copy():
    """Brings the files of the tree into the copy, where they are others."""
    listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], cwd=ROOT,
                            capture_output=True, text=True, check=True).stdout
    names = {name for name in listed.split("\0") if name and (ROOT / name).is_file()}
    for name in names:
        there = COPY / name
        if there.exists() and there.read_bytes() == (ROOT / name).read_bytes():
            continue
        there.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(ROOT / name, there)
    for there in COPY.rglob("*"):
        if there.is_file() and str(there.relative_to(COPY)) not in names:
            there.unlink()


def build():
    return run(["cmake", "--build", BUILD, "--target", "qor_tests"])


def test(limit):
    """The quick suites first: most faults are caught by them."""
    with tempfile.TemporaryDirectory(dir="/dev/shm" if os.access("/dev/shm", os.W_OK) else None) as directory:
        os.chmod(directory, 0o755)  # one test goes on as another user
        environment = dict(os.environ, TMPDIR=directory, GTEST_FAIL_FAST="1", GTEST_BRIEF="1")
        for chosen in ("-" + SLOW, SLOW):
            status, output = run([BUILD / "tests/qor_tests", "--gtest_filter=" + chosen], limit, cwd=BUILD / "tests", env=environment)
            if status != 0:
                break
        return status, output


def first_failure(output):
    names = [line.split("]")[1].split()[0].rstrip(",") for line in output.splitlines() if line.startswith("[  FAILED  ]")]
    return names[0] if names else "the end of the program"


def verdict(file, old, new, limit):
    path = COPY / file
    text = path.read_text(encoding="utf-8")
    if text.count(old) != 1:
        return "stale", f"what is to be changed occurs {text.count(old)} times"
    path.write_text(text.replace(old, new), encoding="utf-8")
    try:
        status, output = build()
        if status != 0:
            errors = [line for line in output.splitlines() if "error" in line]
            return "no build", errors[0] if errors else output[-200:]
        status, output = test(limit)
        if status is None:
            return "caught", "the time"
        return ("survived", "") if status == 0 else ("caught", first_failure(output))
    finally:
        path.write_text(text, encoding="utf-8")


def main():
    chosen = [m for m in MUTATIONS if len(sys.argv) == 1 or any(word in part for word in sys.argv[1:] for part in m)]
    COPY.mkdir(parents=True, exist_ok=True)
    update_copy()
    configured = run(["cmake", "-S", COPY, "-B", BUILD, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O0",
                      "-DQOR_FORMS=OFF"])
    for status, output in (configured, build()):
        if status != 0:
            sys.exit(output)
    begin = time.monotonic()
    status, output = test(600)
    if status != 0:
        sys.exit(f"without any fault {first_failure(output)} fails")
    limit = 60 + 5 * (time.monotonic() - begin)
    verdicts = []
    for file, old, new in chosen:
        what, why = verdict(file, old, new, limit)
        verdicts.append(what)
        print(f"{what:9} {file}: {' '.join(old.split())[:70]} -> {' '.join(new.split())[:70] or 'nothing'} {why and f'({why})'}",
              flush=True)
    caught = verdicts.count("caught")
    print(f"{caught} of {len(verdicts)} caught, {verdicts.count('survived')} survived")
    for trouble in ("stale", "no build"):
        if trouble in verdicts:
            print(f"{trouble}: {verdicts.count(trouble)}")
    sys.exit(caught * 10 < len(verdicts) * 9)


if __name__ == "__main__":
    main()
