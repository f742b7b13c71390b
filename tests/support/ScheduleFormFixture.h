// The example week in memory, a printer that only notes, and the schedule form over both.
#pragma once

#include "ExampleText.h"
#include "platform/files/FileError.h"
#include "reports/screens/ScheduleForm.h"
#include "shell/common/TVXMOD1.h"
#include "shell/console/Console.h"
#include "support/Screens.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace tvx {

/// Notes what was printed.
class ScriptedPrinter : public Printer {
  public:
    bool accepts = true;
    bool fails = false;
    Paper sheet;
    int asked = 0;
    int printed = 0; // documents
    int pages = 0;   // of the last one
    PageOrientation orientation = PageOrientation::Portrait;
    std::string title;
    std::vector<std::string> texts;
    ReportFont font; // of the first text

    std::filesystem::path proposed;
    std::optional<std::filesystem::path> file; // to which it prints
    bool PrintDialog(PageOrientation wanted, const std::string& name,
                     const std::filesystem::path& pdf) override {
        proposed = pdf;
        ++asked;
        orientation = wanted;
        title = name;
        return accepts;
    }
    Paper Sheet() const override { return sheet; }
    std::optional<std::filesystem::path> Print(const VpDocument& document) override {
        if (fails) throw FileError(FileErrorNumber::DiskFull, "No space left");
        ++printed;
        pages = document.PageCount();
        texts.clear();
        for (int page = 1; page <= pages; ++page)
            for (const PageOperation& operation : document.Page(page))
                if (const auto* text = std::get_if<DrawnPageText>(&operation)) {
                    if (texts.empty()) font = document.FontAt(text->font);
                    texts.push_back(text->text);
                }
        return file;
    }
    bool Has(const std::string& text) const {
        return std::find(texts.begin(), texts.end(), text) != texts.end();
    }
};

class ScheduleFormFixture : public testing::Test {
  protected:
    static constexpr DaySerial ExampleSunday = 38774;

    test::TestStore store;
    GlobalState& g = store.g;
    ScriptedPrinter printer;
    std::unique_ptr<qt::ScheduleForm> form;

    void SetUp() override {
        g.store.Db.reset();
        std::filesystem::remove(store.folder / "TVX.MDB");
        MakeExampleDatabase(std::filesystem::path(TVX_SOURCE_DIR) / "data/example", store.folder / "TVX.MDB");
        g.store.Db = g.store.Engine.OpenDatabase(store.folder / "TVX.MDB");
        ConsoleFace face;
        RefreshDepartments(g, store.ports(), face);
        store.OpenWeek(ExampleSunday);
        LoadDayTypes(g.store, 1, g.daytypes);
    }

    qt::ScheduleForm& Open(ScheduleKind kind) {
        form = std::make_unique<qt::ScheduleForm>(g, store.ports(), printer, SchedulesRequest{kind}, nullptr);
        form->ShowModeless();
        return *form;
    }
    template <typename T = QWidget>
    T& Get(const std::string& name) {
        return test::Find<T>(*form, name);
    }
    bool Shown(const std::string& name) { return Get(name).isVisible(); }
    bool Checked(const std::string& name) { return Get<QAbstractButton>(name).isChecked(); }
    std::string Caption(const std::string& name) { return Get<QAbstractButton>(name).text().toStdString(); }
    std::string Title() const { return form->windowTitle().toStdString(); }
    /// Clicks a control; a box or a round option on its mark, since its text may end before its middle.
    void Click(const std::string& name) {
        auto* option = form->findChild<QAbstractButton*>(qt::ToQString(name));
        if (option == nullptr || !option->isCheckable()) return test::Click(*form, name);
        EXPECT_TRUE(option->isEnabled() && option->isVisible()) << name;
        QTest::mouseClick(option, Qt::LeftButton, Qt::NoModifier, QPoint(8, option->height() / 2));
    }
    /// "Page 2 of 3" of the preview.
    std::string PageShown() { return Get<qt::Label>("lblPage").text().toStdString(); }
    std::string SettingsFile(const std::string& extension) const {
        return test::ReadFile(store.folder / ("1" + extension));
    }
};

} // namespace tvx
