"""Who runs the tasks: this process, workers on this machine, or those of a scheduler of Dask."""

from __future__ import annotations

import contextlib
import os
from collections.abc import Callable, Iterable, Iterator
from concurrent.futures import CancelledError
from typing import Any, Protocol

from .._errors import KelError

__all__ = ["Engine", "EngineLostError", "bytes_of", "engine"]

Task = Callable[[], Any]


class EngineLostError(Exception):
    """The scheduler is gone."""


class Engine(Protocol):
    """Runs tasks."""

    def run(self, tasks: Iterable[Task]) -> Iterator[tuple[Task, Any]]:
        """Give each task with its result, or with the exception that it ended with."""
        ...


class _Here:
    """In this process, one after the other."""

    def run(self, tasks: Iterable[Task]) -> Iterator[tuple[Task, Any]]:
        for task in tasks:
            try:
                result: Any = task()
            except Exception as error:
                result = error
            yield task, result


def _call(task: Task) -> Any:
    return task()


class _Dask:
    """On workers of Dask. A task whose worker dies is given to another."""

    def __init__(self, client: Any) -> None:
        self._client = client

    def run(self, tasks: Iterable[Task]) -> Iterator[tuple[Task, Any]]:
        import distributed

        as_completed: Any = distributed.as_completed

        futures = {self._client.submit(_call, each, pure=False): each for each in tasks}
        try:
            for future in as_completed(list(futures)):
                if future.status == "cancelled":
                    raise EngineLostError
                # A worker may die with the result of a task that it has ended: then the task is
                # done again, which gives the same files, and this waits for it.
                error = future.exception()
                yield futures.pop(future), future.result() if error is None else error
                future.release()
        except (OSError, TimeoutError, CancelledError) as error:
            raise EngineLostError from error
        finally:
            if futures:
                with contextlib.suppress(Exception):
                    self._client.cancel(list(futures), force=True)


def bytes_of(memory: str) -> int:
    """Read a size of memory.

    Raises
    ------
    KelError
        It is none.
    """
    import dask.utils

    try:
        return int(dask.utils.parse_bytes(memory))
    except ValueError:
        raise KelError(f"'{memory}' is no size of memory; accepted: as 512 MiB") from None


@contextlib.contextmanager
def engine(jobs: int | None, scheduler: str | None, memory: str) -> Iterator[Engine]:
    """Start what runs tasks.

    Parameters
    ----------
    jobs : int, optional
        Workers on this machine; None: one for each of its processors; 0: no engine, but this
        process.
    scheduler : str, optional
        Address of a scheduler of Dask, in place of workers of its own.
    memory : str
        Most memory of a worker on this machine.
    """
    if scheduler is None and jobs == 0:
        yield _Here()
        return
    import dask.config
    import distributed

    # Parts of distributed have no types.
    dask_of: Any = distributed

    quiet = {
        "distributed.worker.daemon": True,
        "distributed.admin.tick.limit": "1 h",
        "distributed.diagnostics.nvml": False,
    }
    with dask.config.set(quiet), contextlib.ExitStack() as stack:
        if scheduler is None:
            cluster = dask_of.LocalCluster(
                n_workers=jobs or len(os.sched_getaffinity(0)),
                threads_per_worker=1,
                memory_limit=memory,
                dashboard_address=":0",
                silence_logs=60,
            )
            stack.enter_context(cluster)
            client = dask_of.Client(cluster)
        else:
            try:
                client = dask_of.Client(scheduler, timeout="20 s")
            except (OSError, ValueError) as error:
                raise EngineLostError from error
        stack.enter_context(client)
        yield _Dask(client)
