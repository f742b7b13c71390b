// The longest beginning that fits somewhere, found by halves.
#pragma once

#include <algorithm>
#include <cstddef>

namespace tvx {

/// The most that `fits` lets pass, of 1 to `most`; 0 when not even 1 does. Where one count passes, so must
/// all below it. Looks near the beginning first, so that of a long text little more is measured than fits.
template <typename Fits>
std::size_t MostThatFits(std::size_t most, const Fits& fits) {
    std::size_t step = 1;
    while (step < most && fits(step)) step *= 2;
    std::size_t few = step / 2;
    std::size_t many = std::min(step, most) + 1;
    while (few + 1 < many) {
        const std::size_t middle = (few + many) / 2;
        (fits(middle) ? few : many) = middle;
    }
    return few;
}

} // namespace tvx
