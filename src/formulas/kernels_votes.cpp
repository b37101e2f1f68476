// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/block_kernel.h"
#include "formulas/comfort_votes.h"
#include "formulas/mean_vote.h"
#include "formulas/physiology.h"

namespace comfortics::formulas {

template void calculateBlock<&Index_001<double>>(const Block&);
template void calculateBlock<&Index_002<double>>(const Block&);
template void calculateBlock<&Index_003<double>>(const Block&);
template void calculateBlock<&Index_004<double>>(const Block&);
template void calculateBlock<&Index_025<double>>(const Block&);
template void calculateBlock<&Index_096<double>>(const Block&);
template void calculateBlock<&Index_097<double>>(const Block&);
template void calculateBlock<&Index_098<double>>(const Block&);
template void calculateBlock<&Index_102<double>>(const Block&);
template void calculateBlock<&Index_129<double>>(const Block&);
template void calculateBlock<&Index_139<double>>(const Block&);
template void calculateBlock<&Index_177<double>>(const Block&);
template void calculateBlock<&Index_178<double>>(const Block&);
template void calculateBlock<&Index_183<double>>(const Block&);
template void calculateBlock<&Index_184<double>>(const Block&);
template void calculateBlock<&Index_185<double>>(const Block&);
template void calculateBlock<&Index_186<double>>(const Block&);
template void calculateBlock<&Index_187<double>>(const Block&);
template void calculateBlock<&Index_188<double>>(const Block&);
template void calculateBlock<&Index_189<double>>(const Block&);
template void calculateBlock<&Index_190<double>>(const Block&);
template void calculateBlock<&Index_191<double>>(const Block&);
template void calculateBlock<&Index_192<double>>(const Block&);
template void calculateBlock<&Index_193<double>>(const Block&);

template void calculateBlock<&Index_118<double>>(const Block&);
template void calculateBlock<&Index_119<double>>(const Block&);
template void calculateBlock<&Index_120<double>>(const Block&);
template void calculateBlock<&Index_121<double>>(const Block&);
template void calculateBlock<&Index_122<double>>(const Block&);
template void calculateBlock<&Index_123<double>>(const Block&);
template void calculateBlock<&Index_124<double>>(const Block&);
template void calculateBlock<&Index_125<double>>(const Block&);
template void calculateBlock<&Index_126<double>>(const Block&);
template void calculateBlock<&Index_127<double>>(const Block&);

template void calculateBlock<&Index_019<double>>(const Block&);
template void calculateBlock<&Index_081<double>>(const Block&);
template void calculateBlock<&Index_082<double>>(const Block&);
template void calculateBlock<&Index_083<double>>(const Block&);
template void calculateBlock<&Index_084<double>>(const Block&);
template void calculateBlock<&Index_101<double>>(const Block&);
template void calculateBlock<&Index_128<double>>(const Block&);
template void calculateBlock<&Index_136<double>>(const Block&);
template void calculateBlock<&Index_137<double>>(const Block&);
template void calculateBlock<&Index_157<double>>(const Block&);
template void calculateBlock<&Index_158<double>>(const Block&);

} // namespace comfortics::formulas
