// Flushes that fail: what happens when the system cannot put on the disk what was written.
#pragma once

namespace tvx::test {

/// While it lives, flushes of this process fail as on a broken disk. A program that uses it has its own
/// fsync, fdatasync and pwrite64, which the engine calls as well.
class FailingFlush {
  public:
    enum class Which { Nth, All, Folders };
    /// The nth from now on, the first being 1; or all; or those of folders.
    explicit FailingFlush(Which which, int nth = 0);
    ~FailingFlush();
    FailingFlush(const FailingFlush&) = delete;
    FailingFlush& operator=(const FailingFlush&) = delete;

    /// Flushes since it began, and those of them that failed.
    static int Count();
    static int Failed();
};

/// Ends this process at the nth flush, or write to a place of a file, from now on, as a power cut would. For
/// a second process of a test.
void CutPowerAt(int nth);

} // namespace tvx::test
