# Included by all scripts of the repository. Changes to the root of the repository, and has functions
# that install missing Debian packages and build a preset. Several scripts may run at the same time,
# also in one checkout.
cd "$(dirname "$(realpath "${BASH_SOURCE[0]}")")/.."

say() { printf '\n== %s\n' "$*"; }

# install PACKAGE... - installs the packages that are missing.
install() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q '^install ok installed$' ||
            missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    say "Installing ${missing[*]}"
    flock /var/lib/apt apt-get update -q
    DEBIAN_FRONTEND=noninteractive flock /var/lib/apt \
        apt-get install -q -y --no-install-recommends "${missing[@]}"
}

install_build_tools() { install g++ cmake make ninja-build qtbase5-dev pkg-config libedit-dev "$@"; }

# build PRESET [TARGET...] - builds the preset, or these targets of it. Shows the output of the
# configuration only if that fails. Waits for other builds of the same checkout.
build() (
    preset=$1 log=build/$1.log targets=()
    shift
    for target in "$@"; do targets+=(--target "$target"); done
    mkdir -p build
    say "Building ($preset)"
    exec 9<build
    flock 9
    if ! cmake --preset "$preset" >"$log" 2>&1; then
        cat "$log" >&2
        return 1
    fi
    cmake --build --preset "$preset" "${targets[@]}"
)
