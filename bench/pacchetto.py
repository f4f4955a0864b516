#!/usr/bin/env python3
"""Measures the Python package beside its peers, in one run, and prints a table.

  pacchetto.py [--quick] [--stream]

KELFUNZIONI_LIBRARIES and PYTHONPATH lead to the package. --stream adds ten gigabytes of recordings that go through 512 MB
of memory, which takes minutes. Times are the best of some runs. Exit status 1 when a target is missed.
"""

import argparse
import os
import statistics
import subprocess
import sys
import tempfile
import time
import warnings
from concurrent.futures import ThreadPoolExecutor

import cantools
import numpy as np
import pandas
import polars

import kelfunzioni as kel
from kelfunzioni._records import Channel

CHANNELS = 48
FUNCTION, UNIT = "OIL_PRESS", "psi"
STREAMED = 10 * 10**9
ROOM_MB = 512


def best(work, times=5):
    """Seconds of the best of some runs, and what the last gave."""
    taken = []
    for _ in range(times):
        result = None
        begin = time.perf_counter()
        result = work()
        taken.append(time.perf_counter() - begin)
    return min(taken), result


def missing(samples):
    """What the sample type int16 has no value for."""
    return (samples >= CODES[0]) & (samples <= CODES[-1])


def codes():
    """The codes without a value, in their order."""
    every = np.arange(-32768, 32768).astype(np.int16)
    found = every[~kel.Converter(FUNCTION, "int16", UNIT)(every).valid]
    assert len(found) == found[-1] - found[0] + 1, "the codes lie apart"
    return found


CODES = codes()


def column(count):
    """int16 with gain, offset and validity into a column of polars."""
    samples = np.random.default_rng(1).integers(-12300, 32767, count).astype(np.int16)
    converter = kel.Converter(FUNCTION, "int16", UNIT)
    gain = np.float32(kel.convert(np.float32(1), FUNCTION, "bar", UNIT))

    ours, (made, series) = best(lambda: (c := converter(samples), polars.Series(c)))
    address = made._raw.__array_interface__["data"][0]
    shared = series.to_arrow().buffers()[1].address == address
    assert series.null_count() == int(missing(samples).sum())

    def with_numpy():
        values = samples.astype(np.float32) * gain
        return polars.Series(values).set(polars.Series(missing(samples)), None)

    def with_polars():
        raw = polars.Series(samples)
        there = ~raw.is_between(int(CODES[0]), int(CODES[-1]))
        return polars.select(polars.when(there).then(raw.cast(polars.Float32) * gain)).to_series()

    numpy_time, _ = best(with_numpy, 3)
    polars_time, other = best(with_polars, 3)
    assert other.null_count() == series.null_count()
    what = f"{count // 10**6} M int16 with gain and validity into a polars column"
    target = 0.25 * count / 10**8
    yield what, ours, None, "pointers shared" if shared else "COPIED", f"<= {target:.2f} s", ours <= target and shared
    yield "... by numpy's passes", numpy_time, numpy_time / ours, "", "", None
    yield "... by polars' expressions, all cores", polars_time, polars_time / ours, "", "", None


def recording(rows):
    """A recording of int16 channels, as buffers."""
    channels = b"".join(
        bytes(Channel(indice=i, fid=kel.Function(FUNCTION).identifier, tipo_campione=1, nome=f"Channel {i}".encode(),
                      offset_campione=2 * i, dim_buffer=2))
        for i in range(CHANNELS)
    )
    records = np.zeros(rows, [("time", "<u8"), ("samples", "<i2", CHANNELS)])
    records["time"] = np.arange(rows) * 1000
    records["samples"] = np.random.default_rng(2).integers(-12300, 32767, (rows, CHANNELS))
    return channels, records


def frame(rows):
    """Channels of a recording to a frame of pandas."""
    channels, records = recording(rows)
    opened = kel.Recording(channels, records.view(np.uint8), stamps="u64us")
    for name in opened.names:
        opened.set_unit(name, UNIT)
    ours, made = best(opened.to_pandas, 9)
    gain = np.float32(kel.convert(np.float32(1), FUNCTION, "bar", UNIT))

    def with_numpy():
        columns = {}
        for i in range(CHANNELS):
            raw = records["samples"][:, i]
            values = raw.astype(np.float32)
            values *= gain
            values[missing(raw)] = np.nan
            columns[f"Channel {i}"] = values
        return pandas.DataFrame(columns, index=records["time"] / 1e6, copy=False)

    numpy_time, other = best(with_numpy, 3)
    assert np.allclose(made.to_numpy(), other.to_numpy(), rtol=1e-5, equal_nan=True)

    signals = "".join(f' SG_ S{i} : {16 * i}|16@1- ({float(gain)!r},0) [0|0] "psi" X\n' for i in range(4))
    text = 'VERSION ""\nBS_:\nBU_: X\n' + "".join(
        f"BO_ {m} M{m}: 8 X\n" + signals.replace("SG_ S", f"SG_ M{m}S") for m in range(CHANNELS // 4)
    )
    known = cantools.database.load_string(text, "dbc")
    few = max(rows // 100, 100)
    payloads = np.ascontiguousarray(records["samples"][:few]).view(np.uint8).reshape(few, CHANNELS // 4, 8)
    frames = [[one.tobytes() for one in row] for row in payloads]
    decoders = [known.get_message_by_frame_id(m) for m in range(CHANNELS // 4)]

    def with_cantools():
        columns = {}
        for place, message in enumerate(decoders):
            for row in frames:
                for name, value in message.decode(row[place], decode_choices=False).items():
                    columns.setdefault(name, []).append(value)
        return pandas.DataFrame(columns)

    cantools_time = best(with_cantools, 2)[0] * rows / few
    what = f"{CHANNELS} channels, {rows} rows, to a pandas frame"
    yield what, ours, None, f"{rows * CHANNELS / ours / 1e6:.0f} M samples/s", "", None
    ratio = cantools_time / ours
    yield "... by cantools, a part scaled up", cantools_time, ratio, "", ">= 20 times", ratio >= 20
    ratio = numpy_time / ours
    yield "... by numpy's passes", numpy_time, ratio, "", ">= 5 times", ratio >= 5


def threads(count):
    """Columns on one core and on all of them."""
    cores = len(os.sched_getaffinity(0))
    converter = kel.Converter(FUNCTION, "int16", UNIT)
    samples = np.random.default_rng(1).integers(-12300, 32767, count).astype(np.int16)
    one, _ = best(lambda: [converter(samples) for _ in range(cores)])
    with ThreadPoolExecutor(cores) as pool:
        list(pool.map(converter, [samples[:8]] * cores))
        many, _ = best(lambda: list(pool.map(converter, [samples] * cores)))
    yield f"{cores} columns of {count // 10**6} M in {cores} threads", many, None, "", "", None
    yield "... one after the other", one, one / many, f"{cores} cores", "", None


def small():
    """A cached name, and the import."""
    function = kel.Function(FUNCTION)
    begin = time.perf_counter()
    kel.Function(0x05070010).name
    first = time.perf_counter() - begin
    many = 100_000
    cached = best(lambda: [function.name for _ in range(many)])[0] / many
    yield "Function.name, cached", cached, first / cached, "times the first look-up", "", None
    program = ("import time, numpy; begin = time.perf_counter(); import kelfunzioni; "
               "print(time.perf_counter() - begin)")
    with tempfile.TemporaryDirectory() as compiled:  # as an installed package is
        own = {k: v for k, v in os.environ.items() if k != "PYTHONDONTWRITEBYTECODE"} | {"PYTHONPYCACHEPREFIX": compiled}
        call = [sys.executable, "-c", program]
        runs = [subprocess.run(call, check=True, capture_output=True, text=True, env=own).stdout for _ in range(8)]
    taken = statistics.median(float(each) for each in runs[1:])
    yield "import, beyond numpy's", taken, None, "", "<= 60 ms", taken <= 0.06


def peak_mb():
    """The most of memory that was resident: of this program, and not of the one that it was started by."""
    with open("/proc/self/status") as file:
        return next(int(line.split()[1]) / 1024 for line in file if line.startswith("VmHWM:"))


def stream():
    """Ten gigabytes in 512 MB: of a file with gaps, in a process of its own."""
    begin = time.perf_counter()
    done = subprocess.run([sys.executable, __file__, "--streamed", str(STREAMED)], check=True, capture_output=True, text=True)
    rows, megabytes = done.stdout.split()
    taken = time.perf_counter() - begin
    what = f"{STREAMED / 1e9:.0f} GB of recordings, {rows} rows, streamed"
    yield what, taken, None, f"{float(megabytes):.0f} MB at most", f"<= {ROOM_MB} MB", float(megabytes) <= ROOM_MB


def streamed(size):
    """Goes through a recording of that many bytes; prints its rows, and the most of memory that was resident."""
    channels, records = recording(1 << 16)
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "long.samples")
        with open(path, "wb") as file:
            file.write(records.tobytes())
            file.truncate(size)  # zeros, which no disk holds
        opened = kel.Recording(channels, path, stamps="u64us")
        seen, values = 0, 0
        for piece in opened.batches(1 << 18):
            columns = piece.read()
            seen += len(piece)
            values += sum(int(each.valid.sum()) for each in columns.values())
        assert seen == len(opened) == size // records.dtype.itemsize and values > seen
    print(seen, peak_mb())


def shown(seconds):
    return f"{seconds:.3f} s" if seconds >= 0.1 else f"{seconds * 1e3:.1f} ms" if seconds >= 1e-4 else f"{seconds * 1e6:.2f} us"


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--quick", action="store_true")
    parser.add_argument("--stream", action="store_true")
    parser.add_argument("--streamed", type=int, help=argparse.SUPPRESS)
    options = parser.parse_args()
    warnings.simplefilter("ignore", kel.KelWarning)
    if options.streamed:
        streamed(options.streamed)
        return 0
    scale = 10 if options.quick else 1
    rows = [*column(10**8 // scale), *frame(200_000 // scale), *threads(2 * 10**7 // scale), *small()]
    rows += list(stream()) if options.stream else []
    print("| what | time | times ours | | target | |\n|---|---:|---:|---|---|---|")
    for what, seconds, ratio, note, target, held in rows:
        verdict = "" if held is None else "held" if held else "NOT HELD"
        times = "" if ratio is None else f"{ratio:.1f}"
        print(f"| {what} | {shown(seconds)} | {times} | {note} | {target} | {verdict} |")
    return int(any(row[-1] is False for row in rows))


if __name__ == "__main__":
    sys.exit(main())
