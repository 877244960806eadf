#!/usr/bin/env python3
"""fleet_index.py TOOL [MACHINES [FOLDER]]: makes up the reports of a fleet and tells what fleet-index takes for it.

A machine in a hundred has failed, three in a hundred need attention; one in two hundred has another firmware level
than the others of its model. Of every report there is the manifest and an empty first page. The same fleet each time.
"""

import json
import os
import random
import resource
import subprocess
import sys
import tempfile
import time

MODELS = [f"Zander R{number}" for number in range(1, 13)]
FIRMWARE = ["System firmware", "Service processor", "RAID controller"] + [f"Network port {i}" for i in range(4)]
SUBSYSTEMS = [
    "Processors", "Memory", "Disks and arrays", "Drive health", "Sensors", "Power and service processor", "Network",
    "Logs", "Firmware", "Corrections made", "Things not collected",
]


def make_manifest(number, chance):
    model = chance.randrange(len(MODELS))
    luck = chance.random()
    verdict = "failed" if luck < 0.01 else "attention" if luck < 0.04 else "ok"
    trouble = chance.choice(SUBSYSTEMS[:7])
    failed, attention = int(verdict == "failed"), int(verdict == "attention")
    worst = {"subsystem": trouble, "state": verdict, "text": f"A part of {trouble.lower()} is in trouble.", "source": ""}
    return {
        "manifest": 1, "tool": "qsxreport", "kind": "report",
        "machine": {
            "name": f"node{number:05}", "product": MODELS[model], "serialNumber": f"SN{number:06}", "system": "Linux 6.1",
            "kernel": "6.1.0", "collected": "2026-11-20 10:00:00", "timeZone": "", "collectedBy": "",
        },
        "verdict": verdict, "findings": {"failed": failed, "attention": attention, "unknown": 0},
        "subsystems": [
            {"name": name, "state": verdict if name == trouble else "ok", "failed": 0, "attention": 0, "unknown": 0}
            for name in SUBSYSTEMS
        ],
        "worst": [] if verdict == "ok" else [worst],
        "firmware": [
            {"name": name, "version": f"{model + 1}.{'9' if chance.random() < 0.005 else '4'}.{len(name)}"}
            for name in FIRMWARE
        ],
        "notCollected": 0, "inputs": [{"file": f"node{number:05}.mof"}],
    }


def main():
    tool, machines = sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 10_000
    with tempfile.TemporaryDirectory() as made:
        folder = sys.argv[3] if len(sys.argv) > 3 else made
        chance = random.Random(1)
        for number in range(machines):
            place = os.path.join(folder, f"task{number // 100:03}", f"node{number:05}")
            os.makedirs(place, exist_ok=True)
            with open(os.path.join(place, "manifest.json"), "w", encoding="utf-8") as file:
                json.dump(make_manifest(number, chance), file, indent=2)
            open(os.path.join(place, "index.html"), "w", encoding="utf-8").close()
        begin = time.monotonic()
        subprocess.run([tool, "fleet-index", folder, "--quiet"], check=True)
        seconds = time.monotonic() - begin
        used = resource.getrusage(resource.RUSAGE_CHILDREN)
        pages = os.path.join(folder, "fleet-index")
        size = sum(os.path.getsize(os.path.join(root, name)) for root, _, names in os.walk(pages) for name in names)
        print(f"{machines:,} machines: {seconds:.2f} s, of which {used.ru_utime + used.ru_stime:.2f} s processor time; "
              f"{used.ru_maxrss / 1024:.0f} MiB at most; {size / 1e6:.1f} MB of pages")


if __name__ == "__main__":
    main()
