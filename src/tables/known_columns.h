// SPDX-License-Identifier: GPL-3.0-or-later
//
// What weather services call the columns of their files, which write no units beside them.
#pragma once

#include "tables/layout.h"
#include "tables/mapping.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace comfortics::tables {

/// A column of a service's file.
struct KnownColumn {
    std::string_view words; ///< all of its name, or its first ones where they tell the measurement
    Role role = Role::Reading;
    Quantity quantity = Quantity::Ta;
    std::string_view unit{};   ///< of a reading
    double height = 0;         ///< of a wind [m]
    double step = 0;           ///< of a dose [s]
    std::string_view unsure{}; ///< a doubt that every file of the service leaves, in a sentence
};

/// The service whose file has columns of these names.
class KnownService {
public:
    /// None where the names are not those of a service that is known.
    static std::optional<KnownService> of(const Layout& layout);

    /// Who calls the columns so, for a sentence.
    std::string_view name() const noexcept;
    /// Null where the service's readings are of no use here, or the column is not one of its own.
    const KnownColumn* column(std::string_view name) const;

private:
    explicit KnownService(std::size_t place) : m_place(place) {}

    std::size_t m_place;
};

} // namespace comfortics::tables
