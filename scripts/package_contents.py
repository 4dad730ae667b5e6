#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Looks for what does not belong in a Debian package of the client, and for what it lacks.

usage: package_contents.py PACKAGE UNPACKED_TREE BUILD_DIRECTORY
"""

import hashlib
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
NEEDED = {
    "/etc/xdg/autostart/tarnwick-client.desktop",
    "/usr/bin/tarnwick-client",
    "/usr/share/applications/tarnwick-client.desktop",
    "/usr/share/doc/tarnwick-client/changelog.Debian.gz",
    "/usr/share/doc/tarnwick-client/copyright",
    "/usr/share/icons/hicolor/scalable/apps/tarnwick-client.svg",
    "/usr/share/icons/hicolor/symbolic/apps/tarnwick-client-symbolic.svg",
    "/usr/share/man/man1/tarnwick-client.1.gz",
    "/usr/share/metainfo/com.tarnwick.client.metainfo.xml",
    "/usr/share/tarnwick/tarnwick-daemon.service",
} | {
    f"/usr/share/icons/hicolor/{size}x{size}/apps/tarnwick-client.png"
    for size in (16, 22, 24, 32, 48, 64, 128, 256)
}
# The network's own programs are there when the package was told to bring them along.
BUNDLED = re.compile(r"/usr/(bin/tarnwick(-daemon)?-linux-(amd64|arm64)|share/man/man1/tarnwick"
                     r"(-daemon)?-linux-(amd64|arm64)\.1\.gz)")
LIBRARIES = {"libqt6core6", "libqt6dbus6", "libqt6gui6", "libqt6network6", "libqt6widgets6"}


def digest(path):
    return hashlib.sha256(path.read_bytes()).hexdigest()


def main(package, tree, build):
    tree, build = pathlib.Path(tree), pathlib.Path(build)
    paths = {"/" + p.relative_to(tree).as_posix(): p for p in tree.rglob("*") if not p.is_dir()}
    bundled = {path for path in paths if BUNDLED.fullmatch(path)}
    version = pathlib.Path(package).name.split("_")[1].split("-")[0]
    needed = NEEDED | {f"/usr/lib/tarnwick-client/modules/tarnwick-network-{version}.so"}
    problems = [f"lacks {path}" for path in sorted(needed - set(paths))]
    problems += [f"holds {path}" for path in sorted(set(paths) - needed - bundled)]

    cache = (build / "CMakeCache.txt").read_text()
    told = len(re.findall(r"^TARNWICK_BUNDLED_\w+:\w+=.+$", cache, re.M))
    if len(bundled) != 2 * told:
        problems.append(f"was told of {told} bundled programs, holds {sorted(bundled)}")
    simulator = {digest(p) for p in (build / "bin").glob("tarnwick-*linux-*")}
    problems += [f"{path} is the simulator" for path in paths if digest(paths[path]) in simulator]

    fields = subprocess.run(["dpkg-deb", "-f", package, "Depends"], stdout=subprocess.PIPE,
                            text=True, check=True).stdout
    depends = {field.split()[0] for field in fields.split(",")}
    problems += [f"does not depend on {name}" for name in sorted(LIBRARIES - depends)]
    name = pathlib.Path(package).name
    if name.endswith("_amd64.deb") and f"/{name}\n" not in (ROOT / "README.md").read_text():
        problems.append(f"is called {name}, but not in README.md")
    if problems:
        raise SystemExit("\n".join(f"package: {problem}" for problem in problems))
    size = pathlib.Path(package).stat().st_size
    print(f"package: {len(paths)} files, {size} bytes, depends on {len(depends)} packages")


if __name__ == "__main__":
    main(*sys.argv[1:])
