"""The command ``kelflotta``."""

from __future__ import annotations

import argparse
import contextlib
import os
import shutil
import signal
import sys
import tempfile
from collections.abc import Iterator, Sequence
from typing import Any

from .. import KelError, __version__

__all__ = ["main"]

# Of other loggers. Texts and .dat may be anything, and need a pattern.
_LOGS = (".csv", ".tsv", ".mf4", ".mdf", ".log", ".asc", ".blf", ".trc", ".nmea")
_ENDINGS = {".csv": "csv", ".json": "json", ".parquet": "parquet"}
_EXAMPLES = """
examples:
  kelflotta export season -O out
  kelflotta query out "SELECT * FROM best_laps"
  kelflotta query out "FROM where_was('0x00001091', 'value > 100')"
  kelflotta plot out "SELECT * FROM best_laps ORDER BY ms LIMIT 3" -o laps.png

exit status: 0 success; 1 some files failed, or there is no answer; 2 wrong usage
"""


class _Parser(argparse.ArgumentParser):
    def error(self, message: str) -> Any:
        self.exit(2, f"{self.prog}: {message}; see {self.prog} --help\n")


def _parser() -> argparse.ArgumentParser:
    top = _Parser(
        prog="kelflotta",
        description="Exports recordings by the thousand, and asks them in SQL.",
        epilog=_EXAMPLES,
        formatter_class=argparse.RawDescriptionHelpFormatter,
    )
    top.add_argument("--version", action="version", version=f"kelflotta {__version__}")
    commands = top.add_subparsers(dest="command", required=True, metavar="export|query|plot")
    _export_arguments(commands.add_parser("export", help="write Parquet and tables of recordings"))
    _query_arguments(commands.add_parser("query", help="ask in SQL"))
    _plot_arguments(commands.add_parser("plot", help="draw laps or a distribution"))
    return top


def _export_arguments(parser: argparse.ArgumentParser) -> None:
    parser.description = (
        "Writes recordings (.channels and .samples), u-blox captures (.ubx) and files with a "
        "mapping as partitions of Parquet, beside tables of recordings, channels, laps and "
        "failures. What is done and has not changed stays; a run that was stopped goes on."
    )
    add = parser.add_argument
    add("inputs", nargs="+", metavar="IN", help="file, folder, pattern; - for a list, a line each")
    add("-O", "--output", required=True, metavar="DIR", help="folder to write to")
    add("--format", default="parquet", choices=["parquet", "csv", "mdf", "mat"])
    add("--jobs", type=_jobs, metavar="N", help="workers; 0: none (default: one a processor)")
    add("--scheduler", metavar="ADDRESS", help="scheduler of Dask whose workers are to do it")
    add("--memory", default="512 MiB", metavar="SIZE", help="of a worker (default 512 MiB)")
    add("--task-bytes", type=_bytes, metavar="N", help="of recordings in a task (default 16777216)")
    add("--vehicle", metavar="NAME", help="whose they are (default: as their folder is called)")
    add(
        "--mapping",
        action="append",
        default=[],
        type=_mapping,
        metavar="[PATTERN=]FILE",
        help="mapping of the files whose names match a pattern (default: of all CSV, MDF and CAN "
        "logs and NMEA)",
    )
    add("--checksum", action="store_true", help="compare contents, not size and time of change")
    add("--quiet", action="store_true", help="no progress, no summary")


def _query_arguments(parser: argparse.ArgumentParser) -> None:
    parser.description = (
        "Asks an export in the SQL of DuckDB. Views: recordings, channels, laps, failures, "
        "best_laps, channel_statistics, samples_10hz for each sample rate. Table macro: "
        "where_was(identifier, condition on value). Functions: kel_name(fid), "
        "kel_convert(value, fid, from, to), kel_lap(ms)."
    )
    parser.add_argument("folder", metavar="DIR", help="what 'export' has written")
    parser.add_argument("sql", nargs="?", metavar="SQL", help="a query; without it a shell")
    parser.add_argument("--format", choices=["table", "csv", "json", "parquet"])
    parser.add_argument("-o", "--output", metavar="FILE", help="write the answer here")


def _plot_arguments(parser: argparse.ArgumentParser) -> None:
    parser.description = (
        "Draws what a query gives: laps, if it gives recording and lap; otherwise the "
        "distribution of its first numbers, for each of its first texts if there are some."
    )
    parser.add_argument("folder", metavar="DIR", help="what 'export' has written")
    parser.add_argument("sql", metavar="SQL", help="a query")
    parser.add_argument("-o", "--output", required=True, metavar="FILE", help=".png, .svg or .pdf")
    parser.add_argument("--channel", metavar="NAME", help="of laps: what to draw (default: speed)")


def _jobs(text: str) -> int:
    if not text.isdecimal() or int(text) > 1024:
        raise argparse.ArgumentTypeError(f"'{text}' is no such number; accepted: 0 to 1024")
    return int(text)


def _bytes(text: str) -> int:
    if not text.isdecimal() or not 1 <= int(text) <= 1 << 40:
        raise argparse.ArgumentTypeError(f"'{text}' is no such number; accepted: 1 to {1 << 40}")
    return int(text)


def _mapping(text: str) -> list[tuple[str, str]]:
    pattern, found, file = text.partition("=")
    if os.path.isfile(text):
        return [(f"*{ending}", text) for ending in _LOGS]
    if not found or not pattern or not os.path.isfile(file):
        raise argparse.ArgumentTypeError(
            f"'{text}' is none; accepted: FILE or PATTERN=FILE, of a mapping that is there"
        )
    return [(pattern, file)]


def main(arguments: Sequence[str] | None = None) -> int:
    """Run the command; its exit status."""
    options = _parser().parse_args(arguments)
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    try:
        return int({"export": _export, "query": _query, "plot": _plot}[options.command](options))
    except KeyboardInterrupt:
        again = "; run it again to go on" if options.command == "export" else ""
        return _fail(f"stopped{again}")
    except BrokenPipeError:
        os.dup2(os.open(os.devnull, os.O_WRONLY), 1)
        return 1
    except ImportError as error:
        return _fail(f"{error}; install the package with the extra fleet")
    except KelError as error:
        return _fail(str(error))
    except OSError as error:
        return _fail(
            f"{error.strerror or error}{f': {error.filename!r}' if error.filename else ''}"
        )


def _fail(text: str, status: int = 1) -> int:
    print(f"kelflotta: {text}", file=sys.stderr)
    return status


def _inputs(given: Sequence[str]) -> Iterator[str]:
    for each in given:
        if each == "-":
            lines = (line.rstrip("\n") for line in sys.stdin)
            yield from (line for line in lines if line)
        else:
            yield each


def _export(options: argparse.Namespace) -> int:
    from ._export import TASK_BYTES, export
    from ._progress import Bar, summary

    with Bar(quiet=options.quiet) as bar:
        done = export(
            _inputs(options.inputs),
            options.output,
            format=options.format,
            vehicle=options.vehicle,
            mappings=[each for some in options.mapping for each in some],
            jobs=options.jobs,
            scheduler=options.scheduler,
            memory=options.memory,
            checksum=options.checksum,
            task_bytes=options.task_bytes or TASK_BYTES,
            progress=bar,
        )
    if not options.quiet:
        summary(done, options.output)
    if done.failures:
        return 1
    if not done.files:
        return _fail("there is no recording; accepted: .channels with .samples, .ubx, --mapping")
    return 0


def _query(options: argparse.Namespace) -> int:
    from ._query import Fleet

    ending = os.path.splitext(options.output)[1].lower() if options.output else ""
    if options.output and not options.format and ending not in _ENDINGS:
        return _fail(f"'{ending}' is no format; accepted: .csv, .json, .parquet, or --format", 2)
    format = options.format or _ENDINGS.get(ending, "table")
    if format == "parquet" and not options.output:
        return _fail("parquet needs a file; accepted: -o FILE", 2)
    fleet = Fleet(options.folder)
    if options.sql is None:
        from ._shell import shell

        return shell(fleet, lambda text: _answer(fleet, text, format, options.output))
    return _answer(fleet, options.sql, format, options.output)


def _answer(fleet: Any, sql: str, format: str, output: str | None) -> int:
    import duckdb

    try:
        statements = fleet.connection.extract_statements(sql)
        for statement in statements[:-1]:
            _one_answer(fleet, statement, "table", None)
        return _one_answer(fleet, statements[-1], format, output) if statements else 0
    except duckdb.Error as error:
        return _fail(_short(error))


def _one_answer(fleet: Any, statement: Any, format: str, output: str | None) -> int:
    import duckdb

    relation = fleet.sql(statement.query)
    if relation is None or statement.expected_result_type != [
        duckdb.ExpectedResultType.QUERY_RESULT
    ]:
        return 0
    sys.stdout.flush()
    if format == "table" and output is None:
        width = 200
        with contextlib.suppress(OSError):
            width = os.get_terminal_size().columns
        relation.show(max_width=width)
    elif format == "table":
        with open(output or "", "w", encoding="utf-8") as file:
            file.write(str(relation))
    else:
        if statement.type == duckdb.StatementType.SELECT:
            relation.create_view("kelflotta_answer", replace=True)
        else:
            fleet.connection.register("kelflotta_answer", relation.to_arrow_table())
        with contextlib.ExitStack() as stack:
            if output is None:
                # To a file of its own first: the standard output of a shell may be one that is
                # appended to, which must not be opened again.
                folder = stack.enter_context(tempfile.TemporaryDirectory())
                _copy(fleet, os.path.join(folder, "answer"), format)
                with open(os.path.join(folder, "answer"), "rb") as file:
                    shutil.copyfileobj(file, sys.stdout.buffer)
                sys.stdout.flush()
            else:
                _copy(fleet, output, format)
    return 0


def _copy(fleet: Any, path: str, format: str) -> None:
    options = {"csv": "FORMAT csv, HEADER", "json": "FORMAT json, ARRAY true"}
    place, how = path.replace("'", "''"), options.get(format, "FORMAT parquet")
    fleet.connection.execute(f"COPY kelflotta_answer TO '{place}' ({how})")


def _short(error: Exception) -> str:
    """One line of what DuckDB says."""
    text = str(error).split("\n\nLINE", 1)[0].split("\nStack", 1)[0]
    if "Table with name channel_0x" in text:
        word = text.split("channel_", 1)[1].split(" ", 1)[0]
        return f"no recording has values of {word}; accepted: identifiers of the view channels"
    return " ".join(text.split())


def _plot(options: argparse.Namespace) -> int:
    import duckdb

    from ._plot import plot
    from ._query import Fleet

    if os.path.splitext(options.output)[1].lower() not in (".png", ".svg", ".pdf"):
        return _fail(f"'{options.output}' is no picture; accepted: .png, .svg, .pdf", 2)
    try:
        plot(Fleet(options.folder), options.sql, options.channel).savefig(options.output)
    except duckdb.Error as error:
        return _fail(_short(error))
    return 0
