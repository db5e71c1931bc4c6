"""Speaks to morvane-driver: one JSON object a line, each answered by one."""

import json
import subprocess
import sys


class Driver:
    """The program on a disk in a folder. Ends with the block that made it."""

    def __init__(self, executable, disk):
        self._process = subprocess.Popen(
            [executable, "--disk", disk], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._process.stdin.close()
        self._process.wait()

    def ask(self, request):
        """The answer to one request; ends this program when the driver refuses or has ended."""
        try:
            self._process.stdin.write(json.dumps(request) + "\n")
            self._process.stdin.flush()
        except BrokenPipeError:
            sys.exit("morvane-driver has ended")
        line = self._process.stdout.readline()
        if not line:
            sys.exit("morvane-driver has ended")
        answer = json.loads(line)
        if "error" in answer:
            sys.exit("morvane-driver: " + answer["error"])
        return answer

    def call(self, name, **arguments):
        return self.ask({"call": name, "args": arguments})["result"]

    def get(self, *names):
        answer = self.ask({"get": list(names)})
        return answer[names[0]] if len(names) == 1 else [answer[name] for name in names]

    def set(self, **fields):
        self.ask({"set": fields})

    # The program's own words for sizes, so that nothing here formats one.
    def size(self, byte_count):
        return self.call("sizeText", mb=byte_count / 1e6)
