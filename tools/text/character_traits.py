#!/usr/bin/env python3
"""character_traits.py OUT: writes what tavi's text code has to know about each character of Unicode, as the body of an
array that tavi/text/character_traits.cpp includes. Each number holds the first code point of a range above its low eleven
bits, and in those the traits of tavi/text/character_traits.h: the cluster's four bits, the break's three, the word's and the
direction's two each.

The same Python gives the same file; versions of Python bring different versions of Unicode, which differ in characters that
were assigned lately. So it asks for one that knows at least the characters of Unicode 15."""
import sys
import unicodedata
from pathlib import Path

# In the order of the enumerations of tavi/text/character_traits.h.
CLUSTERS = ["OTHER", "MARK", "JOINER", "CONTROL", "CARRIAGE_RETURN", "LINE_FEED", "PREFIX", "FLAG", "PICTURE", "LEADING",
            "VOWEL", "TRAILING", "SYLLABLE", "LINKER", "CONSONANT"]
BREAKS = ["LETTER", "IDEOGRAPH", "OPENING", "CLOSING", "AFTER", "GLUE", "BLANK"]
WORDS = ["SIGN", "LETTER", "BLANK"]
DIRECTIONS = ["NONE", "LEFT_TO_RIGHT", "RIGHT_TO_LEFT"]


def spread(*ranges):
    """The code points of ranges with both their ends."""
    return {c for first, last in ranges for c in range(first, last + 1)}


HANGUL = {"LEADING": spread((0x1100, 0x115F), (0xA960, 0xA97C)),
          "VOWEL": spread((0x1160, 0x11A7), (0xD7B0, 0xD7C6)),
          "TRAILING": spread((0x11A8, 0x11FF), (0xD7CB, 0xD7FB)),
          "SYLLABLE": spread((0xAC00, 0xD7A3))}
PREFIXES = spread((0x600, 0x605), (0x6DD, 0x6DD), (0x70F, 0x70F), (0x890, 0x891), (0x8E2, 0x8E2), (0xD4E, 0xD4E),
                  (0x110BD, 0x110BD), (0x110CD, 0x110CD))
# Marks by their use, whatever their category: half-width voicing, skin tones, tags, Thai and Lao AM.
MORE_MARKS = spread((0xFF9E, 0xFF9F), (0x1F3FB, 0x1F3FF), (0xE0020, 0xE007F), (0xE33, 0xE33), (0xEB3, 0xEB3), (0x200C, 0x200C))
# Signs below a consonant of which the next one is joined, and the blocks whose letters take part.
LINKERS = {0x94D, 0x9CD, 0xA4D, 0xACD, 0xB4D, 0xC4D, 0xCCD, 0xD4D, 0xDCA, 0x1039, 0x17D2}
CONJUNCT_LETTERS = spread((0x904, 0xB7F), (0xC00, 0xDFF), (0x1000, 0x103F), (0x1050, 0x109F), (0x1780, 0x17B3))
# Blocks of pictures, with what is not assigned there yet, and pictures beyond them.
PICTURES = spread((0x1F000, 0x1F1E5), (0x1F200, 0x1F3FA), (0x1F400, 0x1FAFF), (0x2600, 0x27BF)) | {
    c for c in spread((0x2190, 0x21FF), (0x2300, 0x23FF), (0x25A0, 0x25FF), (0x2B00, 0x2BFF)) if unicodedata.category(chr(c)) == "So"
} | {0xA9, 0xAE, 0x203C, 0x2049, 0x2122, 0x2139, 0x2194, 0x3030, 0x303D, 0x3297, 0x3299}

# What no line of Japanese or Chinese begins with beside closing brackets: small kana, marks of repetition, points.
NON_STARTERS = {ord(c) for c in "ぁぃぅぇぉっゃゅょゎゕゖァィゥェォッャュョヮヵヶー々〻ゝゞヽヾ〜゠・･ｰ、。，．：；！？％‰℃｡､"} | spread(
    (0x31F0, 0x31FF), (0xFF67, 0xFF6F))
# The points of all scripts, and what Thai, Lao and Khmer write after a consonant or a word.
POINTS = {ord(c) for c in "!,.:;?%)]}…‥។៕៖ៗ॥।،؛؟۔"} | spread(
    (0xE2F, 0xE30), (0xE32, 0xE33), (0xE45, 0xE46), (0xEAF, 0xEB0), (0xEB2, 0xEB3), (0xEBD, 0xEBD), (0xEC6, 0xEC6))
# Vowels that Thai and Lao write before the consonant that they follow in speech.
PRECEDING_VOWELS = spread((0xE40, 0xE44), (0xEC0, 0xEC4))
AFTER = {ord(c) for c in "-‐–—/\\|"} | {0x200B, 0xAD, 0xF0B, 0x1361}
GLUE = {0xA0, 0x202F, 0x2007, 0x2011, 0x2060, 0xFEFF, 0xF0C, 0x200D}
BLANKS = spread((0x2000, 0x2006), (0x2008, 0x200A)) | {0x09, 0x20, 0x1680, 0x205F, 0x3000}
# Hangul with them: its readers are used to lines that end inside of words.
IDEOGRAPHS = spread((0x1100, 0x11FF), (0x2E80, 0x2FFF), (0x3001, 0x30FF), (0x3105, 0x318F), (0x31A0, 0x4DBF), (0x4E00, 0xA4CF),
                    (0xA960, 0xA97F), (0xAC00, 0xD7FF), (0xF900, 0xFAFF), (0xFE30, 0xFE4F), (0xFF01, 0xFFDC), (0x1B000, 0x1B2FF),
                    (0x1F000, 0x1FAFF), (0x20000, 0x3FFFD))


def cluster_of(c, category):
    for name, members in HANGUL.items():
        if c in members:
            return name
    if c in PREFIXES:
        return "PREFIX"
    if c in LINKERS:
        return "LINKER"
    if c in MORE_MARKS or category in ("Mn", "Me", "Mc"):
        return "MARK"
    if 0x1F1E6 <= c <= 0x1F1FF:
        return "FLAG"
    if c in PICTURES:
        return "PICTURE"
    if c in CONJUNCT_LETTERS and category == "Lo":
        return "CONSONANT"
    special = {0x0D: "CARRIAGE_RETURN", 0x0A: "LINE_FEED", 0x200D: "JOINER"}
    return special.get(c, "CONTROL" if category in ("Cc", "Cf", "Cs", "Zl", "Zp") else "OTHER")


def break_of(c, category):
    if c in BLANKS:
        return "BLANK"
    if c in GLUE:
        return "GLUE"
    if c in AFTER:
        return "AFTER"
    if category in ("Ps", "Pi") or c in PRECEDING_VOWELS:
        return "OPENING"
    if category in ("Pe", "Pf") or c in POINTS or c in NON_STARTERS:
        return "CLOSING"
    return "IDEOGRAPH" if c in IDEOGRAPHS else "LETTER"


def word_of(c, category):
    if c == 0x200B or c in BLANKS or category in ("Zs", "Zl", "Zp", "Cc"):
        return "BLANK"
    return "LETTER" if category[0] in "LNM" or category == "Pc" or c in (0x200C, 0x200D) else "SIGN"


def direction_of(c):
    names = {"L": "LEFT_TO_RIGHT", "R": "RIGHT_TO_LEFT", "AL": "RIGHT_TO_LEFT"}
    return names.get(unicodedata.bidirectional(chr(c)), "NONE")


def traits_of(c):
    category = unicodedata.category(chr(c))
    return (CLUSTERS.index(cluster_of(c, category)) << 7 | BREAKS.index(break_of(c, category)) << 4 |
            WORDS.index(word_of(c, category)) << 2 | DIRECTIONS.index(direction_of(c)))


def ranges():
    """The first code point of each range, and its traits."""
    before = None
    for c in range(0x110000):
        # Nothing is known of what is not assigned: it goes with what stands before it, but is not a mark.
        if unicodedata.category(chr(c)) == "Cn" and c not in PICTURES and c not in IDEOGRAPHS:
            traits = traits_of(ord("*")) if before is None else before & 0b1111 | CLUSTERS.index("OTHER") << 7
        else:
            traits = traits_of(c)
        if traits != before:
            yield c, traits
        before = traits


def main(out):
    numbers = [f"0x{first << 11 | traits:X}," for first, traits in ranges()]
    lines = ["// Written by tools/text/character_traits.py."]
    lines += [" ".join(numbers[i:i + 10]) for i in range(0, len(numbers), 10)]
    out.parent.mkdir(parents=True, exist_ok=True)
    out.write_text("\n".join([*lines, ""]), encoding="utf-8")


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    if tuple(map(int, unicodedata.unidata_version.split("."))) < (15,):
        sys.exit("character_traits.py: the characters of Unicode 15 are needed, this Python has those of " +
                 unicodedata.unidata_version)
    main(Path(sys.argv[1]))
