// A second process of a test: another workstation, or another user of this one.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace tvx::test {

/// Runs work in a process of its own. Both sides talk in words, one line each. Start work of the test itself
/// before anything is opened that two processes must not share, a database above all; a program shares
/// nothing and may start at any time.
class ChildProcess {
  public:
    using Work = std::function<void(ChildProcess& test)>;

    /// An exception that leaves the work is said as a word.
    explicit ChildProcess(const Work& work);
    /// Runs a program, which hears the words on its input and says its own on its output.
    explicit ChildProcess(const std::filesystem::path& program);
    /// Kills what still runs.
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    void Say(std::string_view word) const;
    /// The next word of the other side; "" when it is gone, or has been silent for a minute.
    std::string Hear();

    /// Ends the process at once, as a power cut would, and waits until it is gone.
    void Kill();
    /// Waits until the process has ended. True when it ended by itself.
    bool Wait();

  private:
    bool Fork();
    [[noreturn]] void Run(const Work& work);
    [[noreturn]] void Become(const std::filesystem::path& program) const;

    pid_t child_ = -1;
    int line_ = -1;
    std::string heard_;
};

/// What the work says when it is done by a user without rights of his own; the tests themselves may run as
/// root, whom no permission stops. The folders on the way must be open to that user.
std::string AskAnotherUser(const std::function<std::string()>& work);

/// What the work says in a process whose files cannot grow beyond `bytes`, as on a full disk.
std::string AskOnFullDisk(std::size_t bytes, const std::function<std::string()>& work);

} // namespace tvx::test
