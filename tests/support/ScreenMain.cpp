// The start of every program of screen tests: one application on a screen of 1920 x 1080 that nobody sees.
#include "desktop/Application.h"
#include "desktop/QtPorts.h"
#include "support/Screens.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    const auto screen =
        std::filesystem::temp_directory_path() / ("tarvex-screen-" + std::to_string(getpid()) + ".json");
    std::ofstream(screen)
        << R"({"screens":[{"name":"s","x":0,"y":0,"width":1920,"height":1080,"logicalDpi":96,)"
        << R"("logicalBaseDpi":96,"dpr":1}]})";
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QByteArray::fromStdString(screen.string()));
    const tvx::qt::Application application(count, arguments); // its net is for the tests that ask for it
    std::filesystem::remove(screen);
    QApplication::setQuitOnLastWindowClosed(false);
    tvx::qt::SetUpLook();
    tvx::test::WatchOverTests();
    return RUN_ALL_TESTS();
}
