#!/usr/bin/env bash
# MLT describes a plug-in, and paints with it as the command line does.
. "$(dirname "$0")/common.sh" "$@"

melt -query filter=frei0r.brushworks_oil >oil.yml 2>/dev/null
for line in "title: Brushworks Oil" "title: Brush Size" "default: 0.21" "title: Preset"; do
    grep -q "$line" oil.yml || fail "no '$line' in $(cat oil.yml)"
done

printf '%s\n' description=small width=96 height=64 display_aspect_num=3 display_aspect_den=2 \
    sample_aspect_num=1 sample_aspect_den=1 frame_rate_num=25 frame_rate_den=1 progressive=1 \
    colorspace=709 >profile

# Two threads, each with an instance of its own, share the frames between them.
melt -silent avformat:frame1.png out=3 -profile ./profile \
    -filter frei0r.brushworks_paper_collage Shadow="#ff8000" "Shadow Amount=1" \
    -filter frei0r.brushworks_mural Preset=Poster 0=0.9 \
    -consumer avformat:melt.nut vcodec=rawvideo pix_fmt=bgra mlt_image_format=rgba real_time=-2 an=1 \
    >melt.log 2>&1 || fail "melt: $(cat melt.log)"
"$painter" paint frame1.png -q -e paper-collage -s shadow="#ff8000" -s "shadow#2=100" -o collage.png
"$painter" paint collage.png -q -e mural -p Poster -o mural.png
pixels -i melt.nut >melt
[ "$(wc -l <melt)" -eq 4 ] && [ "$(sort -u melt)" = "$(pixels -i mural.png)" ] || fail "melt.nut is not mural.png"
