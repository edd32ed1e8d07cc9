// Histograms of the windows around the pixels of one diagonal, x + y = nDiagonal.
//
// Row y of a target holds the histogram of pixel (nDiagonal - y, y): column b counts, channel by
// channel, the window's samples that are b of 255. A pixel's left neighbour stands in the same row
// of the diagonal before, so that a histogram follows from that one. Needs texture_info.glsl before
// it, and Texture0, the picture.
uniform int nDiagonal;
uniform vec2 vRadius;  // of the window, in texels, without the middle

// Column and row of the target's pixel: a bucket, and the picture's row.
vec2 targetIndex(vec2 rt) {
    return floor(rt * vRTSize);
}

// Which channels of a texel fall into the bucket. The picture repeats its edge.
vec4 isInBucket(sampler2D picture, TextureInfo info, vec2 index, float bucket) {
    vec4 samples = floor(texture2D(picture, texelAt(info, index)) * 255.0 + 0.5);
    return vec4(equal(samples, vec4(bucket)));
}

// How many texels of a window's column fall into the bucket; `index` is the column's middle.
vec4 countColumn(sampler2D picture, TextureInfo info, vec2 index, float bucket) {
    vec4 count = vec4(0.0);
    for (float y = -vRadius.y; y <= vRadius.y; y += 1.0)
        count += isInBucket(picture, info, index + vec2(0.0, y), bucket);
    return count;
}
