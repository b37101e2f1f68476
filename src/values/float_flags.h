// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#if defined(__x86_64__)
#include <xmmintrin.h>
#else
#include <cfenv>
#endif

namespace comfortics::values {

/// The processor's flags of overflow, division by zero and invalid operation, while it lives: none springs a
/// trap, and afterwards all is as it was for the caller.
class FloatFlags {
public:
#if defined(__x86_64__)
    // Doubles are calculated by the vector unit alone here, whose register is read and written in a few
    // cycles; the calls of the C library look after the older unit, too, in a hundred.
    FloatFlags() noexcept : m_kept(_mm_getcsr())
    {
        clear();
    }
    ~FloatFlags()
    {
        _mm_setcsr(m_kept);
    }
    void clear() noexcept
    {
        _mm_setcsr((m_kept | _MM_MASK_MASK) & ~static_cast<unsigned>(_MM_EXCEPT_MASK));
    }
    static bool failed() noexcept
    {
        return (_mm_getcsr() & (_MM_EXCEPT_OVERFLOW | _MM_EXCEPT_DIV_ZERO | _MM_EXCEPT_INVALID)) != 0;
    }
#else
    FloatFlags() noexcept
    {
        std::feholdexcept(&m_kept);
    }
    ~FloatFlags()
    {
        std::fesetenv(&m_kept);
    }
    void clear() noexcept
    {
        std::feclearexcept(kFailures);
    }
    bool failed() const noexcept
    {
        return std::fetestexcept(kFailures) != 0;
    }
#endif
    FloatFlags(const FloatFlags&) = delete;
    FloatFlags& operator=(const FloatFlags&) = delete;

private:
#if defined(__x86_64__)
    unsigned m_kept;
#else
    static constexpr int kFailures = FE_OVERFLOW | FE_DIVBYZERO | FE_INVALID;
    std::fenv_t m_kept{};
#endif
};

} // namespace comfortics::values
