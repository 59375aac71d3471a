"""The work of script/mutate: makes the changes, builds and tests each, tells which went unnoticed."""
import argparse
import concurrent.futures
import fnmatch
import os
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import threading
import time
from pathlib import Path

FILES = ["app/*.cpp", "app/*.h", "format/*.cpp", "format/*.h", "sections/*.cpp", "platform/image.h",
         "platform/record.h", "platform/board.h"]

# What begins like that declares something: without it nothing compiles, and its place says nothing.
DECLARATION = re.compile(r"(const|constexpr|constinit|inline|extern|auto|friend|using|template|struct|class|enum|"
                         r"namespace)\b")
NEVER_DROPPED = re.compile(r"default: break;|return 0;|[{}]")

# The tests that are most likely to notice a change of a file; they run first. Others: those of the file's own name.
LIKELY = {
    "app/drivers": ["drivers"], "app/order": ["drivers"], "app/images": ["run"], "app/main": ["run"],
    "format/address": ["ip", "snmp", "users"], "format/blocks": ["port_list", "interface"],
    "platform/image": ["record"], "platform/record": ["record"], "platform/board": ["record"],
    "sections/interface": ["interface", "poe"],
}


# ------------------------------------------------------------------------------------------------------- the changes

class Mutant:
    def __init__(self, file, text, start, end, new, kind):
        self.file, self.start, self.end, self.new, self.kind = file, start, end, new, kind
        self.line = text.count("\n", 0, start) + 1
        first = text.rfind("\n", 0, start) + 1
        last = text.find("\n", max(end - 1, start))
        last = len(text) if last < 0 else last
        squeeze = lambda part: " ".join(part.split(" ")).strip() if "\n" not in part else " ".join(part.split())
        self.old_lines = squeeze(text[first:last])
        self.new_lines = squeeze(text[first:start] + new + text[end:last])

    def what(self):
        """What an explanation is matched with: nothing that other changes of the file move."""
        return f"{self.file} {self.kind}: {self.old_lines} => {self.new_lines}"

    def __str__(self):
        return f"{self.file}:{self.line}: {self.kind}\n    - {self.old_lines}\n    + {self.new_lines or '(nothing)'}"


TOKEN = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])\'', re.S)
PIECE = re.compile(r"\\(?:x[0-9a-f]+|.)|%(?:02)?l?[a-zA-Z]|.", re.S)
CONVERSION = {"%d": "%02d", "%ld": "%u", "%u": "%d", "%X": "%02X", "%02X": "%02x", "%02x": "%02X", "%02d": "%d"}
OPERATORS = [
    ("comparison", r"==", "!="), ("comparison", r"!=", "=="),
    ("comparison", r"(?<= )<(?= )", "<="), ("comparison", r"(?<= )<=(?= )", "<"),
    ("comparison", r"(?<= )>(?= )", ">="), ("comparison", r"(?<= )>=(?= )", ">"),
    ("logic", r"(?<= )&&(?= )", "||"), ("logic", r"(?<= )\|\|(?= )", "&&"),
    ("logic", r"!(?=[\w(])", ""), ("logic", r"\bisOn\((?=\w)", "!isOn("),
    ("arithmetic", r"(?<= )\+(?= )", "-"), ("arithmetic", r"(?<=[\w)\]] )-(?= )", "+"),
    ("arithmetic", r"(?<= )\*(?= \w)", "+"), ("arithmetic", r"(?<= )/(?= )", "*"), ("arithmetic", r"(?<= )%(?= )", "/"),
    ("arithmetic", r"(?<= )>>(?= )", "<<"), ("arithmetic", r"(?<= )<<(?= )", ">>"),
    ("arithmetic", r"(?<= )&(?= )", "|"), ("arithmetic", r"(?<= )\|(?= )", "&"),
    ("boolean", r"\btrue\b", "false"), ("boolean", r"\bfalse\b", "true"),
    ("image", r"\bcurrent\b(?=[.,)\[])", "defaults"), ("image", r"\bdefaults\b(?=[.,)\[])", "current"),
    ("image", r"\bgSysConfig\b", "gDefConfig"), ("image", r"\bgDefConfig\b", "gSysConfig"),
    ("type", r"\bbe_i32\b", "be32"), ("type", r"\bu8\b(?= \w)", "i8"), ("type", r"\bi8\b(?= \w)", "u8"),
]


def blanked(text):
    """The text with the insides of comments, literals, preprocessor lines and assertions replaced, at equal length."""
    def blank(match):
        token = match.group()
        if token[0] == "/":
            return re.sub(r"[^\n]", " ", token)
        return token[0] + "\x01" * (len(token) - 2) + token[0]
    code = TOKEN.sub(blank, text)
    hide = lambda match: re.sub(r"[^\n]", " ", match.group())
    code = re.sub(r"(?m)^[ ]*#(?:[^\n]*\\\n)*[^\n]*", hide, code)
    return re.sub(r"(?<!\w)static_assert\([^;]*;", hide, code)


def closing(code, at):
    """The place of the bracket that closes the one at `at`; -1 if there is none."""
    depth = 0
    for i in range(at, len(code)):
        if code[i] in "([{":
            depth += 1
        elif code[i] in ")]}":
            depth -= 1
            if depth == 0:
                return i
    return -1


def elements(code, first, last):
    """The places of what commas separate between two brackets."""
    depth, start, found = 0, first, []
    for i in range(first, last):
        if code[i] in "([{":
            depth += 1
        elif code[i] in ")]}":
            depth -= 1
        elif code[i] == "," and depth == 0 and not in_angles(code[first:i]):
            found.append((start, i))
            start = i + 1
    found.append((start, last))
    trimmed = []
    for begin, end in found:
        while begin < end and code[begin].isspace():
            begin += 1
        while end > begin and code[end - 1].isspace():
            end -= 1
        if begin < end:
            trimmed.append((begin, end))
    return trimmed


def in_angles(before):
    opened = len(re.findall(r"\w<(?! )", before))
    return opened > len(re.findall(r"(?<![ -])>", before))


def units(code):
    """Statements and rows of tables that begin a line and end one: (start, end, indent), the newline left out."""
    found = []
    starts = [0] + [match.end() for match in re.finditer("\n", code)]
    for number, start in enumerate(starts):
        match = re.compile(r" *(?=[^\s}])").match(code, start)
        if not match:
            continue
        depth = 0
        for end_number in range(number, min(number + 40, len(starts))):
            begin = starts[end_number]
            end = starts[end_number + 1] - 1 if end_number + 1 < len(starts) else len(code)
            line = code[begin:end]
            lowest = depth
            for character in line:
                depth += (character in "([{") - (character in ")]}")
                lowest = min(lowest, depth)
            if lowest < 0:
                break
            stripped = line.rstrip()
            if depth == 0 and stripped and stripped[-1] in ";,}":
                found.append((match.end(), begin + len(stripped), match.end() - start))
                break
    return found


def changes(text):
    """Every change as (start, end, new, kind)."""
    code = blanked(text)
    for match in TOKEN.finditer(text):
        token, start = match.group(), match.start()
        if token[0] == "/" or code[start] not in "\"'":
            continue
        if token[0] == "'":
            new = "'x'" if token != "'x'" else "'y'"
            yield start, match.end(), new, "character"
            continue
        pieces = [(start + 1 + piece.start(), piece.group()) for piece in PIECE.finditer(token[1:-1])]
        blanks = [place for place, piece in pieces if piece == " "]
        if blanks:
            yield blanks[-1], blanks[-1] + 1, "", "blank"
        for place, piece in pieces:
            if re.fullmatch("[A-Za-z]", piece):
                yield place, place + 1, {"z": "a", "Z": "A"}.get(piece, chr(ord(piece) + 1)), "word"
                break
        for place, piece in pieces:
            if piece in CONVERSION:
                yield place, place + len(piece), CONVERSION[piece], "conversion"
        if token.endswith("\\n\"") and not blanks:
            yield match.end() - 3, match.end() - 1, "", "newline"

    for match in re.finditer(r"(?<![\w.'])(0x[0-9a-fA-F]+|[0-9]+)(?=[uUlL]*(?!\w))", code):
        number = int(match.group(), 0)
        form = "0x%X" if match.group().startswith("0x") else "%d"
        yield *match.span(), form % (number + 1), "number"
        if number > 0:
            yield *match.span(), form % (number - 1), "number"
    for kind, pattern, new in OPERATORS:
        for match in re.finditer(pattern, code):
            yield *match.span(), new, kind
    for match in re.finditer(r"\b(?:if|while) \(", code):
        end = closing(code, match.end() - 1)
        condition = code[match.end():end]
        if end > 0 and not re.search(r"[=!<>]=|!| [<>] |&&|\|\|", condition):
            yield match.end(), end, f"!({text[match.end():end]})", "condition"

    for match in re.finditer(r"[({]", code):
        end = closing(code, match.start())
        if end < 0 or ";" in code[match.end():end]:
            continue
        if re.search(r"\b(same[A-Z]\w*|str\w*cmp|memcmp)$", code[:match.start()]):
            continue  # alike both ways
        places = elements(code, match.end(), end)
        for (a, b), (c, d) in zip(places, places[1:]):
            if text[a:b] != text[c:d] and not text[a:b].startswith("const "):
                yield a, d, text[c:d] + text[b:c] + text[a:b], "order"

    found = units(code)
    following = {}
    for unit in found:
        following[unit[0] - unit[2]] = unit
    for start, end, indent in found:
        first = text[start:end]
        if indent == 0 and "{" in first or DECLARATION.match(first) or NEVER_DROPPED.match(first):
            continue
        yield start, end, "", "drop"
        # The next unit begins on the next line, with the same indent.
        other = following.get(text.find("\n", end) + 1)
        if not other or other[2] != indent or text[end:other[0]].strip():
            continue
        second = text[other[0]:other[1]]
        if indent == 0 or DECLARATION.match(second) or second.startswith("return 0;"):
            continue
        if first.startswith("case ") and second.startswith(("case ", "default")):
            continue  # the order of cases says nothing
        if first.rstrip(",") == second.rstrip(","):
            continue
        if first.endswith(",") != second.endswith(",") and "," in (first[-1], second[-1]):
            continue  # the last row, which `order` has
        yield start, other[1], second + text[end:other[0]] + first, "swap"

    # A field at another place, the size of its record being the same.
    for match in re.finditer(r"struct \w+ \{", code):
        end = closing(code, match.end() - 1)
        gaps = list(re.compile(r"Reserved<(\d+)>").finditer(code, match.end(), end))
        for a, b in zip(gaps, gaps[1:]):
            for one, more in ((1, -1), (-1, 1)):
                if int(a[1]) + one > 0 and int(b[1]) + more > 0:
                    yield (a.start(1), b.end(1), f"{int(a[1]) + one}{text[a.end(1):b.start(1)]}{int(b[1]) + more}",
                           "shift")


def mutants_of(file, text):
    found, seen = [], set()
    for start, end, new, kind in changes(text):
        result = text[:start] + new + text[end:]
        if result != text and result not in seen:
            seen.add(result)
            found.append(Mutant(file, text, start, end, new, kind))
    return sorted(found, key=lambda mutant: (mutant.start, mutant.end))


# ------------------------------------------------------------------------------------------------ building and testing

class Failure(Exception):
    pass


def limits():
    os.setsid()
    resource.setrlimit(resource.RLIMIT_FSIZE, (64 << 20, 64 << 20))
    resource.setrlimit(resource.RLIMIT_AS, (2 << 30, 2 << 30))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def passes(command, directory, seconds):
    """Whether a command ends with status 0 in that time. What it started ends with it."""
    process = subprocess.Popen(command, cwd=directory, shell=isinstance(command, str), stdin=subprocess.DEVNULL,
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, preexec_fn=limits)
    try:
        return process.wait(seconds) == 0
    except subprocess.TimeoutExpired:
        return False
    finally:
        if process.returncode is None:
            os.killpg(process.pid, signal.SIGKILL)
            process.wait()


class Build:
    """The copy of the tree, built once, and what it takes to build it with one file changed."""

    def __init__(self, tree, work):
        self.copy, self.binary = work / "tree", work / "build"
        self.copy_tree(tree)
        # With the library's assertions, so that an index beside a table is noticed.
        self.run("cmake", "-S", self.copy, "-B", self.binary, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
                 "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -D_GLIBCXX_ASSERTIONS", "-DTEXTCFG_TESTS=ON")
        self.run("ninja", "-C", self.binary, "textcfg_tests")
        self.read_commands()
        self.find_suites()
        self.find_linker()
        if not passes([str(self.tests), "--gtest_brief=1"], work, 300):
            raise Failure("the tests fail as it is: " + str(self.tests))

    def run(self, *command):
        result = subprocess.run([str(word) for word in command], stdin=subprocess.DEVNULL, text=True,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        if result.returncode != 0:
            raise Failure(result.stdout)
        return result.stdout

    def copy_tree(self, tree):
        """Copies what has changed, so that only that is built anew."""
        wanted = set()
        for folder, folders, names in os.walk(tree):
            folders[:] = [name for name in folders if name not in ("build", ".git")]
            for name in names:
                source = Path(folder) / name
                relative = source.relative_to(tree)
                wanted.add(relative)
                target = self.copy / relative
                if source.is_symlink() or not source.is_file():
                    continue
                if not target.exists() or target.read_bytes() != source.read_bytes():
                    target.parent.mkdir(parents=True, exist_ok=True)
                    shutil.copy(source, target)
        for path in list(self.copy.rglob("*")):
            if path.is_file() and path.relative_to(self.copy) not in wanted:
                path.unlink()

    def read_commands(self):
        lines = self.run("ninja", "-C", self.binary, "-t", "commands", "textcfg_tests").splitlines()
        lines = [line for line in lines if not line.startswith("ninja:")]
        self.link = lines[-1]
        self.tests = self.binary / re.search(r" -o (\S*textcfg_tests)\b", self.link).group(1)
        self.objects = {}  # of each source of the test binary: object, command
        linked = set(re.findall(r"\S+\.o\b", self.link))
        for line in lines:
            match = re.search(r" -o (\S+\.o) -c (\S+)$", line)
            if match and match.group(1) in linked:
                source = Path(match.group(2)).relative_to(self.copy).as_posix()
                self.objects[source] = match.group(1), line
        self.users = {}  # of each file of the tree: the sources that include it
        source = None
        places = {place: source for source, (place, _) in self.objects.items()}
        for line in self.run("ninja", "-C", self.binary, "-t", "deps").splitlines():
            match = re.match(r"(\S+): #deps", line)
            if match:
                source = places.get(match.group(1))
            elif source and line.startswith("    "):
                path = Path(os.path.normpath(self.binary / line.strip()))
                if path.is_relative_to(self.copy):
                    self.users.setdefault(path.relative_to(self.copy).as_posix(), []).append(source)

    def find_suites(self):
        """Which filter chooses the tests of a source."""
        self.suites, self.alone = {}, []
        for source in self.objects:
            if not source.endswith("_test.cpp"):
                continue
            text = (self.copy / source).read_text()
            suites = [f"{name}.*" for name in re.findall(r"(?m)^TEST(?:_F)?\((\w+)", text)]
            suites += [f"*/{name}.*" for name in re.findall(r"(?m)^TEST_P\((\w+)", text)]
            suites += [f"{name}/*" for name in re.findall(r"(?m)^ROWS\((\w+)", text)]
            self.suites[source] = sorted(set(suites))
            if '"/tmp/config"' in text:  # they share the default output file: one at a time
                self.alone += self.suites[source]
        self.lock = threading.Lock()

    def find_linker(self):
        faster = self.link.replace(" -o ", " -fuse-ld=lld -fno-use-linker-plugin -Wl,--threads=1 -o ", 1)
        if shutil.which("ld.lld") and passes(faster, self.binary, 100):
            self.link = faster

    def likely(self, file):
        stem = file.rsplit(".", 1)[0]
        names = LIKELY.get(stem, [Path(stem).name])
        return [source for source in (f"tests/{name}_test.cpp" for name in names) if source in self.suites]

    def notices(self, mutant, scratch):
        """Whether the compiler or a test notices the change. `scratch` is a folder of its own."""
        text = (self.copy / mutant.file).read_text()
        overlay = scratch / "include"
        shutil.rmtree(scratch, ignore_errors=True)
        changed = overlay / mutant.file
        changed.parent.mkdir(parents=True)
        changed.write_text(text[:mutant.start] + mutant.new + text[mutant.end:])

        likely = self.likely(mutant.file)
        link = self.link
        if mutant.file in self.objects:
            link = self.compile([mutant.file], link, overlay, scratch)
            return link is None or not self.survives(link, likely, scratch)

        # A header. Most that does not compile is noticed by it alone.
        users = sorted(self.users.get(mutant.file, []))
        if not users:
            return False
        command = re.sub(r" -o .*", "", self.objects[users[0]][1])
        command = command.replace(" -I", f" -I{overlay} -I", 1)
        command = re.sub(r" -M[DTF] ?\S*\.(?:o\.d|o)\b", "", command).replace(" -MD", "")
        if not passes(f"{command} -w -fsyntax-only -x c++ {changed}", self.binary, 100):
            return True
        # Tests compose records and write nothing else by themselves: only where the record has changed they have to be
        # compiled anew, which takes long, so that those of the record alone come first.
        tests = [source for source in users if source.endswith("_test.cpp")]
        link = self.compile([source for source in tests if source in likely], link, overlay, scratch)
        if link is None:
            return True
        others = [source for source in users if source not in likely]
        if mutant.file.startswith("platform/"):
            if not self.survives(self.with_first(link, scratch), likely, scratch, others_too=False):
                return True
        else:
            others = [source for source in others if source not in tests]
        link = self.compile(others, link, overlay, scratch)
        return link is None or not self.survives(link, likely, scratch)

    @staticmethod
    def with_first(link, scratch):
        """The link command with what was compiled anew in front, so that its inline functions are the ones taken."""
        anew = re.findall(rf" {re.escape(str(scratch))}/\S+\.o(?= )", link)
        for place in anew:
            link = link.replace(place, "", 1)
        return re.sub(r"(?= \S+\.o )", "".join(anew), link, count=1)

    def compile(self, sources, link, overlay, scratch):
        """Compiles the sources with the changed file. Returns the link command with their objects; None if it fails."""
        for number, source in enumerate(sources):
            place, command = self.objects[source]
            new = scratch / (source.replace("/", "-") + ".o")
            text = overlay / source if (overlay / source).exists() else self.copy / source
            command = re.sub(r" -MD -MT \S+ -MF \S+", "", command)
            command = re.sub(r" -o \S+ -c \S+$", f" -Werror=return-type -o {new} -c {text}", command)
            command = command.replace(" -I", f" -I{overlay} -I", 1)
            if not passes(command, self.binary, 200):
                return None
            link = link.replace(" " + place + " ", f" {new} ", 1)
        return link

    def survives(self, link, likely, scratch, others_too=True):
        tests = scratch / "tests"
        if not passes(re.sub(r" -o \S+", f" -o {tests}", link), self.binary, 200):
            return False
        first = [suite for source in likely for suite in self.suites[source]]
        if first and not self.run_tests(tests, ":".join(first), any(suite in self.alone for suite in first)):
            return False
        if not others_too:
            return True
        if not self.run_tests(tests, "*-" + ":".join(first + self.alone), False):
            return False
        rest = [suite for suite in self.alone if suite not in first]
        return not rest or self.run_tests(tests, ":".join(rest), True)

    def run_tests(self, tests, suites, alone):
        command = [str(tests), "--gtest_fail_fast", "--gtest_brief=1", "--gtest_filter=" + suites]
        if not alone:
            return passes(command, tests.parent, 60)
        with self.lock:
            return passes(command, tests.parent, 60)


# --------------------------------------------------------------------------------------------------------- explanations

class Explanation:
    def __init__(self, where, file, kind, part, reason):
        self.where, self.file, self.kind, self.part, self.reason = where, file, kind, part, reason
        self.pattern = re.compile(".*".join(re.escape(piece) for piece in part.split("...")))
        self.mutants = 0

    def fits(self, mutant):
        return fnmatch.fnmatchcase(mutant.file, self.file) and self.kind == mutant.kind and \
            self.pattern.match(f"{mutant.old_lines} => {mutant.new_lines}") is not None


def read_explanations(path):
    """Lines of `FILE KIND: beginning of "old => new"`, with the indented reason below."""
    found, heads = [], []
    if not path.exists():
        return found
    for number, line in enumerate(path.read_text().splitlines(), 1):
        if line.startswith("#") or not line.strip():
            heads = []
        elif line[0] == " ":
            for head in heads:
                head.reason = (head.reason + " " + line.strip()).strip()
        else:
            match = re.fullmatch(r"(\S+) ([a-z*]+): (.+)", line)
            if not match:
                raise Failure(f"{path}:{number}: not understood: {line}")
            if heads and heads[0].reason:
                heads = []
            heads.append(Explanation(f"{path.name}:{number}", *match.groups(), ""))
            found.append(heads[-1])
    for explanation in found:
        if not explanation.reason:
            raise Failure(f"{explanation.where}: without a reason")
    return found


# ----------------------------------------------------------------------------------------------------------------- all

def chosen_files(tree, words):
    """The files with the lines that were asked for, None for all."""
    if not words:
        return [(path.relative_to(tree).as_posix(), None) for pattern in FILES for path in sorted(tree.glob(pattern))]
    found = []
    for word in words:
        match = re.fullmatch(r"(.+?)(?::(\d+)(?:-(\d+))?)?", word)
        name, first, last = match.groups()
        path = Path(name) if Path(name).is_absolute() else tree / name
        if not path.is_file():
            raise Failure(f"there is no file {name}")
        lines = (int(first), int(last or first)) if first else None
        found.append((path.resolve().relative_to(tree).as_posix(), lines))
    return found


def main():
    parser = argparse.ArgumentParser(prog="script/mutate")
    parser.add_argument("--tree", type=Path, required=True, help=argparse.SUPPRESS)
    parser.add_argument("--work", type=Path, required=True, help=argparse.SUPPRESS)
    parser.add_argument("--list", action="store_true", help="list the changes, make none")
    parser.add_argument("--explained", action="store_true", help="only what is explained: list what a test notices")
    parser.add_argument("--sample", type=int, metavar="N", help="N of the changes, at random")
    parser.add_argument("--seed", type=int, default=1, help="of the sample")
    parser.add_argument("--jobs", type=int, default=2, help="so many at a time")
    parser.add_argument("files", nargs="*", metavar="FILE[:LINE[-LINE]]")
    options = parser.parse_args()
    tree, work = options.tree.resolve(), options.work.resolve()

    mutants = []
    for file, lines in chosen_files(tree, options.files):
        of_file = mutants_of(file, (tree / file).read_text())
        mutants += [mutant for mutant in of_file if not lines or lines[0] <= mutant.line <= lines[1]]
    explanations = read_explanations(tree / "tests/mutate/explained.txt")
    explained = []
    for mutant in mutants:
        reasons = [explanation for explanation in explanations if explanation.fits(mutant)]
        for explanation in reasons:
            explanation.mutants += 1
        if reasons:
            explained.append(mutant)
    findings, stale = 0, 0
    for explanation in explanations if not options.files else []:
        if explanation.mutants == 0:
            print(f"{explanation.where}: there is no such change: {explanation.part}")
            stale += 1
    if options.explained:
        mutants = explained
    else:
        mutants = [mutant for mutant in mutants if mutant not in explained]
    if options.sample is not None and options.sample < len(mutants):
        chosen = set(random.Random(options.seed).sample(range(len(mutants)), options.sample))
        mutants = [mutant for number, mutant in enumerate(mutants) if number in chosen]
    if options.list:
        for mutant in mutants:
            print(mutant)
        print(f"{len(mutants)} changes, and {len(explained)} that are explained")
        return 0

    work.mkdir(parents=True, exist_ok=True)
    print(f"building in {work}", flush=True)
    build = Build(tree, work)
    print(f"{len(mutants)} changes", flush=True)
    began = time.time()
    places, ended = list(range(options.jobs)), 0
    guard = threading.Lock()

    def judge(mutant):
        with guard:
            place = places.pop()
        try:
            return build.notices(mutant, work / f"mutant-{place}")
        finally:
            with guard:
                places.append(place)

    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        judged = {pool.submit(judge, mutant): mutant for mutant in mutants}
        try:
            for future in concurrent.futures.as_completed(judged):
                mutant, noticed = judged[future], future.result()
                ended += 1
                if noticed == options.explained:
                    findings += 1
                    print(f"{'noticed' if noticed else 'unnoticed'}: {mutant}", flush=True)
                if ended % 100 == 0:
                    print(f"{ended} of {len(mutants)}, {time.time() - began:.0f} s", file=sys.stderr, flush=True)
        except BaseException:
            for future in judged:
                future.cancel()
            raise

    told = "noticed though explained" if options.explained else "unnoticed and not explained"
    print(f"{len(mutants)} changes, {findings} {told}; {time.time() - began:.0f} s")
    return 1 if findings or stale else 0


if __name__ == "__main__":
    try:
        sys.exit(main())
    except Failure as failure:
        print(f"script/mutate: {failure}", file=sys.stderr)
        sys.exit(2)
    except KeyboardInterrupt:
        sys.exit(130)
