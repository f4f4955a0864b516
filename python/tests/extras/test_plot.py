"""Plots: what they show, and pictures in the folder that KEL_PICTURES names, to be looked at."""

import doctest
import os
from pathlib import Path

import numpy as np
import pytest
from hostile import HOSTILE, tried
from matplotlib.figure import Figure

import kelfunzioni as kel
from kelfunzioni import plot


@pytest.fixture
def recording(kart):
    return kel.Recording(kart / "kart.channels", kart / "kart.samples")


@pytest.fixture
def keep(tmp_path, request):
    folder = Path(os.environ.get("KEL_PICTURES", tmp_path))

    def keep(figure):
        path = folder / f"{request.node.name}.png"
        figure.savefig(path, dpi=80)
        assert path.stat().st_size > 5000

    return keep


@pytest.mark.parametrize("over", ["time", "distance"])
def test_channels(recording, over, keep):
    figure = plot.channels(recording, ["Wheel Speed", "Engine RPM", "Throttle"], over=over)
    speed, rpm, _ = figure.axes
    assert speed.get_ylabel() == "Wheel Speed\nkm/h" and rpm.get_ylabel() == "Engine RPM\nrpm"
    drawn = speed.get_lines()[0].get_ydata()
    assert np.array_equal(drawn, recording["Wheel Speed"].values, equal_nan=True)
    keep(figure)


def test_laps(recording, keep):
    figure = plot.laps(recording, "Wheel Speed", kel.laps(recording))
    top, bottom = figure.axes
    assert len(top.get_lines()) == 3
    assert np.abs(bottom.get_lines()[0].get_ydata()).max() == 0
    gap = bottom.get_lines()[1].get_ydata()
    assert gap[0] == 0 and gap[-1] == pytest.approx(50.083 - 48.782)  # those of the lap times
    keep(figure)


@pytest.mark.parametrize("color", [None, "Wheel Speed"])
def test_track(recording, color, keep):
    figure = plot.track(recording, color)
    assert figure.axes[0].get_xlabel() == "east, m"
    keep(figure)


def test_examples_of_docstrings(kart, monkeypatch):
    monkeypatch.chdir(kart)
    assert doctest.testmod(plot).failed == 0


def test_into_a_given_figure(recording):
    figure = Figure()
    assert plot.channels(recording, ["Wheel Speed"], figure=figure) is figure


def test_wrong_arguments(recording, kart):
    with pytest.raises(kel.NotFoundError, match="did you mean 'Wheel Speed'"):
        plot.channels(recording, ["wheel spede"])
    with pytest.raises(kel.KelError, match="did you mean 'distance'"):
        plot.channels(recording, ["Wheel Speed"], over="distnce")
    with pytest.raises(kel.KelError, match="no channels"):
        plot.channels(recording, [])
    with pytest.raises(kel.KelError, match="no lap"):
        plot.laps(recording, "Wheel Speed", [])
    with pytest.raises(kel.KelError, match="lap 0 is not closed"):
        plot.progress(recording, kel.laps(recording)[0])
    with pytest.raises(kel.NotFoundError):
        plot.track(recording, "none")
    with pytest.raises(kel.RecordingError, match="accepted: km/h"):
        plot.distance(recording, "Engine RPM")


def test_every_argument_of_every_function(recording):
    """Each argument in turn is wrong, and the others right. A new function needs a good call."""
    driven = kel.laps(recording)
    calls = {
        "channels": ((recording, ["Wheel Speed"]), {"over": "distance", "figure": None}),
        "distance": ((recording, "Wheel Speed"), {}),
        "laps": ((recording, "Wheel Speed", driven), {"figure": None}),
        "progress": ((recording, driven.best, 1000.0), {}),
        "track": ((recording, "Wheel Speed"), {"figure": None}),
    }
    assert sorted(calls) == sorted(plot.__all__)
    for name, (arguments, named) in calls.items():
        call = getattr(plot, name)
        assert not tried(call, *arguments, **named), name
        for place in range(len(arguments)):
            others = arguments[:place], arguments[place + 1 :]
            assert any([tried(call, *others[0], each, *others[1], **named) for each in HOSTILE])
        for key in named:
            assert any([tried(call, *arguments, **{**named, key: each}) for each in HOSTILE])
