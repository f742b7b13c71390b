#include "desktop/QtPorts.h"
#include "support/ChildProcess.h"
#include "support/TempFolder.h"

#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <optional>

namespace tvx::qt {
namespace {

class InstanceTest : public testing::Test {
  protected:
    test::TempFolder session;
    test::TempFolder program;

    void SetUp() override { qputenv("XDG_RUNTIME_DIR", session.Path().c_str()); }
    void TearDown() override { qunsetenv("XDG_RUNTIME_DIR"); }
    /// The file of the session that a run has locked.
    std::filesystem::path LockFile() {
        QtInstance run(program.Path());
        EXPECT_TRUE(run.Claim());
        for (const std::string& name : test::NamesIn(session.Path()))
            if (name.ends_with(".lock")) return session / name;
        ADD_FAILURE() << "no lock file";
        return {};
    }
};

TEST_F(InstanceTest, is_one_for_each_folder_of_the_program) {
    QtInstance first(program.Path());
    EXPECT_TRUE(first.Claim());
    EXPECT_TRUE(first.Claim()) << "again by itself";
    EXPECT_FALSE(QtInstance(program.Path()).Claim());
    EXPECT_FALSE(QtInstance(program / ".").Claim()) << "the same folder";
    const test::TempFolder elsewhere;
    EXPECT_TRUE(QtInstance(elsewhere.Path()).Claim());
    EXPECT_TRUE(test::NamesIn(program.Path()).empty()) << "no file is touched";
}

TEST_F(InstanceTest, starts_whatever_stands_in_the_file_that_an_earlier_run_left) {
    const std::filesystem::path lock = LockFile();
    for (const std::string& content :
         {std::string(), std::string("garbage"), std::string("1\nTarvex\nanother-host\n\n\n"),
          std::string(3000, '\0')}) {
        test::WriteFile(lock, content);
        EXPECT_TRUE(QtInstance(program.Path()).Claim()) << '"' << content << '"';
    }
    std::filesystem::permissions(lock, std::filesystem::perms::none);
    EXPECT_TRUE(QtInstance(program.Path()).Claim()) << "a file that nobody may open";
}

TEST_F(InstanceTest, is_free_again_when_the_run_was_killed) {
    for (int round = 0; round < 5; ++round) {
        test::ChildProcess run([&](test::ChildProcess& test) {
            QtInstance instance(program.Path());
            test.Say(instance.Claim() ? "claimed" : "refused");
            test.Hear();
        });
        ASSERT_EQ(run.Hear(), "claimed") << round;
        EXPECT_FALSE(QtInstance(program.Path()).Claim());
        run.Kill();
    }
    EXPECT_TRUE(QtInstance(program.Path()).Claim());
}

TEST_F(InstanceTest, brings_its_windows_to_the_front_when_a_second_start_asks) {
    QtInstance first(program.Path());
    ASSERT_TRUE(first.Claim());
    QWidget window;
    window.showMinimized();
    ASSERT_TRUE(window.isMinimized());
    QtInstance second(program.Path());
    ASSERT_FALSE(second.Claim());
    second.RaiseOther();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !window.isMinimized(); }, 2000));
    EXPECT_TRUE(window.isVisible());
}

TEST_F(InstanceTest, asks_nobody_where_nobody_hears) {
    QtInstance(program.Path()).RaiseOther();
    LockFile();
    QtInstance(program.Path()).RaiseOther();
}

/// The flags of the box that a prompt shows now.
Qt::WindowFlags FlagsOfBox() {
    Qt::WindowFlags flags;
    QTimer::singleShot(0, [&] {
        flags = QApplication::activeModalWidget()->windowFlags();
        qobject_cast<QMessageBox*>(QApplication::activeModalWidget())->accept();
    });
    QtPrompt().MsgBox("Tarvex already running", box::Ok, "Tarvex");
    return flags;
}

TEST_F(InstanceTest, that_shows_nothing_else_keeps_its_box_on_top) {
    EXPECT_TRUE(FlagsOfBox().testFlag(Qt::WindowStaysOnTopHint));
    QWidget window;
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_FALSE(FlagsOfBox().testFlag(Qt::WindowStaysOnTopHint)) << "a box of a window stays with it";
}

} // namespace
} // namespace tvx::qt
