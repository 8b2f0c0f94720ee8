#!/usr/bin/env python3
"""Writes the frames of the protocol fuzz test into this folder.

A .cbor file is a message body: the test frames it with its true length.
A .frame file is sent as it stands, its own length prefix included.
"refused-" files must be answered with an error; "any-" files may be
served or refused; "end-" files are sent last, before the stream closes.
Strings that start with "@S" name the test's sentinel tree: the test
replaces "@S" with the tree's path before sending.
"""
import os
import struct

HERE = os.path.dirname(os.path.abspath(__file__))


class Tag:
    def __init__(self, tag, value):
        self.tag, self.value = tag, value


class Raw:
    def __init__(self, data):
        self.data = data


def head(major, n):
    if n < 24:
        return bytes([major << 5 | n])
    for extra, fmt in ((24, ">B"), (25, ">H"), (26, ">I"), (27, ">Q")):
        if n < 1 << (8 * struct.calcsize(fmt)):
            return bytes([major << 5 | extra]) + struct.pack(fmt, n)
    raise ValueError(n)


def enc(v):
    if isinstance(v, Raw):
        return v.data
    if v is None:
        return b"\xf6"
    if v is True:
        return b"\xf5"
    if v is False:
        return b"\xf4"
    if isinstance(v, int):
        return head(0, v) if v >= 0 else head(1, -1 - v)
    if isinstance(v, float):
        return b"\xfb" + struct.pack(">d", v)
    if isinstance(v, bytes):
        return head(2, len(v)) + v
    if isinstance(v, str):
        b = v.encode()
        return head(3, len(b)) + b
    if isinstance(v, list):
        return head(4, len(v)) + b"".join(enc(x) for x in v)
    if isinstance(v, dict):
        return head(5, len(v)) + b"".join(enc(k) + enc(x) for k, x in v.items())
    if isinstance(v, Tag):
        return head(6, v.tag) + enc(v.value)
    raise TypeError(v)


def pairs(*kv):
    """A map that may repeat a key."""
    return Raw(head(5, len(kv)) + b"".join(enc(k) + enc(v) for k, v in kv))


def write(name, data):
    with open(os.path.join(HERE, name), "wb") as f:
        f.write(data)


HELPER_OP = "operationWithFolders:progress:type:moduleIndex:"
SERVICE_OP = "operationWithFolders:type:moduleIndex:"
GOOD = {b"@S/a.txt": [0, 0, 0]}


def op(selector, folders, type_=1, module=1, progress=None):
    args = [folders, progress, type_, module] if selector == HELPER_OP else [folders, type_, module]
    return {"sel": selector, "args": args}


# Not a call at all, or not CBOR.
write("refused-integer.cbor", enc(1))
write("refused-array.cbor", enc(["getVersionWithReply:"]))
write("refused-text.cbor", enc("getVersionWithReply:"))
write("refused-undefined.cbor", b"\xf7")
write("refused-reserved-head.cbor", b"\x1c")
write("refused-unterminated-array.cbor", b"\x9f\x01\x02")
write("refused-bytes-after-end.cbor", enc({"sel": "getVersionWithReply:", "args": []}) + b"\x00")
write("refused-cut-map.cbor", enc(op(HELPER_OP, GOOD))[:23])
write("refused-string-longer-than-frame.cbor", b"\xa1\x63sel\x7a\x00\x10\x00\x00abc")
write("refused-deep-arrays.cbor", b"\x81" * 3000 + b"\x00")
write("refused-deep-maps.cbor", b"\xa1\x00" * 1500 + b"\x00")

# Calls with the wrong shape.
write("refused-unknown-selector.cbor", enc({"sel": "removeEverything:", "args": [], "id": 1}))
write("refused-selector-as-bytes.cbor", enc({"sel": b"getVersionWithReply:", "args": [], "id": 2}))
write("refused-args-as-map.cbor", enc({"sel": "getVersionWithReply:", "args": {}, "id": 3}))
write("refused-id-as-text.cbor", enc({"sel": "getVersionWithReply:", "args": [], "id": "4"}))
write("refused-no-selector.cbor", enc({"args": [], "id": 5}))
write("refused-exit-with-text.cbor", enc({"sel": "exitWithCode:", "args": ["0"]}))
write("refused-exit-with-two.cbor", enc({"sel": "exitWithCode:", "args": [0, 1]}))
write("refused-exit-with-bignum.cbor",
      enc({"sel": "exitWithCode:", "args": [Tag(2, b"\x01" + b"\x00" * 9)]}))
write("refused-uninstall-with-arg.cbor", enc({"sel": "uninstall", "args": [None]}))
write("refused-index-below-int64.cbor",
      enc({"sel": "connectWithModuleIndex:withReply:",
           "args": [Raw(b"\x3b" + b"\xff" * 8)], "id": 6}))

# Delete requests whose path map is mistyped: nothing may be removed.
mistyped = {
    "text-keys": {"@S/a.txt": [0, 0, 0]},
    "value-not-array": {b"@S/a.txt": 0},
    "value-empty": {b"@S/a.txt": []},
    "slot-text": {b"@S/a.txt": [0, "0", 0]},
    "slot-beyond-int": {b"@S/a.txt": [0, 4294967296, 0]},
    "slot-below-int64": {b"@S/a.txt": [0, Raw(b"\x3b" + b"\xff" * 8), 0]},
    "slot-float": {b"@S/a.txt": [0, 1.5, 0]},
    "folders-as-array": [b"@S/a.txt", b"@S/dir"],
    "one-good-one-bad": {b"@S/a.txt": [0, 0, 0], b"@S/dir": "x"},
    "nested-map": {b"@S/dir": {b"@S/dir/b.bin": [0, 0, 0]}},
    "root-as-tagged-key": {Tag(24, b"@S"): [0, 0, 0]},
    "repeated-key": pairs((b"@S/a.txt", [0, 0, 0]), (b"@S/a.txt", "x")),
}
for name, folders in mistyped.items():
    write(f"refused-helper-{name}.cbor", enc(op(HELPER_OP, folders)))
    write(f"refused-service-{name}.cbor", enc(op(SERVICE_OP, folders)))
for selector, tag in ((HELPER_OP, "helper"), (SERVICE_OP, "service")):
    write(f"refused-{tag}-type-as-text.cbor", enc(op(selector, GOOD, type_="1")))
    write(f"refused-{tag}-module-as-float.cbor", enc(op(selector, GOOD, module=1.0)))
    write(f"refused-{tag}-args-missing.cbor",
          enc({"sel": selector, "args": op(selector, GOOD)["args"][:-1]}))
    write(f"refused-{tag}-args-extra.cbor",
          enc({"sel": selector, "args": op(selector, GOOD)["args"] + ["extra"]}))
write("refused-helper-progress-as-map.cbor", enc(op(HELPER_OP, GOOD, progress={})))

# Well formed, but no operation that removes: the sentinel must stay.
full = {b"@S/a.txt": [0, 0, 0], b"@S/dir": [0, 1, 0], b"@S": [0, 2, 0]}
for selector, tag in ((HELPER_OP, "helper"), (SERVICE_OP, "service")):
    for name, type_ in (("unknown-type", 3), ("largest-type", 2**63 - 1),
                        ("negative-type", -3), ("start-with-paths", -2),
                        ("stop-with-paths", -1)):
        write(f"any-{tag}-{name}.cbor", enc(op(selector, full, type_=type_)))
    write(f"any-{tag}-huge-module.cbor", enc(op(selector, {}, module=2**63 - 1)))

# Framing.
write("refused-zero-length.frame", b"\x00\x00\x00\x00")
write("refused-oversized.frame", struct.pack(">I", (64 << 20) + 1) + b"junk")
write("refused-largest-length.frame", b"\xff\xff\xff\xff" + b"\x00" * 8)
write("end-cut-length.frame", b"\x00\x00")
write("end-cut-body.frame", struct.pack(">I", 64) + enc(op(HELPER_OP, GOOD))[:10])
