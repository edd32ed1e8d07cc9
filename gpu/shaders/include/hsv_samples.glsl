// Hue, saturation and value of whole samples, as the primitives for 16-bit samples have them: hue and
// saturation run to 65535, value is the largest sample as it stands.
vec3 hsvFromSamples(vec3 s) {
    const float kM = 65535.0;
    float mx = max(max(s.x, s.y), s.z);
    float span = mx - min(min(s.x, s.y), s.z);
    if (span == 0.0) return vec3(0.0, 0.0, mx);
    float a = (mx - s.x) / span, b = (mx - s.y) / span, c = (mx - s.z) / span;
    float h = s.x == mx ? c - b : s.y == mx ? 2.0 + a - c : 4.0 + b - a;
    h = h * kM / 6.0;
    if (h < 0.0) h += kM;
    return vec3(floor(h + 0.5), floor(span / mx * kM + 0.5), mx);
}

// Each sample is value less a share of saturation, which is none in two sixths of the wheel, all in
// two others, and rises or falls with the place between them.
vec3 samplesFromHsv(vec3 hsv) {
    const float kM = 65535.0;
    float s = hsv.y / kM;
    float h = hsv.x * 6.0 / kM;
    if (h >= 6.0) h = 0.0;
    vec3 share = vec3(min(h - 1.0, 5.0 - h), max(1.0 - h, h - 3.0), max(3.0 - h, h - 5.0));
    return floor(hsv.z * (1.0 - s * clamp(share, 0.0, 1.0)) + 0.5);
}
