// SPDX-License-Identifier: GPL-3.0-or-later
#include "values/quick_exponential.h"

#include "values/clones.h"
#include "values/elementary.h"

#include <algorithm>

namespace comfortics::values::quick {

namespace detail {

// clang-format off
const std::array<Power, 128> kPowers{{
    {0x0U, 0x3ff0000000000000U}, {0x3c9b3b4f1a88bf6eU, 0x3feff63da9fb3335U},
    {0xbc7160139cd8dc5dU, 0x3fefec9a3e778061U}, {0xbc905e7a108766d1U, 0x3fefe315e86e7f85U},
    {0x3c8cd2523567f613U, 0x3fefd9b0d3158574U}, {0xbc8bce8023f98efaU, 0x3fefd06b29ddf6deU},
    {0x3c60f74e61e6c861U, 0x3fefc74518759bc8U}, {0x3c90a3e45b33d399U, 0x3fefbe3ecac6f383U},
    {0x3c979aa65d837b6dU, 0x3fefb5586cf9890fU}, {0x3c8eb51a92fdeffcU, 0x3fefac922b7247f7U},
    {0x3c3ebe3d702f9cd1U, 0x3fefa3ec32d3d1a2U}, {0xbc6a033489906e0bU, 0x3fef9b66affed31bU},
    {0xbc9556522a2fbd0eU, 0x3fef9301d0125b51U}, {0xbc5080ef8c4eea55U, 0x3fef8abdc06c31ccU},
    {0xbc91c923b9d5f416U, 0x3fef829aaea92de0U}, {0x3c80d3e3e95c55afU, 0x3fef7a98c8a58e51U},
    {0xbc801b15eaa59348U, 0x3fef72b83c7d517bU}, {0xbc8f1ff055de323dU, 0x3fef6af9388c8deaU},
    {0x3c8b898c3f1353bfU, 0x3fef635beb6fcb75U}, {0xbc96d99c7611eb26U, 0x3fef5be084045cd4U},
    {0x3c9aecf73e3a2f60U, 0x3fef54873168b9aaU}, {0xbc8fe782cb86389dU, 0x3fef4d5022fcd91dU},
    {0x3c8a6f4144a6c38dU, 0x3fef463b88628cd6U}, {0x3c807a05b0e4047dU, 0x3fef3f49917ddc96U},
    {0x3c968efde3a8a894U, 0x3fef387a6e756238U}, {0x3c875e18f274487dU, 0x3fef31ce4fb2a63fU},
    {0x3c80472b981fe7f2U, 0x3fef2b4565e27cddU}, {0xbc96b87b3f71085eU, 0x3fef24dfe1f56381U},
    {0x3c82f7e16d09ab31U, 0x3fef1e9df51fdee1U}, {0xbc3d219b1a6fbffaU, 0x3fef187fd0dad990U},
    {0x3c8b3782720c0ab4U, 0x3fef1285a6e4030bU}, {0x3c6e149289cecb8fU, 0x3fef0cafa93e2f56U},
    {0x3c834d754db0abb6U, 0x3fef06fe0a31b715U}, {0x3c864201e2ac744cU, 0x3fef0170fc4cd831U},
    {0x3c8fdd395dd3f84aU, 0x3feefc08b26416ffU}, {0xbc86a3803b8e5b04U, 0x3feef6c55f929ff1U},
    {0xbc924aedcc4b5068U, 0x3feef1a7373aa9cbU}, {0xbc9907f81b512d8eU, 0x3feeecae6d05d866U},
    {0xbc71d1e83e9436d2U, 0x3feee7db34e59ff7U}, {0xbc991919b3ce1b15U, 0x3feee32dc313a8e5U},
    {0x3c859f48a72a4c6dU, 0x3feedea64c123422U}, {0xbc9312607a28698aU, 0x3feeda4504ac801cU},
    {0xbc58a78f4817895bU, 0x3feed60a21f72e2aU}, {0xbc7c2c9b67499a1bU, 0x3feed1f5d950a897U},
    {0x3c4363ed60c2ac11U, 0x3feece086061892dU}, {0x3c9666093b0664efU, 0x3feeca41ed1d0057U},
    {0x3c6ecce1daa10379U, 0x3feec6a2b5c13cd0U}, {0x3c93ff8e3f0f1230U, 0x3feec32af0d7d3deU},
    {0x3c7690cebb7aafb0U, 0x3feebfdad5362a27U}, {0x3c931dbdeb54e077U, 0x3feebcb299fddd0dU},
    {0xbc8f94340071a38eU, 0x3feeb9b2769d2ca7U}, {0xbc87deccdc93a349U, 0x3feeb6daa2cf6642U},
    {0xbc78dec6bd0f385fU, 0x3feeb42b569d4f82U}, {0xbc861246ec7b5cf6U, 0x3feeb1a4ca5d920fU},
    {0x3c93350518fdd78eU, 0x3feeaf4736b527daU}, {0x3c7b98b72f8a9b05U, 0x3feead12d497c7fdU},
    {0x3c9063e1e21c5409U, 0x3feeab07dd485429U}, {0x3c34c7855019c6eaU, 0x3feea9268a5946b7U},
    {0x3c9432e62b64c035U, 0x3feea76f15ad2148U}, {0xbc8ce44a6199769fU, 0x3feea5e1b976dc09U},
    {0xbc8c33c53bef4da8U, 0x3feea47eb03a5585U}, {0xbc845378892be9aeU, 0x3feea34634ccc320U},
    {0xbc93cedd78565858U, 0x3feea23882552225U}, {0x3c5710aa807e1964U, 0x3feea155d44ca973U},
    {0xbc93b3efbf5e2228U, 0x3feea09e667f3bcdU}, {0xbc6a12ad8734b982U, 0x3feea012750bdabfU},
    {0xbc6367efb86da9eeU, 0x3fee9fb23c651a2fU}, {0xbc80dc3d54e08851U, 0x3fee9f7df9519484U},
    {0xbc781f647e5a3ecfU, 0x3fee9f75e8ec5f74U}, {0xbc86ee4ac08b7db0U, 0x3fee9f9a48a58174U},
    {0xbc8619321e55e68aU, 0x3fee9feb564267c9U}, {0x3c909ccb5e09d4d3U, 0x3feea0694fde5d3fU},
    {0xbc7b32dcb94da51dU, 0x3feea11473eb0187U}, {0x3c94ecfd5467c06bU, 0x3feea1ed0130c132U},
    {0x3c65ebe1abd66c55U, 0x3feea2f336cf4e62U}, {0xbc88a1c52fb3cf42U, 0x3feea427543e1a12U},
    {0xbc9369b6f13b3734U, 0x3feea589994cce13U}, {0xbc805e843a19ff1eU, 0x3feea71a4623c7adU},
    {0xbc94d450d872576eU, 0x3feea8d99b4492edU}, {0x3c90ad675b0e8a00U, 0x3feeaac7d98a6699U},
    {0x3c8db72fc1f0eab4U, 0x3feeace5422aa0dbU}, {0xbc65b6609cc5e7ffU, 0x3feeaf3216b5448cU},
    {0x3c7bf68359f35f44U, 0x3feeb1ae99157736U}, {0xbc93091fa71e3d83U, 0x3feeb45b0b91ffc6U},
    {0xbc5da9b88b6c1e29U, 0x3feeb737b0cdc5e5U}, {0xbc6c23f97c90b959U, 0x3feeba44cbc8520fU},
    {0xbc92434322f4f9aaU, 0x3feebd829fde4e50U}, {0xbc85ca6cd7668e4bU, 0x3feec0f170ca07baU},
    {0x3c71affc2b91ce27U, 0x3feec49182a3f090U}, {0x3c6dd235e10a73bbU, 0x3feec86319e32323U},
    {0xbc87c50422622263U, 0x3feecc667b5de565U}, {0x3c8b1c86e3e231d5U, 0x3feed09bec4a2d33U},
    {0xbc91bbd1d3bcbb15U, 0x3feed503b23e255dU}, {0x3c90cc319cee31d2U, 0x3feed99e1330b358U},
    {0x3c8469846e735ab3U, 0x3feede6b5579fdbfU}, {0xbc82dfcd978e9db4U, 0x3feee36bbfd3f37aU},
    {0x3c8c1a7792cb3387U, 0x3feee89f995ad3adU}, {0xbc907b8f4ad1d9faU, 0x3feeee07298db666U},
    {0xbc55c3d956dcaebaU, 0x3feef3a2b84f15fbU}, {0xbc90a40e3da6f640U, 0x3feef9728de5593aU},
    {0xbc68d6f438ad9334U, 0x3feeff76f2fb5e47U}, {0xbc91eee26b588a35U, 0x3fef05b030a1064aU},
    {0x3c74ffd70a5fddcdU, 0x3fef0c1e904bc1d2U}, {0xbc91bdfbfa9298acU, 0x3fef12c25bd71e09U},
    {0x3c736eae30af0cb3U, 0x3fef199bdd85529cU}, {0x3c8ee3325c9ffd94U, 0x3fef20ab5fffd07aU},
    {0x3c84e08fd10959acU, 0x3fef27f12e57d14bU}, {0x3c63cdaf384e1a67U, 0x3fef2f6d9406e7b5U},
    {0x3c676b2c6c921968U, 0x3fef3720dcef9069U}, {0xbc808a1883ccb5d2U, 0x3fef3f0b555dc3faU},
    {0xbc8fad5d3ffffa6fU, 0x3fef472d4a07897cU}, {0xbc900dae3875a949U, 0x3fef4f87080d89f2U},
    {0x3c74a385a63d07a7U, 0x3fef5818dcfba487U}, {0xbc82919e2040220fU, 0x3fef60e316c98398U},
    {0x3c8e5a50d5c192acU, 0x3fef69e603db3285U}, {0x3c843a59ac016b4bU, 0x3fef7321f301b460U},
    {0xbc82d52107b43e1fU, 0x3fef7c97337b9b5fU}, {0xbc892ab93b470dc9U, 0x3fef864614f5a129U},
    {0x3c74b604603a88d3U, 0x3fef902ee78b3ff6U}, {0x3c83c5ec519d7271U, 0x3fef9a51fbc74c83U},
    {0xbc8ff7128fd391f0U, 0x3fefa4afa2a490daU}, {0xbc8dae98e223747dU, 0x3fefaf482d8e67f1U},
    {0x3c8ec3bc41aa2008U, 0x3fefba1bee615a27U}, {0x3c842b94c3a9eb32U, 0x3fefc52b376bba97U},
    {0x3c8a64a931d185eeU, 0x3fefd0765b6e4540U}, {0xbc8e37bae43be3edU, 0x3fefdbfdad9cbe14U},
    {0x3c77893b4d91cd9dU, 0x3fefe7c1819e90d8U}, {0x3c5305c14160cc89U, 0x3feff3c22b8f71f1U},
}};
// clang-format on

} // namespace detail

namespace {

constexpr std::size_t kPart = 64;

COMFORTICS_FUSED void exponentialsOf(const double* numbers, double* results, std::size_t count) noexcept
{
    for (std::size_t i = 0; i < count; ++i)
        results[i] = exponential(numbers[i]);
}

bool hasTheLibrarysBits() noexcept
{
    const bool canFuse = COMFORTICS_HAS_FUSED;
    if (!canFuse)
        return false;
    // Golden sections of each range, since multiples would meet the same places of the table again.
    constexpr double kGolden = 0.6180339887498949;
    std::array<double, kPart> numbers; // NOLINT(cppcoreguidelines-pro-type-member-init): written before read
    std::array<double, kPart> results; // NOLINT(cppcoreguidelines-pro-type-member-init): likewise
    for (const double range : {511.9, 100.0, 10.0, 1.0, 0.01, 1e-10, 1e-18})
        for (int part = 0; part < 20; ++part) {
            for (std::size_t i = 0; i < kPart; ++i) {
                const double place =
                    kGolden * static_cast<double>(part * static_cast<int>(kPart) + static_cast<int>(i));
                numbers[i] = (2 * (place - std::floor(place)) - 1) * range;
            }
            exponentialsOf(numbers.data(), results.data(), kPart);
            for (std::size_t i = 0; i < kPart; ++i)
                if (std::bit_cast<std::uint64_t>(results[i]) !=
                    std::bit_cast<std::uint64_t>(unchecked::exponential(numbers[i])))
                    return false;
        }
    return true;
}

} // namespace

bool available() noexcept
{
    static const bool holds = hasTheLibrarysBits();
    return holds;
}

void exponentials(double* numbers, std::size_t count) noexcept
{
    std::array<double, kPart> results; // NOLINT(cppcoreguidelines-pro-type-member-init): written before read
    for (std::size_t first = 0; first < count; first += kPart) {
        double* const part = numbers + first;
        const std::size_t size = std::min(kPart, count - first);
        if (available() && std::all_of(part, part + size, [](double x) { return std::fabs(x) < kEnd; })) {
            exponentialsOf(part, results.data(), size);
            std::copy_n(results.begin(), size, part);
        } else {
            std::transform(part, part + size, part, unchecked::exponential);
        }
    }
}

} // namespace comfortics::values::quick
