"""The notebook gives what it shows, and the site shows what it gives."""

import os
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[3]
EXAMPLES = ROOT / "python" / "examples"


def test_the_notebook_gives_what_it_shows():
    places = [str(Path(os.environ["KELSIM"]).parent), os.environ["PATH"]]
    done = subprocess.run(
        [
            sys.executable,
            "-B",
            EXAMPLES / "notebook.py",
            EXAMPLES / "lap-comparison.ipynb",
            ROOT / "docs" / "lap-comparison.md",
        ],
        env=dict(os.environ, PATH=os.pathsep.join(places)),
        capture_output=True,
        text=True,
        timeout=120,
    )
    assert done.returncode == 0, done.stdout + done.stderr
