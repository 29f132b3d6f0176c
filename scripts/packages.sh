# The Debian packages that the program needs, by purpose. Sourced by the other scripts.

BUILD_PACKAGES=(
    cmake ninja-build g++ pkg-config ccache
    qt6-base-dev qt6-l10n-tools libsmbclient-dev libdbus-1-dev qtkeychain-qt6-dev libxcb1-dev
)
RUN_PACKAGES=(
    libqt6svg6 qt6-translations-l10n shared-mime-info xdg-utils adwaita-icon-theme fonts-liberation
)
PACKAGE_PACKAGES=( # to make a package and to check it
    librsvg2-bin dpkg-dev lintian
    desktop-file-utils appstream shared-mime-info libxml2-utils man-db mandoc zsh fish
)
TEST_PACKAGES=(
    clang clang-format clang-tidy clang-tools libclang-rt-14-dev
    git libgtest-dev samba smbclient
    iproute2 nftables procps wsdd avahi-daemon
    xvfb openbox xdotool x11-utils imagemagick
    python3 python3-gi at-spi2-core gir1.2-atspi-2.0 dbus
)
BENCH_PACKAGES=(
    libbenchmark-dev findutils rclone
)

# install_packages NAME...: installs the missing ones, with sudo if needed.
install_packages() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' ||
            missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    local sudo=()
    [ "$(id -u)" -eq 0 ] || sudo=(sudo)
    echo "Installing: ${missing[*]}" >&2
    "${sudo[@]}" apt-get update -qq >&2
    "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
}
