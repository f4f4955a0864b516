#!/usr/bin/env python3
"""Whether the glossary explains every Italian name of the public headers.

    glossario.py INCLUDE_DIR GLOSSARY

A member of a record and a parameter of a function must be in the glossary as it is written. Of other names (functions,
types, tables, constants of samples, statuses and formats) every word must be there. What is the same in English is listed
here. A header that a row names must have the name. Both tables must be in alphabetical order, without a name twice.
"""

import re
import sys
from pathlib import Path

# Members and parameters that an English reader understands as they stand.
ENGLISH_NAMES = set("""
    buffer buffers byte children dictionary fid fix flags format frontrear funpos gain id inout lapNum lapTime leftright
    length metadata ms n_buffers n_children name null_count offset out payload private_data record sampleAtStart set text
    updown value width xml
    """.split())

# Words within longer names: English, a unit, an abbreviation that the field uses, or a digit's neighbour.
ENGLISH_WORDS = set("""
    a afr all alt and api array arrow bar battery begin bit brake brk buffer byte cam code compress converter coord
    create data datas date dec decompress default deg double down end enum f16 fid first fix float fr free frlr front
    frontrear full g gear get gps gyro hash hz id idx in init inner inout int is k kg km kmh l lambda lap laptime
    last lat left leftright list lon m map match max me min ms nav navsol next nm noexcept null num obj off offset oil
    out param pckt pct phi pos pres rear right rpm sampl schema search sec set short size sol speed str stream string
    strings struct time to tot txt u32 u64 ubx uint up updown us used utc v val valid vel velocity w xml
    """.split())

# Marks of a kind, not words: s_ and t_ of records, f_ of pointers to functions, e of enumerations, I and C of classes, z4_ of
# variants; and the plural of an abbreviation.
MARKS = set("setfICSz")


def code(header):
    """A header without comments and preprocessor lines."""
    text = re.sub(r"/\*.*?\*/", "", header.read_text(), flags=re.S)
    text = re.sub(r"//.*", "", text)
    return re.sub(r"^[ \t]*#.*$", "", text, flags=re.M)


def members(text):
    for body in re.findall(r"\b(?:struct|class)\b[^;{()]*\{(.*?)\}", text, re.S):
        body = re.sub(r"[^;{}]*\([^;]*;", "", body)  # no functions
        yield from (name for name in re.findall(r"(\w+)(?:\[\d+\])?;", body) if not name.endswith("_"))


def parameters(text):
    for arguments in re.findall(r"\(([^()]*)\)", text):
        for argument in arguments.split(","):
            found = re.fullmatch(r"\s*(?:const\s+)?[\w:<>]+[\w:<> ]*?[\s*&]+(\w+)(?:\[\d*\])?\s*", argument)
            if found and not found[1].isupper() and found[1] not in ("const", "int", "unsigned"):
                yield found[1]


def others(header, text):
    """Functions and operations, types, tables, and the constants whose names are not values of the identifier's fields."""
    yield from re.findall(r"\b(\w+)\(", text)
    yield from re.findall(r"\b(?:struct|class|enum)\s+(?:KEL_\w+\s+)?(\w+)", text)
    yield from re.findall(r"\b((?:KEL|FORMATO)_\w+)", text)
    if header.name == "kel_tabelle.h":
        yield from re.findall(r"(\w+)\[\d+\];", text)


def words(name):
    found = re.findall(r"[A-Z]\d+|[A-Z]+(?=s?(?![a-z]))|[A-Z]?[a-z]+", name)
    return [word.lower() for word in found if word not in MARKS]


def main():
    include, glossary = map(Path, sys.argv[1:])
    tables = [re.findall(r"^\| (?!term|name|-)(.*?) \|", part, re.M) for part in glossary.read_text().split("\n## ")]
    tables = [table for table in tables if table]
    mistakes = [] if len(tables) == 2 else ["two tables are expected: the Italian names, the technical words"]
    for table in tables:
        keys = [row.strip("`").lower() for row in table]
        mistakes += [f"{after}: not in alphabetical order, or twice" for before, after in zip(keys, keys[1:]) if after <= before]
    named = {row.strip("`") for row in tables[0]} if tables else set()
    # Where a row says that a header has the name, the header has it.
    for name, rest in re.findall(r"^\| `(\w+)` \| (.*) \|$", glossary.read_text(), re.M):
        for header in re.findall(r"\]\(\.\./include/(\w+\.h)\)", rest):
            if name.lower() not in (include / header).read_text().lower():
                mistakes.append(f"{name} is not in {header}")
    named_words = {name.lower() for name in named}

    checked, uses = {"member": set(), "parameter": set(), "word": set()}, {}
    for header in sorted(include.glob("*.h")):
        text = code(header)
        checked["member"] |= set(members(text))
        checked["parameter"] |= set(parameters(text))
        for name in others(header, text):
            for word in words(name):
                checked["word"].add(word)
                uses.setdefault(word, name)
    for kind, least in (("member", 50), ("parameter", 50), ("word", 150)):
        if len(checked[kind]) < least:
            mistakes.append(f"only {len(checked[kind])} names of kind {kind} found in the headers: the pattern fails")
    for kind in ("member", "parameter"):
        mistakes += [f"{kind} {name} is missing" for name in sorted(checked[kind] - named - ENGLISH_NAMES)]
    mistakes += [f"word {word} is missing, of {uses[word]}" for word in sorted(checked["word"] - named_words - ENGLISH_WORDS)]
    mistakes += [f"{name} is listed as English, but is in no header" for name in
                 sorted(ENGLISH_NAMES - checked["member"] - checked["parameter"])]
    mistakes += [f"{word} is listed as an English word, but is in no name" for word in sorted(ENGLISH_WORDS - checked["word"])]
    print(*mistakes, sep="\n", end="\n" if mistakes else "")
    print(", ".join(f"{len(names)} {kind}s" for kind, names in checked.items()) + f"; {len(mistakes)} mistakes")
    return 1 if mistakes else 0


sys.exit(main())
