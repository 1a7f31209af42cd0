#!/usr/bin/python3
"""How many lines of the readers the fuzz targets reach from the inputs they start from: coverage.py BUILD_FOLDER

Each target runs its inputs once and tries no others, so that the figures are the same each time. What is read from
outside by a group of sources has a floor; a group below it fails.
"""

import json
import os
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

FLOOR = 90  # percent of the lines of a group
ROOT = Path(__file__).resolve().parents[2]
PLATFORM = "src/platform/linux/"
GROUPS = {
    "media": ("src/media/*.cpp", "src/media/id3/*.cpp"),
    "playlist lines": ("src/playlist/m3u_lines.cpp", "src/playlist/playlist_lines.cpp",
                       "src/playlist/foreign_lines.cpp"),
    "settings text": (PLATFORM + "settings_text.cpp",),
    "desktop entries": (PLATFORM + "desktop_entry.cpp",),
}


def targets(build):
    """Program and folders of inputs of each target."""
    for line in (build / "tests/fuzz/seeds").read_text().splitlines():
        name, folders = line.split("=")
        yield build / "bin" / name, folders.split(";")


def reach(program, folders, scratch):
    """Counts of the lines that the program reaches from these inputs."""
    counts = scratch / (program.name + ".profraw")
    found = scratch / program.name
    found.mkdir()  # the fuzzer writes into the first folder
    done = subprocess.run([program, "-runs=0", "-rss_limit_mb=1024", found, *folders], capture_output=True, text=True,
                          cwd=scratch, env={**os.environ, "LLVM_PROFILE_FILE": str(counts)}, check=False)
    if done.returncode != 0:
        sys.exit(f"{program.name} fails on an input that it starts from:\n{done.stderr[-3000:]}")
    return counts


def figures(build, sources):
    """{source: (lines, of which reached)}"""
    with tempfile.TemporaryDirectory() as folder:
        scratch = Path(folder)
        with ThreadPoolExecutor(2) as pool:
            runs = [pool.submit(reach, program, folders, scratch) for program, folders in targets(build)]
        counts = [run.result() for run in runs]
        subprocess.run(["llvm-profdata-14", "merge", "-sparse", "-o", scratch / "all", *counts], check=True)
        objects = [word for program, _ in targets(build) for word in ("-object", program)]
        exported = subprocess.run(["llvm-cov-14", "export", "-summary-only", "-instr-profile", scratch / "all",
                                   *objects[1:]], capture_output=True, text=True, check=True).stdout
    lines = {}
    for file in json.loads(exported)["data"][0]["files"]:
        # The compiler may have been told a path from the build folder.
        lines[Path(os.path.normpath(build / file["filename"]))] = file["summary"]["lines"]
    return {source: (lines[source]["count"], lines[source]["covered"]) for source in sources if source in lines}


def share(numbers):
    lines, reached = map(sum, zip(*numbers))
    return 100 * reached / lines


def main():
    groups = {name: sorted(path for pattern in patterns for path in ROOT.glob(pattern))
              for name, patterns in GROUPS.items()}
    known = figures(Path(sys.argv[1]).resolve(), [source for group in groups.values() for source in group])
    failed = 0
    for name, sources in groups.items():
        for source in sources:
            # A source without a line of code isn't known.
            if source in known:
                print(f"{share([known[source]]):6.1f} %  {source.relative_to(ROOT)}")
        total = share([known[source] for source in sources if source in known])
        failed += total < FLOOR
        print(f"{total:6.1f} %  {name}: {'below' if total < FLOOR else 'at least'} {FLOOR} %")
    passed = round(100 * (len(groups) - failed) / len(groups))
    print(f"{passed}% tests passed, {failed} tests failed out of {len(groups)}")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
