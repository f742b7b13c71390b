// Tells the person of an error that nobody expected.
#pragma once

#include <exception>

namespace tvx {

class Teller {
  public:
    virtual ~Teller() = default;

    /// Shows what went wrong in words, and gives the pointer back to the controls.
    virtual void Tell(const std::exception& trouble) = 0;
};

} // namespace tvx
