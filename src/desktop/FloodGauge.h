// A gauge on a flood panel.
#pragma once

#include "desktop/FloodPanel.h"
#include "platform/ports/Gauge.h"

#include <functional>
#include <utility>

namespace tvx::qt {

class FloodGauge : public Gauge {
  public:
    /// Hides the panel until it is needed, and hands on how the work ended.
    explicit FloodGauge(FloodPanel& panel, std::function<void(bool)> ended = {})
        : panel_(panel), ended_(std::move(ended)) {
        panel_.hide();
    }
    void Show(bool visible) override { panel_.setVisible(visible); }
    void Flood(int percent) override { panel_.Flood(percent); }
    void Ended(bool done) override {
        if (ended_) ended_(done);
    }

  private:
    FloodPanel& panel_;
    std::function<void(bool)> ended_;
};

} // namespace tvx::qt
