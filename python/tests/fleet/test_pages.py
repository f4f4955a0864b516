"""The commands of docs/fleet.md, and README's three lines, as they stand there."""

import os
import re
import subprocess
import sys
from pathlib import Path

import pytest

ROOT = Path(__file__).resolve().parents[3]
BLOCK = re.compile(r"^```console\n(.*?)^```$", re.M | re.S)


@pytest.fixture
def shell(tmp_path):
    """Run a line in a folder where kelflotta and kelsim are on the path."""
    programs = tmp_path / "programs"
    (programs / "v" / "bin").mkdir(parents=True)
    for place in (programs / "kelflotta", programs / "v" / "bin" / "kelflotta"):
        place.write_text(f'#!/bin/sh\nexec "{sys.executable}" -m kelfunzioni.fleet "$@"\n')
        place.chmod(0o755)
    path = f"{programs}:{Path(os.environ['KELSIM']).parent}:{os.environ['PATH']}"

    def run(line):
        environment = {**os.environ, "PATH": path}
        done = subprocess.run(
            line, shell=True, cwd=programs, env=environment, capture_output=True, text=True
        )
        return done.returncode, done.stdout, done.stderr

    return run


@pytest.mark.long
def test_the_commands_of_the_page(shell):
    commands = 0
    for block in BLOCK.findall((ROOT / "docs" / "fleet.md").read_text()):
        for part in re.split(r"^\$ ", block, flags=re.M)[1:]:
            line, _, shown = part.partition("\n")
            if not line.startswith("kel"):
                continue
            commands += 1
            status, found, said = shell(line)
            assert status == (1 if " failed" in shown else 0), f"{line}\n{found}{said}"
            if "..." not in shown:
                assert found == shown, line
    assert commands >= 7


@pytest.mark.long
def test_the_three_lines_of_the_readme(shell):
    text = (ROOT / "README.md").read_text()
    lines = re.findall(r"^\$ ((?:kelsim --fleet|v/bin/kelflotta).*)$", text, re.M)
    assert len(lines) == 3
    for line in lines:
        status, found, said = shell(line.replace("--fleet 1000", "--laps 1 --rate 4 --fleet 8"))
        assert status == 0, said
    assert "lap_time" in found and "kart-004" in found
