"""Tiers and labels: a recording's tiers by name, each a list of labels."""

from __future__ import annotations

from collections.abc import Iterable, Iterator, Mapping, MutableSequence
from dataclasses import asdict, dataclass
from typing import Any, Literal, Union, overload

import numpy as np

from . import _engine

Alignment = Literal["left", "center", "right"]
ALIGNMENTS: tuple[Alignment, ...] = ("left", "center", "right")


def _require_whole(name: str, value: object, least: int, most: int) -> None:
    whole = isinstance(value, (int, np.integer)) and not isinstance(value, bool)
    if not whole or not least <= value <= most:  # type: ignore[operator]
        raise ValueError(f"{name} must be a whole number, {least} to {most}, not {value!r}")


@dataclass(frozen=True)
class Label:
    """A label; to change one, put another in its place (dataclasses.replace).

    time_ms: 0 to the recording's length; text: 1 to 255 bytes in UTF-8; vertical_position: 0 to 1
    of the tier's height; flag 1: a line at the label's time; colour: red in bits 0-7, green 8-15,
    blue 16-23; font: the 60 bytes of the native file, none for the usual one.
    """

    time_ms: float
    text: str
    alignment: Alignment = "left"
    vertical_position: float = 0.7
    flag: int = 0
    colour: int = 0
    reserved_word: int = 0
    label_box: tuple[int, int, int, int] = (0, 0, 0, 0)
    font: bytes = b""

    def _fields(self) -> dict[str, Any]:
        """For the engine, with what it does not look at judged here."""
        if self.alignment not in ALIGNMENTS:
            raise ValueError(f"alignment must be one of {ALIGNMENTS}, not {self.alignment!r}")
        _require_whole("flag", self.flag, 0, 1)
        _require_whole("colour", self.colour, 0, 2**24 - 1)
        _require_whole("reserved_word", self.reserved_word, 0, 2**32 - 1)
        if not isinstance(self.label_box, tuple) or len(self.label_box) != 4:
            raise ValueError(f"label_box must hold four whole numbers, not {self.label_box!r}")
        for word in self.label_box:
            _require_whole("label_box", word, -(2**31), 2**31 - 1)
        if not isinstance(self.font, bytes):
            raise ValueError(f"font must be 60 bytes, or none, not {self.font!r}")
        return {**asdict(self), "alignment": ALIGNMENTS.index(self.alignment)}


def _label(fields: dict[str, Any]) -> Label:
    side = min(max(fields["alignment"], 0), 2)  # a file may hold any number
    return Label(**{**fields, "alignment": ALIGNMENTS[side]})


class Tier(MutableSequence[Label]):
    """The labels of a tier in their stored order, which is that of their making."""

    def __init__(self, engine: _engine.Recording, slot: int, name: str) -> None:
        self._engine = engine
        self._slot = slot
        self.name = name

    def __repr__(self) -> str:
        return f"<Tier {self.name!r}: {len(self)} labels>"

    def _labels(self) -> list[Label]:
        return [_label(fields) for fields in self._engine.labels(self._slot)]

    def _put(self, labels: Iterable[Label]) -> None:
        given = list(labels)
        for label in given:
            if not isinstance(label, Label):
                raise ValueError(f"a tier holds cantorix.Label, not {label!r}")
        self._engine.set_labels(self._slot, [label._fields() for label in given])

    @overload
    def __getitem__(self, index: int) -> Label: ...

    @overload
    def __getitem__(self, index: slice) -> list[Label]: ...

    def __getitem__(self, index: Union[int, slice]) -> Union[Label, list[Label]]:
        return self._labels()[index]

    def __setitem__(self, index: Any, value: Any) -> None:
        labels = self._labels()
        labels[index] = value
        self._put(labels)

    def __delitem__(self, index: Union[int, slice]) -> None:
        labels = self._labels()
        del labels[index]
        self._put(labels)

    def __len__(self) -> int:
        return len(self._engine.labels(self._slot))

    def __iter__(self) -> Iterator[Label]:
        return iter(self._labels())

    def insert(self, index: int, value: Label) -> None:
        """Puts a label before the one at `index`."""
        labels = self._labels()
        labels.insert(index, value)
        self._put(labels)

    def extend(self, values: Iterable[Label]) -> None:
        """Adds many labels at once; all or, when one is refused, none."""
        self._put([*self._labels(), *values])


class Tiers(Mapping[str, Tier]):
    """The tiers in use by name, from the top of the display; ten at most."""

    def __init__(self, engine: _engine.Recording) -> None:
        self._engine = engine

    def __repr__(self) -> str:
        return f"<Tiers {list(self)}>"

    def __getitem__(self, name: str) -> Tier:
        for slot, called in reversed(self._engine.tiers()):
            if called == name:
                return Tier(self._engine, slot, name)
        raise KeyError(name)

    def __iter__(self) -> Iterator[str]:
        return iter(dict.fromkeys(name for _, name in self._engine.tiers()))

    def __len__(self) -> int:
        return len(list(iter(self)))

    def add(self, name: str) -> Tier:
        """The tier of that name, which comes into use; ValueError when all ten are in use."""
        return Tier(self._engine, self._engine.add_tier(name), name)

    def remove(self, name: str) -> None:
        """Takes a tier out of use, with its labels."""
        self._engine.drop_tier(self[name]._slot)
