#include "platform/basic/Collation.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <stdexcept>
#include <unicode/ucol.h>

namespace tvx {
namespace {

using Collator = std::unique_ptr<UCollator, void (*)(UCollator*)>;

Collator RootCollator() {
    UErrorCode trouble = U_ZERO_ERROR;
    Collator collator(ucol_open("", &trouble), ucol_close);
    if (U_FAILURE(trouble)) throw std::runtime_error("The rules for sorting names are not there.");
    ucol_setStrength(collator.get(), UCOL_SECONDARY); // case is the third difference
    return collator;
}

/// Letters A to Z, digits and blanks, of which most names are made: these stand in the order of their
/// capitals.
bool IsPlain(char c) {
    return c == ' ' || (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}
bool IsPlain(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return IsPlain(c); });
}

int ComparePlain(std::string_view a, std::string_view b) {
    const auto capital = [](char c) { return c >= 'a' ? c - 32 : c + 0; };
    const std::size_t both = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < both; ++i)
        if (const int difference = capital(a[i]) - capital(b[i]); difference != 0) return difference;
    return (a.size() > b.size()) - (a.size() < b.size());
}

} // namespace

int CompareNames(std::string_view a, std::string_view b) {
    if (IsPlain(a) && IsPlain(b)) return ComparePlain(a, b);
    static const Collator collator = RootCollator();
    UErrorCode trouble = U_ZERO_ERROR;
    return ucol_strcollUTF8(collator.get(), a.data(), static_cast<int>(a.size()), b.data(),
                            static_cast<int>(b.size()), &trouble);
}

bool IsSameName(std::string_view a, std::string_view b) {
    return CompareNames(a, b) == 0;
}

} // namespace tvx
