#include "reports/page/ReportSettingsFile.h"

#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "platform/files/FileError.h"
#include "platform/files/Folder.h"
#include "platform/files/SequentialFile.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <vector>

namespace tvx {
namespace {

constexpr int ReservedLines = 3;
constexpr double LargestFont = 200; // points

std::filesystem::path PathOf(const GlobalState& g, std::string_view extension) {
    return FilePath(g.paths.ProgramPath,
                    std::to_string(g.department.CurrentDepNumber) + std::string(extension));
}

void TakeDefaults(ReportSettings& s) {
    s.ReportFontSize = 9;
    s.ReportFontBold = s.ReportFontItalic = false;
    s.ReportOrientation = 0;
}

int WholeNumber(SequentialReader& reader) {
    return static_cast<int>(std::clamp<std::int64_t>(RoundHalfToEven(reader.InputNumber()), -32768, 32767));
}

} // namespace

void ReadReportSettings(GlobalState& g, std::string_view extension) {
    ReportSettings& s = g.reports.settings;
    std::optional<SequentialReader> reader;
    const std::vector<std::function<void()>> statements{
        [&] { reader.emplace(PathOf(g, extension)); },
        [&] { s.ReportFontName = reader.value().InputText(); },
        [&] { s.ReportFontSize = reader.value().InputNumber(); },
        [&] { s.ReportFontBold = WholeNumber(reader.value()) != 0; },
        [&] { s.ReportFontItalic = WholeNumber(reader.value()) != 0; },
        [&] { s.ReportOrientation = std::clamp(WholeNumber(reader.value()), 0, 1); },
        [&] {
            for (int i = 0; i < ReservedLines; ++i) WholeNumber(reader.value());
        },
    };
    for (const auto& statement : statements) {
        try {
            statement();
        } catch (const std::exception&) { // the file's trouble, or that it could not be opened before
            if (!Trim(s.ReportFontName).empty()) return;
            TakeDefaults(s);
        }
    }
}

void WriteReportSettings(const GlobalState& g, std::string_view extension) {
    const ReportSettings& s = g.reports.settings;
    SequentialWriter writer;
    writer.PrintText(s.ReportFontName);
    writer.PrintNumber(s.ReportFontSize);
    writer.PrintNumber(s.ReportFontBold ? -1 : 0);
    writer.PrintNumber(s.ReportFontItalic ? -1 : 0);
    writer.PrintNumber(s.ReportOrientation);
    for (int i = 0; i < ReservedLines; ++i) writer.PrintNumber(0);
    writer.ReplaceFile(PathOf(g, extension));
}

ReportFont FontOfSettings(const ReportSettings& settings) {
    ReportFont font;
    if (!Trim(settings.ReportFontName).empty()) font.name = settings.ReportFontName;
    // A file can hold any number; one that cannot be a size of letters is not used as one.
    const double size = settings.ReportFontSize;
    font.size = size >= 1 && size <= LargestFont ? size : ReportFont().size;
    font.italic = settings.ReportFontItalic;
    return font;
}

PageOrientation OrientationOfSettings(const ReportSettings& settings) {
    return settings.ReportOrientation == 0 ? PageOrientation::Portrait : PageOrientation::Landscape;
}

} // namespace tvx
