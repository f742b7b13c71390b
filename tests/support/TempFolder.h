// A folder of a test's own, gone when the test ends.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tvx::test {

class TempFolder {
  public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    /// Lets every user of the machine write into the folder; at first only its owner may enter.
    void OpenToAll() const;

    std::filesystem::path operator/(std::string_view name) const { return path_ / name; }

  private:
    std::filesystem::path path_;
};

/// The whole content of a file; "" when it cannot be read.
std::string ReadFile(const std::filesystem::path& path);
void WriteFile(const std::filesystem::path& path, std::string_view content);

/// Names of what lies in a folder, in order.
std::vector<std::string> NamesIn(const std::filesystem::path& folder);

} // namespace tvx::test
