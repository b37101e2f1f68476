// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace comfortics::ui {

/// Texts of forms are UTF-8.
inline QString toQt(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string fromQt(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

/// A note for a tooltip: a long one wraps, as a small or scaled screen would cut it.
QString tip(const QString& note);

/// A number beside an axis, with the sign of minus.
QString axisNumber(double value);

/// For widgets that take '&' as the mark of a mnemonic: the caption letter for letter, with the
/// first `mnemonic` in it, if any, as the mnemonic.
QString withMnemonic(std::string_view caption, char mnemonic = 0);

} // namespace comfortics::ui
