// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/block_kernel.h"
#include "formulas/primitives.h"
#include "formulas/radiant.h"

namespace comfortics::formulas {

template void calculateBlock<&Read_Out<double>>(const Block&);

template void calculateBlock<&Index_059<double>>(const Block&);
template void calculateBlock<&Index_060<double>>(const Block&);
template void calculateBlock<&Index_061<double>>(const Block&);
template void calculateBlock<&Index_063<double>>(const Block&);
template void calculateBlock<&Index_064<double>>(const Block&);
template void calculateBlock<&Index_067<double>>(const Block&);
template void calculateBlock<&Index_068<double>>(const Block&);
template void calculateBlock<&Index_078<double>>(const Block&);
template void calculateBlock<&Index_079<double>>(const Block&);
template void calculateBlock<&Index_105<double>>(const Block&);
template void calculateBlock<&Index_107<double>>(const Block&);
template void calculateBlock<&Index_110<double>>(const Block&);
template void calculateBlock<&Index_111<double>>(const Block&);
template void calculateBlock<&Index_112<double>>(const Block&);
template void calculateBlock<&Index_113<double>>(const Block&);
template void calculateBlock<&Index_114<double>>(const Block&);
template void calculateBlock<&Index_151<double>>(const Block&);
template void calculateBlock<&Index_154<double>>(const Block&);
template void calculateBlock<&Index_155<double>>(const Block&);
template void calculateBlock<&Index_156<double>>(const Block&);
template void calculateBlock<&Index_160<double>>(const Block&);
template void calculateBlock<&Index_166<double>>(const Block&);
template void calculateBlock<&Index_196<double>>(const Block&);
template void calculateBlock<&Index_197<double>>(const Block&);
template void calculateBlock<&Index_198<double>>(const Block&);
template void calculateBlock<&Index_205<double>>(const Block&);

} // namespace comfortics::formulas
