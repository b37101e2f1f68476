// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/block_kernel.h"
#include "formulas/humid_heat.h"

namespace comfortics::formulas {

template <>
inline constexpr auto quickTwin<&Index_090<double>> = &Index_090<QuickReal>;
template <>
inline constexpr auto quickTwin<&Index_173<double>> = &Index_173<QuickReal>;

template void calculateBlock<&Index_053<double>>(const Block&);
template void calculateBlock<&Index_054<double>>(const Block&);
template void calculateBlock<&Index_055<double>>(const Block&);
template void calculateBlock<&Index_056<double>>(const Block&);
template void calculateBlock<&Index_057<double>>(const Block&);
template void calculateBlock<&Index_058<double>>(const Block&);
template void calculateBlock<&Index_085<double>>(const Block&);
template void calculateBlock<&Index_086<double>>(const Block&);
template void calculateBlock<&Index_087<double>>(const Block&);
template void calculateBlock<&Index_088<double>>(const Block&);
template void calculateBlock<&Index_089<double>>(const Block&);
template void calculateBlock<&Index_090<double>>(const Block&);
template void calculateBlock<&Index_091<double>>(const Block&);
template void calculateBlock<&Index_092<double>>(const Block&);
template void calculateBlock<&Index_093<double>>(const Block&);
template void calculateBlock<&Index_094<double>>(const Block&);
template void calculateBlock<&Index_104<double>>(const Block&);
template void calculateBlock<&Index_115<double>>(const Block&);
template void calculateBlock<&Index_153<double>>(const Block&);
template void calculateBlock<&Index_162<double>>(const Block&);
template void calculateBlock<&Index_163<double>>(const Block&);
template void calculateBlock<&Index_164<double>>(const Block&);
template void calculateBlock<&Index_165<double>>(const Block&);
template void calculateBlock<&Index_167<double>>(const Block&);
template void calculateBlock<&Index_168<double>>(const Block&);
template void calculateBlock<&Index_169<double>>(const Block&);
template void calculateBlock<&Index_170<double>>(const Block&);
template void calculateBlock<&Index_171<double>>(const Block&);
template void calculateBlock<&Index_172<double>>(const Block&);
template void calculateBlock<&Index_173<double>>(const Block&);
template void calculateBlock<&Index_175<double>>(const Block&);
template void calculateBlock<&Index_176<double>>(const Block&);
template void calculateBlock<&Index_194<double>>(const Block&);

} // namespace comfortics::formulas
