# SPDX-License-Identifier: MIT
"""Requests that no tool would send, and arguments that no person would type."""

import os
import random
import socket
import unittest

from simulated_daemon import TIME_LIMIT, SimulatedDaemon, quick_world


class HostileTest(unittest.TestCase):
    def setUp(self):
        self.daemon = SimulatedDaemon(world=quick_world())
        self.addCleanup(self.daemon.close)
        self.daemon.start()
        self.addCleanup(self.check_and_stop)
        self.daemon.log_in("twkey-harbor-good")

    def check_and_stop(self):
        self.assertEqual(self.daemon.status()["BackendState"], "Running")
        self.assertEqual(self.daemon.stop(), 0)

    def connect(self):
        connection = socket.socket(socket.AF_UNIX)
        self.addCleanup(connection.close)
        connection.settimeout(TIME_LIMIT)
        connection.connect(str(self.daemon.socket))
        return connection

    def exchange(self, request):
        connection = self.connect()
        answer = b""
        try:
            connection.sendall(request)
            connection.shutdown(socket.SHUT_WR)
            while chunk := connection.recv(65536):
                answer += chunk
        except (BrokenPipeError, ConnectionResetError):
            pass  # hung up on before all was said; just what it deserves
        connection.close()
        return answer

    def test_malformed_requests_are_told_so_or_hung_up_on(self):
        requests = [b"\n", b"GET / HTTP/1.1\r\n\r\n", b"tarnwick/1\n", b"tarnwick/1 1\n",
                    b"tarnwick/1 1 x\n", b"tarnwick/1 -1 -1\n", b"tarnwick/1  1 1\n",
                    b"tarnwick/1 99999999999999999999 1\n", b"tarnwick/1 1 99999999999\n",
                    b"tarnwick/1 5 3\nabc", b"tarnwick/1 1 3\nabc", b"tarnwick/1 2 3\nab\0",
                    b"tarnwick/2 1 3\nup\0", b"x" * 100, b"\0" * 100]
        for request in requests:
            with self.subTest(request=request[:40]):
                answer = self.exchange(request)
                self.assertIn(b"error: malformed request", answer)

    def test_empty_and_cut_requests_get_no_answer(self):
        whole = b"tarnwick/1 2 14\nstatus\0--json\0"
        self.assertIn(b"BackendState", self.exchange(whole))
        for length in range(len(whole)):
            self.assertEqual(self.exchange(whole[:length]), b"")

    def test_request_in_single_bytes_is_understood(self):
        connection = self.connect()
        for byte in b"tarnwick/1 1 7\nstatus\0":
            connection.send(bytes([byte]))
        self.assertTrue(connection.recv(64).startswith(b"tarnwick/1 0 0 "))

    def test_request_without_arguments_is_an_error(self):
        self.assertIn(b"error", self.exchange(b"tarnwick/1 0 0\n"))

    def test_huge_requests_are_cut_off(self):
        self.exchange(b"x" * (8 << 20))
        self.exchange(b"tarnwick/1 1 9000000\n" + b"x" * (8 << 20))
        self.exchange(b"tarnwick/1 1 1000000\n" + b"x" * 999999 + b"\0")
        self.assertIn(b"malformed", self.exchange(b"tarnwick/1 1001 1001\n" + b"\0" * 1001))
        self.assertIn(b"unknown command", self.exchange(b"tarnwick/1 999 999\n" + b"\0" * 999))

    def test_random_bytes(self):
        seed = int.from_bytes(os.urandom(4), "big")
        chance = random.Random(seed)
        with self.subTest(seed=seed):
            for _ in range(300):
                body = chance.randbytes(chance.randrange(200))
                head = b"tarnwick/1 %d %d\n" % (body.count(b"\0"), len(body))
                self.exchange(chance.choice([body, head + body, head + body + b"\0"]))

    def test_more_half_open_connections_than_it_keeps(self):
        crowd = [self.connect() for _ in range(400)]
        for connection in crowd[::2]:
            try:
                connection.send(b"tarnwick/1 1 7\nsta")
            except OSError:
                pass  # the first ones have had to go by now
        self.assertEqual(self.daemon.status()["BackendState"], "Running")
        # The oldest went to make room, the youngest is still served.
        with self.assertRaises(OSError):
            while crowd[0].recv(1):
                pass
            crowd[0].send(b"x")
        crowd[-1].sendall(b"tarnwick/1 1 7\nstatus\0")
        self.assertTrue(crowd[-1].recv(64).startswith(b"tarnwick/1 0 0 "))

    def test_tools_that_never_read_their_answer(self):
        for _ in range(4):
            self.daemon.log_in("x" * 100000)  # so that the log fills any socket's buffer
        for _ in range(20):
            self.connect().sendall(b"tarnwick/1 2 14\nsimulator\0log\0")
        self.assertEqual(self.daemon.status()["BackendState"], "Running")

    def test_odd_arguments_reach_every_command(self):
        odd = ["", " ", "'", '"', "\n", "-", "--", "--json", "\\", "%s%n", "\u202e\U0001f600", "*",
               "../../x", b"\xff\xc3(", "x" * 10000]
        for text in odd:
            with self.subTest(text=text[:20]):
                self.assertEqual(self.daemon.tool("switch", text).returncode, 1)
                self.assertEqual(self.daemon.log_in(text).returncode, 1)
                path = text if isinstance(text, bytes) else text.encode()
                run = self.daemon.tool("debug", "localapi", "DELETE",
                                       b"/localapi/v0/profiles/" + path)
                self.assertIn(b"404 Not Found", run.stderr)
                self.assertEqual(self.daemon.tool(text, "x").returncode, 1)

    def test_odd_host_names_are_kept_and_shown(self):
        for name in ("-", "a b\n", "\U0001f600", '"\\', "x" * 10000):
            with self.subTest(name=name[:20]):
                self.assertEqual(self.daemon.log_in("twkey-harbor-good", name).returncode, 0)
                self.assertEqual(self.daemon.status()["Self"]["HostName"], name)
        self.daemon.restart()
        self.assertEqual(self.daemon.status()["Self"]["HostName"], "x" * 10000)


if __name__ == "__main__":
    unittest.main()
