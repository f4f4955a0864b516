"""The list of rooms: rooms.txt."""

import pathlib

LIST = pathlib.Path(__file__).with_name("rooms.txt")


def rooms():
    """The rooms in their order, lowest first, each with what is in it."""
    lines = LIST.read_text(encoding="utf-8").splitlines()
    return dict(line.split(maxsplit=1) for line in lines if line and not line.startswith("#"))


def house(room):
    """What a room is part of: include, src/funzioni, tools/kelfun."""
    return room if room.startswith("include/") else "/".join(room.split("/")[:2])


def room_of(path):
    """The room of a path within the tree; None where there is none."""
    return max((room for room in rooms() if path.startswith(room)), key=len, default=None)
