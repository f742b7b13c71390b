// What went wrong with a file, as a number to compare.
#pragma once

#include "platform/files/FileError.h"

namespace tvx::test {

/// The number of the trouble that the work meets; 0 when it meets none.
template <typename Work>
int NumberOf(const Work& work) {
    try {
        work();
        return 0;
    } catch (const FileError& trouble) {
        return trouble.Number();
    }
}

} // namespace tvx::test
