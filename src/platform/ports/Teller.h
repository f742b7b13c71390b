// Tells the person of an error that nobody expected.
#pragma once

#include "platform/ports/Prompt.h"

#include <exception>

namespace tvx {

class Teller {
  public:
    virtual ~Teller() = default;

    /// Shows what went wrong in words, and gives the pointer back to the controls.
    virtual void Tell(const std::exception& trouble) = 0;
};

/// Says what the error itself says.
class PlainTeller : public Teller {
  public:
    explicit PlainTeller(Prompt& prompt) : prompt_(prompt) {}
    void Tell(const std::exception& trouble) override {
        prompt_.MousePointer(Pointer::Default);
        prompt_.MsgBox(trouble.what(), box::Stop, "Tarvex");
    }

  private:
    Prompt& prompt_;
};

} // namespace tvx
