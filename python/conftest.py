"""What all tests have in common: the tools that they compare with, and a recording."""

from __future__ import annotations

import json
import os
import subprocess
from pathlib import Path
from typing import Any

import pytest


def _tool(name: str) -> str:
    path = os.environ.get(name)
    if not path:
        pytest.exit(f"set {name} to the path of the built tool", 2)
    return path


@pytest.fixture(scope="session")
def kelfun() -> Any:
    """Run kelfun, and give its JSON."""
    tool = _tool("KELFUN")

    def run(*arguments: str) -> Any:
        done = subprocess.run([tool, *arguments], capture_output=True, check=True, timeout=60)
        return json.loads(done.stdout)

    return run


@pytest.fixture(scope="session")
def kart(tmp_path_factory: pytest.TempPathFactory) -> Path:
    """A folder with a simulated recording and a capture: kart.channels, kart.samples, kart.ubx."""
    folder = tmp_path_factory.mktemp("kart")
    names = ["--channels", "kart.channels", "--samples", "kart.samples", "kart.ubx"]
    subprocess.run([_tool("KELSIM"), "--laps", "3", *names], cwd=folder, check=True, timeout=60)
    return folder
