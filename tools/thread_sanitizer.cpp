// What the thread sanitizer must not report. FFmpeg's libraries are built without it, so it does
// not see the atomic counts by which threads hand over the last reference of a buffer, nor how a
// decoder's threads agree to end or to begin anew, and takes the freeing that follows for a race.
// Only built with the sanitizer.

// NOLINTNEXTLINE(bugprone-reserved-identifier): the sanitizer's own name
extern "C" __attribute__((visibility("default"))) const char* __tsan_default_suppressions();

extern "C" const char* __tsan_default_suppressions() {
    return "race:av_buffer_unref\n"
           "race:av_frame_unref\n"
           "race:libavcodec.so\n"
           "race:libavutil.so\n";
}
