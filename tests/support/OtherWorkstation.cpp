#include "support/OtherWorkstation.h"

#include <gtest/gtest.h>

namespace tvx::test {

void OtherWorkstation::Tell(const std::string& words) {
    if (!process_) process_.emplace(std::filesystem::path(TVX_OTHER_WORKSTATION));
    process_->Say(words);
    EXPECT_EQ(process_->Hear(), "done") << words;
}

void OtherWorkstation::Open(const std::filesystem::path& database) {
    database_ = database;
    open_ = false;
}

/// The database is opened when the first work is done on it.
void OtherWorkstation::Work(const std::string& words) {
    if (!open_) Tell("open\t" + database_.string());
    open_ = true;
    Tell(words);
}

void OtherWorkstation::Hold() {
    Work("hold");
}

void OtherWorkstation::LetGo() {
    Work("let go");
}

void OtherWorkstation::Change(const std::string& table, const std::string& where, const std::string& is,
                              const std::string& field, const std::string& value) {
    Work("change\t" + table + "\t" + where + "\t" + is + "\t" + field + "\t" + value);
}

void OtherWorkstation::Delete(const std::string& table, const std::string& where, const std::string& is) {
    Work("delete\t" + table + "\t" + where + "\t" + is);
}

} // namespace tvx::test
