// The effect Mosaic.
