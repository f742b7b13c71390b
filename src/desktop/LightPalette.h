// The colours of the program where no other colour is stated: always those of a light desktop.
#pragma once

namespace tvx::qt {

/// Gives every window of the program its own light colours, whatever the desktop's are. The colours that
/// screens state were made for this ground.
void KeepLightPalette();

} // namespace tvx::qt
