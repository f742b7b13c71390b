// Whether the program runs already.
#pragma once

namespace tvx {

class RunningInstance {
  public:
    virtual ~RunningInstance() = default;

    /// Claims the one place for this run; false when another run of the same program folder holds it. The
    /// claim ends with the run, however it ends.
    virtual bool Claim() = 0;

    /// Asks the run that holds the place to bring its windows to the front. Does nothing when it cannot be
    /// asked.
    virtual void RaiseOther() = 0;
};

} // namespace tvx
