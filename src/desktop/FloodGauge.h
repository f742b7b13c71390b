// A gauge on a flood panel.
#pragma once

#include "desktop/FloodPanel.h"
#include "platform/ports/Gauge.h"

namespace tvx::qt {

class FloodGauge : public Gauge {
  public:
    /// Hides the panel until it is needed.
    explicit FloodGauge(FloodPanel& panel) : panel_(panel) { panel_.hide(); }
    void Show(bool visible) override { panel_.setVisible(visible); }
    void Flood(int percent) override { panel_.Flood(percent); }

  private:
    FloodPanel& panel_;
};

} // namespace tvx::qt
