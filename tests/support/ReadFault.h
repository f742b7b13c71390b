// A disk that fails while a file is read, for this process alone.
#pragma once

#include <string>

namespace tvx::test {

/// While it lives, opening (call 0) or reading (calls 1, 2 ...) the files of one name fails with an error
/// number of the system. Every other file is read as ever.
class ReadFault {
  public:
    static constexpr int EveryRead = -1;

    ReadFault(std::string name, int call, int code);
    ~ReadFault();
    ReadFault(const ReadFault&) = delete;
    ReadFault& operator=(const ReadFault&) = delete;

    /// How often the fault was met.
    int Met() const;
};

} // namespace tvx::test
