// Tells errors that nobody expected in the words of the table of troubles.
#pragma once

#include "platform/ports/Teller.h"
#include "store/Troubles.h"

namespace tvx {

class StoreTeller : public Teller {
  public:
    explicit StoreTeller(Prompt& prompt) : prompt_(prompt) {}
    void Tell(const std::exception& trouble) override {
        TellTrouble(prompt_, TroubleOf(Occasion::Working, trouble));
    }

  private:
    Prompt& prompt_;
};

} // namespace tvx
