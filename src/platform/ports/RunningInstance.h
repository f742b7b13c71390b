// Whether the program runs already.
#pragma once

namespace tvx {

class RunningInstance {
  public:
    virtual ~RunningInstance() = default;

    /// Claims the one place for this run; false when another run of the same program folder holds it. The
    /// claim ends with the run, however it ends.
    virtual bool Claim() = 0;
};

} // namespace tvx
