// A case of a schedule as a person writes it: the week and the options in a text file, and in another what is
// to stand on the pages.
#pragma once

#include "reports/page/VpDocument.h"
#include "reports/schedules/ScheduleLoader.h"
#include "support/TestStore.h"

#include <filesystem>
#include <string>

namespace tvx::test {

/// The week, options and request of a case, ready to be printed.
struct ScheduleCase {
    TestStore store;
    ScheduleRequest request;
    bool html = false;
    Paper paper; // without margins: the printable area itself

    /// Units across the page: 143 for the short schedule, 80 for the others.
    int UnitsAcross() const { return request.kind == ScheduleKind::Short ? 143 : 80; }
};

/// Reads the input of a case. Throws std::runtime_error with the line that it cannot read. README.md beside
/// the cases tells what the lines may say.
void ReadScheduleCase(const std::filesystem::path& file, ScheduleCase& made);

/// Every operation of a document's pages on a line of its own, places in units across and lines down.
std::string PagesAsText(const VpDocument& document, const FontMeasures& measures, int unitsAcross);

/// Every table block of a document, a line for each cell.
std::string TablesAsText(const VpDocument& document);

} // namespace tvx::test
