"""The work of script/mutate: makes the changes, builds and tests each, tells which went unnoticed."""
import argparse
import concurrent.futures
import contextlib
import ctypes
import fnmatch
import math
import os
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time
from pathlib import Path

FILES = ["app/**/*.cpp", "app/**/*.h", "format/*.cpp", "format/*.h", "sections/*.cpp", "sections/*.h", "platform/*.h",
         "platform/host/*.cpp", "platform/host/*.h"]

# What is linked from them and may notice a change: GoogleTest binaries, or a program with a check of its own.
PROGRAMS = ["textcfg_tests", "textcfg_host_tests", "textcfg", "textcfg-store"]
CHECKS = {"textcfg": "tests/checks/faults.sh"}
NEVER_RUN = ["textcfg-store"]  # only compiled and linked: the tests of the stand-in call all of it

# How a program that was built with many changes is told the number of the one that holds.
VARIABLE = "TEXTCFG_CHANGE"
CHOICE = f"""#include <cstdlib>
extern "C" {{ __attribute__((weak)) int {VARIABLE}; }}
__attribute__((constructor(101))) static void chooseChange() {{
    const char *const number = std::getenv("{VARIABLE}");
    if (number != nullptr) {VARIABLE} = std::atoi(number);
}}
"""
TOGETHER = 150  # changes in one object, at most

# The check of what must not compile, and the headers that refuse it.
REFUSALS = "tests/checks/formats.sh"
REFUSING = ["app/text/line_format.h", "app/text/text.h", "format/section_lines.h"]

# What begins like that declares something: without it nothing compiles, and its place says nothing.
DECLARATION = re.compile(r"(const|constexpr|constinit|inline|extern|auto|friend|using|template|struct|class|enum|"
                         r"namespace)\b")
NEVER_DROPPED = re.compile(r"default: break;|return 0;|[{}]")

# The tests that are most likely to notice a change of a file; they run first. Others: those of the file's own name.
LIKELY = {
    "app/drivers": ["drivers"], "app/order": ["drivers", "reads"], "app/reads": ["reads"], "app/images": ["run"],
    "app/main": ["run"],
    "app/text/text": ["text", "system"], "format/address": ["ip", "snmp", "users"],
    "format/blocks": ["port_list", "interface"],
    "platform/image": ["record"], "platform/record": ["record", "bytes"], "platform/board": ["record"],
    "platform/mapi": ["host", "run"], "platform/util": ["host", "ip"],
    "platform/host/factory": ["factory", "whole"], "platform/host/mapi": ["host"], "platform/host/store": ["host"],
    "platform/host/store_export": ["host"], "platform/host/util": ["host", "ip", "port_list"],
    "app/header": ["drivers"], "app/verbs": ["run"], "app/text/line_format": ["text", "system"],
    "app/text/line_writer": ["text", "port_list"], "app/text/trace": ["text"],
    "sections/interface": ["interface", "poe"],
}

# The sources that say most of a header; they are compiled with a change of it before the others. Others: that of the
# header's own name.
NEAR = {
    "app/order": ["app/drivers.cpp"], "app/verbs": ["app/run.cpp"], "app/reads": ["app/drivers.cpp"],
    "app/text/line_format": ["app/text/text.cpp", "sections/system.cpp"],
    "app/text/line_writer": ["app/text/text.cpp"], "app/text/text": ["app/text/text.cpp", "sections/system.cpp"],
    "format/blocks": ["sections/interface.cpp"], "format/section_lines": ["sections/system.cpp"],
    "platform/image": ["tests/record_test.cpp"], "platform/record": ["tests/record_test.cpp", "sections/system.cpp"],
    "platform/board": ["tests/record_test.cpp"],
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


ASSIGNMENT = re.compile(r"([\w.\[\]]+) = ([^;=]+);")


def are_independent(first, second):
    """Whether these are two assignments to different fields, of which neither reads the other."""
    one, other = ASSIGNMENT.fullmatch(first), ASSIGNMENT.fullmatch(second)
    if not one or not other or one[1].startswith(other[1]) or other[1].startswith(one[1]):
        return False
    return re.fullmatch(r"\w+", one[1]) is None and one[1] not in other[2] and other[1] not in one[2]


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
        digits = match.group()
        octal = len(digits) > 1 and digits[0] == "0" and digits.isdigit()
        number = int(digits, 8 if octal else 0)
        form = "0x%X" if digits.startswith("0x") else "0%o" if octal else "%d"
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
        if re.search(r"\b(same[A-Z]\w*|str\w*cmp|memcmp|reading)$", code[:match.start()]):
            continue  # alike both ways
        if re.search(r"\b(code|appendValueLine)\([^(){};]*$", code[:match.start()]):
            continue  # a value and its line: one of them is chosen, wherever it is in the list
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
        if first.rstrip(",") == second.rstrip(",") or are_independent(first, second):
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


LIBC = ctypes.CDLL(None)
PR_SET_PDEATHSIG = 1


def limits(processor_seconds):
    os.setsid()
    LIBC.prctl(PR_SET_PDEATHSIG, signal.SIGKILL)  # a changed program may never end: it ends with this one
    resource.setrlimit(resource.RLIMIT_FSIZE, (256 << 20, 256 << 20))
    resource.setrlimit(resource.RLIMIT_AS, (2 << 30, 2 << 30))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    if processor_seconds:
        resource.setrlimit(resource.RLIMIT_CPU, (processor_seconds, processor_seconds))


def passes(command, directory, seconds, environment=None, output=subprocess.DEVNULL, processor_seconds=None):
    """Whether a command ends with status 0 in that time. What it started ends with it."""
    process = subprocess.Popen(command, cwd=directory, shell=isinstance(command, str), stdin=subprocess.DEVNULL,
                               stdout=output, stderr=subprocess.DEVNULL, env=environment,
                               preexec_fn=lambda: limits(processor_seconds))
    try:
        return process.wait(seconds) == 0
    except subprocess.TimeoutExpired:
        return False
    finally:
        if process.returncode is None:
            os.killpg(process.pid, signal.SIGKILL)
            process.wait()


def processor_time():
    """Seconds of the processor that everything took that was started so far and has ended."""
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    return used.ru_utime + used.ru_stime


NOTICED, UNNOTICED, UNCHANGED = "noticed", "unnoticed", "unchanged"
UNLOCKED = contextlib.nullcontext()


class Program:
    """Something that is linked from the program's objects and run, and that may notice a change."""

    def __init__(self, name, link, binary, sources):
        self.name, self.link, self.binary, self.sources = name, link, binary, sources
        self.suites, self.alone, self.seconds = {}, [], 300
        self.processor_seconds = None  # at most, for all tests
        self.slow = []     # suites that take long; they run last
        self.learned = {}  # of each file, the suites that noticed changes of it so far, with how many


class Build:
    """The copy of the tree, built once, and what it takes to build it with one file changed."""

    def __init__(self, tree, work):
        self.copy, self.binary = work / "tree", work / "build"
        self.copy_tree(tree)
        # With the library's assertions, so that an index beside a table is noticed. What is built once is optimised,
        # as it runs often; what is built for one change is not.
        self.run("cmake", "-S", self.copy, "-B", self.binary, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
                 "-DCMAKE_CXX_FLAGS_DEBUG=-O1 -D_GLIBCXX_ASSERTIONS", "-DTEXTCFG_TESTS=ON", "-DTEXTCFG_TEST_OPTIMIZATION=-O1")
        known = self.run("ninja", "-C", self.binary, "-t", "targets", "all")
        names = [name for name in PROGRAMS if re.search(rf"(?m)^{re.escape(name)}: ", known)]
        self.run("ninja", "-C", self.binary, *names)
        self.objects = {}  # of each source: object, command
        self.programs = [self.read_program(name) for name in names]
        self.read_users()
        self.lock, self.lock_alone, self.headers_lock = threading.Lock(), threading.Lock(), threading.Lock()
        self.headers, self.unchanged = {}, {}
        for program in self.programs:
            began, used = time.time(), processor_time()
            if not self.passes_all(program, program.binary, "", 0):
                raise Failure(f"the tests fail as it is: {program.binary}")
            program.seconds = 20 + 10 * (time.time() - began)
            program.processor_seconds = 2 + math.ceil(2 * (processor_time() - used))
            self.find_slow(program)

    def find_slow(self, program):
        """The suites that take most of the time of a program's tests."""
        if not program.suites:
            return
        shown = self.run(program.binary)
        seconds = {match[1]: int(match[2]) + 1
                   for match in re.finditer(r"\[-+\] \d+ tests? from (\S+?)(?:,.*)? \((\d+) ms total\)", shown)}
        limit = sum(seconds.values()) / 30
        program.slow = [f"{suite}.*" for suite in sorted(seconds, key=seconds.get) if seconds[suite] > limit]

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

    def read_program(self, name):
        lines = self.run("ninja", "-C", self.binary, "-t", "commands", name).splitlines()
        lines = [line for line in lines if not line.startswith("ninja:")]
        link = lines[-1]
        binary = self.binary / re.search(rf" -o (\S*{re.escape(name)})(?= )", link).group(1)
        sources = []
        for line in lines:
            match = re.search(r" -o (\S+\.o) -c (\S+)$", line)
            if match and Path(match.group(2)).is_relative_to(self.copy):
                source = Path(match.group(2)).relative_to(self.copy).as_posix()
                self.objects.setdefault(source, (match.group(1), line))
                sources.append(source)
        faster = link.replace(" -o ", " -fuse-ld=lld -fno-use-linker-plugin -Wl,--threads=1 -o ", 1)
        if shutil.which("ld.lld") and passes(faster, self.binary, 100):
            link = faster
        program = Program(name, link, binary, sources)
        for source in sources:  # which filter chooses the tests of a source
            if not source.endswith("_test.cpp"):
                continue
            text = (self.copy / source).read_text()
            suites = [f"{name}.*" for name in re.findall(r"(?m)^TEST(?:_F)?\((\w+)", text)]
            suites += [f"*/{name}.*" for name in re.findall(r"(?m)^TEST_P\((\w+)", text)]
            # Areas may have both rows and sets of lines.
            suites += [f"{name}/*" for name in re.findall(r"(?m)^(?:ROWS|FIELD_LINES)\(\s*(\w+)", text)]
            program.suites[source] = sorted(set(suites))
            if '"/tmp/config"' in text:  # they share the default output file: one at a time
                program.alone += program.suites[source]
        return program

    def read_users(self):
        """Of each file of the tree, the sources that include it or are it."""
        self.users = {source: [source] for source in self.objects}
        places = {place: source for source, (place, _) in self.objects.items()}
        source = None
        for line in self.run("ninja", "-C", self.binary, "-t", "deps").splitlines():
            match = re.match(r"(\S+): #deps", line)
            if match:
                source = places.get(match.group(1))
            elif source and line.startswith("    "):
                path = Path(os.path.normpath(self.binary / line.strip()))
                if path.is_relative_to(self.copy):
                    users = self.users.setdefault(path.relative_to(self.copy).as_posix(), [])
                    if source not in users:
                        users.append(source)

    def likely(self, file):
        stem = file.rsplit(".", 1)[0]
        names = LIKELY.get(stem, [Path(stem).name])
        return [f"tests/{name}_test.cpp" for name in names]

    # --------------------------------------------------------------------------------------------- one change by itself

    def judge(self, mutant, scratch, tests_passed=False):
        """What comes of a change: it is noticed by the compiler or a test, or it is unnoticed; or the compiler proves
        that it changes nothing. `scratch` is a folder of its own; `tests_passed` says that the tests that are linked
        with the program's code do not notice it."""
        file, text = mutant.file, (self.copy / mutant.file).read_text()
        overlay = self.overlay(file, text[:mutant.start] + mutant.new + text[mutant.end:], scratch)
        if file not in self.objects:
            return self.judge_header(mutant, overlay, scratch)
        objects = self.compile([file], file, overlay, scratch)
        if objects is None or not self.survives(file, objects, scratch, tests_passed=tests_passed):
            return NOTICED
        return UNCHANGED if self.changes_nothing(mutant, scratch) else UNNOTICED

    def judge_header(self, mutant, overlay, scratch):
        # Most is noticed by a few of the header's users, which are compiled first. Their objects go in front, so that
        # their inline functions are the ones taken.
        file, users = mutant.file, sorted(self.users[mutant.file])
        tests = [source for source in users if source.endswith("_test.cpp")]
        # Tests compose records and write nothing else by themselves: only where the record has changed they have to be
        # compiled anew.
        product = [source for source in users if not source.startswith("tests/")]
        support = sorted((source for source in users if source not in tests + product), reverse=True)  # rows.cpp first
        likely = [source for source in self.likely(file) if source in tests]
        stem = file.rsplit(".", 1)[0]
        near = NEAR.get(stem, [stem + ".cpp"])
        if file.startswith("sections/"):
            near = ["app/drivers.cpp"] + near
        near = [source for source in near if source in users] or product[:1]
        # What to compile besides, and whether all tests run then, or those of the file that take little time, or also
        # those that take more.
        stages = [([source], "quick") for source in near]
        if file.startswith("platform/"):
            # Most that does not compile is noticed by the header alone, in a fraction of the time.
            command = self.command(users[0], overlay, overlay / file, None) + \
                self.including(self.common_headers(users[0], file))
            if not passes(f"{command} -w -fsyntax-only -x c++ {overlay / file}", self.binary, 100):
                return NOTICED
            stages.append((likely, "its own"))
        else:
            # What the tests share hands them the table of the order.
            stages += [([source], "all") for source in support[:1]]
            stages += [([source], "its own") for source in support[1:] + likely]
        first_slow = len(stages)
        # What the first stages do not notice often is nothing. To find that takes less than all tests do, and less than
        # to compile the other tests where the program has few users of the header.
        compared = min(2, first_slow) if len(product) <= 3 else first_slow
        stages += [([source], "its own") for source in product if source not in near]
        stages.append((support + tests if file.startswith("platform/") else [], "all"))
        objects = {}
        for number, (sources, which) in enumerate(stages):
            if number == len(near) and file in REFUSING and not self.refuses_the_same(overlay, scratch):
                return NOTICED
            if number == compared and self.changes_nothing(mutant, scratch.with_name(scratch.name + "-same")):
                return UNCHANGED
            sources = [source for source in sources if source not in objects]
            more = self.compile(sources, file, overlay, scratch)
            if more is None:
                return NOTICED
            objects = {**objects, **more}
            is_last = number == len(stages) - 1
            if not is_last and not sources:
                continue
            tested = sources[0] if number >= first_slow and not is_last else file
            if not self.survives(tested, objects, scratch, others_too=which == "all", in_front=not is_last,
                                 slow_too=which != "quick"):
                return NOTICED
        return UNNOTICED

    def refuses_the_same(self, overlay, scratch):
        """Whether formats that do not fit their arguments do not compile, and those that fit do."""
        compiler = scratch / "compiler"
        compiler.write_text(f'#!/bin/sh\nexec c++ -I{overlay} "$@"\n')
        compiler.chmod(0o755)
        return passes(["bash", str(self.copy / REFUSALS), str(compiler)], scratch, 100)

    @staticmethod
    def overlay(file, text, scratch):
        shutil.rmtree(scratch, ignore_errors=True)
        changed = scratch / "include" / file
        changed.parent.mkdir(parents=True)
        changed.write_text(text)
        return scratch / "include"

    def command(self, source, overlay, text, new):
        command = self.flags(source).replace(" -I", f" -I{overlay} -I", 1)
        return command if new is None else f"{command} -Werror=return-type -o {new} -c {text}"

    def precompiled(self, source):
        """What a source includes at its top, compiled once; None if that does not work."""
        with self.headers_lock:
            if source in self.headers:
                return self.headers[source]
            self.headers[source] = None
            lines = [line for line in (self.copy / source).read_text().splitlines() if line.startswith("#include")]
            place = self.binary / "headers" / (source.replace("/", "-") + ".h")
            place.parent.mkdir(exist_ok=True)
            place.write_text("\n".join(lines) + "\n")
            command = self.flags(source)
            # A header that may not be read twice is left as it is.
            if passes(f"{command} -x c++-header {place} -o {place}.gch", self.binary, 100) and \
                    passes(f"{command} -include {place} -fsyntax-only {self.copy / source}", self.binary, 100):
                self.headers[source] = place
            return self.headers[source]

    def common_headers(self, source, file):
        """The headers of the system, and those of the tree that do not include `file`, which all of its users with the
        same flags include, compiled once; None if that fails. Those that only some of them include may declare what a
        change leaves out."""
        flags = self.flags(source)
        with self.headers_lock:
            if (flags, file) not in self.headers:
                self.headers[flags, file] = None
                found = [self.includes(other, file) for other in self.users.get(file, [source])
                         if self.flags(other) == flags]
                lines = set.intersection(*found) | {line for each in found for line in each if "<" in line}
                place = self.binary / "headers" / f"common-{len(self.headers)}.h"
                place.parent.mkdir(exist_ok=True)
                place.write_text("\n".join(sorted(lines)) + "\n")
                if passes(f"{flags} -x c++-header {place} -o {place}.gch", self.binary, 100):
                    self.headers[flags, file] = place
            return self.headers[flags, file]

    def includes(self, source, file):
        """The lines that include headers in a source, or in what it includes of the tree, if they do not include
        `file`."""
        found, known = set(), {}

        def settled(path):
            if path not in known:
                known[path] = False
                good = path != file
                for line in (self.copy / path).read_text().splitlines():
                    match = re.match(r'#include (<\S+>|"(\S+)")', line)
                    if not match:
                        continue
                    own = [place for place in (match.group(2), f"{os.path.dirname(path)}/{match.group(2)}")
                           if match.group(2) and (self.copy / place).is_file()]
                    if not match.group(2):
                        found.add(match.group())
                    elif not own or not settled(own[0]):
                        good = False
                    elif not own[0].startswith("tests/"):  # two of those may have the same names
                        found.add(match.group())
                known[path] = good
            return known[path]

        settled(source)
        return found

    def flags(self, source):
        command = re.sub(r" -MD -MT \S+ -MF \S+", "", self.objects[source][1])
        command = re.sub(r" -Winvalid-pch -include \S+", "", command)  # made with another optimisation
        return re.sub(r" -o \S+ -c \S+$", "", command).replace(" -O1 ", " -O0 ")

    @staticmethod
    def including(header):
        return f" -include {header}" if header else ""

    def compile(self, sources, file, overlay, scratch):
        """Compiles the sources with the changed file. Returns the objects by source; None if it fails."""
        objects = {}
        for source in sources:
            new = scratch / (source.replace("/", "-") + ".o")
            own = overlay / source
            command = self.command(source, overlay, own if own.exists() else self.copy / source, new)
            command += self.including(self.precompiled(source) if own.exists() else
                                      self.common_headers(source, file))
            if not passes(command, self.binary, 200):
                return None
            objects[source] = new
        return objects

    def link(self, program, objects, binary, in_front=False):
        """Links a program with these objects in place of its own. False if that fails, None if it has none of them."""
        link, used = program.link, False
        for source, new in objects.items():
            if source not in program.sources:
                continue
            used = True
            place = self.objects[source][0]
            if f" {place} " in link and not in_front:
                link = link.replace(f" {place} ", f" {new} ", 1)
            else:  # of an archive, whose own is then not taken; or to be taken before others
                link = re.sub(r"(?= \S+\.o )", lambda _: f" {new}", link.replace(f" {place} ", " ", 1), count=1)
        if not used:
            return None
        return passes(re.sub(r" -o \S+", f" -o {binary}", link), self.binary, 200)

    def survives(self, file, objects, scratch, others_too=True, in_front=False, tests_passed=False, slow_too=True):
        for program in self.programs_for(file):
            if tests_passed and program.suites:
                continue
            binary = scratch / program.name
            linked = self.link(program, objects, binary, in_front)
            if linked is None:
                continue
            if not linked or not self.passes_all(program, binary, file, 0, others_too, slow_too):
                return False
        return True

    def programs_for(self, file):
        """In the order in which they are likely to notice. The check of faults takes long, and says little of texts."""
        chosen = [program for program in self.programs
                  if program.name != "textcfg" or
                  file.startswith(("platform/host/mapi", "platform/host/store.", "app/main", "app/run"))]
        if file.startswith(("platform/host/mapi", "platform/host/store", "platform/host/message")):
            chosen = [program for program in chosen if program.name != "textcfg_tests"]  # it has a platform of its own
        tests = [source for source in self.likely(file)]
        return sorted(chosen, key=lambda program: not any(source in program.suites for source in tests))

    def passes_all(self, program, binary, file, chosen, others_too=True, slow_too=True):
        """Runs a program's tests; `chosen` is the number of the change that holds, of those that it was built with.
        Those that are likely to notice a change of the file run first, and those that take long run last."""
        environment = {**os.environ, VARIABLE: str(chosen)}
        if program.name in NEVER_RUN:
            return True
        if not program.suites:
            check = self.copy / CHECKS.get(program.name, "")
            command = ["bash", str(check), str(binary)] if check.is_file() else [str(binary)]
            return not others_too or passes(command, binary.parent, program.seconds, environment)
        likely = [suite for source in self.likely(file) for suite in program.suites.get(source, [])]
        with self.lock:
            learned = program.learned.setdefault(file, {})
            learned = sorted(learned, key=learned.get, reverse=True)
        slow = [suite for suite in program.slow if suite not in learned]
        slow_first = [suite for suite in learned if suite in program.slow]
        first = [suite for suite in likely if suite not in program.slow]
        first += [suite for suite in learned[:10] if suite not in likely + slow_first]

        def run(suites, alone=False, processor_seconds=program.processor_seconds):
            command = [str(binary), "--gtest_fail_fast", "--gtest_brief=1", "--gtest_filter=" + suites]
            with tempfile.TemporaryFile(dir=binary.parent) as output, self.lock_alone if alone else UNLOCKED:
                good = passes(command, binary.parent, program.seconds, environment, output, processor_seconds)
                output.seek(0)
                failed = re.search(rb"\[  FAILED  \] (\S+?)\.", output.read(1 << 20))
            if not good and failed:
                with self.lock:
                    suite = failed[1].decode() + ".*"
                    program.learned[file][suite] = program.learned[file].get(suite, 0) + 1
            return good

        # What never ends must not take all of the time; the quick tests take a fraction of a second.
        if first and not run(":".join(first), any(suite in program.alone for suite in first), processor_seconds=2):
            return False
        stages = [slow_first, None, slow]
        if not others_too:
            stages = [[suite for suite in program.slow if suite in likely and slow_too]]
        for stage in stages:
            rest = "*-" + ":".join(first + program.slow + program.alone)
            if stage != [] and not run(rest if stage is None else ":".join(stage)):
                return False
        rest = [suite for suite in program.alone if suite not in first] if others_too else []
        return not rest or run(":".join(rest), True)

    # ------------------------------------------------------------------------------------------- what changes nothing

    def changes_nothing(self, mutant, scratch):
        """Whether the compiler makes the same of the program's sources with the change, optimised, as without."""
        text = (self.copy / mutant.file).read_text()
        overlay = self.overlay(mutant.file, text[:mutant.start] + mutant.new + text[mutant.end:], scratch)
        users = [source for source in self.users[mutant.file] if not source.startswith("tests/")]
        return bool(users) and all(self.optimised(source, overlay, scratch) == self.optimised(source, None, scratch)
                                   for source in users)

    def optimised(self, source, overlay, scratch):
        """What the compiler makes of a source, with the files in `overlay` in place of the tree's."""
        if overlay is None and source in self.unchanged:
            return self.unchanged[source]
        own = overlay / source if overlay and (overlay / source).exists() else self.copy / source
        flags = self.flags(source) if overlay is None else self.command(source, overlay, None, None)
        # From the standard input, so that the name of the file is the same.
        with own.open() as text:
            result = subprocess.run(f"{flags} -Os -w -x c++ -S -o - -", shell=True, cwd=self.binary, stdin=text,
                                    stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        # The numbers of its labels count what was declared before.
        numbers = {}
        made = re.sub(rb"\.L[A-Z]*\d+", lambda label: b"%d" % numbers.setdefault(label[0], len(numbers)), result.stdout)
        made = made if result.returncode == 0 else os.urandom(16)
        if overlay is None:
            self.unchanged[source] = made
        return made

    # --------------------------------------------------------------------------------------------- many changes at once

    def judge_together(self, file, mutants, scratch):
        """Yields what comes of each of these changes. They are compiled together, each one chosen when it runs."""
        text = (self.copy / file).read_text()
        left, alone, programs = list(mutants), [], []
        users = [source for source in sorted(self.users.get(file, [])) if not source.endswith("_test.cpp")]
        for _ in range(6):
            if len(left) < 2:
                break
            overlay = self.overlay(file, together(text, left), scratch)
            failed = self.broken(file, users, overlay)
            if not failed:
                objects = self.compile(users, file, overlay, scratch)
                for program in self.programs_for(file) if objects else []:
                    binary = scratch / program.name
                    linked = self.link(program, objects, binary)
                    if linked and program.suites:  # what has none takes long, and is for what is tried by itself
                        programs.append((program, binary))
                # The unchanged program must pass: choosing does no harm.
                if any(not self.passes_all(*program, file, 0, False) for program in programs):
                    programs = []
                break
            if failed == {None}:
                break
            alone += [left[number] for number in failed]
            left = [mutant for number, mutant in enumerate(left) if number not in failed]
        if not programs:
            left, alone = [], list(mutants)
        apart = scratch.with_name(scratch.name + "-alone")
        for number, mutant in enumerate(left, 1):
            if any(not self.passes_all(*program, file, number) for program in programs):
                yield mutant, NOTICED
            else:  # once more by itself, as the compiler may have something to say
                yield mutant, self.judge(mutant, apart, tests_passed=True)
        for mutant in alone:
            yield mutant, self.judge(mutant, apart)

    def broken(self, file, users, overlay):
        """The numbers of the changes that the compiler complains about."""
        found = set()
        for source in users[:3]:
            command = self.command(source, overlay, "", None)
            header = self.precompiled(source) if source == file else self.common_headers(source, file)
            own = overlay / source if (overlay / source).exists() else self.copy / source
            command += self.including(header) + f" -w -fsyntax-only -fmax-errors=0 {own}"
            result = subprocess.run(command, shell=True, cwd=self.binary, stdin=subprocess.DEVNULL, text=True,
                                    stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
            if result.returncode == 0:
                continue
            lines = (overlay / file).read_text().splitlines()
            of_line, number = {}, None
            for place, line in enumerate(lines, 1):
                begin = re.search(r"/\*CHANGE (\d+)\*/", line)
                number = int(begin.group(1)) if begin else number
                of_line[place] = number
                number = None if "/*END*/" in line else number
            for place in re.findall(rf"{re.escape(str(overlay / file))}:(\d+)", result.stderr):
                if of_line.get(int(place)) is not None:
                    found.add(of_line[int(place)] - 1)
            found = found or {None}
        return found


# ----------------------------------------------------------------------------------------- changes that share an object

DECLARED = re.compile(r"[\w:]+(<[^;()=]*>)?(::\w+)?[ *&]+\w|(const )?auto\b")
INITIAL = re.compile(r"[^=({\[]*[^=!<>({\[+\-*/|& ] = (?![{\[])")
BEGINS_STATEMENT = re.compile(r"(return|if|for|while|switch|do|break|continue)\b")
NO_STATEMENT = re.compile(r"(case|default|else|using|static_assert|goto|static|constexpr|constinit|struct|enum|class|"
                          r"template|extern)\b")


def regions(text):
    """Statements of functions that can stand in an `if`, and initial values that can stand in a `?:`, as (start, end,
    start of the value, its end), the last two None for a statement. None of what runs when it is compiled."""
    code = blanked(text)
    candidates = {start: end for start, end, _ in units(code)}
    opened, in_function = [], set()  # opened: True for a block of statements, None for what may run when it is compiled
    for i, character in enumerate(code):
        if i in candidates and opened and opened[-1]:
            in_function.add(i)
        if character == "{":
            before = code[:i].rstrip()
            head = before[max(before.rfind(end) for end in ";}{") + 1:]
            head = re.split(r"\n(?=\S)", head)[-1]
            constant = re.search(r"\b(constexpr|consteval|constinit)\b", head) or (opened and opened[-1] is None)
            block = re.search(r"(\)( const)?( noexcept)?|\]|\belse|\bdo)$", before) is not None
            opened.append(None if constant else block)
        elif character == "}" and opened:
            opened.pop()
    found = []
    for start in sorted(in_function):
        end = candidates[start]
        statement = code[start:end]
        if statement[-1] not in ";}" or code[end:].lstrip().startswith("else") or NO_STATEMENT.match(statement):
            continue
        if BEGINS_STATEMENT.match(statement) or not DECLARED.match(statement):
            found.append((start, end, None, None))
        elif (value := INITIAL.match(statement)) and statement[-1] == ";":
            found.append((start, end, start + value.end(), end - 1))
    return found


def crosses(one, other):
    return one[0] < other[0] < one[1] < other[1] or other[0] < one[0] < other[1] < one[1]


def shared(text, mutants):
    """Splits changes: groups of which each can be compiled together, and those that have to be compiled alone."""
    found = regions(text)
    begins = {region[0] for region in found if region[2] is None}
    ends = {region[1] for region in found if region[2] is None}
    groups, alone = [], []
    for mutant in mutants:
        mutant.alone = False
        around = [region for region in found if region[0] <= mutant.start and mutant.end <= region[1] and
                  (region[2] is None or (region[2] <= mutant.start and mutant.end <= region[3]))]
        mutant.region = min(around, key=lambda region: region[1] - region[0], default=None)
        if mutant.kind == "swap" and mutant.start in begins and mutant.end in ends:
            mutant.region = (mutant.start, mutant.end, None, None)
        # That a function ends without a value is the compiler's to notice.
        returns = mutant.kind == "drop" and text.startswith("return", mutant.start)
        if mutant.region is None or returns:
            alone.append(mutant)
            continue
        for group in groups:
            if len(group) < TOGETHER and not any(crosses(mutant.region, other.region) for other in group):
                group.append(mutant)
                break
        else:
            groups.append([mutant])
    alone += [group[0] for group in groups if len(group) == 1]
    for mutant in alone:
        mutant.alone = True
    return [group for group in groups if len(group) > 1], alone


def together(text, mutants):
    """The text with all of these changes, chosen by number when it runs; they count from 1."""
    by_region = {}
    for number, mutant in enumerate(mutants, 1):
        by_region.setdefault(mutant.region, []).append((number, mutant))

    def written(first, last, outer):
        inside = [region for region in by_region if region != outer and first <= region[0] and region[1] <= last]
        inside = [region for region in inside
                  if not any(other != region and other[0] <= region[0] and region[1] <= other[1] for other in inside)]
        parts, at = [], first
        for region in sorted(inside):
            parts += [text[at:region[0]], wrapped(region)]
            at = region[1]
        return "".join(parts) + text[at:last]

    def wrapped(region):
        start, end, value, value_end = region
        if value is not None:
            parts = [text[start:value], "("]
            for number, mutant in by_region[region]:
                changed = text[value:mutant.start] + mutant.new + text[mutant.end:value_end]
                parts.append(f"\n/*CHANGE {number}*/ {VARIABLE} == {number} ? {changed} : /*END*/\n")
            return "".join(parts) + text[value:value_end] + ")" + text[value_end:end]
        parts = []
        for number, mutant in by_region[region]:
            changed = text[start:mutant.start] + mutant.new + text[mutant.end:end]
            parts.append(f"\n/*CHANGE {number}*/ if ({VARIABLE} == {number}) {{ {changed} /*END*/\n}} else ")
        return "".join(parts) + "{ " + written(start, end, region) + " }"

    return CHOICE + written(0, len(text), None)


# --------------------------------------------------------------------------------------------------------- explanations

# What a reason begins with. equivalent: nothing that the program does changes. elsewhere: a check that is not run here
# notices. accepted: what changes matters to nobody.
TYPES = ["equivalent", "elsewhere", "accepted"]


class Explanation:
    def __init__(self, where, file, kind, part, reason):
        self.where, self.file, self.kind, self.part, self.reason = where, file, kind, part, reason
        self.type = None
        self.exceptions = []
        self.pattern = re.compile(".*".join(re.escape(piece) for piece in part.split("...")))
        self.mutants = 0

    def fits(self, mutant):
        if not fnmatch.fnmatchcase(mutant.file, self.file) or self.kind != mutant.kind or \
                not self.pattern.match(f"{mutant.old_lines} => {mutant.new_lines}"):
            return False
        exceptions = [exception for exception in self.exceptions if exception.fits(mutant)]
        for exception in exceptions:
            exception.mutants += 1
        return not exceptions


def read_explanations(path):
    """Lines of `FILE KIND: beginning of "old => new"`, with the class and the reason below, indented. Those with a "!"
    in front are what the lines above them do not stand for."""
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
            match = re.fullmatch(r"(!?)(\S+) ([a-z*]+): (.+)", line)
            if not match:
                raise Failure(f"{path}:{number}: not understood: {line}")
            if heads and heads[0].reason:
                heads = []
            explanation = Explanation(f"{path.name}:{number}", *match.groups()[1:], "")
            if match[1]:
                for head in heads:
                    head.exceptions.append(explanation)
                continue
            heads.append(explanation)
            found.append(explanation)
    for explanation in found:
        if not explanation.reason:
            raise Failure(f"{explanation.where}: without a reason")
        explanation.type, colon, reason = explanation.reason.partition(": ")
        if explanation.type not in TYPES or not reason:
            raise Failure(f"{explanation.where}: the reason has no class: one of {', '.join(TYPES)}")
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
        if not path.resolve().is_relative_to(tree):
            raise Failure(f"{name} is not of this tree")
        found.append((path.resolve().relative_to(tree).as_posix(), lines))
    return found


def main():
    parser = argparse.ArgumentParser(prog="script/mutate")
    parser.add_argument("--tree", type=Path, required=True, help=argparse.SUPPRESS)
    parser.add_argument("--work", type=Path, required=True, help=argparse.SUPPRESS)
    parser.add_argument("--list", action="store_true", help="list the changes, make none")
    parser.add_argument("--explained", action="store_true", help="only what is explained: list what a test notices")
    parser.add_argument("--stale", action="store_true", help="only list the explanations that no change fits")
    parser.add_argument("--sample", type=int, metavar="N", help="N of the changes, at random")
    parser.add_argument("--seed", type=int, default=1, help="of the sample")
    parser.add_argument("--jobs", type=int, default=2, help="so many at a time")
    parser.add_argument("files", nargs="*", metavar="FILE[:LINE[-LINE]]")
    options = parser.parse_args()
    tree, work = options.tree.resolve(), options.work.resolve()

    mutants, texts = [], {}
    for file, lines in chosen_files(tree, options.files):
        texts[file] = (tree / file).read_text()
        of_file = mutants_of(file, texts[file])
        mutants += [mutant for mutant in of_file if not lines or lines[0] <= mutant.line <= lines[1]]
    explanations = read_explanations(tree / "tests/mutate/explained.txt")
    explained, types = [], {}
    for mutant in mutants:
        reasons = [explanation for explanation in explanations if explanation.fits(mutant)]
        for explanation in reasons:
            explanation.mutants += 1
        if reasons:
            explained.append(mutant)
            types[mutant] = reasons[0].type
    findings, stale = 0, 0
    exceptions = {exception: None for explanation in explanations for exception in explanation.exceptions}
    for explanation in [*explanations, *exceptions] if not options.files else []:
        if explanation.mutants == 0:
            print(f"{explanation.where}: there is no such change: {explanation.part}")
            stale += 1
    if options.stale:
        print(f"{stale} explanations of changes that there are not")
        return 1 if stale else 0
    tried = explained if options.explained else [mutant for mutant in mutants if mutant not in types]
    if options.sample is not None and options.sample < len(tried):
        chosen = set(random.Random(options.seed).sample(range(len(tried)), options.sample))
        tried = [mutant for number, mutant in enumerate(tried) if number in chosen]
    if options.list:
        for mutant in tried:
            print(mutant)
        print(f"{len(tried)} changes, and {len(explained)} that are explained")
        return 0

    work.mkdir(parents=True, exist_ok=True)
    for folder in work.glob("mutant-*"):  # left by a run that was killed
        if not Path("/proc", folder.name.split("-")[1]).exists():
            shutil.rmtree(folder, ignore_errors=True)
    print(f"building in {work}", flush=True)
    with path_without_blanks(work) as place:
        results = try_all(Build(tree, place), tried, texts, options, place)
    unnoticed = [mutant for mutant in tried if results[mutant] == UNNOTICED]
    for mutant in tried:
        if results[mutant] == UNCHANGED:
            types[mutant] = "equivalent"
    findings = list(results.values()).count(NOTICED if options.explained else UNNOTICED)
    if not options.explained and options.sample is None:
        print_scores(mutants, types, unnoticed)
    told = "noticed though explained" if options.explained else "unnoticed and not explained"
    print(f"{len(tried)} changes, {findings} {told}; {time.time() - BEGAN:.0f} s, "
          f"{processor_time():.0f} s of processor time")
    return 1 if findings or stale else 0


BEGAN = time.time()


@contextlib.contextmanager
def path_without_blanks(work):
    """The folder, or a passing one elsewhere: commands of a build are taken apart at their blanks."""
    plain = lambda path: re.fullmatch(r"[\w./+-]+", str(path))
    if plain(work):
        yield work
        return
    parents = [parent for parent in (tempfile.gettempdir(), "/tmp", "/var/tmp") if plain(parent)]
    with tempfile.TemporaryDirectory(prefix="textcfg-mutate-", dir=parents[0]) as folder:
        yield Path(folder).resolve()


def try_all(build, mutants, texts, options, work):
    """Tries the changes, prints those that are worth telling, and returns what came of each."""
    print(f"{len(mutants)} changes", flush=True)
    for file in texts:
        if file not in build.users:
            raise Failure(f"{file}: no program of the tests is built from it")
    began, results = time.time(), {}
    worth_telling = NOTICED if options.explained else UNNOTICED
    places, guard, stopped = list(range(options.jobs)), threading.Lock(), threading.Event()
    tasks = []
    for file, text in texts.items():
        groups, alone = shared(text, [mutant for mutant in mutants if mutant.file == file])
        tasks += groups + [alone[at:at + 20] for at in range(0, len(alone), 20)]
    tasks.sort(key=len, reverse=True)

    def tell(mutant, result):
        if stopped.is_set():
            raise Failure("stopped")
        with guard:
            results[mutant] = result
            if result == worth_telling:
                print(f"{result}: {mutant}", flush=True)
            if len(results) % 500 == 0:
                print(f"{len(results)} of {len(mutants)}, {time.time() - began:.0f} s", file=sys.stderr, flush=True)

    def work_on(task):
        with guard:
            place = places.pop()
        try:
            scratch = work / f"mutant-{os.getpid()}-{place}"
            if not task[0].alone:
                for mutant, result in build.judge_together(task[0].file, task, scratch):
                    tell(mutant, result)
            else:
                for mutant in task:
                    tell(mutant, build.judge(mutant, scratch))
        finally:
            with guard:
                places.append(place)

    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        running = [pool.submit(work_on, task) for task in tasks]
        try:
            for future in concurrent.futures.as_completed(running):
                future.result()
        except BaseException:
            stopped.set()
            for future in running:
                future.cancel()
            raise
        finally:
            for folder in work.glob(f"mutant-{os.getpid()}-*"):
                shutil.rmtree(folder, ignore_errors=True)
    return results


def print_scores(mutants, types, unnoticed):
    """Of each folder: how many changes there are, how many are noticed, and why the others are not."""
    print(f"{'folder':16}{'changes':>9}{'noticed':>17}{'equivalent':>17}{'other reasons':>17}{'no reason':>17}")
    folders = sorted({os.path.dirname(mutant.file) for mutant in mutants})
    unnoticed = set(unnoticed)
    for folder in folders + ["all"]:
        chosen = [mutant for mutant in mutants if folder in ("all", os.path.dirname(mutant.file))]
        equivalent = sum(types.get(mutant) == "equivalent" for mutant in chosen)
        other = sum(mutant in types for mutant in chosen) - equivalent
        none = sum(mutant in unnoticed for mutant in chosen)
        counts = [len(chosen) - equivalent - other - none, equivalent, other, none]
        columns = "".join(f"{count:>8} {100 * count / len(chosen):6.2f} %" for count in counts)
        print(f"{folder:16}{len(chosen):>9}{columns}")


if __name__ == "__main__":
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    try:
        sys.exit(main())
    except (Failure, OSError, UnicodeError) as failure:
        print(f"script/mutate: {failure}", file=sys.stderr)
        sys.exit(2)
    except KeyboardInterrupt:
        sys.exit(130)
