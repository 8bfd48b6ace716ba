# Shared by all scripts here: makes the repository the working directory, installs what a Debian 12
# machine lacks and builds a preset. Scripts may run side by side, in one checkout too.
cd "$(dirname "$(realpath "${BASH_SOURCE[0]}")")/.."

say() { printf '\n== %s\n' "$*"; }

# install PACKAGE... - only what is missing, so a second call costs nothing.
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

install_build_tools() { install g++ cmake make ninja-build qtbase5-dev pkg-config "$@"; }

# build PRESET [TARGET...] - quiet but for what it compiles; shows everything when it fails. One build
# of a checkout at a time.
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
