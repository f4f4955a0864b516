# shellcheck shell=bash
# Shared parts of the scripts: sourced, not run.
#
# Messages go to standard error, so that standard output holds the result alone.

KEL_ROOT=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
KEL_JOBS=$(getconf _NPROCESSORS_ONLN 2>/dev/null || echo 2)

say() { printf '== %s\n' "$*" >&2; }

die() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

# Prints the help of the script that runs, which is the comment at its top, and ends.
show_help() {
    awk 'NR > 1 { if (!/^#/) exit; sub(/^# ?/, ""); print }' "$0"
    exit 0
}

# The version of the project, and the number in the name of its shared library.
project_version() { sed -nE 's/^ +VERSION ([0-9.]+)$/\1/p' "$KEL_ROOT/CMakeLists.txt"; }
project_soversion() { sed -nE 's/^set\(KEL_SOVERSION ([0-9]+)\)$/\1/p' "$KEL_ROOT/CMakeLists.txt"; }

# The newest Python that scripts/test-python has made an environment for, with the package in it.
newest_python() {
    local found
    found=$(find "$KEL_ROOT/build/python" -mindepth 3 -maxdepth 3 -path '*/bin/python' 2>/dev/null | sort | tail -n 1)
    if [[ -z $found ]] || ! "$found" -c 'import kelfunzioni.fleet' 2>/dev/null; then
        die "there is no environment with the package; run scripts/test-python first"
    fi
    echo "$found"
}

# Packages of the sets named, one a line.
packages_of() {
    local wanted
    for wanted in "$@"; do
        awk -v wanted="$wanted" '$1 == wanted { print $2 }' "$KEL_ROOT/scripts/packages.txt"
    done
}

# Packages of the sets named that are not installed.
missing_packages() {
    local package
    while read -r package; do
        [[ $(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null) == installed ]] || echo "$package"
    done < <(packages_of "$@")
}

# Runs apt-get as root: directly, or through sudo.
apt_get() {
    local command=(env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o DPkg::Lock::Timeout=300 "$@")
    if [[ $(id -u) != 0 ]]; then
        command=(sudo "${command[@]}")
    fi
    "${command[@]}" </dev/null >&2
}

# Installs what is missing of the package sets named. Nothing is asked of the network when nothing is missing.
install_packages() {
    local missing manual
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        mapfile -t missing < <(packages_of "$@")
        say "no apt here, so nothing is installed. What is needed, as Debian calls it: ${missing[*]}"
        return
    fi
    mapfile -t missing < <(missing_packages "$@")
    ((${#missing[@]})) || return 0
    manual="missing: ${missing[*]}
As root: apt-get update && apt-get install --no-install-recommends ${missing[*]}"

    if [[ $(id -u) != 0 ]]; then
        command -v sudo >/dev/null || die "not root and no sudo, so nothing can be installed; $manual"
        # Without a terminal there is nobody to type a password.
        sudo -n true 2>/dev/null || { [[ -t 2 ]] && sudo -v; } || die "sudo refused; $manual"
    fi
    say "installing ${missing[*]}"
    apt_get update || say "the package lists could not be refreshed; trying with those that are here"
    apt_get install --no-install-recommends "${missing[@]}" || true
    mapfile -t missing < <(missing_packages "$@")
    ((${#missing[@]} == 0)) || die "apt-get could not install everything (is the network there?); still missing: ${missing[*]}
As root: apt-get update && apt-get install --no-install-recommends ${missing[*]}"
}

# Configures a preset and builds it: all of it, or the targets named.
build_preset() {
    local preset=$1 cache=$KEL_ROOT/build/$1/CMakeCache.txt targets=()
    shift
    # A build folder that was copied with its tree still refers to the folder that it was made in.
    if [[ -f $cache ]] && ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$KEL_ROOT" "$cache"; then
        say "build/$preset was made for another folder; starting afresh"
        rm -rf -- "${KEL_ROOT:?}/build/$preset"
    fi
    (($# == 0)) || targets=(--target "$@")
    (
        cd -- "$KEL_ROOT" && cmake --preset "$preset" && cmake --build --preset "$preset" -j "$KEL_JOBS" "${targets[@]}"
    ) >&2
}

# Prints the path of the static GeographicLib for another architecture, which the tools are linked with. Debian's
# package is downloaded and unpacked below build/: nothing of another architecture is installed, and apt's own lists do
# not change.
foreign_geographiclib() {
    local architecture=$1 version folder work apt
    # shellcheck disable=SC2016  # dpkg-query expands its own words
    version=$(dpkg-query -W -f='${Version}' libgeographiclib-dev) || die "libgeographiclib-dev is not installed"
    folder=$KEL_ROOT/build/foreign/geographiclib-$version-$architecture
    if [[ ! -d $folder ]]; then
        work=$folder.part
        rm -rf -- "$work"
        mkdir -p -- "$work"/{lists,cache,root}
        apt=(apt-get -q -o APT::Architectures::="$(dpkg --print-architecture)" -o APT::Architectures::="$architecture"
            -o APT::Sandbox::User=root -o Dir::State::lists="$work/lists" -o Dir::Cache="$work/cache")
        say "fetching libgeographiclib-dev of $architecture"
        "${apt[@]}" update >&2 || say "not all package lists could be fetched; trying with those that came"
        (cd -- "$work" && "${apt[@]}" download "libgeographiclib-dev:$architecture=$version") >&2 ||
            die "no libgeographiclib-dev $version for $architecture"
        dpkg -x "$work"/*.deb "$work/root"
        mv -- "$work/root" "$folder"
        rm -rf -- "$work"
    fi
    find "$folder" -name libGeographicLib.a | grep . || die "there is no libGeographicLib.a in $folder"
}

# The interpreters from 3.10 on that run, oldest first: of the path, of Debian, of pyenv.
all_pythons() {
    local minor found root=${PYENV_ROOT:-$HOME/.pyenv}
    for ((minor = 10; minor < 30; ++minor)); do
        for found in "$root/versions/3.$minor."*/bin/python3 "$(command -v "python3.$minor" || true)"; do
            if [[ -x $found ]] && "$found" -c "import sys, venv; sys.exit(sys.version_info[:2] != (3, $minor))" 2>/dev/null; then
                echo "$found"
                break
            fi
        done
    done
}

# The sources of GeographicLib in the version whose headers are installed: Debian's source package, unpacked beside the path given,
# which the version is added to. apt's own lists do not change.
geographiclib_sources() {
    local version folder=$1 apt
    # shellcheck disable=SC2016  # dpkg-query expands its own words
    version=$(dpkg-query -W -f='${source:Version}' libgeographiclib-dev) || die "libgeographiclib-dev is not installed"
    if [[ ! -d $folder-$version ]]; then
        rm -rf -- "$folder.part"
        mkdir -p -- "$folder.part"/{lists,cache,source}
        printf 'deb-src [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] %s bookworm main\n' "$(mirror)" \
            >"$folder.part/sources.list"
        apt=(apt-get -q -o APT::Sandbox::User=root -o Dir::Etc::sourcelist="$folder.part/sources.list"
            -o Dir::Etc::sourceparts=/dev/null -o Dir::State::lists="$folder.part/lists" -o Dir::Cache="$folder.part/cache")
        say "fetching the sources of geographiclib $version"
        "${apt[@]}" update >&2
        (cd -- "$folder.part/source" && "${apt[@]}" source --download-only "geographiclib=$version") >&2
        mkdir -- "$folder.part/unpacked"
        tar -xf "$folder.part"/source/*.orig.tar.* -C "$folder.part/unpacked" --strip-components=1
        mv -- "$folder.part/unpacked" "$folder-$version"
        rm -rf -- "$folder.part"
    fi
    echo "$folder-$version"
}

# An environment of a Python with all that a lock file names (of the tests, where none is given), made anew when that has
# changed. With a fourth argument an interpreter that not all of it is made for has what there is; folder/left-out names the
# rest.
python_environment() {
    local python=$1 folder=$2 lock=${3:-$KEL_ROOT/python/requirements-test.txt} partly=${4-}
    if cmp -s "$lock" "$folder/lock" && [[ $("$folder/bin/python" -V) == $("$python" -V) ]]; then
        return
    fi
    rm -rf -- "$folder"
    "$python" -m venv "$folder"
    local pip=("$folder/bin/pip" -q --disable-pip-version-check install --require-hashes --only-binary :all:)
    if [[ -z $partly ]]; then
        "${pip[@]}" -r "$lock"
    elif ! "${pip[@]}" -r "$lock" 2>/dev/null; then
        say "not all packages are made for $("$python" -V 2>&1 | head -n 1): one after the other"
        awk -v folder="$folder" '/^[a-z]/ { file = sprintf("%s/one-%03d.txt", folder, ++number) } file { print > file }' "$lock"
        local one
        : >"$folder/left-out"
        for one in "$folder"/one-*.txt; do
            "${pip[@]}" --no-deps -r "$one" 2>/dev/null || sed -n '1s/[ ;\\].*//p' "$one" >>"$folder/left-out"
        done
        rm -f -- "$folder"/one-*.txt
    fi
    cp -- "$lock" "$folder/lock"
}

# Builds a preset and runs its tests.
check_preset() { build_preset "$1" && test_preset "$1"; }

# Runs the tests of a preset. Further arguments go to ctest.
test_preset() {
    local preset=$1
    shift
    (cd -- "$KEL_ROOT" && ctest --preset "$preset" -j "$KEL_JOBS" "$@")
}

# The address that a fresh root's base system is downloaded from: KEL_MIRROR, or the one that apt of this machine uses.
mirror() {
    # shellcheck disable=SC2016  # apt-get expands its own words
    echo "${KEL_MIRROR:-$(apt-get indextargets --format '$(CODENAME) $(REPO_URI)' | awk '$1 == "bookworm" { print $2; exit }')}"
}

# Replaces the text between the two marks of a name in docs/reliability.md by that of a file.
write_section() {
    local page=$KEL_ROOT/docs/reliability.md new
    new=$(awk -v name="$1" -v table="$2" '
        $0 == "<!-- " name ": end -->" { inside = 0; found = 1 }
        !inside { print }
        $0 == "<!-- " name ": begin -->" { inside = 1; while ((getline line < table) > 0) print line }
        END { exit !found }' "$page") || die "$page has no marks for $1"
    printf '%s\n' "$new" >"$page"
    say "written: docs/reliability.md"
}
