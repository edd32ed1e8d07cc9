// Joins a public primitive to its builds: one table of four entries per name, and a jump.
#pragma once

#include "primitives/dispatch.h"

// clang-format off
// BRUSHWORKS_PRIMITIVE(name, (parameters), (arguments)) stands once for each public name, in the
// family's .cpp, inside namespace brushworks. It defines the table `name_arraddr` in the order mx, m7,
// u8, y8, and the public function, which does nothing but jump. The y8 entry goes on to the widest body
// that the machine runs. Members that share their parameters may give both lists as one macro.
#define BRUSHWORKS_PRIMITIVE(name, ...) BRUSHWORKS_PRIMITIVE_EXPANDED(name, __VA_ARGS__)
#define BRUSHWORKS_PRIMITIVE_EXPANDED(name, parameters, arguments)                          \
    namespace mx { decltype(brushworks::name) name; }                                       \
    namespace m7 { decltype(brushworks::name) name; }                                       \
    namespace u8 { decltype(brushworks::name) name; }                                       \
    namespace y8 { decltype(brushworks::name) name; }                                       \
    namespace avx2 { decltype(brushworks::name) name; }                                     \
    namespace avx512 { decltype(brushworks::name) name; }                                   \
    namespace {                                                                             \
    int name##_widest parameters {                                                          \
        static constexpr decltype(&y8::name) bodies[] = {y8::name, avx2::name, avx512::name}; \
        return bodies[ippWideLevel] arguments;                                              \
    }                                                                                       \
    }                                                                                       \
    extern decltype(&y8::name) const name##_arraddr[4];                                     \
    decltype(&y8::name) const name##_arraddr[4] = {mx::name, m7::name, u8::name, name##_widest}; \
    int name parameters { return name##_arraddr[ippJumpIndexForMergedLibs] arguments; }
// clang-format on
