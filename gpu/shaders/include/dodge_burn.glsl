// The two blends that divide, on single samples.

// The base over the inverse of the layer: brighter, and 1 under a layer of 1.
float dodge(float base, float layer) {
    const float kNoRoom = 1e-6;
    float room = 1.0 - layer;
    return abs(room) < kNoRoom ? 1.0 : min(base / room, 1.0);
}

// The same on inverted samples: darker, and 0 under a layer of 0.
float burn(float base, float layer) {
    return 1.0 - dodge(1.0 - base, 1.0 - layer);
}
