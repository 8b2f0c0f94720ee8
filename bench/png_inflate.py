#!/usr/bin/env python3
"""Inflates the image data of each PNG named and drops it: the part of
decoding a PNG that no decoder avoids (unfiltering the rows comes on top)."""
import struct
import sys
import zlib

for path in sys.argv[1:]:
    with open(path, "rb") as f:
        data = f.read()
    at, idat = 8, []
    while at + 8 <= len(data):
        length, kind = struct.unpack(">I4s", data[at:at + 8])
        if kind == b"IDAT":
            idat.append(data[at + 8:at + 8 + length])
        at += 12 + length
    zlib.decompress(b"".join(idat))
