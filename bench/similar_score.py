#!/usr/bin/env python3
"""Scores the groups of a similar-picture tool against the corpus's pairs.

  similar_score.py brenlow|findimagedupes OUTPUT PAIRS.tsv PICTURES

Prints "recall false_share false_pairs groups": the share of near-copy pairs
that share a group, the share of unrelated pairs that share one, their
count, and the number of groups.
"""
import itertools
import json
import sys
from urllib.parse import unquote, urlparse


def groups_of(kind, path):
    if kind == "brenlow":
        with open(path) as f:
            module = json.load(f)
        found = []
        for category in module.get("categories", []):
            files = [unquote(urlparse(n["url"]).path) for n in category["files"] if n.get("url")]
            if len(files) > 1:
                found.append(files)
        return found
    with open(path) as f:
        return [line.split() for line in f if len(line.split()) > 1]


def main():
    kind, output, pairs_file, pictures = sys.argv[1], sys.argv[2], sys.argv[3], int(sys.argv[4])
    pairs = set()
    with open(pairs_file) as f:
        for line in f:
            original, copy, _ = line.rstrip("\n").split("\t")
            pairs.add(frozenset((original, copy)))
    group = {}
    found = groups_of(kind, output)
    for number, files in enumerate(found):
        for name in files:
            group[name] = number
    recalled = sum(1 for p in pairs if len({group.get(n, -1 - i) for i, n in enumerate(p)}) == 1)
    false_pairs = 0
    for files in found:
        for a, b in itertools.combinations(files, 2):
            if frozenset((a, b)) not in pairs:
                false_pairs += 1
    unrelated = pictures * (pictures - 1) // 2 - len(pairs)
    print(f"{recalled / len(pairs):.4f} {false_pairs / unrelated:.6f} {false_pairs} {len(found)}")


if __name__ == "__main__":
    main()
