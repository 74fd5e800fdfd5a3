"""What the shells complete on command lines of the tools: completion_test.py bash|zsh|fish, in the sandbox."""

import os
import pathlib
import pty
import select
import shlex
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent))
from tables import drivers_with_document, tool_switches

COMMANDS = "create clone rename delete set list status start stop restart"
INPUT_TYPES = "video-passthru video-passthru-v2 trigger-rs232"
NAMES = ["main", "x y", "it's", 'two"quotes', "$HOME", "`id`", "back\\slash", "k=v:1", "bell\x01", "\xe9*", "!1"]
SAMPLE = "/usr/share/tavorn4/samples/preview.x11.json"
SWITCHES = set(tool_switches())

# The line, the word that is typed, and what the shell then offers for it.
ROWS = [
    ("zelm_outctl -c ", "", COMMANDS.split()),
    ("zelm_outctl ", "-", SWITCHES - {"--type"}),
    ("zelm_inctl ", "-", SWITCHES - {"--x11conflict"}),
    ("zelm_chctl -c rename ", "--t", ["--to"]),
    ("zelm_chctl -c list ", "--type", []),
    ("zelm_outctl -o ", "", NAMES),
    ("zelm_outctl ---c create -o ", "", []),
    ("zelm_outctl -c start -o ", "a", ["all", "autostart"]),
    ("zelm_outctl -c list -o ", "aut", []),
    *(("zelm_outctl -o ", typed, [name]) for name, ways in {
        "x y": ["x\\ ", "'x ", '"x '], "it's": ["it", "it\\'", "'it", '"it'], 'two"quotes': ["two", "'two", '"two'],
        "$HOME": ["\\$", "'$", '"\\$'], "`id`": ["\\`", "'`"], "back\\slash": ["back", "'back", '"back'],
        "k=v:1": ["k", "k=", "k=v:", "'k="], "bell\x01": ["bell"], "\xe9*": ["\xe9"], "!1": ["'!"]
    }.items() for typed in ways),
    ("zelm_outctl -c set -o main --set ", "al", ["always on top=", "always resize window="]),
    ("zelm_outctl -c set -o 'x y' --set ", "always\\ on", ["always on top="]),
    ("zelm_outctl -c set -o x\\ y --set ", "'always on", ["always on top="]),
    ("zelm_outctl -c set -o main --set ", "last\\ e", []),
    ("zelm_outctl -c set -o main --set ", "ti", ["title="]),
    ("zelm_outctl -c set -o main --set ", "dri", ["driver="]),
    ("zelm_outctl -c set --set ", "driver=x", ["driver=x11"]),
    ("zelm_outctl -c set --set ", '"driver=x', ["driver=x11"]),
    ("zelm_routectl --set ", "driver=knox_rsi", ["driver=knox_rsii"]),
    ("zelm_outctl -c start -o ", "mai", []),
    ("zelm_outctl -c start --force -o ", "mai", ["main"]),
    ("zelm_outctl -c start -o ", "k", ["k=v:1"]),
    ("zelm_outctl -c set --set ", "autostart=", ["autostart=0", "autostart=1"]),
    ("zelm_outctl -c set -o main --set ", "always\\ on\\ top=", ["always on top=0", "always on top=1"]),
    ("zelm_outctl -c set -o main --set ", "title=", []),
    ("zelm_outctl -c set --set ", "item=", ["item=/mnt/main/tv/rendermgr/channel1", "item=/mnt/main/tv/inputs/a b"]),
    ("zelm_outctl -c set --set ", "item=/usr/share/tav", ["item=/usr/share/tavorn4/"]),
    ("zelm_outctl -c set --set ", "'item=" + SAMPLE[:-9], ["item=" + SAMPLE]),
    ("zelmctl ", "w", ["wait", "watch"]),
    ("zelmctl wait ", "", ["running", "stopped", "answering"]),
    ("zelmctl wait running ", "output/m", ["output/main"]),
    ("zelmctl stop ", "--k", ["--kill"]),
    ("zelmctl get ", "--se", ["--secrets", "--settings"]),
    ("zelmctl metrics -o ", SAMPLE[:-9], [SAMPLE]),
    ("zelmctl check ", "", ["document", "settings", "manifest", "appliance", "driver"]),
    ("zelmctl apply --exact ", "--p", ["--prune"]),
    ("zelmctl plan ", SAMPLE[:-9], [SAMPLE]),
    ("zelmctl check driver ", "--j", ["--json", "--junit"]),
    ("zelmctl check driver --type trigger-rs232 --kind ", "i", ["input"]),
    ("zelmctl check driver --kind output -- ", SAMPLE[:-9], [SAMPLE]),
    ("zelmctl check document --driver ", "x", ["x11"]),
    ("zelmctl check --kind ", "", ["channel", "output", "input", "router"]),
    ("zelmctl check --json settings ", "--h", ["--help"]),
    ("zelmctl check document ", SAMPLE[:-9], [SAMPLE]),
    ("zelmctl save ", "--d", ["--documents"]),
    ("zelmctl explain ", "x", ["x11"]),
    ("zelmctl explain ", "output/m", ["output/main"]),
    ("zelmctl explain --json output/main ", "x11.key", []),
    ("zelmctl explain --json output/main ", "x11.keep", ["x11.keepAbove"]),
    ("zelm_outctl --json-driver ", "", drivers_with_document("OUTPUT")),
    ("zelm_routectl --json-driver ", "", drivers_with_document("ROUTER")),
    ("zelm_inctl --json-driver ", "t", ["trigger_rs232"]),
    ("zelm_inctl -c create --type ", "", INPUT_TYPES.split()),
    ("zelm_outctl --json-from ", SAMPLE[:-9], [SAMPLE]),
]

# Each interactive shell writes the words of its line, and the line, to the result: ^T completes what stands alone,
# ^G puts in everything that fits, ^R reports.
SHELLS = {
    "bash": (["bash", "--norc", "--noprofile"], r"""
        . /usr/share/bash-completion/bash_completion; HISTFILE=; set +H
        report() { words=(); eval "words=($READLINE_LINE)"
            { printf '%s\0' "${words[@]}" "$READLINE_LINE"; printf '\n'; } >$RESULT; READLINE_LINE=; }
        bind '"\C-t": complete' '"\C-g": insert-completions'; bind -x '"\C-r": report'
        """),
    "zsh": (["zsh", "-f", "-i"], r"""
        autoload -U compinit; compinit -D; unsetopt bang_hist
        zle -C all complete-word _generic; zstyle ':completion:all:*' completer _all_matches _complete
        zstyle ':completion:all:*' insert true
        report() { words=(); eval "words=($BUFFER)" 2>/dev/null || eval "words=($BUFFER')"
            { printf '%s\0' "${words[@]}" "$BUFFER"; printf '\n'; } >$RESULT; BUFFER=; }
        zle -N report; bindkey '^T' complete-word '^G' all '^R' report
        """),
}


class Terminal:
    """A real shell at a terminal of its own."""

    def __init__(self, shell):
        arguments, setup = SHELLS[shell]
        self.result = pathlib.Path("/run/completion-result")
        pathlib.Path("/run/completion-setup").write_text(setup + "PS1='READY> '")
        process, self.terminal = pty.fork()
        if process == 0:
            os.environ.update(RESULT=str(self.result), TERM="dumb", PS1="", LC_ALL="C.UTF-8", HOME="/run")
            os.execvp(arguments[0], arguments)
        self.type(". /run/completion-setup\r", lambda shown: b"READY> " in shown)

    def type(self, keys, done):
        os.write(self.terminal, keys.encode())
        deadline = time.monotonic() + 30
        shown = b""
        while not done(shown):
            if select.select([self.terminal], [], [], 0.02)[0]:
                shown += os.read(self.terminal, 65536)
            assert time.monotonic() < deadline, f"after {keys!r} it shows {shown!r}"

    def offers(self, head, typed, alone):
        """The words that came in the place of the one that was typed."""
        self.result.write_bytes(b"")
        self.type(head + typed + ("\x14" if alone else "\x07") + "\x12",
                  lambda _: self.result.read_bytes().endswith(b"\0\n"))
        *words, line, _ = self.result.read_text().split("\0")
        assert not (alone and line.endswith(("= ", "/ "))), "a blank between the key and its value, or in a path"
        # Of many, bash puts in what follows the last of its word breaks.
        key = bare(typed[:typed.rfind("=") + 1])
        words = [word if word.startswith(key) else key + word for word in words[len(shlex.split(head)):]]
        return [] if words == [bare(typed)] else words


class Fish:
    """Tells what it would offer, also what is merely like the typed word, and quotes it when it puts it in."""

    def offers(self, head, typed, _):
        ran = subprocess.run(["fish", "-c", "complete -C $argv[1]", head + typed], capture_output=True, check=True)
        offered = [line.split("\t")[0] for line in ran.stdout.decode().splitlines()]
        return [word for word in offered if word.startswith(bare(typed))]


def bare(typed):
    return typed.lstrip("'\"").replace("\\", "")


def main():
    for name in NAMES:
        subprocess.run(["zelm_outctl", "-c", "create", "-o", name], check=True)
        subprocess.run(["zelm_outctl", "-c", "set", "-o", name, "--set", "driver=x11", "--set", "title=One"],
                       check=True)
    for tool, *create in ("zelm_chctl", "channel1"), ("zelm_inctl", "a b", "--type", "video-passthru"):
        subprocess.run([tool, "-c", "create", "-o", *create], check=True)
    # A running item reports its settings, too.
    subprocess.run("zelm_outctl -c start -o main; until zelm_outctl -c status -o main; do sleep 0.1; done", shell=True,
                   check=True, stdout=subprocess.DEVNULL)
    shell = Fish() if sys.argv[1] == "fish" else Terminal(sys.argv[1])
    wrong = 0
    for head, typed, expected in ROWS:
        offered = shell.offers(head, typed, len(expected) == 1)
        if sorted(offered) != sorted(expected):
            print(f"{head + typed!r} offers {sorted(offered)}, not {sorted(expected)}")
            wrong += 1
    return wrong != 0


sys.exit(main())
