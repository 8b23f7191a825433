# Installs Debian packages and builds a preset; for ./run, ./test and other scripts. Sourced; `build` needs `root`.
# All messages go to standard error, so that standard output holds the output of the command alone.
# shellcheck disable=SC2034,SC2154

# What every build needs.
build_packages=(cmake ninja-build g++ qt6-base-dev qt6-translations-l10n)

say() { printf '%s\n' "$*" >&2; }

# Installs the given packages that are missing. The check takes a few hundredths of a second.
need_packages() {
    local missing=() package status
    if ! command -v dpkg-query >/dev/null; then
        command -v cmake >/dev/null && command -v ninja >/dev/null && command -v c++ >/dev/null && return
        say "Questo non è un sistema Debian: servono gli equivalenti di questi pacchetti: $*"
        return 1
    fi
    status=" $(dpkg-query -W -f '${db:Status-Status}:${Package} ' "$@" 2>/dev/null || true)"
    for package in "$@"; do
        [[ $status == *" installed:$package "* ]] || missing+=("$package")
    done
    ((${#missing[@]} == 0)) && return
    local as_root=() ask="Mancano dei pacchetti. Chiedere all'amministratore: apt-get install --no-install-recommends ${missing[*]}"
    if ((EUID != 0)); then
        command -v sudo >/dev/null || { say "$ask"; return 1; }
        as_root=(sudo)
    fi
    say "Installo: ${missing[*]}"
    if [[ -t 2 ]]; then
        install_packages "${missing[@]}" >&2 || { say "$ask"; return 1; }
    else
        # Not a terminal: the output of the installer is shown only when it failed.
        local told
        told=$(install_packages "${missing[@]}" 2>&1) || { say "$told"$'\n'"$ask"; return 1; }
    fi
}

install_packages() {
    # When the index cannot be downloaded, the packages may still be installed from the old one. Another
    # installation that is running is waited for.
    local apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=900)
    "${apt[@]}" -qq update || true
    "${apt[@]}" -q -y install --no-install-recommends "$@"
}

# Shows the progress of a build on one line of the terminal, and all its other output unchanged.
show_progress() {
    local line shown=''
    while IFS= read -r line; do
        case $line in
            '['*'/'*']'*)
                [[ -t 2 ]] || continue
                shown=${line%%]*}]
                printf '\r%s ' "$shown" >&2
                ;;
            'ninja: no work to do.' | 'ninja: Entering directory'* | '-- '*) ;;
            *) printf '%s%s\n' "${shown:+$'\n'}" "$line" >&2; shown='' ;;
        esac
    done
    [[ -z $shown ]] || printf '\n' >&2
}

# Builds the given preset in build/PRESET; prints nothing when there is nothing to do.
build() {
    local preset=$1 directory=$root/build/$1 cache
    mkdir -p "$root/build"
    exec {lock}>"$root/build/.$preset.lock"
    flock "$lock"
    cache=$directory/CMakeCache.txt
    # A source tree that was moved or copied with its build directory is configured again.
    if [[ ! -f $directory/build.ninja ]] || ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$cache"; then
        say 'Preparo la compilazione; la prima volta dura qualche minuto.'
        (cd "$root" && cmake --fresh --preset "$preset" >"$directory.log" 2>&1) || { cat "$directory.log" >&2; return 1; }
    fi
    ninja -C "$directory" 2>&1 | show_progress
    exec {lock}>&-
}
