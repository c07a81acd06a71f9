"""A whole corpus as long tables: on this machine, or on the workers of a Dask cluster.

    from cantorix import corpus
    corpus.measure("speakers.tsv", ["pitch", "formants"], "tables", client=dask_client)

The tables are those of ``cantorix-batch corpus``, byte for byte, whoever measured them.
"""

from __future__ import annotations

import os
import shutil
from collections.abc import Iterable, Sequence
from concurrent.futures import ThreadPoolExecutor
from dataclasses import dataclass
from pathlib import Path as FilePath
from typing import TYPE_CHECKING, Literal, Optional, Union

from . import _engine
from ._paths import Path, encoded
from .recording import _record, _whole
from .settings import Settings

if TYPE_CHECKING:
    import distributed

Table = Literal["pitch", "intensity", "formants", "labels"]
FAILED = "failed"
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


def _measure_batch(plan: _Plan, index: int, entries: Sequence[_Entry]) -> int:
    """Measures some recordings and writes their rows; returns how many failed.

    A batch may be done twice, when its worker dies or is taken for dead: the files of a part appear
    whole, and are the same whoever writes them last.
    """
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
    for table, pieces in texts.items():
        place = plan.part(index, table)
        growing = place.with_name(f".{place.name}.{os.getpid()}.{id(texts)}")
        growing.write_bytes(b"".join(pieces))
        growing.replace(place)
    return len(texts[FAILED])


def _merge(plan: _Plan, headers: dict[str, bytes], parts: int, out: FilePath) -> None:
    """One table after the other, in the order of the manifest."""
    for table, header in headers.items():
        growing = out / f"{table}.tsv.part"
        with growing.open("wb") as whole:
            whole.write(header)
            for index in range(parts):
                with plan.part(index, table).open("rb") as part:
                    shutil.copyfileobj(part, whole)
            whole.flush()
            os.fsync(whole.fileno())
        growing.replace(out / f"{table}.tsv")


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
    batch: int = 20,
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
        ``cantorix-batch corpus``; batch: recordings that a worker takes at a time; retries: of a
        batch whose worker failed.

    Raises ValueError for arguments that do not fit, OSError for a manifest that cannot be read.
    """
    names = tuple(_engine.corpus_tables(",".join(what)))
    _whole("points", points, 0, 1000)
    _whole("batch", batch, 1, 1000000)
    record = Settings() if settings is None else settings.copy()
    _record(record)
    if lpc is not None and lpc != "auto":
        record["spectrogram.lpcOrder"] = _whole("lpc", lpc, 1, 400)
    columns, entries = _engine.corpus_list(_sources(manifest), column or "")
    folder = FilePath(os.fsdecode(encoded(out, "out")))
    parts = folder / "parts"
    shutil.rmtree(parts, ignore_errors=True)
    parts.mkdir(parents=True)
    plan = _Plan(names, points, bool(exact), labels or "", lpc == "auto", record, str(parts))
    headers = {name: _engine.corpus_header(name, columns, points) for name in names}
    headers[FAILED] = b"recording\treason\n"
    batches = [entries[at : at + batch] for at in range(0, len(entries), batch)]
    _run(plan, batches, client, threads, retries)
    _merge(plan, headers, len(batches), folder)
    shutil.rmtree(parts)
    return {name: folder / f"{name}.tsv" for name in headers}


def _run(
    plan: _Plan,
    batches: list[list[_Entry]],
    client: Optional[distributed.Client],
    threads: Optional[int],
    retries: int,
) -> None:
    """Every batch on a worker, or in a thread of this process."""
    indices = range(len(batches))
    if client is None:
        with ThreadPoolExecutor(threads) as pool:
            for _ in pool.map(_measure_batch, [plan] * len(batches), indices, batches):
                pass
        return
    futures = client.map(
        _measure_batch, [plan] * len(batches), indices, batches, pure=False, retries=retries
    )
    client.gather(futures)
