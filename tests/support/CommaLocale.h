// A desktop set to a country that writes a comma for the decimal point.
#pragma once

namespace tvx::test {

/// While it lives, the C library reads and writes numbers with a decimal comma, as it does on such a desktop.
/// Made for the purpose, so that no language needs to be installed.
class CommaLocale {
  public:
    CommaLocale();
    ~CommaLocale();
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

    /// False when the machine cannot make a locale: skip the test then.
    bool IsSet() const { return set_; }

  private:
    bool set_ = false;
};

} // namespace tvx::test
