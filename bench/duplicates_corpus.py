#!/usr/bin/env python3
"""Generates the duplicate finder's benchmark corpora, seeded, so every run
measures the same bytes.

  duplicates_corpus.py main DIR   ~100,000 files, ~3 GB, in a deep tree: groups
                                  of 2 to 5 identical copies, files of one size
                                  and different content, files that differ in
                                  their last byte only (and in one middle byte
                                  only), hard links, a few files over 30 MiB
  duplicates_corpus.py tiny DIR   1,000,000 tiny files (1 to 64 bytes)

A finished corpus holds DIR/.complete and is left alone by the next run.
"""
import os
import random
import sys

MiB = 1024 * 1024


def folders_for(root, rng, count, top):
    folders = []
    for t in range(top):
        path = os.path.join(root, f"top{t}")
        os.makedirs(path)
        folders.append(path)
    while len(folders) < count:
        parent = rng.choice(folders)
        if parent.count(os.sep) - root.count(os.sep) >= 9:
            parent = rng.choice(folders[:top])
        path = os.path.join(parent, f"d{len(folders)}")
        os.makedirs(path)
        folders.append(path)
    return folders


def main_corpus(root):
    rng = random.Random(20261123)
    folders = folders_for(root, rng, 6000, 8)
    serial = [0]

    def place(data, ext=".bin"):
        serial[0] += 1
        path = os.path.join(rng.choice(folders), f"f{serial[0]}{ext}")
        with open(path, "wb") as out:
            out.write(data)
        return path

    # Small sizes come from a short list, so many files share a size and
    # differ in content.
    small_sizes = [rng.randint(1, 48 * 1024) for _ in range(3000)]
    written = []
    # 1. Unique small files.
    for _ in range(70000):
        written.append(place(rng.randbytes(rng.choice(small_sizes))))
    # 2. Groups of 2 to 5 identical small files.
    for _ in range(8000):
        data = rng.randbytes(rng.choice(small_sizes))
        for _ in range(rng.randint(2, 5)):
            written.append(place(data))
    # 3. Medium files, 1 to 4 MiB, some in groups of 2 to 5.
    for i in range(420):
        data = rng.randbytes(rng.randint(1 * MiB, 4 * MiB))
        copies = rng.randint(2, 5) if i % 3 == 0 else 1
        for _ in range(copies):
            written.append(place(data, ".dat"))
    # 4. Pairs that differ in the last byte only, and in one middle byte only.
    for i in range(300):
        size = rng.randint(2, 3 * MiB if i % 10 == 0 else 64 * 1024)
        data = bytearray(rng.randbytes(size))
        place(bytes(data))
        at = size - 1 if i % 2 == 0 else size // 2
        data[at] ^= 0x5A
        place(bytes(data))
    # 5. A few large files, over 30 MiB, some copied.
    for i in range(14):
        data = rng.randbytes(rng.randint(31 * MiB, 48 * MiB))
        for _ in range(2 if i % 2 == 0 else 1):
            written.append(place(data, ".iso"))
    # 6. Hard links to files already written.
    for i in range(300):
        target = rng.choice(written)
        serial[0] += 1
        os.link(target, os.path.join(rng.choice(folders), f"h{serial[0]}.lnk"))
    # 7. Empty files, which no finder takes.
    for _ in range(200):
        place(b"")
    open(os.path.join(root, ".complete"), "w").close()


def tiny_corpus(root):
    rng = random.Random(1000000)
    folders = folders_for(root, rng, 20000, 10)
    for i in range(1000000):
        with open(os.path.join(folders[i % len(folders)], f"t{i}"), "wb") as out:
            out.write(rng.randbytes(rng.randint(1, 64)))
    open(os.path.join(root, ".complete"), "w").close()


if __name__ == "__main__":
    kind, root = sys.argv[1], sys.argv[2]
    if os.path.exists(os.path.join(root, ".complete")):
        sys.exit(0)
    if os.path.exists(root):
        import shutil
        shutil.rmtree(root)
    os.makedirs(root)
    (main_corpus if kind == "main" else tiny_corpus)(root)
