#pragma once
// Four floats that the processor works on at once, lane by lane and with the same rounding as
// floats by themselves.

#include <bit>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

using Float4 = float __attribute__((vector_size(16)));
/// What comparing two of them gives: -1 in the lanes that hold, 0 in the others.
using Int4 = int __attribute__((vector_size(16)));

/// One bit for each lane that holds, the first lane's lowest.
inline unsigned LanesOf(Int4 holds) {
#ifdef __SSE2__
    return static_cast<unsigned>(_mm_movemask_ps(_mm_castsi128_ps(std::bit_cast<__m128i>(holds))));
#else
    const Int4 bits = holds & Int4{1, 2, 4, 8};
    return static_cast<unsigned>(bits[0] | bits[1] | bits[2] | bits[3]);
#endif
}
