# What the tests of the plug-ins in real hosts have in common. Arguments of each: the folder of the
# plug-ins, the command line, a folder to work in, which is emptied.
set -euo pipefail
export FREI0R_PATH=$1
painter=$2
work=$3
unset BRUSHWORKS_LIBRARY
rm -rf "$work"
mkdir -p "$work"
cd "$work"

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

# pixels ARGUMENT...: a hash of the pixels of each frame that FFmpeg makes of its arguments.
pixels() {
    ffmpeg -nostdin -v error "$@" -f framehash -pix_fmt bgra - | sed '/^#/d; s/.* //'
}

ffmpeg -nostdin -v error -f lavfi -i testsrc2=size=96x64:rate=2:duration=1,format=rgba frame%d.png
