#include "store/JudgeJournal.h"

#include "platform/dao/LeftJournal.h"
#include "platform/files/FileError.h"
#include "platform/files/Folder.h"
#include "platform/files/TemporaryName.h"

#include <chrono>
#include <system_error>
#include <thread>

namespace fs = std::filesystem;

namespace tvx {
namespace {

using dao::HeldFile;

constexpr auto Patience = std::chrono::seconds(2);
constexpr auto Pause = std::chrono::milliseconds(10);

/// A copy of the file and its journal under a name of their own, cleared at the end.
class Trial {
  public:
    Trial(const HeldFile& file, const fs::path& database) : database_(TemporaryBeside(database)) {
        try {
            file.CopyTo(database_);
            CopyWholeFile(dao::JournalOf(database), dao::JournalOf(database_));
        } catch (...) {
            Clear();
            throw;
        }
    }
    ~Trial() { Clear(); }
    Trial(const Trial&) = delete;
    Trial& operator=(const Trial&) = delete;
    bool IsSound() const { return dao::PlaysBackSound(database_); }

  private:
    void Clear() const {
        std::error_code ignored;
        fs::remove(dao::JournalOf(database_), ignored);
        fs::remove(database_, ignored);
    }
    fs::path database_;
};

bool IsOfThisFile(const HeldFile& file, const fs::path& database) {
    const auto before = dao::ChangesBefore(dao::JournalOf(database));
    const auto now = file.Changes();
    if (!before || !now || (*now != *before && *now != *before + 1)) return false;
    return Trial(file, database).IsSound();
}

/// The first pair of names that is free.
SetAside FreeNames(const fs::path& database) {
    for (int number = 1;; ++number) {
        const std::string end = ".kept-" + std::to_string(number);
        SetAside kept{dao::JournalOf(database).string() + end, database.string() + end};
        if (!FileExists(kept.journal) && !FileExists(kept.copy)) return kept;
    }
}

SetAside MoveAside(const HeldFile& file, const fs::path& database) {
    SetAside kept = FreeNames(database);
    file.CopyTo(kept.copy);
    std::error_code trouble;
    fs::rename(dao::JournalOf(database), kept.journal, trouble);
    if (trouble)
        throw FileError(FileErrorNumber::PathFileAccess,
                        "Cannot rename " + dao::JournalOf(database).string());
    return kept;
}

std::optional<SetAside> Judge(const HeldFile& file, const fs::path& database) {
    if (!dao::IsLive(dao::JournalOf(database)) || IsOfThisFile(file, database)) return std::nullopt;
    return MoveAside(file, database);
}

} // namespace

std::optional<SetAside> JudgeJournal(const fs::path& database) {
    if (!FileExists(database)) return std::nullopt;
    ClearTemporariesBeside(database);
    const auto end = std::chrono::steady_clock::now() + Patience;
    // A journal that is live for longer than its save takes belongs to nobody who runs.
    while (dao::IsLive(dao::JournalOf(database)) && std::chrono::steady_clock::now() < end) {
        if (const auto file = HeldFile::TryToHold(database)) return Judge(*file, database);
        std::this_thread::sleep_for(Pause);
    }
    return std::nullopt;
}

void TellJournalSetAside(Prompt& prompt, const SetAside& kept) {
    prompt.MsgBox("A save that was interrupted has left a journal that does not fit the database file.\r\n"
                  "The file is opened as it stands. The journal is kept as\r\n\r\n" +
                      kept.journal.string() + "\r\n\r\nand a copy of the file as\r\n\r\n" +
                      kept.copy.string(),
                  box::Exclamation, "Database");
}

} // namespace tvx
