// The table of sums of CSegmentTree: how its numbers are added, and the mean of a rectangle from it.
//
// A texel holds, channel by channel, the sum of all samples (0 to 255) from the region's first texel
// to itself. A large picture's sums leave no room for their last bits in a float, so what stands
// here is their residue modulo 2^25, as a whole number from -2^24 to 2^24, which a float holds
// exactly. Sums of at most 2^25 - 1, those of some 131,000 texels, follow from it without loss;
// larger rectangles are put together from pieces. Needs texture_info.glsl before it.

// The sum of two residues. Where the signs agree 2^24 is taken off before the other is added and put
// right afterwards, so that no step leaves the range in which floats are exact.
vec4 addResidues(vec4 a, vec4 b) {
    vec4 signs = 2.0 * step(0.0, a) - 1.0;
    vec4 turn = 8388608.0 * (signs + 2.0 * step(0.0, b) - 1.0);
    vec4 rest = (a - turn) + b;
    return rest + turn * (2.0 * step(rest * signs, vec4(0.0)) - 1.0);
}

// The sum from the first texel to that of an index; an index before the first has none.
vec4 sumUpTo(sampler2D table, TextureInfo info, vec2 index) {
    vec4 sum = texture2D(table, texelAt(info, index));
    return min(index.x, index.y) < 0.0 ? vec4(0.0) : sum;
}

// The sum over a rectangle of at most 131,586 texels.
vec4 sumOfPiece(sampler2D table, TextureInfo info, vec2 first, vec2 last) {
    vec2 before = first - 1.0;
    vec4 lower = addResidues(sumUpTo(table, info, last),
                             -sumUpTo(table, info, vec2(before.x, last.y)));
    vec4 upper = addResidues(sumUpTo(table, info, vec2(last.x, before.y)),
                             -sumUpTo(table, info, before));
    vec4 residue = addResidues(lower, -upper);
    return residue + 33554432.0 * (1.0 - step(0.0, residue));
}

// The mean colour, 0 to 1, of the texels from one index to another, both inside the region and whole
// numbers. Reads four texels for each piece: one piece up to 131,000 texels, some seventy for a
// whole picture of 3840 by 2160.
vec4 meanOf(sampler2D table, TextureInfo info, vec2 first, vec2 last) {
    const vec2 piece = vec2(362.0, 363.0);
    vec4 sum = vec4(0.0);
    for (float y = first.y; y <= last.y; y += piece.y)
        for (float x = first.x; x <= last.x; x += piece.x)
            sum += sumOfPiece(table, info, vec2(x, y), min(vec2(x, y) + piece - 1.0, last));
    vec2 size = last - first + 1.0;
    return sum / (255.0 * size.x * size.y);
}
