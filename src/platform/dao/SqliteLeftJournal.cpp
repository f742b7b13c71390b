#include "platform/dao/DaoError.h"
#include "platform/dao/LeftJournal.h"
#include "platform/dao/SqliteSession.h"

#include <sqlite3.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <fstream>
#include <memory>
#include <string_view>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace tvx::dao {
namespace {

constexpr std::string_view Magic("\xd9\xd5\x05\xf9\x20\xa1\x63\xd7", 8);
constexpr std::int64_t HeadLength = 28;
constexpr std::int64_t CountOffset = 24; // in the first page
constexpr std::int64_t LeastPage = 512;
constexpr std::int64_t LargestPage = 65536;
constexpr std::int64_t Piece = 1 << 20; // bytes read at once

/// Four bytes, the most significant first.
std::uint32_t Number(std::string_view bytes, std::int64_t offset) {
    std::uint32_t number = 0;
    for (const char byte : bytes.substr(static_cast<std::size_t>(offset), 4))
        number = number << 8 | static_cast<unsigned char>(byte);
    return number;
}

/// Bytes of a file; fewer at its end.
std::string ReadAt(std::ifstream& file, std::int64_t offset, std::int64_t length) {
    std::string bytes(static_cast<std::size_t>(length), '\0');
    file.clear();
    file.seekg(offset);
    file.read(bytes.data(), length);
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

/// A part of a journal: a head, and pages as they were.
struct Part {
    std::int64_t records; // offset of the first
    std::int64_t count;
    std::int64_t page; // bytes
};

std::optional<Part> ReadPart(std::ifstream& journal, std::int64_t offset) {
    const std::string head = ReadAt(journal, offset, HeadLength);
    if (std::ssize(head) < HeadLength || !head.starts_with(Magic)) return std::nullopt;
    const std::int64_t sector = Number(head, 20);
    const Part part{offset + sector, Number(head, 8), Number(head, 24)};
    const bool usual =
        sector >= HeadLength && sector <= LargestPage && part.page >= LeastPage && part.page <= LargestPage;
    return usual ? std::optional(part) : std::nullopt;
}

/// The count in the first page, if this part of the journal holds that page.
std::optional<std::uint32_t> CountIn(std::ifstream& journal, const Part& part) {
    const std::int64_t record = 4 + part.page + 4; // number, page, checksum
    for (std::int64_t i = 0; i < part.count; ++i) {
        const std::string begin = ReadAt(journal, part.records + i * record, 4 + CountOffset + 4);
        if (std::ssize(begin) < 4 + CountOffset + 4) return std::nullopt;
        if (Number(begin, 0) == 1) return Number(begin, 4 + CountOffset);
    }
    return std::nullopt;
}

[[noreturn]] void FailCopy(const fs::path& target, int code) {
    std::error_code ignored;
    fs::remove(target, ignored);
    const bool full = code == ENOSPC || code == EDQUOT || code == EFBIG;
    throw DaoError(full ? error::DiskFull : error::DiskError, "Cannot write '" + target.string() + "'.",
                   target.string());
}

using OutFile = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

} // namespace

fs::path JournalOf(const fs::path& database) {
    return database.string() + "-journal";
}

bool IsLive(const fs::path& journal) {
    std::error_code code;
    const fs::file_status status = fs::status(journal, code);
    if (!fs::exists(status)) return false;
    if (!fs::is_regular_file(status))
        throw DaoError(error::CannotOpen, "Cannot open '" + journal.string() + "'. It is not a file.",
                       journal.string());
    std::ifstream file(journal, std::ios::binary);
    return ReadAt(file, 0, std::ssize(Magic)) == Magic;
}

std::optional<std::uint32_t> ChangesBefore(const fs::path& journal) {
    std::ifstream file(journal, std::ios::binary);
    std::optional<std::uint32_t> count;
    // Parts begin at sectors, which are as long as the room of the first head.
    std::int64_t offset = 0, sector = 0;
    for (auto part = ReadPart(file, offset); part && !count; part = ReadPart(file, offset)) {
        count = CountIn(file, *part);
        if (sector == 0) sector = part->records;
        const std::int64_t end = part->records + part->count * (part->page + 8);
        offset = (end + sector - 1) / sector * sector;
    }
    return count;
}

/// The engine's own file, so that the locks are its own.
struct HeldFile::Handle {
    explicit Handle(const fs::path& database)
        : name(database.string() + std::string(4, '\0')), system(sqlite3_vfs_find(nullptr)),
          memory(static_cast<std::size_t>(system->szOsFile) / sizeof(std::max_align_t) + 1) {
        constexpr int flags = SQLITE_OPEN_MAIN_DB | SQLITE_OPEN_READWRITE;
        if (system->xOpen(system, name.c_str(), File(), flags, nullptr) != SQLITE_OK) {
            if (File()->pMethods != nullptr) File()->pMethods->xClose(File());
            throw DaoError(error::CannotOpen, "Cannot open '" + database.string() + "'.", database.string());
        }
    }
    ~Handle() {
        File()->pMethods->xUnlock(File(), SQLITE_LOCK_NONE);
        File()->pMethods->xClose(File());
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    sqlite3_file* File() { return reinterpret_cast<sqlite3_file*>(memory.data()); }
    bool Lock(int level) { return File()->pMethods->xLock(File(), level) == SQLITE_OK; }

    std::string name; // ends in more zeros, behind which the engine would look for parameters
    sqlite3_vfs* system;
    std::vector<std::max_align_t> memory;
};

HeldFile::HeldFile(std::unique_ptr<Handle> handle) : handle_(std::move(handle)) {}
HeldFile::~HeldFile() = default;

std::unique_ptr<HeldFile> HeldFile::TryToHold(const fs::path& database) {
    auto handle = std::make_unique<Handle>(database);
    const bool alone = handle->Lock(SQLITE_LOCK_SHARED) && handle->Lock(SQLITE_LOCK_RESERVED) &&
                       handle->Lock(SQLITE_LOCK_EXCLUSIVE);
    return alone ? std::unique_ptr<HeldFile>(new HeldFile(std::move(handle))) : nullptr;
}

/// Fewer bytes at the end of the file.
std::string HeldFile::Read(std::int64_t offset, std::int64_t length) const {
    sqlite3_file* file = handle_->File();
    sqlite3_int64 size = 0;
    int code = file->pMethods->xFileSize(file, &size);
    const std::int64_t there = std::max<std::int64_t>(0, size - offset);
    std::string bytes(static_cast<std::size_t>(std::min(length, there)), '\0');
    if (code == SQLITE_OK && !bytes.empty())
        code = file->pMethods->xRead(file, bytes.data(), static_cast<int>(bytes.size()), offset);
    if (code != SQLITE_OK) throw DaoError(error::DiskError, "Cannot read the database file.");
    return bytes;
}

std::optional<std::uint32_t> HeldFile::Changes() const {
    const std::string bytes = Read(CountOffset, 4);
    return bytes.size() == 4 ? std::optional(Number(bytes, 0)) : std::nullopt;
}

void HeldFile::CopyTo(const fs::path& target) const {
    OutFile file(std::fopen(target.c_str(), "wbx"), std::fclose);
    if (!file) throw DaoError(error::DiskError, "Cannot make '" + target.string() + "'.", target.string());
    std::error_code code;
    fs::permissions(target, fs::status(handle_->name.c_str(), code).permissions(), code);
    std::int64_t offset = 0;
    for (std::string piece = Read(0, Piece); !piece.empty(); piece = Read(offset, Piece)) {
        if (std::fwrite(piece.data(), 1, piece.size(), file.get()) != piece.size()) FailCopy(target, errno);
        offset += std::ssize(piece);
    }
    if (std::fflush(file.get()) != 0 || fsync(fileno(file.get())) != 0) FailCopy(target, errno);
}

bool PlaysBackSound(const fs::path& database) {
    try {
        const auto session = OpenSqliteSession(database, {}, FileMode::Existing);
        const auto check = session->Prepare("PRAGMA integrity_check(1)");
        return check->Step() && check->Text(0) == "ok";
    } catch (const DaoError&) {
        return false;
    }
}

} // namespace tvx::dao
