"""Interactive shells on a terminal of their own, in which a test types and presses the tab key."""

import os
import pathlib
import pty
import select
import time

TAB, ENTER, REPORT, CLEAR = "\t", "\r", "\x07", "\x15"
BASH = """
PS1='> '
HISTFILE=
source {file}
_reported() {{ _plxclip "$@"; printf '%s\\n' "${{COMPREPLY[@]}}" > {folder}/matches; }}
complete -F _reported plxclip
plxclip() {{ printf '%s\\0' "$@" > {folder}/arguments; }}
_report() {{ printf '%s' "$READLINE_LINE" > {folder}/line.new; mv {folder}/line.new {folder}/line; }}
bind -x '"\\C-g": _report'
bind 'set bell-style none'
"""
ZSH = """
PS1='> '
unset HISTFILE
fpath=({folder} $fpath)
autoload -Uz compinit
compinit -u -D
setopt no_beep
compadd() {{
    local -a found
    builtin compadd -O found "$@"
    print -rl -- "${{(@)found}}" > {folder}/matches
    builtin compadd "$@"
}}
plxclip() {{ printf '%s\\0' "$@" > {folder}/arguments; }}
_report() {{ print -rn -- "$BUFFER" > {folder}/line.new; command mv {folder}/line.new {folder}/line; }}
zle -N _report
bindkey '^G' _report
bindkey '^U' kill-whole-line
"""
COMMANDS = {"bash": ["bash", "--noprofile", "--norc", "-i"], "zsh": ["zsh", "-f", "-i"]}
SETUPS = {"bash": BASH, "zsh": ZSH}


class Shell:
    """One of the two, with the completion of that file, in a folder."""

    def __init__(self, name, file, programs, folder):
        self.folder = folder
        if name == "zsh":
            (folder / "_plxclip").write_bytes(file.read_bytes())
        (folder / "setup").write_text(SETUPS[name].format(file=file, folder=folder), encoding="utf-8")
        environment = {"PATH": f"{programs}:{os.environ['PATH']}", "HOME": str(folder), "TERM": "dumb",
                       "LC_ALL": "C.UTF-8", "INPUTRC": "/dev/null"}
        self.process, self.terminal = pty.fork()
        if self.process == 0:
            os.chdir(folder)
            os.execvpe(COMMANDS[name][0], COMMANDS[name], environment)
        self.output = b""
        self.type(f". {folder}/setup{ENTER}")
        self.line()

    def close(self):
        self.type(f"{CLEAR}exit{ENTER}")
        os.close(self.terminal)
        os.waitpid(self.process, 0)

    def type(self, text):
        os.write(self.terminal, text.encode())

    def wait_for(self, name, seconds=20):
        """The content of a file, once the shell has written it; then it is removed."""
        path = self.folder / name
        end = time.monotonic() + seconds
        while not path.exists():
            if time.monotonic() > end:
                raise AssertionError(f"the shell did not write {name}:\n{self.output.decode('utf-8', 'replace')}")
            self.read_output()
        text = path.read_text(encoding="utf-8")
        path.unlink()
        return text

    def read_output(self):
        """A terminal that nobody reads would stop the shell."""
        if select.select([self.terminal], [], [], 0.01)[0]:
            self.output = (self.output + os.read(self.terminal, 1 << 16))[-4000:]

    def line(self):
        """What stands on the line that is being typed."""
        self.type(REPORT)
        return self.wait_for("line")

    def complete(self, line):
        """The line after the tab key was pressed behind it, and what was offered; then the line is empty."""
        (self.folder / "matches").unlink(missing_ok=True)
        self.type(line + TAB)
        completed = self.line()
        self.type(CLEAR)
        matches = self.folder / "matches"
        offered = matches.read_text(encoding="utf-8").split("\n")[:-1] if matches.exists() else []
        return completed, [word for word in offered if word]

    def arguments_after(self, line):
        """What the program would get if the completed line were run."""
        self.type(line + TAB)
        self.line()
        self.type(ENTER)
        time.sleep(0.05)
        return self.wait_for("arguments").split("\0")[:-1]
