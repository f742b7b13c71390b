#include "platform/basic/Collation.h"

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

} // namespace

int CompareNames(std::string_view a, std::string_view b) {
    static const Collator collator = RootCollator();
    UErrorCode trouble = U_ZERO_ERROR;
    return ucol_strcollUTF8(collator.get(), a.data(), static_cast<int>(a.size()), b.data(),
                            static_cast<int>(b.size()), &trouble);
}

bool IsSameName(std::string_view a, std::string_view b) {
    return CompareNames(a, b) == 0;
}

} // namespace tvx
