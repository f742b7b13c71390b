#include "support/OtherWorkstation.h"

#include "platform/basic/Text.h"
#include "platform/dao/Database.h"
#include "platform/dao/Recordset.h"
#include "support/TestEngine.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace tvx::test {
namespace {

/// The side of the other process: what it has open.
class Worker {
  public:
    void Do(const std::vector<std::string>& words) {
        if (words[0] == "open")
            db_ = TestEngine().OpenDatabase(words.at(1));
        else if (words[0] == "hold")
            save_ = std::make_unique<dao::Transaction>(*db_);
        else if (words[0] == "let go")
            save_->Commit();
        else
            Write(words);
    }

  private:
    void Write(const std::vector<std::string>& words) {
        dao::Recordset rows = db_->OpenRecordset(words.at(1));
        while (rows.Fields(words.at(2)).Text() != words.at(3)) rows.MoveNext();
        if (words[0] == "delete") return rows.Delete();
        rows.Edit();
        rows.Fields(words.at(4)) = words.at(5);
        rows.Update();
    }

    std::unique_ptr<dao::Database> db_;
    std::unique_ptr<dao::Transaction> save_;
};

void Work(ChildProcess& test) {
    Worker worker;
    for (std::string line = test.Hear(); !line.empty(); line = test.Hear()) {
        worker.Do(Split(line, '\t'));
        test.Say("done");
    }
}

} // namespace

OtherWorkstation::OtherWorkstation() : process_(Work) {}

void OtherWorkstation::Tell(const std::string& words) {
    process_.Say(words);
    EXPECT_EQ(process_.Hear(), "done") << words;
}

void OtherWorkstation::Open(const std::filesystem::path& database) {
    Tell("open\t" + database.string());
}

void OtherWorkstation::Hold() {
    Tell("hold");
}

void OtherWorkstation::LetGo() {
    Tell("let go");
}

void OtherWorkstation::Change(const std::string& table, const std::string& where, const std::string& is,
                              const std::string& field, const std::string& value) {
    Tell("change\t" + table + "\t" + where + "\t" + is + "\t" + field + "\t" + value);
}

void OtherWorkstation::Delete(const std::string& table, const std::string& where, const std::string& is) {
    Tell("delete\t" + table + "\t" + where + "\t" + is);
}

} // namespace tvx::test
