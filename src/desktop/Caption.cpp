#include "desktop/Caption.h"

#include "desktop/Scale.h"

namespace tvx::qt {

QString PlainCaption(const std::string& text) {
    return ToQString(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace tvx::qt
