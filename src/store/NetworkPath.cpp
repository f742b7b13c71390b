#include "store/NetworkPath.h"

#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "platform/files/FileError.h"
#include "platform/files/Folder.h"
#include "platform/files/SequentialFile.h"
#include "platform/files/WholeFile.h"

#include <algorithm>
#include <string_view>

namespace tvx {
namespace {

/// True when the first line is there and nothing stands on it. A file that was cut off has no such line.
bool FirstLineIsEmpty(std::string_view text) {
    const std::size_t end = text.find_first_of("\r\n");
    return end != std::string_view::npos && Trim(text.substr(0, end)).empty();
}

/// Throws FileError 62 when one of the two values is missing.
NetworkPathFile ReadValues(const std::string& text) {
    NetworkPathFile file;
    if (FirstLineIsEmpty(text)) return file;
    SequentialReader reader = SequentialReader::FromText(text);
    file.databasePath = reader.InputText();
    if (file.databasePath.empty()) return file;
    file.flags = static_cast<int>(std::clamp<std::int64_t>(RoundHalfToEven(reader.InputNumber()), 0, 127));
    return file;
}

} // namespace

std::optional<NetworkPathFile> ReadNetworkPath(const std::filesystem::path& programFolder) {
    const std::filesystem::path path = FilePath(programFolder, NetworkPathFileName);
    try {
        return ReadValues(ReadWholeFile(path, MostBytesOfSideFile));
    } catch (const FileError& trouble) {
        if (trouble.Number() == static_cast<int>(FileErrorNumber::FileNotFound)) return std::nullopt;
        const bool cutOff = trouble.Number() == static_cast<int>(FileErrorNumber::InputPastEnd);
        const std::string why = cutOff ? "A line is missing." : trouble.what();
        throw FileError(FileErrorNumber::PathFileAccess, path.string() + "\r\n" + why);
    }
}

} // namespace tvx
