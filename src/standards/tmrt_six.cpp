// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/tmrt_six.h"

#include <cmath>

namespace comfortics::standards {

using namespace tmrt_six_range;

namespace {

constexpr std::array<double, 6> kStanding{0.22, 0.22, 0.22, 0.22, 0.06, 0.06};
constexpr double kEven = 1.0 / 6;

constexpr double kStefanBoltzmann = 5.67e-8;
constexpr double kKelvin = 273.15;

} // namespace

TmrtResult tmrtSix(const TmrtSixInputs& in, Limits limits) noexcept
{
    Examination examination(limits);
    double absorbed = 0;
    for (std::size_t side = 0; side < kK.size(); ++side) {
        examination.look(kK[side], in.K[side]);
        const double weight = in.weights == SixSides::Standing ? kStanding[side] : kEven;
        absorbed += weight * (in.shortAbsorptance * in.K[side] + in.longAbsorptance * in.L[side]);
    }
    for (std::size_t side = 0; side < kL.size(); ++side)
        examination.look(kL[side], in.L[side]);
    examination.look(kShort, in.shortAbsorptance);
    examination.look(kLong, in.longAbsorptance);
    const double fourth = absorbed / (in.longAbsorptance * kStefanBoltzmann);
    if (!std::isfinite(fourth))
        examination.refuse(Reason::Undefined, "tmrt");
    if (!examination.hasValue())
        return {.verdict = examination.verdict()};
    return {.verdict = examination.verdict(), .tmrt = std::sqrt(std::sqrt(fourth)) - kKelvin};
}

} // namespace comfortics::standards
