"""A simulated season, and ways to export it."""

from __future__ import annotations

import subprocess
import sys
from pathlib import Path

import pytest

from kelfunzioni import fleet

sys.path.insert(0, str(Path(__file__).parent))
from seasons import DAMAGED, FLOTTA, RECORDINGS, simulate  # noqa: E402


@pytest.fixture(scope="session")
def season(tmp_path_factory):
    """24 recordings of 4 karts, of which 3 are damaged."""
    folder = tmp_path_factory.mktemp("fleet") / "season"
    simulate(folder, RECORDINGS, "--damaged", str(DAMAGED))
    return folder


@pytest.fixture(scope="session")
def out(season, tmp_path_factory):
    """Its export, made in this process."""
    folder = tmp_path_factory.mktemp("fleet") / "out"
    done = fleet.export([str(season)], str(folder), jobs=0)
    assert (done.exported, len(done.failures)) == (RECORDINGS - DAMAGED, DAMAGED)
    return folder


@pytest.fixture
def flotta():
    """Run the command; its status, what it wrote, and what it said."""

    def run(*arguments, stdin="", **more):
        done = subprocess.run(
            [*FLOTTA, *map(str, arguments)],
            input=stdin,
            capture_output=True,
            text=True,
            timeout=300,
            **more,
        )
        return done.returncode, done.stdout, done.stderr

    return run
