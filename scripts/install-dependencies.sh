#!/bin/sh
# The one list of Debian packages that the tree needs. `install-dependencies.sh MODE...` installs what is
# missing for the modes named: run (build and run the programs), test (everything ./test does), bench (the
# benchmarks), lint (scripts/tidy.sh). Nothing is downloaded or changed when nothing is missing. Needs root or
# sudo only when there is something to install. `--list MODE...` prints the packages instead.
set -eu

usage() {
    echo "usage: install-dependencies.sh [--list] run|test|bench|lint..." >&2
    exit 2
}

# libedit edits the lines of drafta's console, libzip writes its archives, pugixml reads and writes its XML files,
# mdbtools and SQLite read project databases, Qt draws the window (libqt6svg6 holds the plug-in for its icons).
run="g++ cmake ninja-build ccache pkg-config libedit-dev libzip-dev libpugixml-dev mdbtools-dev libsqlite3-dev
    qt6-base-dev qt6-svg-dev libqt6svg6 libgl-dev fonts-dejavu-core"
# libclang-rt-14-dev holds the sanitizer and fuzzing runtimes of clang 14, llvm the symbolizer of their reports;
# groff-base and zsh read the man page and the completions that kqp writes; python3-ezdxf makes drawings for the
# tests and reads what was written; the window is used with a mouse in a virtual display under a window manager, and
# tells what it shows over the accessibility bus (at-spi2-core, dbus-daemon, python3-dbus).
test="clang libclang-rt-14-dev llvm libgtest-dev python3 python3-ezdxf clang-format
    g++-mingw-w64-x86-64-posix binutils groff-base zsh xvfb xauth xdotool openbox at-spi2-core
    dbus-daemon python3-dbus"
# guile, pugixml and ezdxf are yardsticks.
bench="libbenchmark-dev guile-3.0 python3 python3-ezdxf"
lint="clang-tidy"

list=no
if [ "${1-}" = --list ]; then
    list=yes
    shift
fi
[ $# -gt 0 ] || usage

packages=$run
for mode in "$@"; do
    case $mode in
    run) ;;
    test) packages="$packages $test" ;;
    bench) packages="$packages $bench" ;;
    lint) packages="$packages $test $lint" ;;
    *) usage ;;
    esac
done

if [ $list = yes ]; then
    # shellcheck disable=SC2086 # a list of words
    printf '%s\n' $packages
    exit 0
fi

if ! command -v dpkg-query >/dev/null; then
    echo "This is not a Debian system. Install by its own means what stands for: $packages" >&2
    exit 1
fi

missing=
for package in $packages; do
    if [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" != installed ]; then
        missing="$missing $package"
    fi
done
[ -n "$missing" ] || exit 0

if [ "$(id -u)" -eq 0 ]; then
    as_root=
elif command -v sudo >/dev/null; then
    as_root=sudo
else
    echo "These packages are missing, and neither root nor sudo is at hand to install them:$missing" >&2
    echo "As root: apt-get update && apt-get install --no-install-recommends$missing" >&2
    exit 1
fi

log=$(mktemp)
trap 'rm -f "$log"' EXIT

quietly() {
    if ! $as_root env DEBIAN_FRONTEND=noninteractive apt-get "$@" >"$log" 2>&1; then
        cat "$log" >&2
        echo "apt-get $1 failed, see above" >&2
        exit 1
    fi
}

echo "Installing:$missing" >&2
quietly update
# shellcheck disable=SC2086 # a list of words
quietly install --yes --no-install-recommends $missing
