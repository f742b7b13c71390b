// The font and paper of a report, kept for each department and kind of report in a small file.
#pragma once

#include "platform/ports/Vp.h"
#include "shell/state/ApplicationState.h"
#include "shell/state/Report.h"

#include <filesystem>
#include <string_view>

namespace tvx {

/// Extensions of the files, by kind of report.
namespace report_file {
constexpr std::string_view Long = ".Lon";
constexpr std::string_view Short = ".Sho";
constexpr std::string_view Selected = ".One";
constexpr std::string_view Departments = ".Dep";
constexpr std::string_view BarChart = ".Bar";
constexpr std::string_view DayGraph = ".gra";
constexpr std::string_view Employees = ".Emp";
} // namespace report_file

/// The file of a department's reports of one kind.
std::filesystem::path ReportSettingsPath(const Paths& paths, int departmentNumber,
                                         std::string_view extension);

/// Reads a file into the settings, value by value. Where a value cannot be read:
/// with no font name held yet the defaults are taken and reading goes on; else reading ends and what is held
/// stays. So a department without a file has the font of the report shown last.
void ReadReportSettings(const std::filesystem::path& file, ReportSettings& settings);

/// Writes the eight lines of the file. Throws FileError.
void WriteReportSettings(const std::filesystem::path& file, const ReportSettings& settings);

/// The font of the settings as a document takes it: never bold, "Arial" while there is no name, a size that
/// can be drawn.
ReportFont FontOfSettings(const ReportSettings& settings);

PageOrientation OrientationOfSettings(const ReportSettings& settings);

} // namespace tvx
