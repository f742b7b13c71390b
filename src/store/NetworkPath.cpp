#include "store/NetworkPath.h"

#include "platform/basic/Number.h"
#include "platform/files/FileError.h"
#include "platform/files/Folder.h"
#include "platform/files/SequentialFile.h"

#include <algorithm>

namespace tvx {

std::optional<NetworkPathFile> ReadNetworkPath(const std::filesystem::path& programFolder) {
    const auto path = FindFile(programFolder, NetworkPathFileName);
    if (!path) return std::nullopt;
    NetworkPathFile file;
    try {
        SequentialReader reader(*path);
        file.databasePath = reader.InputText();
        file.flags =
            static_cast<int>(std::clamp<std::int64_t>(RoundHalfToEven(reader.InputNumber()), 0, 127));
    } catch (const FileError&) {
        return file; // a short file ends the reading; its path decides what happens next
    }
    return file;
}

} // namespace tvx
