// A disk that is full for a while, for this process alone.
#pragma once

#include <csignal>
#include <sys/resource.h>

namespace tvx::test {

/// While it lives no file of this process grows beyond some bytes.
class FullDisk {
  public:
    explicit FullDisk(rlim_t bytes) : before_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &limit_);
        const rlimit low{bytes, limit_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &low);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &limit_);
        std::signal(SIGXFSZ, before_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit limit_{};
    void (*before_)(int);
};

} // namespace tvx::test
