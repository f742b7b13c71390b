// The one font of the program that a person chooses: that of a report.
#pragma once

#include <string>

namespace tvx {

struct ReportFont {
    std::string name = "Arial";
    double size = 9; // points
    bool bold = false;
    bool italic = false;

    friend bool operator==(const ReportFont&, const ReportFont&) = default;
};

} // namespace tvx
