# Debian packages that the scripts at the root need, and a function that sees to them.

BUILD_PACKAGES="g++ make cmake pkg-config libcli11-dev nlohmann-json3-dev libtinyxml-dev libepoxy-dev libgl-dev
    libavformat-dev libavcodec-dev libavfilter-dev libavutil-dev libswscale-dev frei0r-plugins-dev"
TEST_PACKAGES="libgtest-dev libgmock-dev git ffmpeg melt gstreamer1.0-tools gstreamer1.0-plugins-bad
    glslang-tools libegl1 libopengl0 libgl1-mesa-dri"
LINT_PACKAGES="clang-format clang-tidy clang libclang-rt-14-dev"
PACKING_PACKAGES="dpkg-dev file"

# ensure_packages NAME...: installs what is missing where apt-get may be used, else says what to install.
ensure_packages() {
    if ! command -v dpkg-query >/dev/null; then
        echo "This is not a Debian system; make sure that the equivalents of these are installed: $*" >&2
        return 0
    fi
    local missing=() name
    for name in "$@"; do
        dpkg-query -W -f='${Status}' "$name" 2>/dev/null | grep -q 'ok installed' || missing+=("$name")
    done
    [ ${#missing[@]} -eq 0 ] && return 0

    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if command -v sudo >/dev/null && { sudo -n true 2>/dev/null || [ -t 0 ]; }; then
            as_root=(sudo)
        else
            echo "Missing packages. As root, run:" >&2
            echo "    apt-get install ${missing[*]}" >&2
            return 1
        fi
    fi
    echo "Installing: ${missing[*]}"
    "${as_root[@]}" apt-get update -qq &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}
