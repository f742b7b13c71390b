// Printing through the desktop's dialog.
#pragma once

#include "reports/page/Printer.h"

#include <memory>

class QPrinter;

namespace tvx::qt {

class QtPrinter : public Printer {
  public:
    QtPrinter();
    ~QtPrinter() override;
    bool PrintDialog(PageOrientation orientation, const std::string& title,
                     const std::filesystem::path& file) override;
    Paper Sheet() const override;
    std::optional<std::filesystem::path> Print(const VpDocument& document) override;

  private:
    QPrinter& Device();
    void PrintOnPaper(const VpDocument& document);

    std::unique_ptr<QPrinter> printer_; // made on first use: asking for printers takes its time
};

/// The sheet that the country prints on.
Paper UsualPaper();

} // namespace tvx::qt
