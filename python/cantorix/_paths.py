"""Paths as the engine takes them."""

from __future__ import annotations

import os
from typing import Union

Path = Union[str, bytes, "os.PathLike[str]", "os.PathLike[bytes]"]


def encoded(path: Path, name: str = "path") -> bytes:
    """The bytes of a path; ValueError, naming the argument, for what is none."""
    try:
        raw = os.fsencode(path)
    except (TypeError, UnicodeEncodeError):
        raise ValueError(f"{name} must be a path, not {path!r}") from None
    if not raw or b"\0" in raw:
        raise ValueError(f"{name} must be a path, not {path!r}")
    return raw
