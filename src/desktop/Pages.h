// Which controls of a form belong to which of its modes.
#pragma once

#include <QWidget>

#include <set>
#include <vector>

namespace tvx::qt {

/// A control that is told of shows in its modes and in no other; every other control is left alone.
template <typename Mode>
class Pages {
  public:
    void ShowIn(std::set<Mode> modes, std::initializer_list<QWidget*> controls) {
        for (QWidget* control : controls) places_.push_back({control, modes});
    }
    /// Hides first, so that no layout has to make room for two pages at once.
    void Show(Mode mode) const {
        for (const bool shown : {false, true})
            for (const Place& place : places_)
                if (place.modes.contains(mode) == shown) place.control->setVisible(shown);
    }

  private:
    struct Place {
        QWidget* control;
        std::set<Mode> modes;
    };
    std::vector<Place> places_;
};

} // namespace tvx::qt
