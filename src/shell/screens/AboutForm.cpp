#include "shell/screens/AboutForm.h"

#include "shell/console/Console.h"

#include <QSysInfo>

namespace tvx::qt {
namespace {

/// What a person is asked for when something does not work: the system, the libraries, the folders.
std::string SystemInformation(const GlobalState& g) {
    const QString system = QSysInfo::prettyProductName();
    if (system.isEmpty()) return "";
    return FromQString(system + QStringLiteral("\nProcessor: ") + QSysInfo::currentCpuArchitecture() +
                       QStringLiteral("\nScreens drawn with Qt ") + QLatin1String(qVersion())) +
           "\nProgram folder: " + g.paths.ProgramPath.string() +
           "\nDatabase folder: " + g.paths.DatabasePath.string();
}

} // namespace

AboutForm::AboutForm(const GlobalState& g, Ports& ports, Form* owner)
    : Form(ports, "frmAbout", owner), g_(g) {
    setWindowTitle(QStringLiteral("About Tarvex"));
    QVBoxLayout& column = Column();
    column.setContentsMargins(Pixels(360), Pixels(300), Pixels(360), Pixels(240));
    auto& title = Add<Label>("lblTitle", "Program");
    QFont font = title.font();
    font.setPointSizeF(16);
    font.setBold(true);
    title.setFont(font);
    title.SetText("Tarvex");
    auto& version = Add<Label>("lblVersion", "Version");
    version.SetText("Version " + std::to_string(ProgramMajor) + "  Revision " +
                    std::to_string(ProgramRevision));
    auto& purpose = Add<Label>("lblDescription", "Purpose");
    purpose.SetText("Plans the working hours of hourly staff.");
    for (QWidget* line : std::initializer_list<QWidget*>{&title, &version, &purpose}) column.addWidget(line);
    column.addSpacing(Pixels(240));
    QHBoxLayout& buttons = Row(column);
    buttons.addStretch();
    AddCommand({"cmdSysInfo", "&System Info...", [this] { StartSysInfo(); }}, buttons)
        .setAccessibleName(QStringLiteral("System information"));
    QPushButton& ok = AddCommand({"cmdOK", "OK", [this] { Unload(); }, Role::Default}, buttons);
    SetCancelButton(ok);
    FixSize();
    ok.setFocus();
}

void AboutForm::StartSysInfo() {
    const std::string facts = SystemInformation(g_);
    ports_.prompt.MsgBox(facts.empty() ? "System Information Is Unavailable At This Time" : facts, box::Ok,
                         "System information");
}

} // namespace tvx::qt
