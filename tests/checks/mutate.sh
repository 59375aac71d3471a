#!/bin/bash
# script/mutate notices what the tests notice and reports the rest: tried on a tree of a few lines, whose tests
# have gaps, below a folder with a blank in its name.
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"
command -v python3 >/dev/null || give_up "there is no python3"

make_scratch
tree="$scratch/a tree"
mkdir -p "$tree"/{sections,platform,tests/mutate} || exit 1
cat >"$tree/CMakeLists.txt" <<'END'
cmake_minimum_required(VERSION 3.25)
project(toy CXX)
include_directories(${CMAKE_SOURCE_DIR})
add_executable(textcfg_tests sections/toy.cpp tests/toy_test.cpp)
END
cat >"$tree/platform/record.h" <<'END'
// 7 != 8 in a comment is no change.
struct Record {
    char first;
    char second;
};
static_assert(sizeof(Record) == 2, "7 bytes");
inline int size() { return sizeof(Record) + 1; }
END
cat >"$tree/sections/toy.cpp" <<'END'
#include "platform/record.h"

const char *lines[] = {"a line\n", "no line\n"};
int sizeOfARecord() { return size(); }
int which(int first, int second) {
    if (second < 4) return 1;
    first += 2;
    return first;
}
END
# The tests say nothing of the boundary. Nothing of the program depends on the order in the record.
cat >"$tree/tests/toy_test.cpp" <<'END'
#include "platform/record.h"
#include <cstring>
extern const char *lines[];
int which(int first, int second);
int sizeOfARecord();
int main() {
    return std::strcmp(lines[0], "a line\n") == 0 && std::strncmp(lines[1], "no line", 7) == 0 && which(3, 3) == 1 &&
                   which(3, 9) == 5 && sizeOfARecord() == 3
               ? 0
               : 1;
}
END
cat >"$tree/tests/mutate/explained.txt" <<'END'
# A reason may take several lines.
sections/*.cpp swap: if (second ... first += 2; => first += 2;
    equivalent: What is added
    is not returned there.
END

# mutate STATUS EXPECTED WORD…: what it prints, but for the time.
mutate() {
    local expected=$1 text=$2 status=0
    shift 2
    python3 "$root/tests/mutate/mutate.py" --tree "$tree" --work "$scratch/a work" "$@" >"$scratch/out" 2>&1 </dev/null ||
        status=$?
    ((status == expected)) || found "$*: status $status, not $expected"
    diff <(printf '%s\n' "$text" | sort) <(grep -v '^building' "$scratch/out" | sed 's/; [0-9]* s, [0-9]* s of processor time$//' | sort) ||
        found "$*: not what was expected"
}

mutate 0 "\
platform/record.h:3: swap
    - char first; char second;
    + char second; char first;
platform/record.h:3: drop
    - char first;
    + (nothing)
platform/record.h:4: drop
    - char second;
    + (nothing)
platform/record.h:7: arithmetic
    - inline int size() { return sizeof(Record) + 1; }
    + inline int size() { return sizeof(Record) - 1; }
platform/record.h:7: number
    - inline int size() { return sizeof(Record) + 1; }
    + inline int size() { return sizeof(Record) + 2; }
platform/record.h:7: number
    - inline int size() { return sizeof(Record) + 1; }
    + inline int size() { return sizeof(Record) + 0; }
6 changes, and 0 that are explained" --list platform/record.h

unnoticed="\
unnoticed: sections/toy.cpp:6: comparison
    - if (second < 4) return 1;
    + if (second <= 4) return 1;
unnoticed: sections/toy.cpp:6: number
    - if (second < 4) return 1;
    + if (second < 5) return 1;"
scores="\
folder            changes          noticed       equivalent    other reasons        no reason
platform                6       5  83.33 %       1  16.67 %       0   0.00 %       0   0.00 %
sections               18      15  83.33 %       1   5.56 %       0   0.00 %       2  11.11 %
all                    24      20  83.33 %       2   8.33 %       0   0.00 %       2   8.33 %"
mutate 1 "\
23 changes
$unnoticed
$scores
23 changes, 2 unnoticed and not explained"

# Only what is explained, and it still goes unnoticed.
mutate 0 "\
1 changes
1 changes, 0 noticed though explained" --explained

# An explanation of a change that there is not.
printf '%s\n' 'sections/toy.cpp drop: third' '    accepted: There is none.' >>"$tree/tests/mutate/explained.txt"
mutate 1 "\
explained.txt:5: there is no such change: third
23 changes
$unnoticed
$scores
23 changes, 2 unnoticed and not explained"
mutate 1 "\
explained.txt:5: there is no such change: third
1 explanations of changes that there are not" --stale

# What an explanation does not stand for is tried.
cp "$tree/tests/mutate/explained.txt" "$scratch/kept"
printf '%s\n' 'sections/*.cpp swap: if' '!sections/toy.cpp swap: if (second' '    accepted: It is not.' \
    >"$tree/tests/mutate/explained.txt"
mutate 0 "0 changes, and 0 that are explained" --explained --list sections/toy.cpp
printf '%s\n' 'sections/*.cpp swap: if' '!sections/toy.cpp swap: third' '    accepted: It is not.' \
    >"$tree/tests/mutate/explained.txt"
mutate 1 "\
explained.txt:2: there is no such change: third
1 explanations of changes that there are not" --stale
cp "$scratch/kept" "$tree/tests/mutate/explained.txt"

# One whose reason has no class, and one without a reason.
cp "$tree/tests/mutate/explained.txt" "$scratch/kept"
printf '%s\n' 'sections/toy.cpp drop: first' '    It is so.' >>"$tree/tests/mutate/explained.txt"
mutate 2 "script/mutate: explained.txt:7: the reason has no class: one of equivalent, elsewhere, accepted"
cp "$scratch/kept" "$tree/tests/mutate/explained.txt"
echo 'sections/toy.cpp drop: second' >>"$tree/tests/mutate/explained.txt"
mutate 2 "script/mutate: explained.txt:7: without a reason"

# A file that is not there, and one that is not of the tree.
mutate 2 "script/mutate: there is no file sections/none.cpp" sections/none.cpp
mutate 2 "script/mutate: $scratch/kept is not of this tree" "$scratch/kept"
conclude
