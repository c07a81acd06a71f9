"""Tiers and labels: edited, saved, and carried to and from other programs."""

from __future__ import annotations

from dataclasses import replace
from pathlib import Path

import pytest

import cantorix
from cantorix import Label
from conftest import SAMPLE


def test_labels_are_edited_and_saved_with_all_their_fields(
    sample: cantorix.Recording, tmp_path: Path
) -> None:
    before = list(sample.tiers["words"])
    assert [label.text for label in before][:2] == ["i", "e"]
    tier = sample.tiers.add("checked")
    whole = Label(12.5, "ɛ̃ 1", "center", 0.25, 1, 0x0102FF, 7, (1, -2, 3, 4), b"\x0e" + bytes(59))
    tier.extend([whole, Label(100, "b"), Label(50, "c")])
    tier[1] = replace(tier[1], text="d")
    del tier[2]
    sample.save(tmp_path / "a.qrv")
    again = cantorix.open(tmp_path / "a.qrv")
    assert list(again.tiers["checked"])[1] == replace(tier[1])
    assert replace(again.tiers["checked"][0], reserved_word=7) == whole
    assert list(again.tiers["words"]) == before
    sample.tiers.remove("checked")
    assert list(sample.tiers) == list(cantorix.open(SAMPLE).tiers)


def test_label_files_of_other_programs_go_out_and_in(
    sample: cantorix.Recording, tmp_path: Path
) -> None:
    path = tmp_path / "a.TextGrid"
    sample.export_labels(path, "textgrid")
    bare = cantorix.from_samples(sample.samples, sample.rate)
    bare.import_labels(path)
    for name, tier in sample.tiers.items():
        got = [(label.text, round(label.time_ms, 3)) for label in bare.tiers[name]]
        assert got == [(label.text, round(label.time_ms, 3)) for label in tier]
    with pytest.raises(OSError, match="could not be opened"):
        bare.import_labels(SAMPLE)


@pytest.mark.parametrize("label, words", [
    (Label(-1, "a"), "time_ms must be 0 to 5410"),
    (Label(float("nan"), "a"), "time_ms must be 0 to 5410"),
    (Label(1, ""), "text must be a text of 1 to 255 bytes in UTF-8"),
    (Label(1, "ä" * 128), "text must be a text of 1 to 255 bytes in UTF-8"),
    (Label(1, "a", vertical_position=2), "vertical_position must be 0 to 1.0, not 2"),
    (Label(1, "a", colour=-1), "colour must be a whole number, 0 to 16777215, not -1"),
    (Label(1, "a", font=b"Arial"), "font must be 60 bytes, or none"),
    (Label(1, "a", font=b"z" * 60), "font must be of a height up to 100 and a width up to 3000"),
])
def test_a_label_that_cannot_be_leaves_the_tier_alone(
    sample: cantorix.Recording, label: Label, words: str
) -> None:
    tier = sample.tiers.add("new")
    tier.append(Label(5, "first"))
    with pytest.raises(ValueError) as caught:
        tier.extend([Label(6, "second"), label])
    assert str(caught.value).startswith(words)
    assert [kept.text for kept in tier] == ["first"]
