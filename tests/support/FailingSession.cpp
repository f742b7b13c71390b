#include "support/FailingSession.h"

#include "platform/dao/DaoError.h"
#include "platform/dao/SqliteSession.h"

namespace tvx::test {
namespace {

using dao::Value;

/// Steps through the faults; everything else is the other statement's.
class FailingStatement final : public dao::Statement {
  public:
    FailingStatement(std::unique_ptr<dao::Statement> real, std::shared_ptr<Faults> faults)
        : real_(std::move(real)), faults_(std::move(faults)) {}

    bool Step() override {
        faults_->Meet(Call::Step);
        return real_->Step();
    }
    std::size_t ParameterCount() const override { return real_->ParameterCount(); }
    void Bind(int parameter, const Value& value) override { real_->Bind(parameter, value); }
    void Reset() noexcept override { real_->Reset(); }
    int ColumnCount() const override { return real_->ColumnCount(); }
    std::string ColumnName(int column) const override { return real_->ColumnName(column); }
    dao::ColumnKind Kind(int column) const override { return real_->Kind(column); }
    std::int64_t Whole(int column) const override { return real_->Whole(column); }
    double Real(int column) const override { return real_->Real(column); }
    std::string_view Text(int column) const override { return real_->Text(column); }

  private:
    std::unique_ptr<dao::Statement> real_;
    std::shared_ptr<Faults> faults_;
};

class FailingSession final : public dao::Session {
  public:
    FailingSession(std::unique_ptr<dao::Session> real, std::shared_ptr<Faults> faults)
        : real_(std::move(real)), faults_(std::move(faults)) {}

    std::unique_ptr<dao::Statement> Prepare(const std::string& sql) override {
        faults_->Meet(Call::Prepare);
        return std::make_unique<FailingStatement>(real_->Prepare(sql), faults_);
    }
    void Begin(dao::Access access) override {
        faults_->Meet(Call::Begin);
        real_->Begin(access);
    }
    void Commit() override {
        faults_->Meet(Call::Commit);
        real_->Commit();
        faults_->Meet(Call::Committed);
    }
    const dao::Dialect& Words() const override { return real_->Words(); }
    std::int64_t Changes() const override { return real_->Changes(); }
    void Rollback() override { real_->Rollback(); }
    bool InTransaction() const override { return real_->InTransaction(); }
    void BeginPart() override { real_->BeginPart(); }
    void KeepPart() override { real_->KeepPart(); }
    void UndoPart() override { real_->UndoPart(); }
    std::vector<std::string> TableNames() override { return real_->TableNames(); }
    dao::TableDef ReadTable(const std::string& name) override { return real_->ReadTable(name); }
    void CopyTo(const std::filesystem::path& target) override { real_->CopyTo(target); }
    void RebuildIndexes() override { real_->RebuildIndexes(); }
    bool IsCutOff() override { return real_->IsCutOff(); }
    bool IsSound() override { return real_->IsSound(); }

  private:
    std::unique_ptr<dao::Session> real_;
    std::shared_ptr<Faults> faults_;
};

} // namespace

void Faults::Fail(Call call, int nth, int number) {
    wanted_ = {call, nth, number};
    counts_ = {};
    met_ = false;
}

void Faults::Before(Call call, int nth, std::function<void()> what) {
    Fail(call, nth, 0);
    wanted_->before = std::move(what);
}

void Faults::Meet(Call call) {
    const int count = ++counts_[static_cast<std::size_t>(call)];
    if (!wanted_ || wanted_->call != call || wanted_->nth != count) return;
    met_ = true;
    if (wanted_->before) return wanted_->before();
    throw dao::DaoError(wanted_->number, "SQLITE: database disk image is malformed near \"COMMIT\"");
}

dao::SessionFactory FailingSessions(std::shared_ptr<Faults> faults) {
    return FailingSessions(std::move(faults), dao::OpenSqliteSession);
}

dao::SessionFactory FailingSessions(std::shared_ptr<Faults> faults, dao::SessionFactory sessions) {
    return [=](const std::filesystem::path& path, const dao::EngineOptions& options, dao::FileMode mode) {
        return std::make_unique<FailingSession>(sessions(path, options, mode), faults);
    };
}

int FailEachInTurn(Faults& faults, Call call, int number, const std::function<void()>& work,
                   const std::function<void(int nth)>& check) {
    for (int nth = 1;; ++nth) {
        faults.Fail(call, nth, number);
        work();
        faults.Clear();
        if (!faults.Met()) return nth - 1;
        check(nth);
    }
}

} // namespace tvx::test
