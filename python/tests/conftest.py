"""What the tests share: the sample recording, and the batch program to compare with."""

from __future__ import annotations

import os
import subprocess
from collections.abc import Callable
from pathlib import Path

import pytest

import cantorix

ROOT = Path(__file__).resolve().parents[2]
SAMPLE = ROOT / "samples" / "vowels.qrv"
Table = list[list[str]]


@pytest.fixture
def sample() -> cantorix.Recording:
    return cantorix.open(SAMPLE)


@pytest.fixture(scope="session")
def batch() -> Callable[..., Table]:
    """The rows of a table of the batch program, without its header."""
    program = os.environ.get("CANTORIX_BATCH", "")
    if not program:
        pytest.skip("CANTORIX_BATCH names no program to compare with")

    def run(*words: object) -> Table:
        command = [program, *map(str, words), "--exact"]
        text = subprocess.run(command, check=True, capture_output=True, text=True).stdout
        return [line.split("\t") for line in text.splitlines()][1:]

    return run
