// The file and its journal as an interrupted save left them, looked at before the engine plays it back.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace tvx::dao {

/// The journal that belongs to a database file by its name.
std::filesystem::path JournalOf(const std::filesystem::path& database);

/// True when the engine would play back a journal of that name at the next read, if nobody is saving. Throws
/// DaoError 3051 when it is there and is no plain file, which the engine would wait for.
bool IsLive(const std::filesystem::path& journal);

/// How many changes the file of a live journal had seen when the save began; nothing when the journal does
/// not tell. The engine counts every commit in the first page.
std::optional<std::uint32_t> ChangesBefore(const std::filesystem::path& journal);

/// A database file that no other process can read or write meanwhile. It reads by the handle that carries the
/// lock: any other handle of this process would let go of the lock when it is closed.
class HeldFile {
  public:
    /// Nothing while another process has a part in the file. Throws DaoError when it cannot be opened.
    static std::unique_ptr<HeldFile> TryToHold(const std::filesystem::path& database);
    ~HeldFile();
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;

    /// How many changes the file has seen; nothing when it is too short to tell.
    std::optional<std::uint32_t> Changes() const;
    /// Copies the file as it stands, its permissions included, into one that does not exist yet. Throws
    /// DaoError and leaves nothing.
    void CopyTo(const std::filesystem::path& target) const;

  private:
    struct Handle;
    explicit HeldFile(std::unique_ptr<Handle> handle);
    std::string Read(std::int64_t offset, std::int64_t length) const;
    std::unique_ptr<Handle> handle_;
};

/// Plays the journal beside a database back, as the engine does when it opens the file, and looks at every
/// page and index. False when something is damaged, or cannot be opened or read.
bool PlaysBackSound(const std::filesystem::path& database);

} // namespace tvx::dao
