// The small file that says where the database lies and what this workstation may do.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace tvx {

/// Bits of the flags: what the workstation may not do.
namespace workstation {
constexpr int NoCompact = 1;
constexpr int NoBackup = 2;
constexpr int NoRestore = 4;
constexpr int NoPrior = 8;
constexpr int NoNetwork = 16;
constexpr int NoScheduling = 32;
constexpr int HideWages = 64;
} // namespace workstation

struct NetworkPathFile {
    std::string databasePath; // "" when the first line is empty
    int flags = 0;            // a sum of the bits above, 0 to 127
};

constexpr const char* NetworkPathFileName = "NetworkPath.DAT";

/// Reads the file from the program's folder; nothing when there is none. The path is empty when the first
/// line is there and holds none. Throws FileError 75, which names the file, when it is there and cannot be
/// read, or lacks a line: what it was to say is then not known.
std::optional<NetworkPathFile> ReadNetworkPath(const std::filesystem::path& programFolder);

} // namespace tvx
