# SPDX-License-Identifier: MIT
# The Debian and Ubuntu packages that each purpose needs; sourced by ./run and ./test.

packages_build="build-essential cmake ninja-build qtbase5-dev python3-dev python3-minimal fonts-dejavu-core"
packages_test="$packages_build ccache xvfb xauth python3-pyqt5 libsodium-dev"
packages_qt6="qt6-base-dev libgl-dev libvulkan-dev python3-pyqt6"
packages_bench="universal-ctags libkf5syntaxhighlighting-dev python3-jedi"
packages_fuzz="build-essential cmake ninja-build qtbase5-dev clang-14 libclang-rt-14-dev llvm-14"

# install_packages NAME...: installs what is missing, after saying so. Needs root, or sudo.
install_packages() {
    command -v dpkg-query >/dev/null || return 0 # another system: the build says what it misses
    local missing=() name
    for name in "$@"; do
        dpkg-query -W -f='${Status}' "$name" 2>/dev/null | grep -q 'ok installed' || missing+=("$name")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "Installing: ${missing[*]}"
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || { echo "These packages are missing and neither root nor sudo is at hand." >&2; return 1; }
        as_root=(sudo)
    fi
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}
