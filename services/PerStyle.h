// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>

namespace brindlemark {

/// How many design styles there are for a listing page; they are numbered from 0.
inline constexpr std::size_t StyleCount = 4;

/// One value for each design style. Whoever adds a style adds a parameter to the constructor; then each table
/// that lacks a value for it doesn't compile.
template <typename T>
class PerStyle
{
public:
    constexpr PerStyle(const T& style0, const T& style1, const T& style2, const T& style3)
        : m_values{style0, style1, style2, style3}
    {
    }

    /// The value of a style; throws std::out_of_range where there is no such style.
    constexpr const T& at(std::size_t style) const { return m_values.at(style); }

    constexpr auto begin() const { return m_values.begin(); }
    constexpr auto end() const { return m_values.end(); }

private:
    std::array<T, StyleCount> m_values;
};

} // namespace brindlemark
