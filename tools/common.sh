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

# build PRESET [TARGET...]: configures and builds. A configured build follows every later change by itself,
# except changes of the presets.
build() {
    cd "$root" || exit 1
    preset=$1
    shift
    if [ -z "$(find "build-$preset/build.ninja" -newer CMakePresets.json 2>/dev/null)" ]; then
        say "configuring ($preset)"
        said=$(cmake --preset "$preset" 2>&1) \
            || { printf '%s\n' "$said"; die "it cannot be configured"; }
    fi
    say "building ($preset)"
    {
        NINJA_STATUS='[%f/%t] ' cmake --build --preset "$preset" ${1:+--target "$@"} 2>&1
        printf '\nended %s\n' $?
    } | count_steps || die "the build failed"
}

# need_bare: whether make_bare and in_bare can work here.
need_bare() {
    [ "$(id -u)" -eq 0 ] || die "this needs root, to make a root file system"
    unshare --mount true 2>/dev/null || die "this needs a mount namespace, which this machine refuses"
}

# archives: Debian's own archives as this machine's apt knows them, a line each.
archives() {
    apt-get indextargets 'Created-By: Packages' 'Origin: Debian' \
        --format 'deb [signed-by=$(SIGNED_BY)] $(REPO_URI) $(RELEASE) $(COMPONENT)' \
        | sed 's/ \[signed-by=[$(][^]]*\]//' | sort -u
}

# make_bare FOLDER PACKAGES: makes a bare Debian in FOLDER/root, with apt and the packages (a list with
# commas, which may be empty) and a user "someone". Packages come from where this machine's apt takes
# Debian's.
make_bare() {
    archives >"$1/sources.list"
    if [ ! -s "$1/sources.list" ]; then
        apt-get update -q >/dev/null || die "the package lists cannot be read"
        archives >"$1/sources.list"
    fi
    [ -s "$1/sources.list" ] || die "this machine's apt knows no Debian archive"

    # How apt reaches them (proxies, checks), from its configuration or else from the environment.
    apt-config dump Acquire | grep -v -e IndexTargets -e Changelogs -e cdrom >"$1/apt.conf"
    for scheme in http https; do
        proxy=$(printenv "${scheme}_proxy")
        [ -z "$proxy" ] || grep -q "^Acquire::$scheme::Proxy " "$1/apt.conf" \
            || echo "Acquire::$scheme::Proxy \"$proxy\";" >>"$1/apt.conf"
    done
    echo 'APT::Get::Assume-Yes "true";' >>"$1/apt.conf"

    say "making a bare Debian"
    codename=$(sed -n 's/^VERSION_CODENAME=//p' /etc/os-release)
    mmdebstrap --mode=root --variant=apt ${2:+--include="$2"} --aptopt="$1/apt.conf" "$codename" \
        "$1/root" "$1/sources.list" >"$1/log" 2>&1 || { cat "$1/log"; die "it cannot be made"; }

    # Keys and certificates that this machine's apt trusts beside Debian's.
    for trusted in /etc/apt/keyrings /etc/apt/trusted.gpg.d /etc/ssl/certs/ca-certificates.crt \
        $(sed -n 's/.*signed-by=\(\/[^],]*\).*/\1/p' "$1/sources.list" | sort -u); do
        [ ! -e "$trusted" ] \
            || { mkdir -p "$1/root${trusted%/*}" && cp -RL "$trusted" "$1/root${trusted%/*}/"; }
    done
    chroot "$1/root" useradd --create-home --shell /bin/sh someone
    echo "127.0.0.1 localhost $(hostname)" >"$1/root/etc/hosts"
}

# in_bare FOLDER COMMAND...: runs it in the bare Debian that make_bare has made there, in namespaces of
# its own: mounts and processes end with the command.
in_bare() {
    at="$1/root"
    shift
    unshare --mount --pid --fork --kill-child --mount-proc --root="$at" --wd=/ "$@"
}
