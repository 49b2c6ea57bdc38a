# shellcheck shell=sh
# SPDX-FileCopyrightText: 2026 The Ombrel developers
# SPDX-License-Identifier: MIT
#
# What the commands in this folder share. Sourced, not run.

root=$(cd "$(dirname "$(readlink -f "$0")")/.." && pwd) || exit 1

say() { printf '%s: %s\n' "$(basename "$0")" "$*"; }
die() { say "$*" >&2; exit 1; }

# help: the comment that heads the command, from its name on.
help() { sed -n '5,/^$/s/^# \{0,1\}//p' "$0"; }

# packages SECTION...: the packages of these sections of packages.txt, one a line.
packages() {
    for section; do
        sed -n "/^\[$section\]/,/^\[/p" "$root/tools/packages.txt" | sed 's/#.*//; /^\[/d; /^ *$/d'
    done | awk '{ print $1 }'
}

# lacking PACKAGE...: those of them that this machine lacks, one a line.
lacking() {
    for package; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || echo "$package"
    done
}

# need SECTION...: installs the missing packages without a question, and prints their names.
need() {
    command -v dpkg-query >/dev/null || die "this needs Debian (or a system with its packages)"
    # shellcheck disable=SC2046 # a word is a package
    set -- $(lacking $(packages "$@"))
    [ $# -gt 0 ] || return 0
    say "installing $*"
    as_root=
    [ "$(id -u)" -eq 0 ] || as_root=sudo
    # sudo passes no variables on.
    apt="$as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -y"
    said=$($apt update 2>&1 </dev/null) \
        || { printf '%s\n' "$said"; die "the package lists cannot be read"; }
    said=$($apt install --no-install-recommends "$@" 2>&1 </dev/null) \
        || { printf '%s\n' "$said"; die "the packages cannot be installed"; }
}

# count_steps: reads what ninja says and shows only how many of its steps are done, on a terminal
# in one line, elsewhere a line for each tenth. The last line is "ended CODE", which becomes the
# exit code; if that is not 0, all that was said follows.
count_steps() {
    said=$(mktemp) || exit 1
    tenth=0
    while IFS= read -r line; do
        case $line in
        "ended "*) break ;;
        "["*/*"] "*)
            count=${line%%]*}
            count=${count#[}
            done=${count%/*} all=${count#*/}
            if [ "$done" -eq 0 ]; then
                count= # it only looks for new files
            elif [ -t 1 ]; then
                printf '\r%s: compiling %s' "$(basename "$0")" "$count"
            elif [ $((done * 10 / all)) -ne "$tenth" ]; then
                tenth=$((done * 10 / all))
                say "compiling $count"
            fi
            ;;
        esac
        printf '%s\n' "$line" >>"$said"
    done
    [ ! -t 1 ] || [ -z "${count-}" ] || echo
    code=${line#ended }
    [ "$code" -eq 0 ] || cat "$said"
    rm -f "$said"
    return "$code"
}

# build PRESET: configures and builds. A configured build follows every later change by itself,
# except changes of the presets.
build() {
    cd "$root" || exit 1
    if [ -z "$(find "build-$1/build.ninja" -newer CMakePresets.json 2>/dev/null)" ]; then
        say "configuring ($1)"
        said=$(cmake --preset "$1" 2>&1) || { printf '%s\n' "$said"; die "it cannot be configured"; }
    fi
    say "building ($1)"
    {
        NINJA_STATUS='[%f/%t] ' cmake --build --preset "$1" 2>&1
        printf '\nended %s\n' $?
    } | count_steps || die "the build failed"
}
