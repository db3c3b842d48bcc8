"""What is read from a changelog, and what is refused rather than published."""
import sys
from pathlib import Path

import pytest

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools" / "release"))
from changelog import Refused, numbers, read_changelog, split_at  # noqa: E402

GOOD = """# Changes
For people. - No bullet.
## 2.0 (unreleased)

- First `code`
  goes on here.
- Second.

### Česky (cs)
- První
    pokračuje.
### Português (Brasil) (pt-BR)
- Primeiro.
## 1.10.0
- Older.
## 1.9.5
- Oldest."""


@pytest.fixture
def read(tmp_path):
    def read_text(text):
        (tmp_path / "CHANGELOG.md").write_bytes(text.encode(errors="surrogateescape"))
        return read_changelog(tmp_path / "CHANGELOG.md")
    return read_text


def test_bullets_are_joined_and_sorted_by_version_and_language(read):
    newest, older, oldest = read(GOOD)
    assert [(s.version, s.unreleased, s.place) for s in (newest, older, oldest)] == [
        ("2.0", True, "CHANGELOG.md:3"), ("1.10.0", False, "CHANGELOG.md:14"), ("1.9.5", False, "CHANGELOG.md:16")]
    assert {tag: newest.text(tag) for tag in newest.notes} == {
        "en": "- First code goes on here.\n- Second.", "cs": "- První pokračuje.", "pt-BR": "- Primeiro."}
    assert (older.text("en"), older.text("cs"), oldest.text("en")) == ("- Older.", "", "- Oldest.")
    assert read(GOOD.replace("\n", "\r\n"))[0].notes == newest.notes


@pytest.mark.parametrize("old,new,error", [
    ("## 2.0 (unreleased)", "## 2.0 (soon)", "3: a heading '## VERSION'"),
    ("## 1.10.0", "#### 1.10.0", "14: no heading of this level"),
    ("For people.", "### Česky (cs)", "2: no heading of this level"),
    ("## 1.10.0", "## 2.0.0", "14: version 2.0.0 stands here for the second time"),
    ("## 1.10.0", "## 1.9.4", "16: 1.9.5 stands below the older 1.9.4"),
    ("## 1.10.0", "## 1.10.0 (unreleased)", "14: 1.10.0 is older than another section"),
    ("- Oldest.", "", "16: there are no English notes of 1.9.5"),
    ("- Primeiro.", "", "12: there are no notes below '### Português (Brasil) (pt-BR)'"),
    ("(pt-BR)", "(pt_BR)", "12: a heading '### Name (language tag)'"),
    ("(pt-BR)", "(cs)", "12: the language 'cs' stands here for the second time"),
    ("(pt-BR)", "(cs-CZ)", "12: no reader would get notes in 'cs-CZ'"),
    ("(pt-BR)", "(en)", "12: no reader would get notes in 'en'"),
    ("- Second.", "Second.", "7: neither a bullet"),
    ("- Second.", "  - Second.", "7: neither a bullet"),
    ("- Second.", "\n  Second.", "8: neither a bullet"),
    ("- Second.", "- Sec\u2028ond.", "7: holds a control character"),
    ("- Second.", "- \udcff.", " is no UTF-8 text from byte "),
    (GOOD, "# Changes\n", "2: there is no section of a version"),
])
def test_a_broken_changelog_is_refused_at_its_line(read, old, new, error):
    assert old in GOOD
    with pytest.raises(Refused) as refused:
        read(GOOD.replace(old, new, 1))
    assert str(refused.value).startswith("CHANGELOG.md:" + error) and "\n" not in str(refused.value)


def test_only_the_newest_section_is_published(read):
    present, earlier = split_at("2.0", read(GOOD))
    assert present.version == "2.0" and [section.version for section in earlier] == ["1.10.0", "1.9.5"]
    for version, text, error in (
            ("1.10.0", GOOD, "CHANGELOG.md:14: version 1.10.0 is not newer than 2.0"),
            ("2.0.0", GOOD, "CHANGELOG.md:3: there is no section for version 2.0.0; the newest one is 2.0"),
            ("2.0", GOOD.replace("Česky (cs)", "Polski (pl)"), "CHANGELOG.md:3: there are no Czech notes of 2.0")):
        with pytest.raises(Refused, match=error):
            split_at(version, read(text))


def test_versions_are_compared_as_numbers():
    assert numbers("0") < numbers("0.9") < numbers("1.0.9") < numbers("1.0.10") < numbers("1.0.10.1") < numbers("10")
    assert numbers("1.0.0") == numbers("1")
