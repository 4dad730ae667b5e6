# SPDX-License-Identifier: MIT
"""Every command of the tool, against a daemon whose world stands still."""

import unittest

from simulated_daemon import SERVER, SimulatedDaemon, quick_world


class CommandsTest(unittest.TestCase):
    def setUp(self):
        self.daemon = SimulatedDaemon(world=quick_world())
        self.addCleanup(self.daemon.close)
        self.daemon.start()

    def listed(self):
        lines = self.daemon.tool("switch", "--list").stdout.decode().splitlines()
        self.assertEqual(lines[0].split(), ["ID", "Network", "Account"])
        return [tuple(line.split(None, 2)) for line in lines[1:]]

    def ids(self):
        return [row[0] for row in self.listed()]

    def assertFails(self, run, *words):
        self.assertEqual(run.returncode, 1)
        self.assertEqual(run.stdout, b"")
        for word in words:
            self.assertIn(word, run.stderr.decode())

    def test_new_daemon_needs_a_login_and_has_no_profiles(self):
        status = self.daemon.status()
        self.assertEqual(status["BackendState"], "NeedsLogin")
        self.assertIsNone(status["Peer"])
        self.assertFalse(status["Self"]["Online"])
        self.assertEqual(self.listed(), [])
        self.assertEqual(self.daemon.tool("status").stdout, b"Logged out.\n")

    def test_good_key_logs_in_and_connects(self):
        run = self.daemon.log_in("twkey-harbor-good", "work-mac")
        self.assertEqual((run.returncode, run.stderr), (0, b""))
        status = self.daemon.status()
        self.assertEqual(status["BackendState"], "Running")
        self.assertTrue(status["Self"]["Online"])
        self.assertEqual(status["Self"]["HostName"], "work-mac")
        self.assertEqual(status["Self"]["DNSName"], "work-mac.harbor-labs.tarnwick.example.")
        self.assertEqual(status["Self"]["TailscaleIPs"][0], "100.72.14.3")
        self.assertEqual(len(status["Peer"]), 12)

    def test_login_takes_its_flags_with_equals_signs_too(self):
        run = self.daemon.tool("login", f"--login-server={SERVER}", "--authkey=twkey-kite-good",
                               "--hostname=cutter")
        self.assertEqual(run.returncode, 0)
        self.assertEqual(self.daemon.status()["Self"]["HostName"], "cutter")

    def test_peers_hold_what_a_client_reads(self):
        self.daemon.log_in("twkey-harbor-good")
        for key, peer in self.daemon.status()["Peer"].items():
            self.assertEqual(peer["PublicKey"], key)
            self.assertTrue(key.startswith("nodekey:"))
            self.assertIn(peer["OS"], ("linux", "macOS", "windows", "iOS", "android"))
            self.assertTrue(peer["DNSName"].startswith(peer["HostName"] + "."))
            self.assertEqual([":" in address for address in peer["TailscaleIPs"]], [False, True])
            self.assertIsInstance(peer["Online"], bool)

    def test_healthy_output_never_looks_like_a_failure_and_fits_a_pipe(self):
        for key in ("twkey-harbor-good", "twkey-fernwood-good", "twkey-kite-good"):
            self.daemon.log_in(key)
            output = self.daemon.tool("status", "--json").stdout
            self.assertNotIn(b"error", output.lower())
            self.assertNotIn(b"Response status", output)
            self.assertLess(len(output), 32768)

    def test_refused_keys_name_the_reason_and_change_nothing(self):
        before = self.daemon.account()
        for key, reason in (("nonsense", "unknown"), ("twkey-harbor-expired", "expired"),
                            ("twkey-harbor-used", "used"), ("", "needed")):
            with self.subTest(key=key):
                self.assertFails(self.daemon.log_in(key), "error", reason)
        self.assertEqual(self.daemon.account(), before)

    def test_one_time_key_works_once(self):
        self.assertEqual(self.daemon.log_in("twkey-harbor-once").returncode, 0)
        self.assertFails(self.daemon.log_in("twkey-harbor-once"), "error", "used")

    def test_login_server_must_be_an_https_url(self):
        for server in ("", "http://a.example", "https://", "control.tarnwick.example", "\x01"):
            with self.subTest(server=server):
                self.assertFails(self.daemon.log_in("twkey-harbor-good", server=server), "error")

    def test_each_account_is_a_profile_and_logging_in_again_reuses_it(self):
        for key in ("twkey-harbor-good", "twkey-harbor-jonas", "twkey-fernwood-good"):
            self.daemon.log_in(key)
        self.daemon.log_in("twkey-harbor-good", "renamed")
        rows = self.listed()
        self.assertEqual([row[1:] for row in rows], [
            ("harbor-labs", "mira@harborlabs.example*"), ("harbor-labs", "jonas@harborlabs.example"),
            ("fernwood-home", "Mira Lindqvist")])
        self.assertEqual(len({row[0] for row in rows}), 3)
        self.assertEqual(self.daemon.status()["Self"]["HostName"], "renamed")

    def test_switching_changes_address_name_and_peers(self):
        for key in ("twkey-harbor-good", "twkey-kite-good"):
            self.daemon.log_in(key)
        harbor, kite = self.ids()
        seen = {}
        for profile in (harbor, kite):
            self.daemon.tool("switch", profile)
            status = self.daemon.status()
            self.assertEqual(status["BackendState"], "Running")
            seen[profile] = (status["Self"]["TailscaleIPs"][0], status["Self"]["HostName"],
                             frozenset(peer["HostName"] for peer in status["Peer"].values()))
        self.assertEqual(seen[harbor][:2], ("100.72.14.3", "mira-workstation"))
        self.assertEqual(seen[kite][:2], ("100.118.40.9", "guest-editor"))
        self.assertFalse(seen[harbor][2] & seen[kite][2])

    def test_switching_while_stopped_stays_stopped_until_up(self):
        for key in ("twkey-harbor-good", "twkey-kite-good"):
            self.daemon.log_in(key)
        self.daemon.tool("down")
        self.daemon.tool("switch", self.ids()[0])
        self.assertEqual(self.daemon.status()["BackendState"], "Stopped")
        self.daemon.tool("up")
        self.assertEqual(self.daemon.status()["BackendState"], "Running")

    def test_switching_to_no_profile_fails(self):
        self.daemon.log_in("twkey-harbor-good")
        for profile in ("nope", "", "-x", "a b", "'\"\n"):
            with self.subTest(profile=profile):
                self.assertFails(self.daemon.tool("switch", profile), "error", "no profile")

    def test_down_and_up_say_nothing_and_work(self):
        self.daemon.log_in("twkey-harbor-good")
        for command, state in (("down", "Stopped"), ("up", "Running"), ("up", "Running")):
            run = self.daemon.tool(command)
            self.assertEqual((run.returncode, run.stdout, run.stderr), (0, b"", b""))
            status = self.daemon.status()
            self.assertEqual(status["BackendState"], state)
            self.assertEqual(status["Self"]["Online"], state == "Running")
        self.daemon.tool("down")
        self.assertEqual(self.daemon.tool("down").returncode, 0)
        self.assertEqual(self.daemon.tool("status").stdout, b"Tarnwick is stopped.\n")

    def test_up_without_a_login_fails(self):
        self.assertFails(self.daemon.tool("up"), "error", "not logged in")

    def test_removing_the_current_profile_needs_a_login_but_keeps_the_others(self):
        for key in ("twkey-harbor-good", "twkey-kite-good"):
            self.daemon.log_in(key)
        harbor, kite = self.ids()
        run = self.daemon.tool("debug", "localapi", "DELETE", f"/localapi/v0/profiles/{kite}")
        self.assertEqual((run.returncode, run.stdout, run.stderr), (0, b"", b""))
        self.assertEqual(self.daemon.status()["BackendState"], "NeedsLogin")
        self.assertEqual(self.listed(), [(harbor, "harbor-labs", "mira@harborlabs.example")])
        self.daemon.tool("switch", harbor)
        self.assertEqual(self.daemon.status()["BackendState"], "Stopped")
        self.daemon.tool("up")
        self.assertEqual(self.daemon.status()["BackendState"], "Running")

    def test_removing_another_profile_leaves_the_connection(self):
        for key in ("twkey-harbor-good", "twkey-kite-good"):
            self.daemon.log_in(key)
        self.daemon.tool("debug", "localapi", "DELETE", f"/localapi/v0/profiles/{self.ids()[0]}")
        self.assertEqual(self.daemon.status()["BackendState"], "Running")
        self.assertEqual([row[1] for row in self.listed()], ["kite-studio"])

    def test_removing_what_is_gone_is_not_found(self):
        for path in ("/localapi/v0/profiles/gone", "/localapi/v0/profiles/", "/other"):
            with self.subTest(path=path):
                run = self.daemon.tool("debug", "localapi", "DELETE", path)
                self.assertFails(run, "Response status: 404 Not Found")
        run = self.daemon.tool("debug", "localapi", "GET", "/localapi/v0/profiles/x")
        self.assertFails(run, "Response status: 405 Method Not Allowed")

    def test_table_shows_every_device(self):
        self.daemon.log_in("twkey-fernwood-good")
        lines = self.daemon.tool("status").stdout.decode().splitlines()
        self.assertEqual(len(lines), 8)
        self.assertIn("attic-desktop", lines[0])
        self.assertTrue(any("kids-tablet" in line and "offline" in line for line in lines))

    def test_wrong_command_lines_fail_with_a_sentence(self):
        for arguments in (("frobnicate",), ("status", "--xml"), ("up", "now"), ("switch",),
                          ("switch", "a", "b"), ("login", "--authkey"), ("login", "--what=1"),
                          ("debug",), ("debug", "localapi"), ("simulator",), ("simulator", "x"),
                          ("debug", "localapi", "DELETE", "/localapi/v0/profiles/a", "b")):
            with self.subTest(arguments=arguments):
                self.assertFails(self.daemon.tool(*arguments), "error")
        self.assertEqual(self.daemon.tool().returncode, 1)
        self.assertEqual(self.daemon.tool("--help").returncode, 0)

    def test_log_tells_each_command_exactly(self):
        self.daemon.log_in(" a'b\"\n-- ", "x" * 10000)
        self.daemon.tool("switch", b"\xff\xfe")
        self.daemon.tool("status", "--json")
        log = self.daemon.log()
        self.assertEqual([entry["command"] for entry in log], ["login", "switch", "status"])
        self.assertEqual(log[0]["arguments"], ["login", f"--login-server={SERVER}", "--authkey",
                                               " a'b\"\n-- ", "--hostname", "x" * 10000])
        self.assertEqual(log[1]["arguments"], ["switch", {"base64": "//4="}])
        self.assertEqual([entry["exitStatus"] for entry in log], [1, 1, 0])
        self.assertEqual([entry["open"] for entry in log], [1, 1, 1])
        self.daemon.clear_log()
        self.assertEqual(self.daemon.log(), [])


class LargeNetwork(unittest.TestCase):
    def test_the_status_of_a_thousand_peers_fits_into_a_pipe_of_a_mebibyte(self):
        world = quick_world()
        network = next(network for network in world["networks"]
                       if network["name"] == "harbor-labs")
        network["peers"] = [{"hostName": f"device-{number:04}", "os": "linux",
                             "user": "ops@harborlabs.example",
                             "addresses": [f"100.72.{100 + number // 250}.{number % 250}",
                                           f"fd7a:4e2b:91c0::{number + 0x1000:x}"]}
                            for number in range(1000)]
        with SimulatedDaemon(world=world) as daemon:
            daemon.log_in("twkey-harbor-good")
            output = daemon.tool("status", "--json").stdout
            self.assertEqual(len(daemon.status()["Peer"]), 1000)
            self.assertIn(b'\n  "BackendState": "Running"', output)
            self.assertLess(len(output), 1 << 20)


if __name__ == "__main__":
    unittest.main()
