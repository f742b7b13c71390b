// The database engine as tests want it.
#pragma once

#include "platform/dao/DaoError.h"
#include "platform/dao/Database.h"

#include <cstdlib>

namespace tvx::test {

/// Short of patience, so that a refusal is soon there. A program registered as a store test runs twice; the
/// second time rows that have no stated order come backwards, which shows who leans on it.
inline dao::EngineOptions TestOptions(int busyMilliseconds = 300) {
    dao::EngineOptions options;
    options.busyMilliseconds = busyMilliseconds;
    options.reverseUnorderedSelects = std::getenv("TVX_TEST_REVERSED_ROWS") != nullptr;
    return options;
}

inline dao::Engine TestEngine(int busyMilliseconds = 300) {
    return dao::Engine(TestOptions(busyMilliseconds));
}

/// The number of the error that the work meets; 0 when it meets none.
template <typename Work>
int DaoErrorOf(const Work& work) {
    try {
        work();
        return 0;
    } catch (const dao::DaoError& trouble) {
        return trouble.Number();
    }
}

} // namespace tvx::test
