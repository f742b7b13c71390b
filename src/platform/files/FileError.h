// What can go wrong with a side file.
#pragma once

#include <stdexcept>
#include <string>

namespace tvx {

/// The numbers by which a box tells of file trouble.
enum class FileErrorNumber : int {
    FileNotFound = 53,
    AlreadyOpen = 55,
    AlreadyExists = 58,
    DiskFull = 61,
    InputPastEnd = 62,
    BadFileName = 64,
    PermissionDenied = 70,
    DiskNotReady = 71,
    PathFileAccess = 75,
    PathNotFound = 76,
};

class FileError : public std::runtime_error {
  public:
    FileError(FileErrorNumber number, const std::string& text) : std::runtime_error(text), number_(number) {}
    int Number() const { return static_cast<int>(number_); }

  private:
    FileErrorNumber number_;
};

} // namespace tvx
