"""What the driver answers for a screen, and how a node's name is made of its texts."""

import json
import subprocess

SEPARATORS = (", ", ": ", " · ")
# Keys whose values are no words on the screen: names for programs, colours, symbols, places.
NO_WORDS = {"id", "symbol", "kind", "key", "color", "fill", "ink", "state", "content", "tooltip"}
BUTTON = {"label", "symbol", "enabled", "kind", "key", "busy", "tooltip"}


class Driver:
    """The program without a window on a disk, spoken to in JSON Lines."""

    def __init__(self, executable, disk):
        self.process = subprocess.Popen([executable, "--disk", str(disk)], text=True,
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE)

    def ask(self, **request):
        self.process.stdin.write(json.dumps(request) + "\n")
        self.process.stdin.flush()
        answer = json.loads(self.process.stdout.readline())
        if "error" in answer:
            raise AssertionError("%s: %s" % (request, answer["error"]))
        return answer["result"] if "result" in answer else answer

    def press(self, screen, control, row=None, value=None):
        words = {"screen": screen, "control": control}
        words.update({} if row is None else {"row": row})
        words.update({} if value is None else {"value": value})
        return self.ask(press=words)

    def close(self):
        self.process.stdin.close()
        self.process.stdout.close()
        return self.process.wait()


def texts(answer):
    """Every text of an answer that stands on the screen, in its order."""
    if isinstance(answer, str):
        return [answer] if answer else []
    if isinstance(answer, list):
        return [text for each in answer for text in texts(each)]
    if isinstance(answer, dict):
        return [text for key, value in answer.items() if key not in NO_WORDS
                for text in texts(value)]
    return []


def records(answer):
    """Every object in an answer, the outer ones first."""
    if isinstance(answer, dict):
        yield answer
        for value in answer.values():
            yield from records(value)
    elif isinstance(answer, list):
        for value in answer:
            yield from records(value)


def buttons(answer):
    return [each for each in records(answer) if BUTTON <= each.keys()]


def switches(answer):
    return [each for each in records(answer) if each.keys() == {"label", "on", "enabled"}]


def choices(answer):
    return [each for each in records(answer) if each.keys() == {"label", "options", "selected"}]


def checks(answer):
    return [each for each in records(answer)
            if each.get("state") in ("on", "off", "mixed") and "label" in each]


def holds_whole(name, text):
    """Whether a text is one of the parts that a name is made of."""
    start = name.find(text)
    while start >= 0:
        before, after = name[:start], name[start + len(text):]
        if (not before or before.endswith(SEPARATORS)) and (not after or
                                                            after.startswith(SEPARATORS)):
            return True
        start = name.find(text, start + 1)
    return False


def is_made_of(name, known):
    """Whether a name is nothing but known texts, parted as they are in names."""
    if not name or name in known:
        return True
    for text in known:
        for separator in SEPARATORS:
            if name.startswith(text + separator) and \
                    is_made_of(name[len(text) + len(separator):], known):
                return True
    return False
