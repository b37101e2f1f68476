// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <concepts>
#include <cstddef>
#include <ranges>

namespace comfortics {

/// What holds doubles side by side, and does so longer than the expression that names it.
template <typename Range>
concept DoublesSideBySide = std::ranges::contiguous_range<Range> && std::ranges::borrowed_range<Range> &&
    (std::same_as<std::ranges::range_value_t<Range>, double>);

/// One input of many points: an array with any stride, or one value for all points.
///
/// A Column owns no memory: the array must outlive the call that reads it. NaN is a missing value.
class Column {
public:
    /// An input that is not given.
    constexpr Column() noexcept = default;

    /// The same value at all points.
    constexpr Column(double value) noexcept : m_value(value), m_given(true) {} // NOLINT: implicit
    /// The same of a whole number: 0 alone could also be a null pointer.
    template <std::integral Integer>
    constexpr Column(Integer value) noexcept : Column(static_cast<double>(value)) // NOLINT: implicit
    {
    }

    /// The value of point i is at `data[i * stride]`: stride 1 for values side by side, 0 for one value for
    /// all points; negative strides are fine. Null gives what Column() gives.
    constexpr Column(const double* data, std::ptrdiff_t stride = 1) noexcept // NOLINT: implicit
        : m_data(data), m_stride(stride), m_given(data != nullptr)
    {
    }

    /// Values side by side, at least as many as there are points, of a vector, an array or a span that
    /// outlives the call.
    template <DoublesSideBySide Range>
    constexpr Column(Range&& values) noexcept // NOLINT: implicit
        : m_data(std::ranges::data(values)), m_stride(1), m_given(true)
    {
    }

    /// Whether there are values.
    constexpr bool given() const noexcept { return m_given; }
    /// Whether all points have the same value.
    constexpr bool isScalar() const noexcept { return m_data == nullptr || m_stride == 0; }
    /// The value of a point; only of a column that is given.
    constexpr double operator[](std::size_t point) const noexcept
    {
        return m_data == nullptr ? m_value : m_data[static_cast<std::ptrdiff_t>(point) * m_stride];
    }
    /// Null for a value that was given as such.
    constexpr const double* data() const noexcept { return m_data; }
    /// From one point to the next, in elements.
    constexpr std::ptrdiff_t stride() const noexcept { return m_stride; }

private:
    const double* m_data = nullptr;
    std::ptrdiff_t m_stride = 0;
    double m_value = 0;
    bool m_given = false;
};

} // namespace comfortics
