# SPDX-License-Identifier: BSD-3-Clause
"""Keeps what the package is compiled to, so that only one of the tests that install it compiles it."""
import os
import pathlib
import shutil

NOBODY = 65534


def environment():
    """The variables with which compilers are called through ccache and its files are in COMPILED_PACKAGE, a folder; none where
    that is not set or there is no ccache. If root tests, it is for nobody, an ordinary user, that the package is compiled."""
    ccache = shutil.which("ccache")
    if not ccache or "COMPILED_PACKAGE" not in os.environ:
        return {}
    compilers = pathlib.Path(os.environ["COMPILED_PACKAGE"], "compilers")
    files = compilers.with_name("files")
    for folder in (compilers, files):
        folder.mkdir(parents=True, exist_ok=True)
    for name in ("c++", "g++"):
        if not (compilers / name).is_symlink():
            (compilers / name).symlink_to(ccache)
    if os.getuid() == 0:
        os.chown(files, NOBODY, NOBODY)
        files.chmod(0o2775) # what root creates below belongs to this group, too
    return {"PATH": f"{compilers}:{os.environ['PATH']}", "CCACHE_DIR": str(files), "CCACHE_UMASK": "002", "CCACHE_MAXSIZE": "200M"}
