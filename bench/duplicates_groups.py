#!/usr/bin/env python3
"""Reads the duplicate groups each tool printed and tells whether they are
the same sets of files.

  duplicates_groups.py FORMAT FILE   prints one group a line (sorted paths,
                                     tab-separated), the lines sorted
FORMAT: brenlow (brenlow-cli --json), blocks (jdupes and fdupes: groups
separated by blank lines), rmlint (its JSON), rdfind (its results file).
"""
import json
import sys
from collections import defaultdict
from urllib.parse import unquote, urlparse


def brenlow(text):
    module = json.loads(text)
    for c in module.get("categories", []):
        yield [unquote(urlparse(f["url"]).path) for f in c["files"]]


def blocks(text):
    group = []
    for line in text.splitlines():
        if line.strip():
            group.append(line)
        elif group:
            yield group
            group = []
    if group:
        yield group


def rmlint(text):
    groups = defaultdict(list)
    for entry in json.loads(text):
        if entry.get("type") != "duplicate_file":
            continue
        # A set of hard links alone is reported without a checksum.
        key = entry.get("checksum") or ("inode", entry["disk_id"], entry["inode"])
        groups[(key, entry["size"])].append(entry["path"])
    return groups.values()


def rdfind(text):
    groups = defaultdict(list)
    for line in text.splitlines():
        if line.startswith("#") or not line.strip():
            continue
        fields = line.split(" ", 7)
        groups[abs(int(fields[1]))].append(fields[7])
    return groups.values()


if __name__ == "__main__":
    fmt, path = sys.argv[1], sys.argv[2]
    with open(path, encoding="utf-8", errors="surrogateescape") as f:
        text = f.read()
    found = {"brenlow": brenlow, "blocks": blocks, "rmlint": rmlint, "rdfind": rdfind}[fmt](text)
    lines = sorted("\t".join(sorted(g)) for g in found if len(g) > 1)
    sys.stdout.write("".join(line + "\n" for line in lines))
