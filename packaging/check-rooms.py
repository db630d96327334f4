#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Holds the includes of src/ to what its rooms declare.

Each folder with sources declares in its CMakeLists.txt which other rooms it uses. Prints every include of a room that
is not declared, every declaration that nothing needs, every source that no room names and every circle; the exit
status is 1 if there is any.
"""
import re
import sys
from pathlib import Path

src = Path(__file__).resolve().parent.parent / "src"
findings = []


def declared(room):
    """What a room's CMakeLists.txt says: the rooms it uses, the sources it holds."""
    script = (room / "CMakeLists.txt").read_text() if (room / "CMakeLists.txt").is_file() else ""
    call = re.search(r"orvik_room\((.*?)\)", script, re.S)
    if not call:
        findings.append(f"{room.relative_to(src)}: declares no room")
    words = re.split(r"\b(USES|CORE|WINDOWS)\b", call[1] if call else "")
    parts = dict(zip(words[1::2], (part.split() for part in words[2::2])))
    return set(parts.get("USES", [])), set(parts.get("CORE", [])) | set(parts.get("WINDOWS", []))


rooms = sorted({str(source.parent.relative_to(src)) for source in src.rglob("*") if source.suffix in (".h", ".cpp")})
uses = {}
for name in rooms:
    room = src / name
    uses[name], sources = declared(room)
    needed = set()
    for source in sorted([*room.glob("*.h"), *room.glob("*.cpp")]):
        if source.suffix == ".cpp" and source.name not in sources | {"main.cpp"}:
            findings.append(f"{name}/{source.name}: in no library")
        for included in re.findall(r'^#include "(.+)"', source.read_text(), re.M):
            other = included.rpartition("/")[0]
            if not (src / included).is_file():
                findings.append(f"{name}/{source.name}: includes {included}, which is not there")
            elif other != name:
                needed.add(other)
                if other not in uses[name]:
                    findings.append(f"{name}/{source.name}: includes {included}, but {name} does not use {other}")
    findings += [f"{name}: declares {other}, but includes nothing of it" for other in sorted(uses[name] - needed)]


def walk(name, path):
    """Follows what a room uses and notes each circle once."""
    if name in path:
        circle = path[path.index(name):]
        if name == min(circle):
            findings.append("circle: " + " -> ".join([*circle, name]))
        return
    for other in sorted(uses.get(name, ())):
        walk(other, [*path, name])


for name in rooms:
    walk(name, [])
print(*dict.fromkeys(findings), sep="\n")
sys.exit(1 if findings else 0)
