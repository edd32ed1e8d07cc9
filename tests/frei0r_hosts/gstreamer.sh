#!/usr/bin/env bash
# GStreamer finds all twelve, and paints with one as the command line does.
. "$(dirname "$0")/common.sh" "$@"
export GST_REGISTRY=$work/registry.bin

gst-inspect-1.0 2>gstreamer.log | grep -o 'frei0r-filter-brushworks-[a-z-]*' >elements || true
[ "$(wc -l <elements)" -eq 12 ] || fail "not twelve: $(cat elements gstreamer.log)"

# same EFFECT PROPERTY... -- ARGUMENT...: what GStreamer makes of the properties, and the command line of
# its own arguments.
same() {
    local effect=$1 properties=()
    while shift && [ "$1" != -- ]; do properties+=("$1"); done
    shift
    gst-launch-1.0 -q filesrc location=frame.raw ! rawvideoparse format=bgra width=96 height=64 \
        ! "frei0r-filter-brushworks-$effect" "${properties[@]}" ! filesink location=gstreamer.raw \
        >gstreamer.log 2>&1 || fail "$effect: $(cat gstreamer.log)"
    "$painter" paint frame1.png -q -f -e "$effect" "$@" -o painted.png
    pixels -f rawvideo -pix_fmt bgra -s 96x64 -i gstreamer.raw >gstreamer
    pixels -i painted.png >painted
    cmp gstreamer painted || fail "$effect ${properties[*]} is not $*"
}

ffmpeg -nostdin -v error -i frame1.png -f rawvideo -pix_fmt bgra frame.raw
same impressionist brush-size=0.5 random-size=true -- -s "brush size=50" -s "random size=on"
same posterize preset="Swapped Palette" -- -p "Swapped Palette"
