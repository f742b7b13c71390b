// A progress panel.
#pragma once

namespace tvx {

class Gauge {
  public:
    virtual ~Gauge() = default;

    virtual void Show(bool visible) = 0;
    /// Fills the panel to 0 to 100 per cent.
    virtual void Flood(int percent) = 0;
    /// The work has come to its end, or was refused.
    virtual void Ended(bool done) = 0;
};

} // namespace tvx
