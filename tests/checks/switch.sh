#!/bin/bash
# The program and the library as a firmware builds them, optimised across files and linked with the stub: the trace can
# be set from outside, the buffers are aligned, the version is in the file, and a C program renders with the library.
#
# Other checks look at the program that this leaves in SCRATCH_TREE/tool.
#
#     switch.sh SCRATCH_TREE C_COMPILER CXX_COMPILER AR [TOOLCHAIN_FILE EMULATOR…]
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

scratch=$1 cc=$2 cxx=$3 ar=$4 toolchain=${5-}
emulator=("${@:6}")
compilers=(-DCMAKE_C_COMPILER="$cc" -DCMAKE_CXX_COMPILER="$cxx")
flags=()
if command -v ccache >/dev/null; then export CMAKE_C_COMPILER_LAUNCHER=ccache CMAKE_CXX_COMPILER_LAUNCHER=ccache; fi
if [[ $toolchain ]]; then
    compilers=(--toolchain "$toolchain")
    mapfile -t flags < <(sed -n 's/^set(CMAKE_C_FLAGS_INIT "\(.*\)")/\1/p' "$toolchain" | tr ' ' '\n')
    ((${#flags[@]})) || give_up "$toolchain has no flags"
fi
mkdir -p "$scratch" && cd "$scratch" || exit 1
rm -rf installed
rm -f ./*.a ./*.so

# ---- The stub as an archive, and as a shared library that switches the trace on.
stub=$root/tests/firmware_stub
c() { "$cc" -std=c11 -Wall -Wextra -Wpedantic -Werror -Os -I"$root" "$@"; }
if ! c "${flags[@]}" -c "$stub/stub.c" -o stub.o || ! "$ar" rc libstub.a stub.o ||
    ! c -fPIC -shared "$stub/stub.c" "$stub/trace.c" -o libtracing.so ||
    ! c -fPIC -shared "$stub/trace.c" -o preload.so; then
    give_up "the libraries could not be built"
fi

# build LIBRARY: the tree, linked with it.
build() {
    local log
    log=$(cmake -S "$root" -B tool -G Ninja "${compilers[@]}" -DTEXTCFG_WERROR=ON \
        -DTEXTCFG_LTO=ON -DTEXTCFG_PLATFORM_LIBRARY="$scratch/$1" 2>&1 && cmake --build tool 2>&1) || give_up "$log"
}
# run [VARIABLE=VALUE] WORD…: the program that was built last.
run() {
    local setting=()
    if [[ $1 == *=* ]]; then
        setting=(env "$1")
        if ((${#emulator[@]})); then setting=("${emulator[@]}" -E "$1"); fi
        shift
    elif ((${#emulator[@]})); then setting=("${emulator[@]}"); fi
    "${setting[@]}" "$@" 2>err || found "$*: status $?: $(cat err)"
}
# traces WHAT MODE COUNT [VARIABLE=VALUE]: the program names as many sections.
traces() {
    local verb=running_config count other
    [[ $2 == full ]] || verb+=_delta
    run "${@:4}" tool/textcfg $verb -f text >said
    count=$(grep -cx '\[[A-Za-z0-9_]*\]' said)
    other=$(grep -cvx '\[[A-Za-z0-9_]*\]' said)
    ((count == $3 && other == 0)) || found "$1, $2 mode: $count traces and $other other lines, expected $3 and 0"
}

build libtracing.so
traces "set by the platform's library" full 108
traces "set by the platform's library" delta 106
build libstub.a
traces "not set" full 0
traces "set by a preloaded object" full 108 LD_PRELOAD="$scratch/preload.so"
traces "set by a preloaded object" delta 106 LD_PRELOAD="$scratch/preload.so"

# ---- Where the buffers are, as linked.
buffers=0
while read -r address _ name; do
    buffers=$((buffers + 1))
    ((0x$address % 64 == 0)) || found "$name is at $address, which is not aligned"
done < <(nm tool/textcfg | grep -E 'currentImage|defaultImage|g_EEPROM')
((buffers == 3)) || found "$buffers buffers in the program, where 3 were expected"

# ---- What is installed: the program alone, and the library.
cmake --install tool --component program --prefix "$scratch/installed/program" --strip >/dev/null ||
    found "the program could not be installed"
[[ $(cd installed/program && find . -type f) == ./bin/textcfg ]] || found "more than the program: $(find installed)"
cmake --install tool --component library --prefix "$scratch/installed/library" >/dev/null ||
    found "the library could not be installed"

# ---- The version.
version=$(sed -n 's/^project(.* VERSION \([0-9.]*\) .*/textcfg \1/p' "$root/CMakeLists.txt")
[[ $version ]] || give_up "CMakeLists.txt has no version"
for file in installed/program/bin/textcfg installed/library/lib*/libtextcfg.a installed/library/lib/*/libtextcfg.a; do
    [[ ! -e $file ]] || strings -a "$file" | grep -qF "$version" || found "$file does not hold $version"
done

# ---- The library: only the names of its header are visible, and a C program without this optimisation links it.
library=$(find installed/library -name libtextcfg.a)
[[ $library ]] || give_up "there is no libtextcfg.a"
sections=$(readelf -SW "$library") || give_up "cannot read $library"
! grep -qF .gnu.lto <<<"$sections" || found "the library needs the optimisation across files"
declared=$(grep -oE '^[a-z].*\b(textcfg_[a-z_]+|conv[A-Za-z]+)\(|^extern .*;' "$root/app/textcfg.h" |
    sed 's/[(;]$//; s/.*[ *]//' | sort)
defined=$(nm -g --defined-only "$library" | awk 'NF == 3 { print $3 }' | sort)
[[ $declared == "$defined" ]] || found "the names of the library and its header: $(diff <(echo "$declared") <(echo "$defined"))"
c "${flags[@]}" "${flags[@]/#-fno-pie/-no-pie}" -Iinstalled/library/include/textcfg "$stub/render.c" "$library" libstub.a \
    -lpthread -o render || give_up "a C program could not be linked with the library"
run ./render overflow >said
[[ $(cat said) == "$version" ]] || found "the library says: $(cat said)"
run ./render full 0 full.txt full_default 3 full_default.txt full_page 0 full_page.txt delta 2 delta.txt \
    delta_default 1 delta_default.txt delta_page 0 delta_page.txt >said
# same FILE VERB: the library's text is the program's.
same() {
    run tool/textcfg "$2" -f text >said
    cmp -s text "$1" || found "$1: the program writes another text for $2"
}
same full.txt running_config
same full_default.txt customer_def_config
same full_page.txt running_config_page
same delta.txt startup_config_delta
same delta_default.txt default_config_delta
same delta_page.txt running_config_delta_page
! cmp -s full_page.txt delta_page.txt || found "both modes wrote the same"
conclude
