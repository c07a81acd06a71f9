"""A corpus in Python gives the tables of the batch program, also on workers and after a kill."""

from __future__ import annotations

import os
import pickle
import signal
import subprocess
import time
from pathlib import Path
from typing import Any

import numpy as np
import pytest

import cantorix
from cantorix import _engine, corpus
from conftest import ROOT, SAMPLE

TABLES: list[corpus.Table] = ["pitch", "intensity", "formants", "labels"]
NAMES = (*TABLES, "failed")


@pytest.fixture(scope="module")
def manifest(tmp_path_factory: pytest.TempPathFactory) -> Path:
    """Thirty stretches of the sample with their labels, one file that is none."""
    folder = tmp_path_factory.mktemp("corpus")
    rec = cantorix.open(SAMPLE)
    rows = ["speaker\tfile\tage"]
    for number in range(30):
        rec.select(number * 100, number * 100 + 1500).save(folder / f"{number}.qrv")
        rows.append(f"s{number % 3}\t{number}.qrv\t{20 + number}")
    (folder / "none.wav").write_text("no sound")
    rows.insert(7, "s1\tnone.wav\t40")
    (folder / "all.tsv").write_text("\n".join(rows) + "\n")
    return folder / "all.tsv"


def start(manifest: Path, out: Path, *words: str) -> subprocess.Popen[bytes]:
    program = os.environ.get("CANTORIX_BATCH", "")
    if not program:
        pytest.skip("CANTORIX_BATCH names no program to compare with")
    command = [program, "corpus", str(manifest), "--column", "file", "--do", ",".join(TABLES),
               "-o", str(out), "-j", "2", "--exact", *words]
    return subprocess.Popen(command, stderr=subprocess.PIPE)


def texts(folder: Path) -> dict[str, bytes]:
    return {name: (folder / f"{name}.tsv").read_bytes() for name in NAMES}


@pytest.fixture(scope="module")
def expected(manifest: Path, tmp_path_factory: pytest.TempPathFactory) -> dict[str, bytes]:
    out = tmp_path_factory.mktemp("local")
    run = start(manifest, out)
    errors = run.communicate()[1].decode()
    assert (run.returncode, errors) == (
        1, f"cantorix-batch: 1 recordings failed, see {out}/failed.tsv\n")
    return texts(out)


def rows_of(text: bytes) -> list[dict[str, str]]:
    head, *lines = [line.split("\t") for line in text.decode().splitlines()]
    return [dict(zip(head, line)) for line in lines]


def test_rows_hold_what_the_recordings_measure(
    manifest: Path, expected: dict[str, bytes]
) -> None:
    first = next(row for row in rows_of(expected["pitch"]) if row["label"] == "i")
    assert {key: first[key] for key in ("recording", "speaker", "age", "tier", "label")} == {
        "recording": "0.qrv", "speaker": "s0", "age": "20", "tier": "words", "label": "i"}
    start_ms, end_ms = float(first["start_ms"]), float(first["end_ms"])
    track = cantorix.open(manifest.parent / "0.qrv").pitch()
    inside = (track.times_ms >= start_ms) & (track.times_ms < end_ms) & (track.pitch_hz > 0)
    times, values = track.times_ms[inside] / 1000, track.pitch_hz[inside]
    assert float(first["pitch_hz_mean"]) == pytest.approx(values.mean())
    assert float(first["pitch_hz_slope"]) == pytest.approx(np.polyfit(times, values, 1)[0])
    middle = np.searchsorted(track.times_ms, (start_ms + end_ms) / 2, "right") - 1
    assert float(first["pitch_hz_3"]) == track.pitch_hz[middle]
    none, = rows_of(expected["failed"])
    assert none["recording"] == "none.wav" and "Its format is not known." in none["reason"]


def test_threads_and_a_cluster_give_the_same_bytes(
    manifest: Path, expected: dict[str, bytes], tmp_path: Path
) -> None:
    from distributed import Client, LocalCluster

    arguments: dict[str, Any] = {"column": "file", "exact": True, "batch": 4}
    corpus.measure(manifest, TABLES, tmp_path / "threads", threads=2, **arguments)
    assert texts(tmp_path / "threads") == expected
    with LocalCluster(n_workers=2, threads_per_worker=1, dashboard_address=None,
                      processes=False) as cluster, Client(cluster) as client:
        corpus.measure(manifest, TABLES, tmp_path / "dask", client=client, **arguments)
    assert texts(tmp_path / "dask") == expected


def test_a_killed_run_goes_on_to_the_same_bytes(
    manifest: Path, expected: dict[str, bytes], tmp_path: Path
) -> None:
    out = tmp_path / "out"
    for number in range(3):
        run = start(manifest, out, "--resume")
        time.sleep(0.15 + 0.2 * number)
        run.send_signal(signal.SIGKILL)
        run.communicate()
        for part in out.glob("*.part"):
            with part.open("ab") as torn:
                torn.write(b"half a row")
    start(manifest, out, "--resume").communicate()
    assert texts(out) == expected
    again = start(manifest, out)
    assert b"--resume goes on with it" in again.communicate()[1] and again.returncode == 2
    other = start(manifest, out, "--resume", "--points", "2")
    assert b"other recordings or options" in other.communicate()[1] and other.returncode == 2


def test_folders_are_walked_in_the_order_of_paths(tmp_path: Path) -> None:
    for name in ("b.wav", "a/z.wav", "a-b/1.flac", "a.b/2.ogg", "ab.mp3", "a/y/x.au", "a/notes.txt"):
        (tmp_path / name).parent.mkdir(parents=True, exist_ok=True)
        (tmp_path / name).touch()
    (tmp_path / "a/back").symlink_to(tmp_path)
    reader = _engine.CorpusReader([os.fsencode(tmp_path), b"x.wav"], "")
    expected = sorted(str(path) for path in tmp_path.rglob("*.*")
                      if path.is_file() and path.suffix != ".txt" and "back" not in path.parts)
    taken = [os.fsdecode(path) for batch in iter(lambda: reader.take(2), []) for path, _ in batch]
    assert taken == [*expected, "x.wav"]


def test_a_long_table_is_read_line_by_line(tmp_path: Path) -> None:
    rows = [(f"{number}.wav", "q" * (number % 700)) for number in range(3000)]
    table = tmp_path / "long.csv"
    table.write_bytes("file,text\r\n".encode() + "\r\n\n".join(
        f'"{name}","{text}""""x,y"' for name, text in rows).encode())
    reader = _engine.CorpusReader([bytes(table)], "")
    assert reader.columns == [b"recording", b"text"] and reader.take(5000) == [
        (bytes(tmp_path / name), f'{name}\t{text}""x,y'.encode()) for name, text in rows]


def test_settings_travel_to_workers() -> None:
    settings = cantorix.Settings(pitch_lowHz=77.25)
    assert dict(pickle.loads(pickle.dumps(settings))) == dict(settings)


def test_the_tutorial_runs(tmp_path: Path) -> None:
    import sys

    command = [sys.executable, str(ROOT / "python/examples/tutorial.py"), str(SAMPLE), str(tmp_path)]
    printed = subprocess.run(command, check=True, capture_output=True, text=True).stdout
    assert "F1   30" in printed and "F1_mean" in printed
    assert {path.name for path in tmp_path.glob("*.png")} == {"speech.png", "vowels.png"}
