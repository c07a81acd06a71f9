"""A whole corpus as long tables: on this machine, or on the workers of a Dask cluster.

    from cantorix import corpus
    corpus.measure("speakers.tsv", ["pitch", "formants"], "tables", client=dask_client)

The tables are those of ``cantorix-batch corpus``, byte for byte, whoever measured them.
"""

from __future__ import annotations

import os
import shutil
import time
from collections import deque
from collections.abc import Iterable, Sequence
from concurrent.futures import Future, ThreadPoolExecutor
from dataclasses import dataclass
from itertools import islice
from pathlib import Path as FilePath
from typing import TYPE_CHECKING, BinaryIO, Literal, Optional, Union

from . import _engine
from ._paths import Path, encoded
from .recording import _record, _whole
from .settings import Settings

if TYPE_CHECKING:
    import distributed

Table = Literal["pitch", "intensity", "formants", "labels"]
FAILED = "failed"
# Batches that are under way for each thread: one is worked on, others wait, and none of the rest
# takes memory.
AHEAD = 4
BATCH_S = 0.5  # of a batch: short for the one that is lost, long for a scheduler
MOST = 1000
_Entry = tuple[bytes, bytes]


@dataclass(frozen=True)
class _Plan:
    """What every worker is told."""

    tables: tuple[str, ...]
    points: int
    exact: bool
    labels: str
    usual_order: bool
    settings: Settings
    parts: str

    def part(self, index: int, table: str) -> FilePath:
        return FilePath(self.parts) / f"{index:08d}.{table}.tsv"


@dataclass(frozen=True)
class _Done:
    """What a worker tells of a batch."""

    index: int
    sizes: list[int]  # bytes of each table
    recordings: int
    seconds: float


class _Batches:
    """The recordings in batches of `size`, or of as many as take BATCH_S."""

    def __init__(self, reader: _engine.CorpusReader, size: Optional[int]) -> None:
        self._reader = reader
        self._given = size is not None
        self._size = size or 10
        self._index = -1

    def __iter__(self) -> _Batches:
        return self

    def __next__(self) -> tuple[int, list[_Entry]]:
        entries = self._reader.take(self._size)
        if not entries:
            raise StopIteration
        self._index += 1
        return self._index, entries

    def heed(self, done: _Done) -> None:
        """The next ones fit better to the time that the recordings take."""
        if not self._given:
            fitting = int(done.recordings * BATCH_S / max(done.seconds, 1e-6))
            self._size = min(max(fitting, 1), 4 * self._size, MOST)


def _measure_batch(plan: _Plan, index: int, entries: Sequence[_Entry]) -> _Done:
    """Measures some recordings and writes their rows.

    A batch may be done twice, when its worker dies or is taken for dead: the files of a part appear
    whole, and are the same whoever writes them last.
    """
    begun = time.monotonic()
    work = _engine.CorpusWork(
        ",".join(plan.tables), plan.points, plan.exact, plan.labels, plan.usual_order,
        plan.settings._record,
    )
    texts: dict[str, list[bytes]] = {table: [] for table in (*plan.tables, FAILED)}
    for path, leading in entries:
        rows, failure = work.rows(path, leading)
        for table, text in zip(plan.tables, rows):
            texts[table].append(text)
        if failure:
            texts[FAILED].append(leading.split(b"\t")[0] + b"\t" + failure + b"\n")
    sizes = []
    for table, pieces in texts.items():
        sizes.append(sum(map(len, pieces)))
        if sizes[-1] == 0:
            continue
        place = plan.part(index, table)
        growing = place.with_name(f".{place.name}.{os.getpid()}.{id(texts)}")
        growing.write_bytes(b"".join(pieces))
        growing.replace(place)
    return _Done(index, sizes, len(entries), time.monotonic() - begun)


class _Merged:
    """The growing tables, to which the parts are added in the order of the manifest."""

    def __init__(self, plan: _Plan, headers: dict[str, bytes], out: FilePath) -> None:
        self._plan = plan
        self._out = out
        self._early: dict[int, list[int]] = {}
        self._next = 0
        self._tables = {name: (out / f"{name}.tsv.part").open("wb") for name in headers}
        for name, header in headers.items():
            self._tables[name].write(header)

    def add(self, done: _Done) -> None:
        """Takes a part that is done, and adds it once those before it are there."""
        self._early[done.index] = done.sizes
        while self._next in self._early:
            for (name, table), size in zip(self._tables.items(), self._early.pop(self._next)):
                if size > 0:
                    self._append(table, self._plan.part(self._next, name), size)
            self._next += 1

    def _append(self, table: BinaryIO, place: FilePath, size: int) -> None:
        rows = place.read_bytes()
        if len(rows) != size:
            raise OSError(f"{place} holds {len(rows)} bytes of the {size} that its worker wrote.")
        table.write(rows)
        place.unlink()

    def finish(self) -> None:
        """The tables get their names."""
        for name, table in self._tables.items():
            table.flush()
            os.fsync(table.fileno())
            (self._out / f"{name}.tsv.part").replace(self._out / f"{name}.tsv")

    def close(self) -> None:
        for table in self._tables.values():
            table.close()


def _sources(manifest: Union[Path, Iterable[Path]]) -> list[bytes]:
    if isinstance(manifest, (str, bytes, os.PathLike)):
        return [encoded(manifest, "manifest")]
    return [encoded(source, "manifest") for source in manifest]


def measure(
    manifest: Union[Path, Iterable[Path]],
    what: Iterable[Table],
    out: Path,
    *,
    client: Optional[distributed.Client] = None,
    points: int = 5,
    labels: Optional[str] = None,
    column: Optional[str] = None,
    lpc: Optional[Union[int, Literal["auto"]]] = None,
    exact: bool = False,
    settings: Optional[Settings] = None,
    batch: Optional[int] = None,
    threads: Optional[int] = None,
    retries: int = 3,
) -> dict[str, FilePath]:
    """Measures every recording of a manifest at its labels; returns the tables by name.

    manifest: a table with a column of paths (the first, or `column`) and any others, which are
        carried along; or folders and recordings.
    what: of "pitch", "intensity", "formants", "labels". Beside them "failed" names the recordings
        that could not be measured, with the reason.
    client: a Dask client; its workers see the recordings and `out` under the same paths. Without
        one, `threads` of this process do the work.
    labels: ending of the label files beside the recordings; points, lpc, exact: as in
        ``cantorix-batch corpus``; batch: recordings that a worker takes at a time, else as many as
        take half a second; retries: of a batch whose worker failed.

    Raises ValueError for arguments that do not fit, OSError for a manifest that cannot be read.
    """
    names = tuple(_engine.corpus_tables(",".join(what)))
    _whole("points", points, 0, 1000)
    if batch is not None:
        _whole("batch", batch, 1, 1000000)
    record = Settings() if settings is None else settings.copy()
    _record(record)
    if lpc is not None and lpc != "auto":
        record["spectrogram.lpcOrder"] = _whole("lpc", lpc, 1, 400)
    reader = _engine.CorpusReader(_sources(manifest), column or "")
    folder = FilePath(os.fsdecode(encoded(out, "out")))
    parts = folder / "parts"
    shutil.rmtree(parts, ignore_errors=True)
    parts.mkdir(parents=True)
    plan = _Plan(names, points, bool(exact), labels or "", lpc == "auto", record, str(parts))
    headers = {name: _engine.corpus_header(name, reader.columns, points) for name in names}
    headers[FAILED] = b"recording\treason\n"
    batches = _Batches(reader, batch)
    merged = _Merged(plan, headers, folder)
    try:
        if client is None:
            _run_here(plan, batches, merged, threads)
        else:
            _run_there(plan, batches, merged, client, retries)
        merged.finish()
    finally:
        merged.close()
    shutil.rmtree(parts)
    return {name: folder / f"{name}.tsv" for name in headers}


def _run_here(plan: _Plan, batches: _Batches, merged: _Merged, threads: Optional[int]) -> None:
    """Every batch in a thread of this process."""
    threads = threads or os.cpu_count() or 1
    waiting: deque[Future[_Done]] = deque()

    def take() -> None:
        done = waiting.popleft().result()
        merged.add(done)
        batches.heed(done)

    with ThreadPoolExecutor(threads) as pool:
        for index, entries in batches:
            waiting.append(pool.submit(_measure_batch, plan, index, entries))
            if len(waiting) >= AHEAD * threads:
                take()
        while waiting:
            take()


def _run_there(
    plan: _Plan, batches: _Batches, merged: _Merged, client: distributed.Client, retries: int
) -> None:
    """Every batch on a worker, so many at a time that none has to wait for work."""
    from distributed import as_completed

    def submit(index: int, entries: list[_Entry]) -> distributed.Future:
        return client.submit(_measure_batch, plan, index, entries, pure=False, retries=retries)

    most = AHEAD * max(sum(client.nthreads().values()), 1)
    futures = as_completed([submit(*batch) for batch in islice(batches, most)])
    for future in futures:
        done: _Done = future.result()
        merged.add(done)
        batches.heed(done)
        for batch in islice(batches, 1):
            futures.add(submit(*batch))
