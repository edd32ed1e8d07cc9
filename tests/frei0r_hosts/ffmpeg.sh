#!/usr/bin/env bash
# FFmpeg paints as the command line does, frame by frame, byte for byte.
. "$(dirname "$0")/common.sh" "$@"

# same EFFECT PARAMETERS ARGUMENT...: what FFmpeg makes of the parameters of the plug-in, and the command
# line of its own arguments.
same() {
    local effect=$1 parameters=$2 frame
    shift 2
    for frame in 1 2; do
        "$painter" paint frame$frame.png -q -f -e "$effect" "$@" -o painted$frame.png
    done
    pixels -i frame%d.png -vf "frei0r=brushworks_${effect//-/_}:$parameters" >ffmpeg 2>"$effect.log"
    pixels -i painted%d.png >painted
    [ "$(wc -l <ffmpeg)" -eq 2 ] && cmp ffmpeg painted || fail "$effect $parameters is not $*"
}

same cartoon ""
same mosaic "0.25|0.75|y" -s size=25 -s shape=75 -s borders=on
same paper-collage "0.5|0.5|0.5|0x102030|red" -s foreground="#102030" -s background="#ff0000"
same posterize "0.5|0.5|0.5|4|option b" \
    -s "color shift=0" -s color=0 -s brightness=0 -s levels=4 -s "dither=Option B"
same posterize "0|0|0|||offset printing" -p "Offset Printing"
[ ! -s posterize.log ] || fail "words about nothing: $(cat posterize.log)"

# A wrong name changes nothing and is told once, however many frames there are.
same posterize "0.5|0.5|0.5|many|Option B|Offset" \
    -s "color shift=0" -s color=0 -s brightness=0 -s "dither=Option B"
[ "$(wc -l <posterize.log)" -eq 2 ] || fail "not one line for each wrong name: $(cat posterize.log)"
grep -q 'did you mean "Offset Printing"' posterize.log || fail "no help: $(cat posterize.log)"

# Without the library the plug-in says what is missing, and the host ends by itself.
status=0
BRUSHWORKS_LIBRARY=/nowhere.so pixels -i frame1.png -vf frei0r=brushworks_oil 2>missing.log || status=$?
[ "$status" -eq 1 ] && grep -q /nowhere.so missing.log || fail "status $status: $(cat missing.log)"
