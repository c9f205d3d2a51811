# SPDX-License-Identifier: BSD-3-Clause
"""Sessions of the interpreter that end in a given way: by a script, --eval, the end of the input, or a signal."""
import signal
import subprocess
import time

import interpreter

# How a session gets what it is to do.
FILE, EVAL, STDIN = "file", "eval", "stdin"
WAIT = 'fclose (fopen ("ready", "w"));\nfor k = 1:600, pause (0.05); end\n'


def end_session(folder, prelude, tail, how, folders=None):
    """The status and the error output of a session in that folder. The tail is text or a signal that is sent to it."""
    sent = tail if isinstance(tail, signal.Signals) else None
    text = "1;\n" + prelude + (WAIT if sent else tail + "\n")
    command = interpreter.command(None, folders=folders, options=("--norc", "--quiet"))
    if how == FILE:
        (folder / "session.m").write_text(text)
        command.append("session.m")
    elif how == EVAL:
        command += ["--eval", text]
    session = subprocess.Popen(
        command, cwd=folder, env=interpreter.environment(folder), text=True, stdin=subprocess.PIPE,
        stdout=subprocess.DEVNULL, stderr=subprocess.PIPE,
        preexec_fn=lambda: signal.signal(signal.SIGINT, signal.SIG_DFL))
    if sent:
        deadline = time.monotonic() + 30
        while not (folder / "ready").exists() and time.monotonic() < deadline:
            time.sleep(0.02)
        session.send_signal(sent)
    _, errors = session.communicate(text if how == STDIN else None, timeout=60)
    return session.returncode, errors
