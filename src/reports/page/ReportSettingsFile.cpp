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

void ResetToDefaults(ReportSettings& s) {
    s.font.size = ReportFont().size;
    s.font.bold = s.font.italic = false;
    s.ReportOrientation = 0;
}

int WholeNumber(SequentialReader& reader) {
    return static_cast<int>(std::clamp<std::int64_t>(RoundHalfToEven(reader.InputNumber()), -32768, 32767));
}

} // namespace

std::filesystem::path ReportSettingsPath(const Paths& paths, int departmentNumber,
                                         std::string_view extension) {
    return FilePath(paths.ProgramPath, std::to_string(departmentNumber) + std::string(extension));
}

void ReadReportSettings(const std::filesystem::path& file, ReportSettings& s) {
    std::optional<SequentialReader> reader;
    const std::vector<std::function<void()>> statements{
        [&] { reader.emplace(file); },
        [&] { s.font.name = reader.value().InputText(); },
        [&] { s.font.size = reader.value().InputNumber(); },
        [&] { s.font.bold = WholeNumber(reader.value()) != 0; },
        [&] { s.font.italic = WholeNumber(reader.value()) != 0; },
        [&] { s.ReportOrientation = std::clamp(WholeNumber(reader.value()), 0, 1); },
        [&] {
            for (int i = 0; i < ReservedLines; ++i) WholeNumber(reader.value());
        },
    };
    for (const auto& statement : statements) {
        try {
            statement();
        } catch (const std::exception&) { // the file's trouble, or that it could not be opened before
            if (!Trim(s.font.name).empty()) return;
            ResetToDefaults(s);
        }
    }
}

void WriteReportSettings(const std::filesystem::path& file, const ReportSettings& s) {
    SequentialWriter writer;
    writer.PrintText(s.font.name);
    writer.PrintNumber(s.font.size);
    writer.PrintNumber(s.font.bold ? -1 : 0);
    writer.PrintNumber(s.font.italic ? -1 : 0);
    writer.PrintNumber(s.ReportOrientation);
    for (int i = 0; i < ReservedLines; ++i) writer.PrintNumber(0);
    writer.ReplaceFile(file);
}

ReportFont FontOfSettings(const ReportSettings& settings) {
    ReportFont font;
    if (!Trim(settings.font.name).empty()) font.name = settings.font.name;
    // A file can hold any number; one that cannot be a size of letters is not used as one.
    const double size = settings.font.size;
    font.size = size >= 1 && size <= LargestFont ? size : ReportFont().size;
    font.italic = settings.font.italic;
    return font;
}

PageOrientation OrientationOfSettings(const ReportSettings& settings) {
    return settings.ReportOrientation == 0 ? PageOrientation::Portrait : PageOrientation::Landscape;
}

} // namespace tvx
