#include "support/ReadFault.h"

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <fcntl.h>
#include <string_view>
#include <sys/syscall.h>
#include <unistd.h>

namespace tvx::test {
namespace {

struct Planned {
    bool armed = false;
    std::string name;
    int call = 0;
    int code = 0;
    int reads = 0;
    int met = 0;
};

Planned& Plan() {
    static Planned plan;
    return plan;
}

bool IsNamed(std::string_view path) {
    const std::string& name = Plan().name;
    return path.ends_with("/" + name);
}

bool IsOpenAs(int file) {
    std::array<char, 4096> path{};
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    const ssize_t length = readlink(link.c_str(), path.data(), path.size());
    return length > 0 && IsNamed({path.data(), static_cast<std::size_t>(length)});
}

int Fail() {
    ++Plan().met;
    errno = Plan().code;
    return -1;
}

bool OpeningFails(const char* path) {
    return Plan().armed && Plan().call == 0 && IsNamed(path);
}

bool ReadingFails(int file) {
    if (!Plan().armed || Plan().call == 0 || !IsOpenAs(file)) return false;
    return ++Plan().reads == Plan().call || Plan().call == ReadFault::EveryRead;
}

} // namespace

ReadFault::ReadFault(std::string name, int call, int code) {
    Plan() = {.armed = true, .name = std::move(name), .call = call, .code = code};
}

ReadFault::~ReadFault() {
    Plan() = {};
}

int ReadFault::Met() const {
    return Plan().met;
}

} // namespace tvx::test

// The two calls of the system stand in for the library's in a program that is linked with this file.
extern "C" {

ssize_t read(int file, void* to, std::size_t bytes) {
    if (tvx::test::ReadingFails(file)) return tvx::test::Fail();
    return syscall(SYS_read, file, to, bytes);
}

int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const int mode = (flags & O_CREAT) != 0 ? va_arg(rest, int) : 0;
    va_end(rest);
    if (tvx::test::OpeningFails(path)) return tvx::test::Fail();
    return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}
}
