# SPDX-FileCopyrightText: 2026 The Ombrel developers
# SPDX-License-Identifier: MIT
#
# What the commands in this folder share. Sourced, not run.

root=$(cd "$(dirname "$(readlink -f "$0")")/.." && pwd) || exit 1

say() { printf '%s: %s\n' "$(basename "$0")" "$*"; }
die() { say "$*" >&2; exit 1; }

# packages SECTION...: the packages of these sections of packages.txt.
packages() {
    for section; do
        sed -n "/^\[$section\]/,/^\[/p" "$root/tools/packages.txt" | sed 's/#.*//; /^\[/d; /^ *$/d'
    done | awk '{ print $1 }'
}

# installed PACKAGE...: those of them that this machine lacks, one a line.
lacking() {
    for package; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || echo "$package"
    done
}

# need SECTION...: installs what is missing, says so, asks nothing.
need() {
    command -v dpkg-query >/dev/null || die "this needs Debian (or a system with its packages)"
    missing=$(lacking $(packages "$@"))
    [ -n "$missing" ] || return 0
    say "installing" $missing
    as_root=
    [ "$(id -u)" -eq 0 ] || as_root=sudo
    export DEBIAN_FRONTEND=noninteractive
    $as_root apt-get update -q </dev/null >/dev/null || die "the package lists cannot be read"
    $as_root apt-get install -y -q --no-install-recommends $missing </dev/null >/dev/null \
        || die "the packages cannot be installed"
}

# build PRESET: configures (once) and builds.
build() {
    cd "$root" || exit 1
    say "building ($1)"
    cmake --preset "$1" >"$root/.configure.log" 2>&1 || { cat "$root/.configure.log"; exit 1; }
    rm -f "$root/.configure.log"
    cmake --build --preset "$1" || die "the build failed"
}
