#!/usr/bin/env bash
# Runs the commands of docs/integration.md in their order, with the folders of packages.cmake and
# check.cmake in place of those of the page:
#
#     page.sh SOURCE WORK PLATFORM COMPILER
set -euo pipefail
source=$1 work=$2 platform=$3 compiler=$4
architecture=$(dpkg-architecture -qDEB_HOST_MULTIARCH)
settings="-DCMAKE_CXX_COMPILER=$compiler -DBUILD_TESTING=OFF -DMCUSERVICE_SIMULATOR=OFF"
image=$work/swapped
export PATH=$work/own/usr/bin:$PATH LD_LIBRARY_PATH=$image/lib/$architecture:$platform/lib

# The packages are there; to build all once more would take minutes.
cmake() {
    case $* in
    *--preset*) command cmake -S "$source" --list-presets | grep -q '"release"' ;;
    *) command cmake "$@" ;;
    esac
}
apt() { ls "${@:2}"; }
mcusim() { command mcusim "$@" || [ "$1" = check-link ]; } # its caller counts the faults

mkdir -p "$work/page/build"
cd "$work/page"
rm -rf records "$image" # of the last run
mkdir records
ln -sfn "$work/packages" build/release
cp "$work/cmake/consumer" app
sed -n '/^```sh$/,/^```$/{//!p}' "$source/docs/integration.md" | sed "
    s|/usr/|$work/own&|
    s|/image/usr|$image|
    s|/head-unit|$platform|g
    s|/opt/mcuprobe|$work/own/usr/lib/$architecture/mcusim|
    s|/data/records|records|g
    s|LD_LIBRARY_PATH=|&$image/lib/$architecture:|
    s|-S \. |-S $source -U MCUSERVICE_P* $settings |" >commands
source ./commands
