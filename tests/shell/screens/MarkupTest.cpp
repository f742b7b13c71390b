// Names, words and memos that look like markup, on every screen: each is read as it was typed.
#include "desktop/QtPorts.h"
#include "editor/screens/MainEditorForm.h"
#include "masterdata/DaytypesRequest.h"
#include "masterdata/DepartmentRequest.h"
#include "masterdata/EmployeeRequest.h"
#include "masterdata/SearchRequest.h"
#include "masterdata/ShiftsRequest.h"
#include "reports/schedules/SchedulesRequest.h"
#include "shell/common/TVXMOD1.h"
#include "shell/screens/ConsoleForm.h"
#include "shell/screens/RegisterScreens.h"
#include "support/Screens.h"
#include "support/TestEngine.h"
#include "support/TestStore.h"

#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QTextDocument>
#include <QTimer>
#include <QToolTip>

#include <gtest/gtest.h>

#include <fstream>

namespace tvx {
namespace {

const std::string Short = "<b>x</b>";
const std::string Long = "<b>x</b><img src=file:///p>";

/// What a person reads of a label's text.
std::string ReadText(const QLabel& label) {
    const bool markup = label.textFormat() == Qt::RichText ||
                        (label.textFormat() == Qt::AutoText && Qt::mightBeRichText(label.text()));
    if (!markup) return label.text().toStdString();
    QTextDocument document;
    document.setHtml(label.text());
    return document.toPlainText().toStdString();
}

/// What a person reads of the tooltip of a control.
std::string ReadTip(QWidget& control) {
    QHelpEvent event(QEvent::ToolTip, control.rect().center(), control.mapToGlobal(control.rect().center()));
    QApplication::sendEvent(&control, &event);
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->inherits("QTipLabel"))
            return ReadText(*qobject_cast<QLabel*>(window));
    return "no tip";
}

class MarkupTest : public testing::Test {
  protected:
    test::TestStore store;
    qt::Screens screens;
    int marked = 0; // texts that look like markup, on all that was looked at

    void SetUp() override {
        store.AddDepartment(Long);
        store.AddEmployee({.lastName = Short, .firstName = Short, .pay = "7"});
        store.PutFigures(46083, 0, 0, Long);
        PutDaytype();
        std::ofstream(store.folder / "1.SFT", std::ios::binary) << '"' << Short << "\"\r\n1\r\n36\r\n68\r\n";
        store.script.clock.Set(46083);
        qt::RegisterScreens(screens, store.g, store.ports());
    }
    void PutDaytype() {
        dao::Recordset rows = store.db().OpenRecordset("Day Types");
        rows.AddNew();
        rows.Fields("Dep number") = store.g.department.CurrentDepNumber;
        rows.Fields("Symbol") = "CA";
        rows.Fields("Explaination") = Short;
        rows.Update();
    }
    void OpenEditor() {
        store.OpenEditor();
        Department& words = store.g.department;
        words.EmployeeNameSingle = words.EmployeeNamePlural = Short;
        words.DayOffNameSingle = words.DayOffNamePlural = Short;
    }

    void ExpectPlain(const QWidget& form) {
        for (const auto* label : form.findChildren<QLabel*>()) {
            EXPECT_EQ(ReadText(*label), label->text().toStdString()) << label->objectName().toStdString();
            if (Qt::mightBeRichText(label->text())) ++marked;
        }
        for (auto* control : form.findChildren<QWidget*>()) {
            if (!Qt::mightBeRichText(control->toolTip()) || !control->isVisible()) continue;
            ++marked;
            EXPECT_EQ(ReadTip(*control), control->toolTip().toStdString())
                << control->objectName().toStdString();
        }
        QToolTip::hideText();
    }
    /// Opens the screen of a request over another form, and reads it.
    template <typename Request>
    void Read(const char* window, const Request& request, qt::Form& owner) {
        test::WhenShown(window, [this](QWidget& form) {
            ExpectPlain(form);
            dynamic_cast<qt::Form&>(form).Unload();
        });
        screens.Open(request, owner);
    }
};

TEST_F(MarkupTest, is_plain_text_on_every_form) {
    OpenEditor();
    qt::MainEditorForm editor(store.g, store.ports(), screens, nullptr);
    editor.ShowModeless();
    test::Find<qt::TextBox>(editor, "Text1(1)").onHover();
    ExpectPlain(editor);
    EXPECT_GE(marked, 4) << "a name, a memo and words of the department";
    Read("Form22", DaytypesRequest{ListRequest::Drop, 1, 1}, editor);
    Read("Form23", ShiftsRequest{ListRequest::Drop, 1, 1}, editor);
    Read("Form13", DepartmentRequest{FormCommand::Change}, editor);
    Read("Form5", SearchRequest{FormCommand::Change}, editor);
    Read("Form4", EmployeeRequest{1}, editor);
    for (const auto kind : {ScheduleKind::Long, ScheduleKind::Short, ScheduleKind::Selected})
        Read("Form8", SchedulesRequest{kind}, editor);
}

TEST_F(MarkupTest, is_plain_text_on_the_console) {
    GlobalState g;
    CloseDatabase(store.g.store, store.prompt());
    g.store.Engine = dao::Engine(test::TestEngineOptions());
    g.paths.ProgramPath = store.folder.Path();
    qt::ConsoleForm console(g, store.ports(), screens);
    ASSERT_EQ(console.Load(), LoadResult::Ready);
    console.ShowModeless();
    ExpectPlain(console);
    EXPECT_GE(marked, 1);
}

TEST_F(MarkupTest, is_plain_text_in_boxes) {
    QTimer::singleShot(0, [this] {
        QWidget* box = QApplication::activeModalWidget();
        ASSERT_NE(box, nullptr);
        ExpectPlain(*box);
        box->close();
    });
    qt::QtPrompt().Show({Long + "\nis gone.", box::Ok, "Gone", Long + " held it."});
    EXPECT_EQ(marked, 2);
}

} // namespace
} // namespace tvx
