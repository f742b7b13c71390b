// Where a finished document goes when it is printed.
#pragma once

#include "reports/page/VpDocument.h"

#include <string>

namespace tvx {

class Printer {
  public:
    virtual ~Printer() = default;

    /// Asks where to print; a PDF file can be chosen where there is no printer. `title` names the document
    /// there. False on cancel.
    virtual bool PrintDialog(PageOrientation orientation, const std::string& title) = 0;
    /// The sheet that the dialog chose, the long way up.
    virtual Paper Sheet() const = 0;
    /// Prints the pages that the dialog asked for. Throws FileError when they cannot be printed or written;
    /// an existing file is then as it was.
    virtual void Print(const VpDocument& document) = 0;
};

} // namespace tvx
