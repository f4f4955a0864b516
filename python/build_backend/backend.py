"""scikit-build-core's build backend, whose source distribution carries the library's own sources.

The package lies within the tree of the library. A source distribution holds the folder of the
package alone, so the sources that the wheel is built from are copied into it first.
"""

import shutil
from pathlib import Path
from typing import Any

from scikit_build_core import build as _build
from scikit_build_core.build import *  # noqa: F403

_HERE = Path(__file__).resolve().parent.parent
_TREE = _HERE.parent
_COPY = _HERE / "library"
_PARTS = [
    "CMakeLists.txt",
    "LICENSE",
    "cmake",
    "include",
    "src",
    "python/src/native",
    "tools/kelfun/domain",
    "tools/kelfun/output",
    "tools/kelfun/text",
    "tools/kelfun/cli",
]


def build_sdist(sdist_directory: str, config_settings: Any = None) -> str:
    """Make the source distribution, with the library's sources in the folder `library`."""
    if _COPY.exists():  # building from an unpacked source distribution
        return _build.build_sdist(sdist_directory, config_settings)
    try:
        for part in _PARTS:
            source, target = _TREE / part, _COPY / part
            target.parent.mkdir(parents=True, exist_ok=True)
            if source.is_dir():
                shutil.copytree(source, target)
            else:
                shutil.copy2(source, target)
        return _build.build_sdist(sdist_directory, config_settings)
    finally:
        shutil.rmtree(_COPY, ignore_errors=True)
