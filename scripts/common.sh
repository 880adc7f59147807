# SPDX-License-Identifier: GPL-3.0-or-later
# Shared by scripts/run and scripts/test: install what is missing, configure and build.
# Sourced, not run. Everything comes from Debian's packages; nothing is installed by hand.

ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
BUILD="$ROOT/build"

# The packages the build needs, checked one by one so a machine that has them all asks
# nothing of apt.
BUILD_PACKAGES=(g++ make cmake qt6-base-dev qt6-svg-dev libbenchmark-dev)
# The validators of the desktop entry, the AppStream metainfo and the Debian package, run by
# the tests.
TEST_PACKAGES=(desktop-file-utils appstream lintian)
# A virtual display with a window manager, for a run or screenshots without a display.
XVFB_PACKAGES=(xvfb xauth x11-utils imagemagick twm)
# What makes the example show's models (Python) and sounds (speech and effects).
EXAMPLE_PACKAGES=(python3 espeak-ng sox)

install_missing() {
    local missing=()
    for pkg in "$@"; do
        dpkg-query -W -f='${Status}' "$pkg" 2>/dev/null | grep -q "install ok installed" ||
            missing+=("$pkg")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "Installing: ${missing[*]}"
    local sudo=()
    [ "$(id -u)" -eq 0 ] || sudo=(sudo)
    "${sudo[@]}" apt-get update -qq
    DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y -qq \
        "${missing[@]}" >/dev/null
}

configure_and_build() {
    # Configuring again is cheap and heals a build folder whose first configure failed.
    cmake -S "$ROOT" -B "$BUILD" -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
    cmake --build "$BUILD" -j "$(nproc)" "$@"
}
