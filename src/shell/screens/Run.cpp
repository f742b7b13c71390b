#include "shell/screens/Run.h"

#include "desktop/Application.h"
#include "desktop/Parts.h"
#include "desktop/QtPorts.h"
#include "platform/files/Folder.h"
#include "shell/screens/ConsoleForm.h"
#include "shell/screens/RegisterScreens.h"
#include "store/FirstDatabase.h"
#include "store/StoreTeller.h"

#include <QApplication>
#include <QIcon>
#include <QStandardPaths>

#include <filesystem>
#include <memory>

namespace fs = std::filesystem;

namespace tvx::qt {
namespace {

fs::path FolderOfShipped() {
    return ShippedFolder(QCoreApplication::applicationDirPath().toStdU16String());
}

QIcon ProgramIcon() {
    QIcon icon;
    for (const char* size : {"16", "32", "48", "256"})
        icon.addFile(QStringLiteral(":/icons/tarvex-%1.png").arg(QLatin1String(size)));
    return icon;
}

/// The folder of the side files and, by default, of the database.
fs::path FindProgramFolder() {
    const fs::path users =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation).toStdU16String() + u"/tarvex";
    return ProgramFolder(FolderOfShipped(), users, {"TVX.JAN", "1.SFT"});
}

/// A folder of the program, other than the one that is used, in which a database lies; "" when there is none.
fs::path FindUnusedDatabase(const fs::path& used) {
    const fs::path besideProgram = QCoreApplication::applicationDirPath().toStdU16String();
    for (const fs::path& folder : {FolderOfShipped(), besideProgram})
        if (folder != used && FindFile(folder, DatabaseFile)) return folder;
    return {};
}

/// From the search for the program's folder to the end of the run. Nothing can be done without the console.
int RunConsole(QtPrompt& prompt, Teller& teller, const RunOptions& options) {
    GlobalState g;
    g.paths.ProgramPath = FindProgramFolder();
    g.paths.UnusedPath = FindUnusedDatabase(g.paths.ProgramPath);
    QtClock clock;
    QtRegion region;
    QtScreen screen;
    QtInstance instance(g.paths.ProgramPath);
    QtHelp help(FolderOfShipped() / "help");
    Ports ports{prompt, options.clock != nullptr ? *options.clock : clock, region, help, screen, instance,
                teller};
    Screens screens;
    RegisterScreens(screens, g, ports);
    std::unique_ptr<ConsoleForm> console;
    if (!StartConsole(g, ports, screens, console)) return 0;
    if (options.whenConsoleShows) options.whenConsoleShows(*console);
    return QApplication::exec();
}

} // namespace

int RunTarvex(int count, char** arguments, const RunOptions& options) {
    Application application(count, arguments);
    QApplication::setApplicationName(QStringLiteral("Tarvex"));
    QApplication::setQuitOnLastWindowClosed(false); // the console ends the run
    QApplication::setWindowIcon(ProgramIcon());
    QApplication::setDesktopFileName(
        QStringLiteral("tarvex")); // by it a desktop finds the entry of the program
    SetUpLook();
    InstallPartsAccessibility();

    QtPrompt prompt;
    StoreTeller teller(prompt);
    application.TellBy([&](const std::exception& trouble) { teller.Tell(trouble); });
    try {
        return RunConsole(prompt, teller, options);
    } catch (const std::exception& trouble) { // the start stands outside the event loop and its net
        teller.Tell(trouble);
        return 0;
    }
}

} // namespace tvx::qt
