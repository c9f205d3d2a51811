# SPDX-License-Identifier: BSD-3-Clause
"""A copy of ./gridio in its own folder, with stand-ins for every program that changes a machine.

The stand-ins log each call and behave as the files in the folder `machine` say. Nothing else is on
the PATH but a few tools of the base system, and the real interpreter where a test asks for it.
"""
import os
import pathlib
import pty
import re
import shutil
import subprocess
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
BASE_TOOLS = ("bash", "cat", "dirname", "env", "find", "flock", "grep", "mkdir", "readlink", "sed",
              "sh", "stat", "tail", "touch", "tr", "uname")
NOBODY = 65534

STAND_INS = {
    "id": "cat $M/uid",
    # A user with a password may type it once, which needs a terminal and the right to use sudo.
    "sudo": """
        log sudo "$@"
        case $1 in
        -n) [ ! -e $M/password ] || { echo 'sudo: a password is required' >&2; exit 1; } ;;
        -v) [ ! -e $M/no_rights ] || { echo 'Sorry, user ada may not run sudo on sea.' >&2; exit 1; } ;;
        *) exec "$@" ;;
        esac""",
    # "installed NAME" for each package that the machine has.
    "dpkg-query": "sed 's/^/installed /' $M/installed",
    # Packages are known once lists are there; lists and packages come over the network.
    "apt-get": """
        log apt-get "$@"
        case "$*" in
        *update*) [ ! -e $M/network ] || touch $M/lists; echo "Err:1 http://a.mirror Temporary failure" ;;
        -s*) [ -e $M/lists ] || { echo 'E: Unable to locate package cmake' >&2; exit 100; } ;;
        *--assume-no*) [ ! -e $M/extent ] || cat $M/extent; exit 1 ;;
        *install*)
            if [ ! -e $M/network ]; then echo 'E: Failed to fetch' >&2; exit 100; fi
            if [ -e $M/stale ]; then rm_stale; echo 'E: 404 Not Found' >&2; exit 100; fi
            echo 'Get:1 http://a.mirror bookworm/main amd64 all'
            echo 'dlstatus:1:12.5000:Retrieving file 1 of 2'
            [ ! -e $M/locked ] || {
                printf 'Waiting for cache lock: Could not get lock /var/lib/dpkg/lock-frontend. '
                echo 'It is held by process 42 (aptitude)'; }
            echo 'pmstatus:cmake:0.0000:Preparing cmake (amd64)'
            echo 'pmstatus:cmake:50.0000:Unpacking cmake (amd64)'
            echo 'Unpacking cmake (3.25) ...'
            if [ -e $M/unfit ]; then
                echo 'dpkg: error processing package cmake (--configure):'
                echo 'E: Sub-process /usr/bin/dpkg returned an error code (1)' >&2
                exit 100
            fi
            for p in "$@"; do echo "$p" >>$M/installed; done ;;
        esac""",
    "cmake": """
        log cmake "$@"
        [ ! -e $M/broken ] || { echo 'a compiler error' >&2; exit 1; }
        case $1 in
        --preset)
            mkdir -p build/$2
            echo "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" >build/$2/CMakeCache.txt
            touch build/$2/build.ninja ;;
        --build) touch $M/built ;;
        esac""",
    "ninja": '[ ! -e $M/built ] || echo "ninja: no work to do."',
    "ctest": 'log ctest "$@"; echo "100% tests passed of $2"; case $2 in *"$(cat $M/failing)") exit 8; esac',
    "octave-cli": 'log octave-cli "$@"',
    "clang-format-14": 'log clang-format-14 "$@"',
    # Libraries, headers and modules are found that have a file in the folder `found`.
    "pkg-config": '[ -e "$M/found/$2" ]',
    "c++": 'read -r line; name=${line#*<}; [ -e "$M/found/$(echo "${name%>*}" | tr / _)" ]',
    "python3": '[ -e "$M/found/${2#import }" ]',
}


class Sandbox:
    """`machine` is the state of the machine; a test writes it, the stand-ins read and change it."""

    def __init__(self, name="tree"):
        self._folder = tempfile.TemporaryDirectory()
        self.home = pathlib.Path(self._folder.name)
        self.home.chmod(0o755)
        self.tree = self.home / name
        self.tools = self.home / "tools"
        self.machine = self.home / "machine"
        self.environment = {}
        for folder in (self.tree, self.tools, self.machine):
            folder.mkdir()
        for file in ("gridio", "VERSION"):
            shutil.copy(ROOT / file, self.tree / file)
        shutil.copytree(ROOT / "systems", self.tree / "systems")
        for tool in BASE_TOOLS:
            (self.tools / tool).symlink_to(shutil.which(tool))
        for tool, body in STAND_INS.items():
            self.stand_in(tool, body)
        for state, text in (("uid", "0"), ("installed", ""), ("log", ""), ("failing", "none")):
            self.write(state, text)
        self.write("network")

    def stand_in(self, tool, body):
        """A program that logs and behaves as this shell code says; $M is the folder `machine`."""
        path = self.tools / tool
        path.write_text(f"""#!/bin/sh
M='{self.machine}'
log() {{ echo "$@" >>$M/log; }}
rm_stale() {{ '{shutil.which("rm")}' $M/stale; }}
{body}
""")
        path.chmod(0o755)

    def close(self):
        self._folder.cleanup()

    def write(self, state, text=""):
        (self.machine / state).write_text(text)
        (self.machine / state).chmod(0o666)

    def remove(self, name):
        for folder in (self.machine, self.tools):
            if os.path.lexists(folder / name):
                (folder / name).unlink()

    def install_everything(self):
        """The packages that the script's own table names."""
        table = re.search(r"packages\(\).*?END'\n(.*?)\nEND", (self.tree / "gridio").read_text(), re.S)
        self.write("installed", "".join(re.split("[|?]", row.split()[1])[0] + "\n" for row in table[1].splitlines()))

    def build_everything(self):
        """All packages, a finished build that holds the gridio under test, and the real interpreter."""
        self.install_everything()
        release = self.tree / "build" / "release"
        release.mkdir(parents=True)
        (release / "build.ninja").touch()
        (release / "CMakeCache.txt").write_text(f"CMAKE_HOME_DIRECTORY:INTERNAL={self.tree}\n")
        self.write("built")
        (release / "octave").mkdir()
        shutil.copy(pathlib.Path(os.environ["GRIDIO_OCT_DIR"], "gridio.oct"), release / "octave")
        self.remove("octave-cli")
        self.add_tool("octave-cli", os.environ["OCTAVE_CLI"])

    def restore(self, tool):
        """A stand-in again that was removed, or one that does nothing."""
        self.stand_in(tool, STAND_INS.get(tool, ":"))

    def add_tool(self, name, program=None):
        (self.tools / name).symlink_to(shutil.which(program or name))

    def _call(self, args, command=None, cwd=None):
        return {"args": [command or self.tree / "gridio", *args], "cwd": cwd or self.home,
                "env": {"PATH": str(self.tools), "HOME": str(self.home / "nobody"), **self.environment}}

    def gridio(self, *args, stdin="", **options):
        return subprocess.run(**self._call(args, **options), input=stdin, capture_output=True, text=True)

    def start(self, *args):
        return subprocess.Popen(**self._call(args), stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE, text=True)

    def gridio_of_a_stranger(self, *args):
        """A user who does not own the tree; root becomes an ordinary user."""
        strange = {"user": NOBODY, "group": NOBODY, "extra_groups": []} if os.getuid() == 0 else {}
        return subprocess.run(**self._call(args), capture_output=True, text=True, stdin=subprocess.DEVNULL, **strange)

    def on_a_terminal(self, *args):
        """The output of a call whose messages go to a terminal."""
        ours, theirs = pty.openpty()
        with subprocess.Popen(**self._call(args), stdin=theirs, stdout=subprocess.DEVNULL, stderr=theirs) as process:
            os.close(theirs)
            shown = b""
            try:
                while piece := os.read(ours, 4096):
                    shown += piece
            except OSError:  # the other end was closed
                pass
        os.close(ours)
        return process.returncode, shown.decode()

    def log(self, tool=""):
        """The calls of a stand-in so far, one line each."""
        return [line for line in (self.machine / "log").read_text().splitlines()
                if line.startswith(tool)]
