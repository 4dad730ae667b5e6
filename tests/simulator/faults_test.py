# SPDX-License-Identifier: MIT
"""Commands that go wrong on purpose, and all well again afterwards."""

import signal
import subprocess
import time
import unittest

from simulated_daemon import TIME_LIMIT, SimulatedDaemon, quick_world


class FaultsTest(unittest.TestCase):
    def setUp(self):
        self.daemon = SimulatedDaemon(world=quick_world())
        self.addCleanup(self.daemon.close)
        self.daemon.start()
        self.daemon.log_in("twkey-harbor-good")

    def spawn(self, *arguments):
        process = subprocess.Popen(self.daemon.tool_line(*arguments), stdin=subprocess.DEVNULL,
                                   stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        self.addCleanup(process.stdout.close)
        self.addCleanup(process.wait, TIME_LIMIT)
        self.addCleanup(process.kill)
        return process

    def assertRecovers(self):
        self.daemon.set_faults("none")
        self.assertEqual(self.daemon.status()["BackendState"], "Running")

    def test_hang_ends_only_by_a_signal_and_holds_up_nobody_else(self):
        self.daemon.set_faults("hang@up")
        process = self.spawn("up")
        self.assertEqual(self.daemon.status()["BackendState"], "Running")
        with self.assertRaises(subprocess.TimeoutExpired):
            process.wait(0.5)
        process.terminate()
        self.assertEqual(process.wait(TIME_LIMIT), -signal.SIGTERM)
        self.assertRecovers()

    def test_slow_takes_effect_at_once_and_answers_late(self):
        self.daemon.set_faults("slow:1@down")
        begin = time.monotonic()
        process = self.spawn("down")
        self.daemon.wait_for(lambda status: status["BackendState"] == "Stopped")
        self.assertEqual(process.wait(TIME_LIMIT), 0)
        self.assertGreaterEqual(time.monotonic() - begin, 1.0)

    def test_garbage_is_no_text(self):
        self.daemon.set_faults("garbage@status")
        with self.assertRaises(UnicodeDecodeError):
            self.daemon.tool("status", "--json").stdout.decode()
        self.assertRecovers()

    def test_flood_stops_when_nobody_reads(self):
        self.daemon.set_faults("flood")
        process = self.spawn("status", "--json")
        process.stdout.read(1)
        process.stdout.close()
        self.assertEqual(process.wait(TIME_LIMIT), -signal.SIGPIPE)

    def test_flood_never_ends(self):
        self.daemon.set_faults("flood")
        process = self.spawn("status", "--json")
        self.assertEqual(len(process.stdout.read(1 << 20)), 1 << 20)
        with self.assertRaises(subprocess.TimeoutExpired):
            process.wait(0.2)
        process.terminate()
        self.assertEqual(process.wait(TIME_LIMIT), -signal.SIGTERM)
        self.assertRecovers()

    def test_error_is_a_sentence_and_a_status(self):
        self.daemon.set_faults("error@down")
        run = self.daemon.tool("down")
        self.assertEqual(run.returncode, 1)
        self.assertTrue(run.stderr.startswith(b"error: "))
        self.assertRecovers()

    def test_crash_is_a_death_by_signal_of_the_tool_alone(self):
        self.daemon.set_faults("crash@list")
        self.assertEqual(self.daemon.tool("switch", "--list").returncode, -signal.SIGABRT)
        self.assertRecovers()

    def test_commands_with_a_fault_change_nothing(self):
        for fault in ("garbage", "error", "crash"):
            self.daemon.set_faults(fault)
            self.daemon.tool("down")
            self.daemon.log_in("twkey-kite-good")
        account = self.daemon.account()
        self.assertEqual(account["backendState"], "Running")
        self.assertEqual(len(account["profiles"]), 1)

    def test_fault_of_one_command_comes_before_the_fault_of_all(self):
        self.assertEqual(self.daemon.set_faults("error", "slow:0@status").stdout,
                         b"error\nslow:0@status\n")
        self.assertEqual(self.daemon.status()["BackendState"], "Running")
        self.assertEqual(self.daemon.tool("up").returncode, 1)
        self.daemon.set_faults("none@status")
        self.assertEqual(self.daemon.tool("status").returncode, 1)
        self.assertEqual(self.daemon.account()["faults"], ["error"])

    def test_unknown_faults_are_refused_and_change_nothing(self):
        self.daemon.set_faults("error@up")
        for spec in ("", "@", "boom", "hang@", "hang@nobody", "slow", "slow:", "slow:-1", "slow:nan",
                     "slow:1e99", "none@what"):
            with self.subTest(spec=spec):
                self.assertEqual(self.daemon.set_faults("crash", spec).returncode, 1)
        self.assertEqual(self.daemon.account()["faults"], ["error@up"])

    def test_faults_of_the_command_line_hold_from_the_start(self):
        self.daemon.faults = ["error@status", "crash@up"]
        self.daemon.restart()
        self.assertEqual(self.daemon.tool("status").returncode, 1)
        self.assertEqual(self.daemon.tool("up").returncode, -signal.SIGABRT)
        self.assertEqual(self.daemon.tool("down").returncode, 0)

    def test_log_tells_the_fault_and_what_was_under_way(self):
        self.daemon.set_faults("hang@up")
        self.daemon.clear_log()
        process = self.spawn("up")
        while not self.daemon.log():
            time.sleep(0.01)
        self.daemon.status()
        process.terminate()
        process.wait(TIME_LIMIT)
        self.daemon.status()
        self.assertEqual([(entry["command"], entry["fault"], entry["exitStatus"], entry["open"])
                          for entry in self.daemon.log()],
                         [("up", "hang", None, 1), ("status", None, 0, 2), ("status", None, 0, 1)])

    def test_daemon_that_ends_half_way_leaves_an_error(self):
        self.daemon.set_faults("hang@status")
        process = self.spawn("status", "--json")
        while not any(entry["fault"] for entry in self.daemon.log()):
            time.sleep(0.01)
        self.assertEqual(self.daemon.stop(), 0)
        self.assertIn(b"error: the daemon closed the connection", process.stdout.read())
        self.assertEqual(process.wait(TIME_LIMIT), 1)


if __name__ == "__main__":
    unittest.main()
