// A session that fails where a test says: what happens when the disk, the network or another workstation
// refuses a call that mostly works.
#pragma once

#include "platform/dao/Session.h"

#include <array>
#include <functional>
#include <memory>
#include <optional>

namespace tvx::test {

/// Committed fails behind the commit, which stands: an answer of the network was lost.
enum class Call { Prepare, Step, Begin, Commit, Committed };

/// What is to fail, and what was called; shared by a test and the sessions of its engine.
class Faults {
  public:
    /// The nth call of that kind from now on, the first being 1, throws DaoError with the number instead of
    /// reaching the engine. The calls behind it work again.
    void Fail(Call call, int nth, int number);
    /// The nth call of that kind from now on runs this first, the end of the process for example.
    void Before(Call call, int nth, std::function<void()> what);
    /// Counts the calls from now on.
    void Restart() { counts_ = {}; }
    /// Nothing fails any more.
    void Clear() { wanted_.reset(); }
    /// True when the fault was met.
    bool Met() const { return met_; }
    /// Calls of that kind since the last Fail, or from the start.
    int Count(Call call) const { return counts_[static_cast<std::size_t>(call)]; }

    /// For the sessions: counts a call and throws when it is the one.
    void Meet(Call call);

  private:
    struct Wanted {
        Call call;
        int nth;
        int number;
        std::function<void()> before = {};
    };
    std::optional<Wanted> wanted_;
    std::array<int, 5> counts_{};
    bool met_ = false;
};

/// Sessions of that kind with faults: dao::Engine(TestOptions(), FailingSessions(faults)).
dao::SessionFactory FailingSessions(std::shared_ptr<Faults> faults);
dao::SessionFactory FailingSessions(std::shared_ptr<Faults> faults, dao::SessionFactory sessions);

/// Runs the work again and again, failing the first call of that kind, then the second, until a run meets no
/// fault any more; `check` follows each run that met one. Returns how many calls were failed.
int FailEachInTurn(Faults& faults, Call call, int number, const std::function<void()>& work,
                   const std::function<void(int nth)>& check);

} // namespace tvx::test
