// Entry: makes the application, the one global state and the ports, and starts the console.
#include "editor/screens/TimeGrid.h"
#include "platform/files/Folder.h"
#include "platform/qt/QtPorts.h"
#include "shell/screens/ConsoleForm.h"

#include <QApplication>
#include <QStandardPaths>

#include <filesystem>
#include <memory>

namespace fs = std::filesystem;

namespace {

/// The folder of the side files and, by default, of the database.
fs::path FindProgramFolder() {
    const fs::path own = QCoreApplication::applicationDirPath().toStdU16String();
    const fs::path users =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation).toStdU16String() + u"/tarvex";
    return tvx::ProgramFolder(own, users, {"TVX.JAN", "1.SFT"});
}

} // namespace

int main(int count, char** arguments) {
    const QApplication application(count, arguments);
    QApplication::setApplicationName(QStringLiteral("Tarvex"));
    QApplication::setQuitOnLastWindowClosed(false); // the console ends the run
    tvx::qt::SetUpLook();
    tvx::qt::InstallGridAccessibility();

    tvx::GlobalState g;
    g.paths.ProgramPath = FindProgramFolder();
    tvx::qt::QtPrompt prompt;
    tvx::qt::QtClock clock;
    tvx::qt::QtRegion region;
    tvx::qt::QtScreen screen;
    tvx::qt::QtInstance instance(g.paths.ProgramPath);
    tvx::qt::QtHelp help(fs::path(QCoreApplication::applicationDirPath().toStdU16String()) / "help");
    tvx::Ports ports{prompt, clock, region, help, screen, instance};

    std::unique_ptr<tvx::qt::ConsoleForm> console;
    if (!tvx::qt::StartConsole(g, ports, console)) return 0;
    return QApplication::exec();
}
