// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/block_kernel.h"
#include "formulas/cold.h"
#include "formulas/wind_chill_equivalent.h"

namespace comfortics::formulas {

template void calculateBlock<&Index_021<double>>(const Block&);
template void calculateBlock<&Index_024<double>>(const Block&);
template void calculateBlock<&Index_074<double>>(const Block&);
template void calculateBlock<&Index_075<double>>(const Block&);
template void calculateBlock<&Index_076<double>>(const Block&);
template void calculateBlock<&Index_077<double>>(const Block&);
template void calculateBlock<&Index_095<double>>(const Block&);
template void calculateBlock<&Index_108<double>>(const Block&);
template void calculateBlock<&Index_138<double>>(const Block&);
template void calculateBlock<&Index_142<double>>(const Block&);
template void calculateBlock<&Index_143<double>>(const Block&);
template void calculateBlock<&Index_144<double>>(const Block&);
template void calculateBlock<&Index_145<double>>(const Block&);
template void calculateBlock<&Index_146<double>>(const Block&);
template void calculateBlock<&Index_147<double>>(const Block&);
template void calculateBlock<&Index_148<double>>(const Block&);
template void calculateBlock<&Index_149<double>>(const Block&);
template void calculateBlock<&Index_150<double>>(const Block&);
template void calculateBlock<&Index_174<double>>(const Block&);
template void calculateBlock<&Index_179<double>>(const Block&);
template void calculateBlock<&Index_180<double>>(const Block&);
template void calculateBlock<&Index_181<double>>(const Block&);
template void calculateBlock<&Index_182<double>>(const Block&);
template void calculateBlock<&Index_211<double>>(const Block&);
template void calculateBlock<&Index_212<double>>(const Block&);
template void calculateBlock<&Index_213<double>>(const Block&);
template void calculateBlock<&Index_214<double>>(const Block&);
template void calculateBlock<&Index_216<double>>(const Block&);
template void calculateBlock<&Index_217<double>>(const Block&);
template void calculateBlock<&Index_218<double>>(const Block&);
template void calculateBlock<&Index_219<double>>(const Block&);
template void calculateBlock<&Index_220<double>>(const Block&);
template void calculateBlock<&Index_221<double>>(const Block&);
template void calculateBlock<&Index_222<double>>(const Block&);

template void calculateBlock<&Index_215<double>>(const Block&);

} // namespace comfortics::formulas
