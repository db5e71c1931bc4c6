#!/usr/bin/env python3
"""Notifications: dunst, a server of the test's own, and none."""

import json
import signal
import unittest

from peer_case import PeerCase, wait_until

NAME = "org.freedesktop.Notifications"


class WithDunst(PeerCase):
    def setUp(self):
        super().setUp()
        self.dunst = self.desktop.start_peer(["dunst"], NAME)

    def shown(self):
        """What dunst has on view or has taken away, the latest first."""
        self.desktop.run(["dunstctl", "close-all"])
        history = json.loads(self.desktop.run(["dunstctl", "history"]).stdout)
        return [(entry["summary"]["data"], entry["body"]["data"]) for entry in history["data"][0]]

    def displayed(self):
        return int(self.desktop.run(["dunstctl", "count", "displayed"]).stdout)

    def test_shows_title_and_body(self):
        probe = self.probe()
        probe.do("post", "ready", "Ready to sweep", "6.2 GB is ready. Take a look.")
        wait_until(lambda: self.displayed() == 1, "a notification")
        self.assertEqual(self.shown(), [("Ready to sweep", "6.2 GB is ready. Take a look.")])

    def test_shows_texts_as_they_are(self):
        probe = self.probe()
        probe.do("post", "ready", "<b>A</b> & B", "<i>5 < 6</i> & \"so\" – ä")
        wait_until(lambda: self.displayed() == 1, "a notification")
        # What dunst keeps is markup; read as such it says the text that was posted.
        title, body = self.shown()[0]
        self.assertEqual(title, "<b>A</b> & B")
        self.assertEqual(body, "&lt;i&gt;5 &lt; 6&lt;/i&gt; &amp; &quot;so&quot; – ä")

    def test_replaces_by_identifier(self):
        probe = self.probe()
        for amount in ("1 GB", "2 GB", "3 GB"):
            probe.do("post", "ready", "Ready", amount)
        probe.do("post", "other", "Other", "text")
        wait_until(lambda: self.displayed() == 2, "two notifications")
        wait_until(lambda: self.displayed() == 2 and probe.is_well(), "no third one")
        self.assertEqual(sorted(self.shown()), [("Other", "text"), ("Ready", "3 GB")])

    def test_is_authorised(self):
        probe = self.probe()
        self.assertEqual(probe.answer("status"), "granted")
        self.assertEqual(probe.answer("request"), "requested")

    def test_does_not_wait_for_a_server_that_hangs(self):
        probe = self.probe()
        self.dunst.send_signal(signal.SIGSTOP)
        self.assertEqual(probe.do("post", "ready", "Ready", "1 GB"), [])
        self.assertEqual(probe.do("status"), [])
        self.assertTrue(probe.is_well())
        self.dunst.send_signal(signal.SIGCONT)
        self.assertEqual(probe.line(), "granted")
        wait_until(lambda: self.displayed() == 1, "a notification")

    def test_a_server_that_goes_and_comes_back_is_found(self):
        probe = self.probe()
        probe.do("post", "ready", "Ready", "1 GB")
        wait_until(lambda: self.displayed() == 1, "a notification")
        self.desktop.end(self.dunst)
        self.assertEqual(probe.answer("status"), "denied")
        self.dunst = self.desktop.start_peer(["dunst"], NAME)
        self.assertEqual(probe.answer("status"), "granted")
        probe.do("post", "ready", "Ready", "2 GB")
        wait_until(lambda: self.displayed() == 1, "a notification")
        self.assertEqual(self.shown(), [("Ready", "2 GB")])


class WithAPlainServer(PeerCase):
    def test_texts_are_not_escaped_for_who_reads_no_markup(self):
        server = self.peer("notification_server.py", NAME)
        self.probe().do("post", "ready", "A & B", "<i>C</i>")
        self.assertEqual(server.line(), "1 new: A & B | <i>C</i> [desktop-entry suppress-sound]")

    def test_one_that_the_user_closed_is_shown_anew(self):
        server = self.peer("notification_server.py", NAME)
        probe = self.probe()
        extras = " [desktop-entry suppress-sound]"
        probe.do("post", "ready", "Ready", "1 GB")
        self.assertEqual(server.line(), "1 new: Ready | 1 GB" + extras)
        probe.do("post", "ready", "Ready", "2 GB")
        self.assertEqual(server.line(), "1 again: Ready | 2 GB" + extras)
        self.assertEqual(server.ask("close", "1"), "closed")
        self.assertTrue(probe.is_well())
        probe.do("post", "ready", "Ready", "3 GB")
        self.assertEqual(server.line(), "2 new: Ready | 3 GB" + extras)

    def test_numbers_of_a_server_that_ended_are_not_its_successors(self):
        server = self.peer("notification_server.py", NAME, "40")
        probe = self.probe()
        probe.do("post", "ready", "Ready", "1 GB")
        self.assertTrue(server.line().startswith("41 new"))
        self.desktop.end(server.process)
        successor = self.peer("notification_server.py", NAME, "40")
        probe.do("post", "ready", "Ready", "2 GB")
        self.assertTrue(successor.line().startswith("41 new"))


class WithoutAServer(PeerCase):
    def test_goes_on_and_is_denied(self):
        probe = self.probe()
        probe.do("post", "ready", "Ready", "1 GB")
        self.assertEqual(probe.answer("status"), "denied")
        self.assertEqual(probe.answer("request"), "requested")
        self.assertTrue(probe.is_well())

    def test_finds_one_that_comes_later(self):
        probe = self.probe()
        probe.do("post", "ready", "Ready", "1 GB")
        self.assertEqual(probe.answer("status"), "denied")
        server = self.peer("notification_server.py", NAME)
        probe.do("post", "ready", "Ready", "2 GB")
        self.assertTrue(server.line().startswith("1 new: Ready | 2 GB"))


class WithoutABus(PeerCase):
    DESKTOP = {"bus": False}

    def test_goes_on_and_is_denied(self):
        probe = self.probe()
        probe.do("post", "ready", "Ready", "1 GB")
        self.assertEqual(probe.answer("status"), "denied")
        self.assertEqual(probe.answer("request"), "requested")
        self.assertTrue(probe.is_well())


class WithABusThatGoes(PeerCase):
    def test_goes_on_and_is_denied(self):
        self.desktop.start_peer(["dunst"], NAME)
        probe = self.probe()
        self.assertEqual(probe.answer("status"), "granted")
        self.desktop.stop_bus()
        self.assertEqual(probe.answer("status"), "denied")
        probe.do("post", "ready", "Ready", "1 GB")
        self.assertTrue(probe.is_well())


if __name__ == "__main__":
    unittest.main()
