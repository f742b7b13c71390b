// Where a finished document goes when it is printed.
#pragma once

#include "reports/VpDocument.h"

namespace tvx {

class Printer {
  public:
    virtual ~Printer() = default;

    /// Asks where to print; a PDF file can be chosen where there is no printer. False on cancel.
    virtual bool PrintDialog(PageOrientation orientation) = 0;
    /// Prints on what the dialog chose. Throws FileError when it cannot be written.
    virtual void Print(const VpDocument& document) = 0;
};

} // namespace tvx
