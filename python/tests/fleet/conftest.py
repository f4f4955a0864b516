"""A simulated season, and ways to export it."""

from __future__ import annotations

import io
import sys
from pathlib import Path

import pytest

from kelfunzioni import fleet

sys.path.insert(0, str(Path(__file__).parent))
from seasons import DAMAGED, RECORDINGS, simulate


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
def flotta(capfd, monkeypatch):
    """Run the command in this process; its status, what it wrote, and what it said."""
    from kelfunzioni.fleet._cli import main

    def run(*arguments, stdin=""):
        monkeypatch.setattr(sys, "stdin", io.StringIO(stdin))
        monkeypatch.setattr("signal.signal", lambda *a: None)
        capfd.readouterr()
        try:
            status = main([str(each) for each in arguments])
        except SystemExit as ended:
            status = ended.code
        return (status, *capfd.readouterr())

    return run
