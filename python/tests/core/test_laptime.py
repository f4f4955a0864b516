"""Lap times as texts, both ways."""

import pytest

import kelfunzioni as kel


@pytest.mark.parametrize("ms", [0, 1, 999, 1000, 59999, 60000, 83456, 3599999, 3600000])
def test_what_is_written_is_read(ms):
    assert kel.parse_lap(kel.format_lap(ms)) == ms
    assert kel.parse_lap_line(kel.format_lap_line(12, ms)) == (12, ms)


@pytest.mark.parametrize("ms", [-1, 3600001, -(2**31), 2**31 - 1])
def test_times_without_a_true_text_are_refused(ms, kelfun):
    with pytest.raises(kel.KelError, match="strict=False"):
        kel.format_lap(ms)
    assert isinstance(kel.format_lap(ms, strict=False), str)


def test_the_librarys_text_of_a_negative_time():
    assert kel.format_lap(-1, strict=False) == "71582:47.295"


@pytest.mark.parametrize("text", ["", "abc", "1:23.4", "83,456", "1'23\"456", "\udcff"])
def test_texts_that_are_read_otherwise_are_refused(text):
    with pytest.raises(kel.KelError):
        kel.parse_lap(text)
    assert isinstance(kel.parse_lap(text, strict=False), int)


def test_lines_that_are_too_short():
    with pytest.raises(kel.KelError, match="no line of a lap list"):
        kel.parse_lap_line("1 -")
    with pytest.raises(kel.KelError, match="no line of a lap list"):
        kel.parse_lap_line("1 -", strict=False)


@pytest.mark.parametrize("call", [kel.format_lap, kel.parse_lap, kel.parse_lap_line, kel.find])
@pytest.mark.parametrize("wrong", [None, 1.5, b"1:23.456", [1]])
def test_wrong_types(call, wrong):
    with pytest.raises(TypeError, match="accepted"):
        call(wrong)


@pytest.mark.parametrize("number", [2**31, -(2**31) - 1])
def test_numbers_beyond_32_bits(number):
    with pytest.raises(kel.KelError, match="32 bits"):
        kel.format_lap(number)
    with pytest.raises(kel.KelError, match="32 bits"):
        kel.format_lap_line(number, 0)
