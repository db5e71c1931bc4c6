"""The main job in the window: scan, look at a row, sweep, put back.

`user` presses things (see users.py); `shown` is called after each step with a word for what stands
on the screen.
"""


class MainJob:
    def __init__(self, preview, user, shown=lambda word: None):
        self.preview = preview
        self.user = user
        self.shown = shown

    def walk(self):
        """The whole of it. Afterwards the disk has to be as it was."""
        self.scan()
        self.review()
        self.look_at_a_row()
        self.sweep()
        self.put_back()

    def scan(self):
        self.go_to("Overview")
        # A disk that was scanned before still shows what was found, or that it is clean.
        self.until(self._any_button("Sweep", "Scan Again", "Done"), "a card")
        self.show("ready")
        tree = self.preview.tree()
        if tree.find("push button", "Done"):
            self.user.press("push button", "Done")
            self.until(self._any_button("Sweep"), "the first card")
            tree = self.preview.tree()
        again = tree.find("push button", "Scan Again")
        self.user.press("push button", "Scan Again" if again else "Sweep")
        self.until(self._any_button("Review & Sweep"), "the results")
        self.show("found")

    def review(self):
        self.user.press("push button", "Review & Sweep")
        self.preview.node("heading", "Sweep")
        self.until(lambda tree: self.rows(tree), "rows to look at")
        self.show("review")

    def look_at_a_row(self):
        row = self.rows(self.preview.tree())[0]
        self.user.press_node(row)
        self.until(lambda tree: [each for each in tree.all("list item", row.name)
                                 if each.description == "expanded"], "the row open")
        self.show("row")

    def sweep(self):
        self.user.press("push button", "Move to Trash")
        self.until(self._any_button("Done"), "the sweep's end")
        self.show("swept")

    def put_back(self):
        self.go_to("Settings")
        restore = self.preview.starting("push button", "Restore, ")
        row = restore.name.removeprefix("Restore, ")
        self.show("history")
        self.user.press_node(restore)
        self.until(lambda tree: not tree.find("push button", restore.name) and
                   [node for node in tree.walk() if "Put back" in node.name], "all put back")
        self.show("restored")
        return row

    def go_to(self, screen):
        """By the sidebar."""
        row = self.preview.node("list item", screen)
        if "selected" not in row.states:
            self.user.press_node(row)
        self.preview.node("heading", screen)

    @staticmethod
    def rows(tree):
        """The rows of the review that a sweep would take along, which are all safe."""
        return [node for node in tree.all("list item")
                if ", Safe to sweep, " in node.name and "selected" in node.states]

    def show(self, word):
        self.user.aside()
        self.shown(word)

    def until(self, holds, what):
        return self.preview.until(holds, what)

    @staticmethod
    def _any_button(*names):
        return lambda tree: [node for name in names for node in tree.all("push button", name)
                             if node.is_available()]
