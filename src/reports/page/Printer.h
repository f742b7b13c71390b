// Where a finished document goes when it is printed.
#pragma once

#include "reports/page/VpDocument.h"

#include <filesystem>
#include <optional>
#include <string>

namespace tvx {

class Printer {
  public:
    virtual ~Printer() = default;

    /// Asks where to print; a PDF file, first proposed as `file`, can be chosen instead of a printer. `title`
    /// names the document there. False on cancel.
    virtual bool PrintDialog(PageOrientation orientation, const std::string& title,
                             const std::filesystem::path& file) = 0;
    /// The sheet that the dialog chose, the long way up.
    virtual Paper Sheet() const = 0;
    /// Prints the pages that the dialog asked for. Throws FileError when they cannot be printed or written;
    /// an existing file is then as it was. Returns the file that was written, if it was one.
    virtual std::optional<std::filesystem::path> Print(const VpDocument& document) = 0;

    /// Where a file of a report was written last in this run, printed or as a web page.
    const std::optional<std::filesystem::path>& LastFolder() const { return lastFolder_; }
    void Wrote(const std::filesystem::path& file) { lastFolder_ = file.parent_path(); }

  private:
    std::optional<std::filesystem::path> lastFolder_;
};

} // namespace tvx
