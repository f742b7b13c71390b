#include "support/ChildProcess.h"

#include <array>
#include <csignal>
#include <exception>
#include <grp.h>
#include <poll.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tvx::test {
namespace {

constexpr int Patience = 60000; // milliseconds
constexpr uid_t Nobody = 65534;

void BecomeAnotherUser() {
    if (geteuid() != 0) return;
    if (setgroups(0, nullptr) != 0 || setgid(Nobody) != 0 || setuid(Nobody) != 0)
        throw std::runtime_error("cannot become another user");
}

void LimitFiles(std::size_t bytes) {
    // Without the signal a write beyond the limit fails as one on a full disk does.
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{bytes, bytes};
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) throw std::runtime_error("cannot limit the files");
}

std::string Ask(const std::function<void()>& first, const std::function<std::string()>& work) {
    ChildProcess child([&](ChildProcess& test) {
        first();
        test.Say(work());
    });
    return child.Hear();
}

} // namespace

ChildProcess::ChildProcess(const Work& work) {
    if (Fork()) Run(work);
}

ChildProcess::ChildProcess(const std::filesystem::path& program) {
    if (Fork()) Become(program);
}

/// True in the new process.
bool ChildProcess::Fork() {
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
        throw std::runtime_error("no pair of sockets");
    child_ = fork();
    if (child_ < 0) throw std::runtime_error("no second process");
    const bool here = child_ > 0;
    line_ = here ? ends[0] : ends[1];
    close(here ? ends[1] : ends[0]);
    return !here;
}

void ChildProcess::Become(const std::filesystem::path& program) const {
    if (dup2(line_, STDIN_FILENO) >= 0 && dup2(line_, STDOUT_FILENO) >= 0)
        execl(program.c_str(), program.c_str(), nullptr);
    _exit(127);
}

void ChildProcess::Run(const Work& work) {
    try {
        work(*this);
    } catch (const std::exception& trouble) {
        Say(std::string("exception: ") + trouble.what());
    }
    _exit(0);
}

ChildProcess::~ChildProcess() {
    Kill();
    close(line_);
}

void ChildProcess::Say(std::string_view word) const {
    const std::string line = std::string(word) + "\n";
    // The other side may be gone already; it hears nothing then.
    [[maybe_unused]] const ssize_t sent = send(line_, line.data(), line.size(), MSG_NOSIGNAL);
}

std::string ChildProcess::Hear() {
    std::size_t end = 0;
    while ((end = heard_.find('\n')) == std::string::npos) {
        pollfd ready{line_, POLLIN, 0};
        std::array<char, 4096> buffer{};
        if (poll(&ready, 1, Patience) <= 0) return "";
        const ssize_t got = read(line_, buffer.data(), buffer.size());
        if (got <= 0) return "";
        heard_.append(buffer.data(), static_cast<std::size_t>(got));
    }
    const std::string word = heard_.substr(0, end);
    heard_.erase(0, end + 1);
    return word;
}

void ChildProcess::Kill() {
    if (child_ <= 0) return;
    kill(child_, SIGKILL);
    Wait();
}

bool ChildProcess::Wait() {
    int status = 0;
    if (child_ <= 0 || waitpid(child_, &status, 0) != child_) return false;
    child_ = -1;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

std::string AskAnotherUser(const std::function<std::string()>& work) {
    return Ask(BecomeAnotherUser, work);
}

std::string AskOnFullDisk(std::size_t bytes, const std::function<std::string()>& work) {
    return Ask([bytes] { LimitFiles(bytes); }, work);
}

} // namespace tvx::test
