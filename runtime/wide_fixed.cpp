#include "runtime/wide_fixed.h"

#include <bit>
#include <limits>

#include "runtime/double_double.h"

namespace runtime {

namespace {

__extension__ using Wide = unsigned __int128;

constexpr int kLimbBits = 64;

/// Returns the number of bits up to the highest that is set, 0 for zero.
int BitLength(const WideFixed& value) {
    for (std::size_t i = kWideLimbs; i-- > 0;) {
        if (value.Limbs[i] != 0) {
            return static_cast<int>(i) * kLimbBits +
                   static_cast<int>(std::bit_width(value.Limbs[i]));
        }
    }
    return 0;
}

/// Returns the limb whose lowest bit is bit `position`; bits outside are zero.
std::uint64_t LimbAt(const WideFixed& value, int position) {
    const auto limb = [&value](int index) {
        return index < 0 || index >= static_cast<int>(kWideLimbs)
                   ? std::uint64_t{0}
                   : value.Limbs[static_cast<std::size_t>(index)];
    };
    const int shift = ((position % kLimbBits) + kLimbBits) % kLimbBits;
    const int index = (position - shift) / kLimbBits;
    if (shift == 0) return limb(index);
    return limb(index) >> shift | limb(index + 1) << (kLimbBits - shift);
}

/// Returns the bits of `value` below bit `count`.
WideFixed LowBits(WideFixed value, int count) {
    for (std::size_t i = 0; i < kWideLimbs; i++) {
        const int kept = count - static_cast<int>(i) * kLimbBits;
        if (kept <= 0) {
            value.Limbs[i] = 0;
        } else if (kept < kLimbBits) {
            value.Limbs[i] &= (std::uint64_t{1} << kept) - 1;
        }
    }
    return value;
}

}  // namespace

WideFixed WideInteger(std::uint64_t value) {
    WideFixed result;
    result.Limbs[kWideLimbs - 1] = value;
    return result;
}

WideFixed WideFromDouble(double value) {
    const BinaryParts parts = PartsOf(value);
    return Scaled(WideInteger(parts.Mantissa), parts.Exponent);
}

double Approximately(const WideFixed& value) {
    const int length = BitLength(value);
    if (length == 0) return 0;
    const std::uint64_t top = LimbAt(value, length - kLimbBits);
    return static_cast<double>(top) * PowerOfTwo(length - kLimbBits - kWideFractionBits);
}

WideFixed Sum(const WideFixed& a, const WideFixed& b) {
    WideFixed result;
    Wide carry = 0;
    for (std::size_t i = 0; i < kWideLimbs; i++) {
        carry += Wide{a.Limbs[i]} + b.Limbs[i];
        result.Limbs[i] = static_cast<std::uint64_t>(carry);
        carry >>= kLimbBits;
    }
    return result;
}

WideFixed Difference(const WideFixed& a, const WideFixed& b) {
    WideFixed result;
    std::uint64_t borrow = 0;
    for (std::size_t i = 0; i < kWideLimbs; i++) {
        const Wide difference = Wide{a.Limbs[i]} - b.Limbs[i] - borrow;
        result.Limbs[i] = static_cast<std::uint64_t>(difference);
        borrow = static_cast<std::uint64_t>(difference >> kLimbBits) & 1;
    }
    return result;
}

bool IsLess(const WideFixed& a, const WideFixed& b) {
    for (std::size_t i = kWideLimbs; i-- > 0;) {
        if (a.Limbs[i] != b.Limbs[i]) return a.Limbs[i] < b.Limbs[i];
    }
    return false;
}

WideFixed Product(const WideFixed& a, const WideFixed& b) {
    std::array<std::uint64_t, 2 * kWideLimbs> product{};
    for (std::size_t i = 0; i < kWideLimbs; i++) {
        std::uint64_t carry = 0;
        for (std::size_t j = 0; j < kWideLimbs; j++) {
            const Wide sum = Wide{a.Limbs[i]} * b.Limbs[j] + product[i + j] + carry;
            product[i + j] = static_cast<std::uint64_t>(sum);
            carry = static_cast<std::uint64_t>(sum >> kLimbBits);
        }
        product[i + kWideLimbs] = carry;
    }
    WideFixed result;
    for (std::size_t i = 0; i < kWideLimbs; i++)
        result.Limbs[i] = product[i + kWideLimbs - 1];
    return result;
}

WideFixed Product(const WideFixed& a, std::uint64_t factor) {
    WideFixed result;
    std::uint64_t carry = 0;
    for (std::size_t i = 0; i < kWideLimbs; i++) {
        const Wide sum = Wide{a.Limbs[i]} * factor + carry;
        result.Limbs[i] = static_cast<std::uint64_t>(sum);
        carry = static_cast<std::uint64_t>(sum >> kLimbBits);
    }
    return result;
}

WideFixed Quotient(const WideFixed& a, std::uint64_t divisor) {
    WideFixed result;
    Wide remainder = 0;
    for (std::size_t i = kWideLimbs; i-- > 0;) {
        remainder = remainder << kLimbBits | a.Limbs[i];
        result.Limbs[i] = static_cast<std::uint64_t>(remainder / divisor);
        remainder %= divisor;
    }
    return result;
}

WideFixed Quotient(const WideFixed& a, const WideFixed& divisor) {
    WideFixed remainder = a;
    WideFixed result;
    for (int bit = kWideFractionBits - 1; bit >= 0; bit--) {
        remainder = Sum(remainder, remainder);
        if (IsLess(remainder, divisor)) continue;
        remainder = Difference(remainder, divisor);
        result.Limbs[static_cast<std::size_t>(bit / kLimbBits)] |= std::uint64_t{1}
                                                                   << (bit % kLimbBits);
    }
    return result;
}

WideFixed Scaled(const WideFixed& a, int exponent) {
    WideFixed result;
    for (std::size_t i = 0; i < kWideLimbs; i++) {
        result.Limbs[i] = LimbAt(a, static_cast<int>(i) * kLimbBits - exponent);
    }
    return result;
}

double RoundToDouble(bool negative, const WideFixed& value, int exponent) {
    // With this added, a value just short of a tie or of a double shows the bits
    // of the tie or double itself.
    constexpr int kToleranceBit = kWideFractionBits - 348;
    const WideFixed raised = Sum(value, Scaled(WideInteger(1), kToleranceBit - kWideFractionBits));
    const int length = BitLength(raised);
    // The result is a multiple of 2^unit, whose bit in `raised` is `position`.
    const int leading = length - 1 - kWideFractionBits + exponent;
    const int unit = leading - kMantissaBits < -1074 ? -1074 : leading - kMantissaBits;
    const int position = unit - exponent + kWideFractionBits;

    const double sign = negative ? -1.0 : 1.0;
    if (position > length) return sign * 0.0;
    std::uint64_t mantissa = LimbAt(raised, position);
    if ((LimbAt(raised, position - 1) & 1) != 0) {
        const bool tie = BitLength(LowBits(raised, position - 1)) <= kToleranceBit + 1;
        mantissa += tie ? mantissa & 1 : 1;
    }
    const std::uint64_t bits =
        (static_cast<std::uint64_t>(unit + 1074) << kMantissaBits) + mantissa;
    if (bits >= std::uint64_t{0x7FF} << kMantissaBits) {
        return sign * std::numeric_limits<double>::infinity();
    }
    return sign * std::bit_cast<double>(bits);
}

}  // namespace runtime
