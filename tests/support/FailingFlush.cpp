#include "support/FailingFlush.h"

#include <cerrno>
#include <csignal>
#include <optional>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace tvx::test {
namespace {

struct State {
    std::optional<FailingFlush::Which> which;
    int nth = 0;
    int count = 0;
    int failed = 0;
    int callsToPowerCut = 0; // 0: none
};

State& Present() {
    static State state;
    return state;
}

bool IsFolder(int file) {
    struct stat found {};
    return fstat(file, &found) == 0 && S_ISDIR(found.st_mode);
}

bool Fails(int file) {
    State& state = Present();
    ++state.count;
    if (!state.which) return false;
    switch (*state.which) {
    case FailingFlush::Which::Nth:
        return state.count == state.nth;
    case FailingFlush::Which::All:
        return true;
    case FailingFlush::Which::Folders:
        return IsFolder(file);
    }
    return false;
}

void CountCall() {
    int& calls = Present().callsToPowerCut;
    if (calls > 0 && --calls == 0) std::raise(SIGKILL);
}

int Flush(int file, long systemCall) {
    CountCall();
    if (!Fails(file)) return static_cast<int>(syscall(systemCall, file));
    ++Present().failed;
    errno = EIO;
    return -1;
}

} // namespace

FailingFlush::FailingFlush(Which which, int nth) {
    Present() = {which, nth};
}

FailingFlush::~FailingFlush() {
    Present().which.reset();
}

int FailingFlush::Count() {
    return Present().count;
}

int FailingFlush::Failed() {
    return Present().failed;
}

void CutPowerAt(int nth) {
    Present().callsToPowerCut = nth;
}

} // namespace tvx::test

// In place of the system's own, in the whole program.
extern "C" int fsync(int file) {
    return tvx::test::Flush(file, SYS_fsync);
}

extern "C" int fdatasync(int file) {
    return tvx::test::Flush(file, SYS_fdatasync);
}

extern "C" ssize_t pwrite64(int file, const void* bytes, size_t count, off64_t offset) {
    tvx::test::CountCall();
    return syscall(SYS_pwrite64, file, bytes, count, offset);
}
