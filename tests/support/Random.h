// Random numbers of a test, by a seed that a failure names and a person can set.
#pragma once

#include <cstdint>
#include <random>
#include <string>

namespace tvx::test {

/// A fresh seed each run, or the number in the environment variable TVX_TEST_SEED. Put Trace() into a
/// SCOPED_TRACE, so that a failure can be run again.
class Random {
  public:
    Random();

    std::string Trace() const { return "TVX_TEST_SEED=" + std::to_string(seed_); }
    /// A whole number from `low` to `high`, both included.
    std::int64_t Whole(std::int64_t low, std::int64_t high);
    bool Chance(int percent) { return Whole(1, 100) <= percent; }
    /// Up to `most` bytes of any kind.
    std::string Bytes(std::size_t most);
    /// Up to `most` characters out of `alphabet`.
    std::string TextOf(std::string_view alphabet, std::size_t most);
    /// `content` with some bytes changed, cut out, put in or repeated.
    std::string Mutated(std::string content);

  private:
    std::uint64_t seed_;
    std::mt19937_64 engine_;
};

} // namespace tvx::test
