// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/apparent_temperature.h"
#include "formulas/block_kernel.h"
#include "formulas/psychrometry.h"

namespace comfortics::formulas {

template void calculateBlock<&Index_007<double>>(const Block&);
template void calculateBlock<&Index_008<double>>(const Block&);
template void calculateBlock<&Index_009<double>>(const Block&);
template void calculateBlock<&Index_010<double>>(const Block&);
template void calculateBlock<&Index_011<double>>(const Block&);
template void calculateBlock<&Index_012<double>>(const Block&);
template void calculateBlock<&Index_013<double>>(const Block&);
template void calculateBlock<&Index_014<double>>(const Block&);
template void calculateBlock<&Index_015<double>>(const Block&);
template void calculateBlock<&Index_016<double>>(const Block&);
template void calculateBlock<&Index_017<double>>(const Block&);
template void calculateBlock<&Index_018<double>>(const Block&);
template void calculateBlock<&Index_020<double>>(const Block&);
template void calculateBlock<&Index_022<double>>(const Block&);
template void calculateBlock<&Index_023<double>>(const Block&);
template void calculateBlock<&Index_050<double>>(const Block&);
template void calculateBlock<&Index_051<double>>(const Block&);
template void calculateBlock<&Index_065<double>>(const Block&);
template void calculateBlock<&Index_066<double>>(const Block&);
template void calculateBlock<&Index_069<double>>(const Block&);
template void calculateBlock<&Index_070<double>>(const Block&);
template void calculateBlock<&Index_071<double>>(const Block&);
template void calculateBlock<&Index_072<double>>(const Block&);
template void calculateBlock<&Index_073<double>>(const Block&);
template void calculateBlock<&Index_103<double>>(const Block&);
template void calculateBlock<&Index_109<double>>(const Block&);
template void calculateBlock<&Index_116<double>>(const Block&);
template void calculateBlock<&Index_117<double>>(const Block&);
template void calculateBlock<&Index_132<double>>(const Block&);
template void calculateBlock<&Index_133<double>>(const Block&);
template void calculateBlock<&Index_152<double>>(const Block&);
template void calculateBlock<&Index_161<double>>(const Block&);

template void calculateBlock<&Index_006<double>>(const Block&);
template void calculateBlock<&Index_106<double>>(const Block&);
template void calculateBlock<&Index_130<double>>(const Block&);
template void calculateBlock<&Index_135<double>>(const Block&);
template void calculateBlock<&Index_141<double>>(const Block&);
template void calculateBlock<&Index_202<double>>(const Block&);
template void calculateBlock<&Index_203<double>>(const Block&);
template void calculateBlock<&Index_210<double>>(const Block&);

} // namespace comfortics::formulas
