"""Map tiles of an invented country, from this machine."""

import json
import os
import subprocess

from driver import samples


class TileServer:
    def __enter__(self):
        self._process = subprocess.Popen([f"{samples.BIN}/tile-server"], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                         text=True)
        self.address = self._process.stdout.readline().strip()
        return self

    def __exit__(self, *_):
        self._process.kill()
        self._process.communicate()

    def tell(self, line):
        """How to behave from now on."""
        self._process.stdin.write(line + "\n")
        self._process.stdin.flush()

    def stop(self):
        """Ends it, and gives the number of requests that it has had."""
        answer, _ = self._process.communicate()
        return int(answer)


def list_sources(*addresses):
    """Makes these servers the program's map sources, each with imagery and with roads."""
    sources = []
    for number, address in enumerate(addresses):
        ending = f"-{number}" if number else ""
        sources += [
            {"id": "painted" + ending, "kind": "imagery", "address": address + "/imagery/{z}/{x}/{y}.jpg",
             "nativeZoom": 19, "attribution": "Painted ground", "attributionLink": "https://example.org"},
            {"id": "invented" + ending, "kind": "vector", "address": address + "/vector/{z}/{x}/{y}", "nativeZoom": 14,
             "tileSize": 512, "attribution": "Invented roads"},
        ]
    with open(f"{os.environ['XDG_DATA_HOME']}/ospra/map-sources.json", "w", encoding="ascii") as file:
        json.dump({"sources": sources}, file)
