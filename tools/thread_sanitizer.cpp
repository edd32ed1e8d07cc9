// What the thread sanitizer must not report. FFmpeg's libraries are built without it, so it does
// not see the atomic counts by which threads hand over the last reference of a buffer, and takes
// the freeing of the buffer for a race with its making. Only built with the sanitizer.

// NOLINTNEXTLINE(bugprone-reserved-identifier): the sanitizer's own name
extern "C" __attribute__((visibility("default"))) const char* __tsan_default_suppressions();

extern "C" const char* __tsan_default_suppressions() {
    return "race:av_buffer_unref\n"
           "race:av_frame_unref\n";
}
