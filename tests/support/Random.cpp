#include "support/Random.h"

#include <algorithm>
#include <cstdlib>

namespace tvx::test {
namespace {

std::uint64_t ChooseSeed() {
    if (const char* given = std::getenv("TVX_TEST_SEED")) return std::strtoull(given, nullptr, 10);
    return std::random_device()();
}

} // namespace

Random::Random() : seed_(ChooseSeed()), engine_(seed_) {}

std::int64_t Random::Whole(std::int64_t low, std::int64_t high) {
    return std::uniform_int_distribution<std::int64_t>(low, high)(engine_);
}

std::string Random::Bytes(std::size_t most) {
    std::string bytes(static_cast<std::size_t>(Whole(0, static_cast<std::int64_t>(most))), '\0');
    for (char& byte : bytes) byte = static_cast<char>(Whole(0, 255));
    return bytes;
}

std::string Random::TextOf(std::string_view alphabet, std::size_t most) {
    std::string text(static_cast<std::size_t>(Whole(0, static_cast<std::int64_t>(most))), '\0');
    for (char& c : text)
        c = alphabet[static_cast<std::size_t>(Whole(0, static_cast<std::int64_t>(alphabet.size()) - 1))];
    return text;
}

std::string Random::Mutated(std::string content) {
    for (std::int64_t changes = Whole(1, 8); changes > 0; --changes) {
        const auto at = static_cast<std::size_t>(Whole(0, static_cast<std::int64_t>(content.size())));
        const std::size_t length = std::min<std::size_t>(content.size() - at, 1 + Bytes(16).size());
        switch (Whole(0, 3)) {
        case 0:
            if (at < content.size()) content[at] = static_cast<char>(Whole(0, 255));
            break;
        case 1:
            content.erase(at, length);
            break;
        case 2:
            content.insert(at, Bytes(8));
            break;
        default:
            content.insert(at, content.substr(at, length));
        }
    }
    return content;
}

} // namespace tvx::test
