"""Every example of a docstring is run."""

import doctest
import importlib
import inspect
import os
import pkgutil
import subprocess
import sys
from pathlib import Path

import pytest

import kelfunzioni

# These need more than numpy: tests/extras and tests/fleet run their examples.
NOT_HERE = ("plot", "fleet")
MODULES = [
    each.name for each in pkgutil.iter_modules(kelfunzioni.__path__) if each.name not in NOT_HERE
]


@pytest.mark.parametrize("name", MODULES)
def test_examples(name, kart, monkeypatch):
    monkeypatch.chdir(kart)
    module = importlib.import_module(f"kelfunzioni.{name}")
    assert doctest.testmod(module).failed == 0


def test_the_packages_own_example():
    assert doctest.testmod(kelfunzioni).failed == 0


def _public():
    for name in kelfunzioni.__all__:
        yield name, getattr(kelfunzioni, name)


def test_everything_public_is_documented():
    for name, what in _public():
        assert inspect.getdoc(what), name
        if inspect.isclass(what):
            for member, value in vars(what).items():
                if not member.startswith("_") and (callable(value) or isinstance(value, property)):
                    assert inspect.getdoc(value), f"{name}.{member}"


def test_the_pages_of_the_site_are_those_of_the_docstrings():
    root = Path(__file__).resolve().parents[3]
    program = [sys.executable, "-B", root / "python" / "pages.py", root / "docs/python-reference"]
    places = [each for each in sys.path if each]
    own = dict(os.environ, PYTHONPATH=os.pathsep.join(places))
    done = subprocess.run(program, capture_output=True, text=True, timeout=60, env=own)
    assert done.returncode == 0, done.stdout + done.stderr
