#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Where the packaging rules put what, on both systems.

usage: layout_test.py CMAKE SCRATCH_DIRECTORY
"""

import pathlib
import plistlib
import shutil
import struct
import subprocess
import sys
import unittest

HERE = pathlib.Path(__file__).resolve().parent
CMAKE, SCRATCH = sys.argv[1], pathlib.Path(sys.argv[2])
APP = "Tarnwick Network.app/Contents/"

LINUX = {
    "bin/tarnwick-client",
    "etc/xdg/autostart/tarnwick-client.desktop",
    "share/applications/tarnwick-client.desktop",
    "share/doc/tarnwick-client/changelog.Debian.gz",
    "share/doc/tarnwick-client/copyright",
    "share/icons/hicolor/scalable/apps/tarnwick-client.svg",
    "share/icons/hicolor/symbolic/apps/tarnwick-client-symbolic.svg",
    "share/man/man1/tarnwick-client.1.gz",
    "share/metainfo/com.tarnwick.client.metainfo.xml",
    "share/tarnwick/tarnwick-daemon.service",
} | {
    f"share/icons/hicolor/{size}x{size}/apps/tarnwick-client.png"
    for size in (16, 22, 24, 32, 48, 64, 128, 256)
}
MACOS = {
    APP + "Info.plist",
    APP + "MacOS/tarnwick-client",
    APP + "Resources/com.tarnwick.daemon.plist",
    APP + "Resources/tarnwick-client.icns",
}


def run(*command):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    return done.returncode, done.stdout


def bundled(system):
    """Stand-ins for the network's programs, and the options that name them."""
    folder = SCRATCH / "programs"
    folder.mkdir(parents=True, exist_ok=True)
    (folder / "tool").write_text("the tool")
    (folder / "daemon").write_text("the daemon")
    return [f"-DTARNWICK_BUNDLED_TOOL={folder}/tool", f"-DTARNWICK_BUNDLED_DAEMON={folder}/daemon"]


def configure(system, *options):
    return run(CMAKE, "-G", "Ninja", "-S", str(HERE / "layout"), "-B", str(SCRATCH / system),
               f"-DTARNWICK_SYSTEM={system}", "-DTARNWICK_DEPLOY_QT=OFF",
               "-UTARNWICK_BUNDLED_*", *options)


class Layout(unittest.TestCase):
    def install(self, system, *options):
        prefix = SCRATCH / "prefix"
        shutil.rmtree(prefix, ignore_errors=True)
        build = str(SCRATCH / system)
        for status, output in (
            configure(system, *options),
            run(CMAKE, "--build", build),
            run(CMAKE, "--install", build, "--prefix", str(prefix)),
        ):
            self.assertEqual(status, 0, output)
        return prefix

    def files(self, prefix):
        return {p.relative_to(prefix).as_posix() for p in prefix.rglob("*") if not p.is_dir()}

    def test_linux_without_the_networks_programs(self):
        self.assertEqual(self.files(self.install("linux")), LINUX)

    def test_linux_with_the_networks_programs(self):
        prefix = self.install("linux", *bundled("linux"))
        names = ("tarnwick-linux-amd64", "tarnwick-daemon-linux-amd64")
        more = {f"bin/{name}" for name in names} | {f"share/man/man1/{name}.1.gz" for name in names}
        self.assertEqual(self.files(prefix), LINUX | more)
        self.assertEqual((prefix / "bin" / names[0]).read_text(), "the tool")
        self.assertEqual((prefix / "bin" / names[1]).read_text(), "the daemon")
        self.assertTrue((prefix / "bin" / names[1]).stat().st_mode & 0o111)

    def test_linux_icons_have_their_sizes(self):
        for picture in self.install("linux").rglob("*.png"):
            width, height = struct.unpack(">2I", picture.read_bytes()[16:24])
            self.assertEqual(picture.parts[-3], f"{width}x{height}")

    def test_installing_into_usr_reaches_etc_beside_it(self):
        self.install("linux")
        root = SCRATCH / "root"
        shutil.rmtree(root, ignore_errors=True)
        run(CMAKE, "--install", str(SCRATCH / "linux"), "--prefix", str(root / "usr"))
        self.assertTrue((root / "etc/xdg/autostart/tarnwick-client.desktop").exists())
        self.assertFalse((root / "usr/etc").exists())

    def test_macos_without_the_networks_programs(self):
        self.assertEqual(self.files(self.install("darwin")), MACOS)

    def test_macos_with_the_networks_programs_beside_the_client(self):
        prefix = self.install("darwin", *bundled("darwin"))
        names = ("tarnwick-darwin-amd64", "tarnwick-daemon-darwin-amd64")
        self.assertEqual(self.files(prefix), MACOS | {f"{APP}MacOS/{name}" for name in names})
        self.assertEqual((prefix / APP / "MacOS" / names[1]).read_text(), "the daemon")

    def test_macos_information_describes_the_bundle(self):
        contents = self.install("darwin") / APP
        info = plistlib.loads((contents / "Info.plist").read_bytes())
        self.assertIs(info["LSUIElement"], True)
        self.assertEqual(info["CFBundleIdentifier"], "com.tarnwick.client")
        self.assertEqual(info["CFBundleShortVersionString"], "9.8.7")
        self.assertEqual(info["CFBundleVersion"], "9.8.7")
        self.assertEqual(info["CFBundlePackageType"], "APPL")
        self.assertTrue((contents / "MacOS" / info["CFBundleExecutable"]).exists())
        self.assertTrue((contents / "Resources" / info["CFBundleIconFile"]).exists())

    def test_macos_icon_is_a_row_of_pictures(self):
        data = (self.install("darwin") / APP / "Resources/tarnwick-client.icns").read_bytes()
        kind, length = struct.unpack(">4sI", data[:8])
        self.assertEqual((kind, length), (b"icns", len(data)))
        sizes, at = {}, 8
        while at < len(data):
            kind, length = struct.unpack(">4sI", data[at : at + 8])
            self.assertEqual(data[at + 8 : at + 16], b"\x89PNG\r\n\x1a\n")
            sizes[kind.decode()] = struct.unpack(">I", data[at + 24 : at + 28])[0]
            at += length
        self.assertEqual(sizes["icp4"], 16)
        self.assertEqual(sizes["ic07"], 128)
        self.assertEqual(sizes["ic10"], 1024)

    def test_simulator_is_refused(self):
        simulator = SCRATCH / "linux" / "bin" / "tarnwick-daemon-linux-amd64"
        simulator.parent.mkdir(parents=True, exist_ok=True)
        simulator.touch()
        outside = SCRATCH / "link"
        outside.unlink(missing_ok=True)
        outside.symlink_to(simulator)
        for path in (simulator, outside):
            status, output = configure("linux", f"-DTARNWICK_BUNDLED_DAEMON={path}")
            self.assertNotEqual(status, 0)
            self.assertIn("simulator", output)

    def test_program_that_is_not_there_is_refused(self):
        status, output = configure("linux", f"-DTARNWICK_BUNDLED_TOOL={SCRATCH}/none")
        self.assertNotEqual(status, 0)
        self.assertIn("There is no file", output)


if __name__ == "__main__":
    shutil.rmtree(SCRATCH, ignore_errors=True)
    unittest.main(argv=sys.argv[:1])
