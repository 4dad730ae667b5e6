# SPDX-License-Identifier: MIT
"""Starting, stopping, keeping state, and the file that the socket is."""

import os
import signal
import socket
import stat
import subprocess
import unittest

from simulated_daemon import TIME_LIMIT, SimulatedDaemon, quick_world


class LifetimeTest(unittest.TestCase):
    def make(self, **options):
        daemon = SimulatedDaemon(**{"world": quick_world(), **options})
        self.addCleanup(daemon.close)
        return daemon

    def refusal(self, daemon):
        run = subprocess.run(daemon.command_line(), stdin=subprocess.DEVNULL, capture_output=True,
                             timeout=TIME_LIMIT, check=False)
        self.assertEqual(run.returncode, 1)
        return run.stderr.decode()

    def test_both_signals_end_it_cleanly_and_take_the_socket_away(self):
        daemon = self.make()
        for number in (signal.SIGTERM, signal.SIGINT):
            daemon.start()
            self.assertTrue(stat.S_ISSOCK(os.stat(daemon.socket).st_mode))
            self.assertEqual(daemon.stop(number), 0)
            self.assertFalse(daemon.socket.exists())

    def test_without_a_daemon_the_tool_says_so(self):
        daemon = self.make()
        run = daemon.tool("status", "--json")
        self.assertEqual(run.returncode, 1)
        self.assertIn(b"failed to connect to the local daemon", run.stderr)
        self.assertIn(b"error: No such file or directory", run.stderr)

    def test_state_survives_a_restart_and_so_does_the_connection(self):
        daemon = self.make().start()
        daemon.log_in("twkey-harbor-once", "lab")
        daemon.log_in("twkey-kite-good")
        before = daemon.account()
        daemon.restart()
        self.assertEqual(daemon.account(), before)
        self.assertEqual(daemon.status()["BackendState"], "Running")
        self.assertIn(b"used", daemon.log_in("twkey-harbor-once").stderr)
        daemon.tool("down")
        daemon.restart()
        self.assertEqual(daemon.status()["BackendState"], "Stopped")

    def test_state_survives_a_kill(self):
        daemon = self.make().start()
        daemon.log_in("twkey-harbor-good")
        self.assertEqual(daemon.stop(signal.SIGKILL), -signal.SIGKILL)
        self.assertTrue(daemon.socket.exists())
        daemon.start()
        self.assertEqual(daemon.status()["BackendState"], "Running")

    def test_switch_and_removal_survive_a_kill(self):
        daemon = self.make().start()
        ids = []
        for key in ("twkey-harbor-good", "twkey-fernwood-good", "twkey-kite-good"):
            daemon.log_in(key)
            ids.append(daemon.account()["current"])
        for command in (("switch", ids[0]),
                        ("debug", "localapi", "DELETE", f"/localapi/v0/profiles/{ids[1]}")):
            daemon.tool(*command)
            daemon.stop(signal.SIGKILL)
            account = daemon.start().account()
            self.assertEqual(account["current"], ids[0])
        self.assertEqual([profile["id"] for profile in account["profiles"]], [ids[0], ids[2]])

    def test_auth_key_is_not_written_down(self):
        daemon = self.make().start()
        daemon.log_in("twkey-harbor-once")
        self.assertNotIn("twkey", daemon.state_file.read_text())

    def test_useless_state_counts_as_none(self):
        daemon = self.make()
        for text in (b"", b"{", b"[]", b"\xff\x00", b'{"profiles": 7, "current": [], "usedKeys": {}}',
                     b'{"profiles": [{"id": "x", "network": "gone"}, 3], "current": "x"}',
                     b"[" * 100000):
            with self.subTest(text=text[:40]):
                daemon.state_file.write_bytes(text)
                daemon.start()
                self.assertEqual(daemon.status()["BackendState"], "NeedsLogin")
                self.assertEqual(daemon.log_in("twkey-harbor-good").returncode, 0)
                daemon.restart()
                self.assertEqual(daemon.status()["BackendState"], "Running")
                self.assertEqual(daemon.stop(), 0)

    def test_state_that_cannot_be_kept_is_told_and_does_no_harm(self):
        daemon = self.make()
        daemon.state_file.mkdir()
        daemon.start()
        self.assertEqual(daemon.log_in("twkey-harbor-good").returncode, 0)
        self.assertEqual(daemon.status()["BackendState"], "Running")
        self.assertIn("cannot be saved", daemon.log_file.read_text())

    def test_starting_comes_before_running(self):
        daemon = self.make(world=quick_world(startingSeconds=3600)).start()
        daemon.log_in("twkey-harbor-good")
        status = daemon.status()
        self.assertEqual(status["BackendState"], "Starting")
        self.assertFalse(status["Self"]["Online"])
        self.assertFalse(any(peer["Online"] for peer in status["Peer"].values()))
        self.assertTrue(daemon.tool("status").stdout.startswith(b"Tarnwick is starting."))
        daemon.tool("down")
        self.assertEqual(daemon.status()["BackendState"], "Stopped")
        daemon.tool("up")
        daemon.restart()
        self.assertEqual(daemon.status()["BackendState"], "Starting")

    def test_built_in_world_starts_within_a_few_seconds(self):
        daemon = self.make(world=None).start()
        daemon.log_in("twkey-harbor-good")
        status = daemon.wait_for(lambda status: status["BackendState"] == "Running")
        self.assertEqual(len(status["Peer"]), 12)

    def test_peers_come_and_go(self):
        daemon = self.make(world=quick_world(churnSeconds=0.05)).start()
        daemon.log_in("twkey-harbor-good")
        first = self.online(daemon.status())
        daemon.wait_for(lambda status: self.online(status) != first)
        daemon.wait_for(lambda status: len(status["Peer"]) == 11)  # a guest has gone
        daemon.wait_for(lambda status: len(status["Peer"]) == 12)

    @staticmethod
    def online(status):
        return {key for key, peer in status["Peer"].items() if peer["Online"]}

    def test_second_daemon_is_refused_and_the_first_lives_on(self):
        daemon = self.make().start()
        self.assertIn("another daemon already answers", self.refusal(daemon))
        self.assertEqual(daemon.status()["BackendState"], "NeedsLogin")

    def test_dead_socket_is_replaced(self):
        daemon = self.make()
        daemon.socket.parent.mkdir()
        with socket.socket(socket.AF_UNIX) as dead:
            dead.bind(str(daemon.socket))
        daemon.start()
        self.assertEqual(daemon.status()["BackendState"], "NeedsLogin")

    def test_file_in_the_sockets_place_is_left_alone(self):
        daemon = self.make()
        daemon.socket.parent.mkdir()
        daemon.socket.write_text("precious")
        self.assertIn("is not a socket", self.refusal(daemon))
        self.assertEqual(daemon.socket.read_text(), "precious")

    def test_file_that_took_the_sockets_place_outlives_the_daemon(self):
        daemon = self.make().start()
        daemon.socket.unlink()
        daemon.socket.write_text("precious")
        self.assertEqual(daemon.stop(), 0)
        self.assertEqual(daemon.socket.read_text(), "precious")

    def test_wrong_options_are_usage_errors(self):
        daemon = self.make()
        for option in ("--what", "stray", "--fault=boom", "--fault=hang@nothing", "--fault=slow:x"):
            with self.subTest(option=option):
                run = subprocess.run([*daemon.command_line(), option], capture_output=True,
                                     timeout=TIME_LIMIT, check=False)
                self.assertEqual(run.returncode, 2)
                self.assertIn(b"tarnwick-daemon: ", run.stderr)

    def test_world_that_makes_no_sense_is_refused_with_the_reason(self):
        for world, reason in (([], "not a JSON object"), ({"networks": [{}]}, "networks[0].name"),
                              ({"networks": [{"name": "a b"}]}, "blank"),
                              ({"networks": [{"name": "a"}]}, "no accounts"),
                              ({"authKeys": [{"key": "k", "network": "n", "account": "a"}]},
                               "authKeys[0]")):
            with self.subTest(world=world):
                self.assertIn(reason, self.refusal(self.make(world=world)))


if __name__ == "__main__":
    unittest.main()
