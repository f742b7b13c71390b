// The program of the other workstation: does what it is told on its input, one line each, and answers "done"
// or what went wrong.
#include "platform/basic/Text.h"
#include "platform/dao/Database.h"
#include "platform/dao/Recordset.h"
#include "support/TestEngine.h"

#include <exception>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace tvx;

/// What the other workstation has open.
class Worker {
  public:
    void Do(const std::vector<std::string>& words) {
        if (words[0] == "open")
            db_ = test::TestEngine().OpenDatabase(words.at(1));
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

} // namespace

int main() {
    Worker worker;
    for (std::string line; std::getline(std::cin, line);) {
        try {
            worker.Do(Split(line, '\t'));
            std::cout << "done" << std::endl;
        } catch (const std::exception& trouble) {
            std::cout << "exception: " << trouble.what() << std::endl;
        }
    }
}
