// A group of options of which one is chosen, and the answer that it stands for.
#pragma once

#include "desktop/ControlArray.h"

#include <QRadioButton>

#include <optional>

namespace tvx::qt {

/// An option's index is its answer's number.
template <typename Answer = int>
class Options : public ControlArray<QRadioButton> {
  public:
    /// Chooses an answer; none where no option has it.
    void Choose(Answer answer) {
        const int chosen = static_cast<int>(answer);
        for (const auto& [index, option] : *this) {
            option->setAutoExclusive(false);
            option->setChecked(index == chosen);
            option->setAutoExclusive(true);
        }
    }
    /// The chosen answer; nothing while none is.
    std::optional<Answer> Chosen() const {
        for (const auto& [index, option] : *this)
            if (option->isChecked()) return static_cast<Answer>(index);
        return std::nullopt;
    }
};

} // namespace tvx::qt
