#!/usr/bin/env python3
"""Sets the first byte of each seed of fuzz_translators to its format's position in the time
clock list. A seed is named for its format: lower case, each run of other characters a "-"
("Kronos v2C (Short)" -> kronos-v2c-short).

Usage: fuzz/stamp_seeds.py build/corvane
"""
import os, re, subprocess, sys

names = subprocess.run([sys.argv[1], "formats"], capture_output=True, text=True,
                       check=True).stdout.splitlines()
slug = {re.sub(r"[^a-z0-9]+", "-", n.lower()).strip("-"): k for k, n in enumerate(names)}
folder = os.path.join(os.path.dirname(os.path.abspath(__file__)), "corpus", "fuzz_translators")
status = 0
for seed in sorted(os.listdir(folder)):
    if seed not in slug:
        print(f"{seed}: no format of that name", file=sys.stderr)
        status = 1
        continue
    path = os.path.join(folder, seed)
    data = bytearray(open(path, "rb").read() or b"\0")
    data[0] = slug[seed]
    open(path, "wb").write(bytes(data))
sys.exit(status)
