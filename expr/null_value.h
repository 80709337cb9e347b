#pragma once

#include <cstdint>
#include <cstring>
#include <limits>

// The three special numbers of the expression language. NULL is a NaN with
// every bit set and is only ever recognised by its 64 bits: a floating-point
// comparison cannot tell it from another NaN.

namespace quva {

constexpr std::uint64_t nullBits = 0xFFFFFFFFFFFFFFFFull;
constexpr std::uint64_t nanBits = 0xFFF8000000000000ull;
constexpr std::uint64_t infinityBits = 0x7FF0000000000000ull;

inline double fromBits(std::uint64_t bits)
{
    double d;
    std::memcpy(&d, &bits, sizeof d);
    return d;
}

inline std::uint64_t toBits(double d)
{
    std::uint64_t bits;
    std::memcpy(&bits, &d, sizeof bits);
    return bits;
}

inline double nullValue() { return fromBits(nullBits); }
inline double nanValue() { return fromBits(nanBits); }
inline double infinityValue() { return std::numeric_limits<double>::infinity(); }

inline bool isNull(double d) { return toBits(d) == nullBits; }
// True for the bits of _nan only; NULL and other NaNs are not it.
inline bool isNanBits(double d) { return toBits(d) == nanBits; }
// The floating-point definition: true for NULL and every other NaN.
inline bool isNaN(double d) { return d != d; }

} // namespace quva
