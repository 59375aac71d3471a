#!/usr/bin/env python3
"""Types each line given as an argument into an interactive bash, presses the tab key, and prints what the line is then.

press_tab.py SETUP LINE...   SETUP is a command that the shell runs first, in the current folder.
"""
import os
import pty
import select
import sys
import tempfile
import time


def press_tab(setup, line):
    start, end = "made <", "> made"
    with tempfile.NamedTemporaryFile("w") as commands:
        # A key of its own prints the line as the tab key left it.
        commands.write(f"""{setup}
bind 'set bell-style none'
bind -x '"\\C-g": printf "\\n%s%s%s\\n" "{start}" "$READLINE_LINE" "{end}"'
PS1='ready '
""")
        commands.flush()
        process, terminal = pty.fork()
        if process == 0:
            os.environ.update(TERM="dumb", INPUTRC="/dev/null", HISTFILE="/dev/null")
            os.execvp("bash", ["bash", "--noprofile", "--rcfile", commands.name, "-i"])
        seen = ""
        typed = False
        late = time.monotonic() + 30
        while time.monotonic() < late and end not in seen:
            if not select.select([terminal], [], [], 1)[0]:
                continue
            try:
                seen += os.read(terminal, 65536).decode(errors="replace")
            except OSError:
                break
            if not typed and "ready " in seen:
                os.write(terminal, (line + "\t\x07").encode())
                typed = True
        os.close(terminal)
        os.waitpid(process, 0)
    return seen.split(start, 1)[1].split(end, 1)[0] if end in seen else "nothing; the terminal showed " + repr(seen)


for argument in sys.argv[2:]:
    print(press_tab(sys.argv[1], argument))
