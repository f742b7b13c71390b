// Controls that share a designer name and differ by an index.
#pragma once

#include <cstddef>
#include <map>

namespace tvx::qt {

/// Controls that share a designer name and differ by an index, which need not begin at 0.
template <typename T>
class ControlArray {
  public:
    T& operator[](int index) const { return *controls_.at(index); }
    bool Has(int index) const { return controls_.contains(index); }
    void Put(int index, T& control) { controls_[index] = &control; }
    std::size_t Count() const { return controls_.size(); }
    auto begin() const { return controls_.begin(); } // of pairs: index, control
    auto end() const { return controls_.end(); }

  private:
    std::map<int, T*> controls_;
};

} // namespace tvx::qt
