// SPDX-License-Identifier: GPL-3.0-or-later
//
//   lat, lon   latitude, longitude [degrees]      th    total radiation, horizontal [W/m²]
//   decl       declination [degrees]              tt    total radiation, tilted [W/m²]
//   ws         sunset hour angle [degrees]        thc   horizontal with clouds [W/m²]
//   sa         sine of the sun's altitude         ttc   tilted with clouds [W/m²]
//   dn         direct normal radiation [W/m²]     rb    tilted to horizontal direct radiation
//   dh, df     direct horizontal, diffuse [W/m²]  fd    part of the sky that the tilt sees
//   m, t       clock and solar minute             fg    the same of the ground, times its albedo
#include "models/solar_radiation.h"

#include "values/plain_text.h"
#include "values/run_failure.h"

#include <cmath>

namespace comfortics::models {

using values::absolute;
using values::arcTangent;
using values::cosine;
using values::exponential;
using values::Number;
using values::power;
using values::roundHalfEven;
using values::RunFailure;
using values::sine;
using values::squareRoot;
using values::tangent;

namespace {

constexpr Number pi = kPi;
constexpr double kAlbedo = 0.3;

Number Int(Number x)
{
    return std::floor(x.value());
}

// A statement of the minutes' loop. One that fails is passed over.
template <class Compute>
void assign(Number& target, Compute compute)
{
    try {
        target = compute();
    } catch (const RunFailure&) {
    }
}

// The quantities of the loop, which live from minute to minute.
struct Minute {
    Number t, h, sa, A, B, C, dn, dh, df, th, rb, fd, fg, tt, cf, thc, ttc;

    void compute(const Site& site, const DayLimits& day, Number m);
};

void Minute::compute(const Site& site, const DayLimits& day, Number m)
{
    const Number lat = site.lat;
    const Number decl = day.decl;
    const Number ws = day.ws;
    const Number n = site.n;
    const Number tilt = lat;
    const Number k = pi / 180;

    assign(t, [&] { return m + day.corr; });
    assign(h, [&] { return 15 * (t - 720) / 60; });
    assign(sa, [&] {
        return sine(lat * pi / 180) * sine(decl * pi / 180) +
               cosine(decl * pi / 180) * cosine(lat * pi / 180) * cosine(h * pi / 180);
    });
    assign(A, [&] { return 1160 + 75 * Sind((Number(360) / 365) * (n - 275)); });
    assign(B, [&] { return 0.174 + 0.035 * Sind((Number(360) / 365) * (n - 100)); });
    assign(C, [&] { return 0.095 + 0.04 * Sind((Number(360) / 365) * (n - 100)); });
    assign(dn, [&] { return A * exponential(-B / sa); });
    assign(dh, [&] { return dn * sa; });
    assign(df, [&] { return C * dn; });
    assign(th, [&] { return dh + df; });
    assign(rb, [&] {
        return (cosine((lat - tilt) * k) * cosine(decl * k) * sine(ws * k) +
                (ws * k) * sine((lat - tilt) * k) * sine(decl * k)) /
               (cosine(lat * k) * cosine(decl * k) * sine(ws * k) +
                (ws * k) * sine(lat * k) * sine(decl * k));
    });
    assign(fd, [&] { return (cosine(tilt * k) + 1) / 2; });
    assign(fg, [&] { return (1 - cosine(tilt * k)) * kAlbedo / 2; });
    assign(tt, [&] { return dh * rb + df * fd + th * fg; });
    // Okta 9, the sky obstructed from view, deliberately goes the same way: below zero.
    assign(cf, [&] { return 1 - 0.75 * power(Number(site.okta) / 8, 3.4); });
    assign(thc, [&] { return th * cf; });
    assign(ttc, [&] { return tt * cf; });
}

Number declination(Number n)
{
    return 23.45 * sine((360 * (n - 81) / 365) * pi / 180);
}

// Solar time less clock time [min].
Number correction(const Site& site)
{
    const Number b = 360 * (site.n - 81) / 364;
    const Number eot = 9.87 * sine(2 * b * pi / 180) - 7.53 * cosine(b * pi / 180) - 1.5 * sine(b * pi / 180);
    const Number mer = 15 * site.gmt;
    if (site.lon >= 0)
        return -4 * (mer - site.lon) + eot;
    return 4 * (mer - site.lon) + eot;
}

} // namespace

Number ACOSD(Number x)
{
    if (x == 1)
        return 0;
    if (x == -1)
        return 180;
    return (-arcTangent(x / squareRoot(-x * x + 1)) + pi / 2) * (180 / pi);
}

Number Sind(Number x)
{
    return sine(x * pi / 180);
}

Number sunsetCosine(const Site& site)
{
    const Number decl = declination(site.n);
    return -tangent(site.lat * pi / 180) * tangent(decl * pi / 180);
}

std::optional<SolarMinute> sunAt(const Site& site, Number m)
{
    DayLimits day;
    day.decl = declination(site.n);
    day.corr = correction(site);
    const Number setting = sunsetCosine(site);
    const bool sets = absolute(setting) < 1;
    if (sets)
        day.ws = ACOSD(setting);
    Minute minute;
    minute.compute(site, day, m);
    if (!(minute.sa > 0))
        return std::nullopt;
    return SolarMinute{m, minute.th, minute.tt, minute.thc, minute.ttc, sets};
}

DayLimits dayLimits(const Site& site)
{
    DayLimits day;
    day.decl = declination(site.n);
    day.corr = correction(site);
    day.ws = ACOSD(sunsetCosine(site));
    const Number rise0 = absolute((day.ws / 15 - 12) * 60);
    const Number set0 = (day.ws / 15 + 12) * 60;
    day.rise = rise0 + absolute(day.corr);
    day.sunset = set0 + absolute(day.corr);
    return day;
}

double rowCount(const DayLimits& limits)
{
    return roundHalfEven((limits.sunset - 60 - limits.rise) + 1).value();
}

void walkMinutes(const Site& site, const DayLimits& limits,
                 const std::function<void(const SolarMinute&)>& take)
{
    const Number first = Int(limits.rise);
    const Number last = Int(limits.sunset) - 60;
    // From 2^53 on, a minute more is sometimes none and sometimes two.
    if (first + 1 - first != 1 || last + 1 - last != 1)
        throw RunFailure("the minutes cannot be counted from " + values::plainText(first.value()) + " on");

    Minute minute;
    for (Number m = first; m <= last; m = m + 1) {
        minute.compute(site, limits, m);
        take({m, minute.th, minute.tt, minute.thc, minute.ttc, true});
    }
}

} // namespace comfortics::models
