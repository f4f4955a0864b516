"""The catalogue from Python is that of the command-line tool."""

import hashlib
import warnings
from pathlib import Path

import numpy as np

import kelfunzioni as kel
from kelfunzioni import SampleType


def test_all_of_it_is_the_same(kelfun):
    assert dict(kel.Catalogue()) == kelfun("catalogue")


def _functions(catalogue):
    """Each function that stands anywhere in the catalogue, with the facts that it is given."""
    for row in catalogue["functions"]:
        yield row
        yield from row["sides"]
        yield from row["inout"]
    for quantity in catalogue["quantities"]:
        yield from ({**row, "base": row["base_unit"]} for row in quantity["objects"])


def test_every_function_has_the_same_names(kelfun):
    seen = 0
    for row in _functions(kelfun("catalogue")):
        if "base" in row:
            continue
        function = kel.Function(row["identifier"])
        assert function.short_name == row["short_name"]
        assert function.name == row["name"] or "sides" in row
        assert function.legacy_id == row["legacy_id"]
        seen += 1
    assert seen > 60


def _digest(rows):
    return hashlib.sha256("\n".join(rows).encode()).hexdigest()


def test_digest_of_units_and_conversions(kelfun):
    """By the functions of Python, one question at a time, against the tool's tables."""
    told, found = [], []
    for quantity in kelfun("catalogue")["quantities"]:
        for row in quantity["objects"]:
            function = kel.Function(row["identifier"])
            told.append(f"{row['identifier']} {row['base_unit']}")
            found.append(f"0x{function.identifier:08X} {function.base_unit}")
            for unit in row["units"]:
                told.append("{unit} {decimals} {min_decimals} {max_decimals}".format(**unit))
            for unit in function.units:
                least, most = function.decimals_range(unit)
                found.append(f"{unit} {function.decimals(unit)} {least} {most}")
            for way in row["conversions"]:
                with warnings.catch_warnings():
                    warnings.simplefilter("ignore", kel.KelWarning)
                    slope = kel.convert(np.ones(1, np.float32), function, way["from"], way["to"])
                told.append(repr(np.float32(way["gain"]) + np.float32(way["offset"])))
                found.append(repr(slope[0]))
                offset = kel.convert(0.0, function, way["from"], way["to"])
                told.append(f"{way['from']} {way['to']} {float(way['offset']):.6g}")
                found.append(f"{way['from']} {way['to']} {offset:.6g}")
    assert len(told) > 300
    assert told == found
    assert _digest(told) == _digest(found)


def test_offered_functions_have_the_same_choices(kelfun):
    for row in kelfun("catalogue")["functions"]:
        choices = kel.Function(row["identifier"]).choices
        for what in ("sides", "inout"):
            told = {each["text"]: int(each["identifier"], 16) for each in row[what]}
            found = {text: f.identifier for text, f in getattr(choices, what).items()}
            assert told == found
        numbers = row["numbers"]
        told = range(numbers["first"], numbers["last"] + 1) if numbers else range(0)
        assert choices.numbers == told


def test_legacy_identifiers_are_read(kelfun):
    rows = kelfun("catalogue")["legacy_identifiers"]
    assert len(rows) > 50
    first = {}
    for row in rows:
        first.setdefault(row["legacy_id"], row["identifier"])
    for legacy, identifier in first.items():
        assert kel.Function(legacy).identifier == int(identifier, 16), legacy


def test_sample_types_have_the_tools_names_and_sizes(kelfun):
    for row in kelfun("catalogue")["sample_types"]:
        kind = SampleType(row["code"])
        assert kind.name.lower().replace("_", "-") == row["name"]
        assert kind.size == row["bytes"]
    assert len(SampleType) == len(kelfun("catalogue")["sample_types"])


def test_packets_have_their_subfields(kelfun):
    for row in kelfun("catalogue")["packets"]:
        told = [int(each["identifier"], 16) for each in row["subfields"]]
        found = [each.identifier for each in kel.Function(row["identifier"]).subfields]
        assert found == [each for each in told if each]


def test_every_place_has_the_same_version():
    text = (Path(__file__).parents[2] / "pyproject.toml").read_text()
    assert f'\nversion = "{kel.__version__}"\n' in text
    assert kel.Catalogue().version == kel.__version__
