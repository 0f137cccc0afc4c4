#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""make_test_fonts.py DIRECTORY

Writes the font files of the catalogue's tests into a directory. Needs fontTools (Debian's python3-fonttools). The bytes
depend on nothing else: a test compares them with those in data/.

Each font has one empty glyph and the tables that FreeType asks for, a few also that which Windows asks for. The tables of
names are packed here, since most of what they hold is what no font tool would write.
"""

import io
import pathlib
import random
import struct
import sys

from fontTools.fontBuilder import FontBuilder
from fontTools.misc.psCharStrings import T2CharString
from fontTools.ttLib import TTCollection, TTFont, newTable
from fontTools.ttLib.tables import _c_m_a_p
from fontTools.ttLib.tables._g_l_y_f import Glyph
from fontTools.ttLib.tables.DefaultTable import DefaultTable

FAMILY, STYLE = 1, 2
MAC, MICROSOFT = 1, 3
MAC_ROMAN = (MAC, 0)
SYMBOL = (MICROSOFT, 0)
UNICODE = (MICROSOFT, 1)
ENGLISH = 0x409
BOLD, ITALIC = 1, 2  # in the font's header; FreeType's flags are the other way round

PRIVATE_USE = 0xF041
LATIN_1, LATIN_2, CYRILLIC = 1, 2, 4  # code pages


def name(name_id, text, language=ENGLISH, kind=UNICODE):
    """One record of a table of names; the text as it is or as bytes."""
    encoded = text if isinstance(text, bytes) else text.encode("utf_16_be")
    return kind + (language, name_id, encoded)


def names(family, style):
    given = [(FAMILY, family), (STYLE, style)]
    return [name(name_id, text) for name_id, text in given if text is not None]


def name_table(records):
    storage = b""
    table = struct.pack(">HHH", 0, len(records), 6 + 12 * len(records))
    for platform, encoding, language, name_id, text in records:
        table += struct.pack(">6H", platform, encoding, language, name_id, len(text), len(storage))
        storage += text
    return table + storage


def character_map(kind):
    table = _c_m_a_p.CmapSubtable.newSubtable(0 if kind == MAC_ROMAN else 4)
    table.platformID, table.platEncID = kind
    table.language = 0
    table.cmap = {PRIVATE_USE if kind == SYMBOL else 0x41: ".notdef"}
    return table


def font(records, maps=(UNICODE,), style=0, is_true_type=True, code_pages=0):
    """A font with the given records of names, character maps and bits of style in its header, and for Windows with the
    code pages that it serves."""
    builder = FontBuilder(unitsPerEm=1000, isTTF=is_true_type)
    builder.font.recalcTimestamp = False
    builder.updateHead(created=0, modified=0, macStyle=style)
    builder.setupGlyphOrder([".notdef"])
    if is_true_type:
        builder.setupGlyf({".notdef": Glyph()})
    else:
        builder.setupCFF("Vellum", {}, {".notdef": T2CharString(program=["endchar"])}, {})
    builder.setupHorizontalMetrics({".notdef": (500, 0)})
    builder.setupHorizontalHeader(ascent=800, descent=-200)
    builder.setupPost(keepGlyphNames=False)
    if maps:
        cmap = builder.font["cmap"] = newTable("cmap")
        cmap.tableVersion = 0
        cmap.tables = [character_map(kind) for kind in maps]
    if code_pages:
        builder.setupOS2(ulCodePageRange1=code_pages)
    table = builder.font["name"] = DefaultTable("name")
    table.data = name_table(records)
    return packed(builder.font)


def packed(made):
    out = io.BytesIO()
    made.save(out)
    return out.getvalue()


def bitmap(plain):
    """A font with a picture of eight dots in the place of its outline."""
    line = struct.pack(">bbB9x", 1, 0, 8)
    strike = struct.pack(">4L", 56, 24, 1, 0) + line + line + struct.pack(">HH4B", 0, 0, 8, 8, 1, 1)
    index = struct.pack(">HHL", 0, 0, 8) + struct.pack(">HHLLL", 1, 1, 4, 0, 6)
    tables = {
        "EBLC": struct.pack(">LL", 0x20000, 1) + strike + index,
        "EBDT": struct.pack(">LBBbbBB", 0x20000, 1, 8, 0, 1, 8, 0xFF),
    }
    made = TTFont(io.BytesIO(plain), recalcTimestamp=False, recalcBBoxes=False, lazy=True)
    for tag in ("glyf", "loca"):
        del made[tag]
    for tag, data in tables.items():
        made[tag] = DefaultTable(tag)
        made[tag].data = data
    return packed(made)


def collection(*fonts):
    faces = TTCollection()
    faces.fonts = [TTFont(io.BytesIO(data), recalcTimestamp=False, lazy=True) for data in fonts]
    return packed(faces)


def localized():
    japanese, german, french, spanish, chinese = 17, 7, 12, 10, 4
    records = names("Vellum Local", "Bold") + [
        name(FAMILY, "platform", japanese, (0, 1)),
        name(FAMILY, "encoding", japanese, SYMBOL),
        name(FAMILY, "sub-language", 0x411),
        name(4, "full name", japanese),
        name(FAMILY, "", japanese),
        name(FAMILY, "ベラム", japanese),
        name(FAMILY, "too late", japanese),
        name(STYLE, "太字", japanese),
        name(STYLE, "encoding", german, (MICROSOFT, 10)),
        name(FAMILY, "Wellum", german),
        name(STYLE, "Gras", french),
        name(FAMILY, b"\0V\0e\0", spanish),
        name(STYLE, b"N", spanish),
        name(FAMILY, "文", chinese),
    ]
    # One name for each of the other languages.
    records += [name(FAMILY, f"L{language}", language) for language in (16, 18, 22, 25)]
    return font(records)


def styles():
    plain = "Vellum Styles"
    return collection(
        font(names(plain, "Regular")),
        font(names(plain, "BoLd OBLIQUE")),
        font(names(plain, "Both by flag"), style=BOLD | ITALIC),
        font(names(plain, "Heavy"), style=BOLD),
        font(names(plain, "Slanted"), style=ITALIC),
        font(names(plain, "SEMIBOLD")),
        font(names(plain, "iTaLiC")),
        font(names(plain, "Oblique"), style=BOLD),
        font(names("Embolden", "Regular")),
        font(names("Vellum ITALICS", "Regular")),
        font(names("Obliquely", "Regular")),
        font(names(plain, "Regular")),
    )


def patched(data, offset, replacement):
    return data[:offset] + replacement + data[offset + len(replacement) :]


def damaged(plain, trio):
    """Files that are no fonts, or no longer."""
    name_offset = plain.index(name_table(names("Vellum Plain", "Regular")))
    noise = random.Random(5)
    return {
        "empty.ttf": b"",
        "garbage.ttf": bytes(noise.randrange(256) for _ in range(300)),
        "garbage-behind-header.ttf": plain[:12] + bytes(noise.randrange(256) for _ in range(300)),
        "truncated-header.ttf": plain[:7],
        "truncated-directory.ttf": plain[:60],
        "truncated-tables.ttf": plain[:300],
        "truncated.ttc": trio[: len(trio) - 700],
        "no-faces.ttc": patched(trio, 8, struct.pack(">L", 0)),
        "countless-faces.ttc": patched(trio, 8, struct.pack(">L", 0xFFFFFFFF)),
        # The second face's tables begin where the file ends.
        "broken-middle.ttc": patched(trio, 16, struct.pack(">L", len(trio) - 4)),
        "more-faces-than-offsets.ttc": patched(trio, 8, struct.pack(">L", 12)),
        "endless-names.ttf": patched(plain, name_offset + 14, struct.pack(">HH", 0xFFFF, 0)),
        "names-elsewhere.ttf": patched(plain, name_offset + 14, struct.pack(">HH", 8, 0xFFF0)),
        "countless-names.ttf": patched(plain, name_offset + 2, struct.pack(">H", 0xFFFF)),
    }


def files():
    plain = font(names("Vellum Plain", "Regular"))
    trio = collection(
        font(names("Vellum Trio", "Regular")),
        font(names("Vellum Duo", "Bold"), style=BOLD),
        font(names("Vellum Trio", "Italic"), style=ITALIC),
    )
    made = {
        "plain.ttf": plain,
        "plain-medium.ttf": font(names("Vellum Plain", "Medium")),
        "plain-lower-case.ttf": font(names("vellum plain", "Regular")),
        "trio.ttc": trio,
        "styles.ttc": styles(),
        "localized.ttf": localized(),
        "symbol.ttf": font(names("Vellum Symbol", "Regular"), maps=(MAC_ROMAN, SYMBOL)),
        "symbol-twice.ttf": font(names("Vellum Symbol", "Twice"), maps=(SYMBOL, SYMBOL, UNICODE)),
        "no-maps.ttf": font(names("Vellum Mapless", "Regular"), maps=()),
        "mac-map.ttf": font(names("Vellum Roman", "Regular"), maps=(MAC_ROMAN,)),
        # A face without a usable map ends its file.
        "interrupted.ttc": collection(
            font(names("Vellum First", "Regular")),
            font(names("Vellum Second", "Regular"), maps=(MAC_ROMAN,)),
            font(names("Vellum Third", "Regular")),
        ),
        "symbol-first.ttc": collection(
            font(names("Vellum Symbol", "First"), maps=(MAC_ROMAN, SYMBOL)),
            font(names("Vellum Symbol", "Second")),
        ),
        "question-mark.ttf": font(names("Vellum?", "Regular")),
        "not-ascii.ttf": font(names("ベラム", "Regular")),
        "hershey.ttf": font(names("Hershey", "Regular")),
        "no-family.ttf": font(names(None, "Orphan")),
        "empty-family.ttf": font(names("", "Orphan")),
        "no-style.ttf": font(names("Vellum Styleless", None)),
        "empty-style.ttf": font(names("Vellum Styleless", "")),
        "no-names.ttf": font([]),
        "bitmap.ttf": bitmap(plain),
        "cff.otf": font(names("Vellum Curves", "Regular"), is_true_type=False),
        "long-name.ttf": font(names("x" * 259 + "Bold", "Regular")),
        "windows.ttf": font(names("Vellum Windows 000", "Regular"), code_pages=LATIN_1),
        "windows-thrice.ttf": font(names("Vellum Windows 000", "Regular"), code_pages=LATIN_1 | LATIN_2 | CYRILLIC),
    }
    return {**made, **damaged(plain, trio)}


def main(directory):
    for file_name, data in files().items():
        (pathlib.Path(directory) / file_name).write_bytes(data)


if __name__ == "__main__":
    main(*sys.argv[1:])
