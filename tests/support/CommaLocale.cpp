#include "support/CommaLocale.h"

#include "support/TempFolder.h"

#include <clocale>
#include <cstdlib>
#include <string>

namespace tvx::test {

CommaLocale::CommaLocale() {
    const TempFolder folder;
    WriteFile(folder / "comma.txt", "LC_NUMERIC\n"
                                    "decimal_point \"<U002C>\"\n"
                                    "thousands_sep \"<U002E>\"\n"
                                    "grouping 3;3\n"
                                    "END LC_NUMERIC\n");
    const std::string make = "localedef -c -i '" + (folder / "comma.txt").string() + "' '" +
                             (folder / "comma").string() + "' >/dev/null 2>&1";
    // It complains of the categories that are left out, and makes the locale all the same.
    if (std::system(make.c_str()) == -1) return;
    setenv("LOCPATH", folder.Path().c_str(), 1);
    set_ = std::setlocale(LC_NUMERIC, "comma") != nullptr;
    unsetenv("LOCPATH");
}

CommaLocale::~CommaLocale() {
    std::setlocale(LC_NUMERIC, "C");
}

} // namespace tvx::test
