// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/block_kernel.h"
#include "formulas/cooling_power.h"

namespace comfortics::formulas {

template void calculateBlock<&Index_026<double>>(const Block&);
template void calculateBlock<&Index_027<double>>(const Block&);
template void calculateBlock<&Index_028<double>>(const Block&);
template void calculateBlock<&Index_029<double>>(const Block&);
template void calculateBlock<&Index_030<double>>(const Block&);
template void calculateBlock<&Index_031<double>>(const Block&);
template void calculateBlock<&Index_032<double>>(const Block&);
template void calculateBlock<&Index_033<double>>(const Block&);
template void calculateBlock<&Index_034<double>>(const Block&);
template void calculateBlock<&Index_035<double>>(const Block&);
template void calculateBlock<&Index_036<double>>(const Block&);
template void calculateBlock<&Index_037<double>>(const Block&);
template void calculateBlock<&Index_038<double>>(const Block&);
template void calculateBlock<&Index_039<double>>(const Block&);
template void calculateBlock<&Index_040<double>>(const Block&);
template void calculateBlock<&Index_041<double>>(const Block&);
template void calculateBlock<&Index_042<double>>(const Block&);
template void calculateBlock<&Index_043<double>>(const Block&);
template void calculateBlock<&Index_044<double>>(const Block&);
template void calculateBlock<&Index_045<double>>(const Block&);
template void calculateBlock<&Index_046<double>>(const Block&);
template void calculateBlock<&Index_047<double>>(const Block&);
template void calculateBlock<&Index_048<double>>(const Block&);
template void calculateBlock<&Index_049<double>>(const Block&);
template void calculateBlock<&Index_062<double>>(const Block&);
template void calculateBlock<&Index_099<double>>(const Block&);
template void calculateBlock<&Index_204<double>>(const Block&);
template void calculateBlock<&Index_206<double>>(const Block&);
template void calculateBlock<&Index_207<double>>(const Block&);
template void calculateBlock<&Index_208<double>>(const Block&);
template void calculateBlock<&Index_209<double>>(const Block&);

} // namespace comfortics::formulas
