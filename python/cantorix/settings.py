"""The settings record: every parameter of the measurements with its default, by name."""

from __future__ import annotations

from collections.abc import Iterator, MutableMapping
from typing import Union

from . import _engine
from ._paths import Path, encoded

Value = Union[int, float, str]


class Settings(MutableMapping[str, Value]):
    """Fields by name: ``Settings()["pitch.lowHz"]``. A new one holds the defaults.

    Values that no settings record may hold are refused with ValueError, names that it does not
    have with KeyError. ``keys()`` lists all names; none can be added or deleted.
    """

    def __init__(self, **fields: Value) -> None:
        """Defaults, but for fields given as ``group_field=value``: ``pitch_lowHz=75``."""
        self._record = _engine.Settings()
        for name, value in fields.items():
            self[name.replace("_", ".", 1)] = value

    @classmethod
    def load(cls, path: Path) -> Settings:
        """The record of a configuration file; OSError when it is none."""
        settings = cls()
        settings._record = _engine.Settings.load(encoded(path))
        return settings

    def save(self, path: Path) -> None:
        """Writes the record as a configuration file."""
        self._record.save(encoded(path))

    def copy(self) -> Settings:
        """The same values, to be changed on their own."""
        settings = Settings()
        settings._record = _engine.Settings(self._record)
        return settings

    def __reduce__(self) -> tuple[object, ...]:
        return _restored, (dict(self),)

    @staticmethod
    def describe(name: str) -> tuple[str, str]:
        """Unit and meaning of a field."""
        return _engine.Settings.describe(name)

    def __getitem__(self, name: str) -> Value:
        return self._record.get(name)

    def __setitem__(self, name: str, value: Value) -> None:
        self._record.set(name, value)

    def __delitem__(self, name: str) -> None:
        raise TypeError("the fields of the settings cannot be deleted")

    def __iter__(self) -> Iterator[str]:
        return iter(_engine.Settings.names())

    def __len__(self) -> int:
        return len(_engine.Settings.names())

    def __repr__(self) -> str:
        default = Settings()
        changed = [f"{name}={self[name]!r}" for name in self if self[name] != default[name]]
        return f"<Settings {', '.join(changed) or 'of defaults'}>"


def _restored(fields: dict[str, Value]) -> Settings:
    """A pickled record again."""
    settings = Settings()
    settings.update(fields)
    return settings
