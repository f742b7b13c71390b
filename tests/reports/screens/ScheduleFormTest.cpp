#include "reports/screens/ScheduleForm.h"

#include "ExampleText.h"
#include "editor/GridView.h"
#include "editor/LoadWeek.h"
#include "masterdata/ProductivityFile.h"
#include "reports/HtmlDocument.h"
#include "reports/HtmlSchedules.h"
#include "reports/screens/DocumentPainter.h"
#include "shell/Console.h"
#include "shell/Conversions.h"
#include "shell/RosterBuilder.h"
#include "shell/TVXMOD1.h"
#include "support/Screens.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

constexpr DaySerial ExampleSunday = 38774;

/// Notes what was printed.
class ScriptedPrinter : public Printer {
  public:
    bool accepts = true;
    int printed = 0;
    bool PrintDialog(PageOrientation, const std::string&) override { return accepts; }
    Paper Sheet() const override { return {}; }
    void Print(const VpDocument& document) override { printed = document.PageCount(); }
};

class ScheduleFormTest : public testing::Test {
  protected:
    test::TestStore store;
    ScriptedPrinter printer;

    void SetUp() override {
        store.g.store.Db.reset();
        std::filesystem::remove(store.folder / "TVX.MDB");
        MakeExampleDatabase(std::filesystem::path(TVX_SOURCE_DIR) / "data/example", store.folder / "TVX.MDB");
        store.g.store.Db = store.g.store.Engine.OpenDatabase(store.folder / "TVX.MDB");
        ConsoleFace face;
        RefreshDepartments(store.g, store.ports(), face);
        store.OpenWeek(ExampleSunday);
        LoadDayTypes(store.g.store, 1, store.g.daytypes);
    }
};

TEST_F(ScheduleFormTest, prints_the_example_week_in_every_kind) {
    const std::filesystem::path out = std::filesystem::path(TVX_BINARY_DIR) / "reports";
    std::filesystem::create_directories(out);
    qt::QtFontMeasures measures;
    for (const char* kind : {"7DayShort", "7DayLong", "SelectedEmployees"}) {
        VpDocument document(measures);
        document.Orientation(std::string(kind) == "7DayShort" ? PageOrientation::Landscape
                                                              : PageOrientation::Portrait);
        store.g.reports.options = {0, 1, 1, 1, 0, true, true};
        ScheduleRequest request;
        request.kind = kind;
        request.productivity = true;
        request.picked = {1, 6};
        RunSchedule(store.g, store.ports(), request, false, document);
        qt::WritePdf(document, kind, out / (std::string(kind) + ".pdf"));
        RunSchedule(store.g, store.ports(), request, true, document);
        WriteHtml(document, WeekTitle(store.g.department, store.g.week), "en",
                  out / (std::string(kind) + ".html"));
    }
}

TEST_F(ScheduleFormTest, pictures) {
    for (const char* kind : {"7DayShort", "7DayLong", "SelectedEmployees"}) {
        store.g.application.FormCommand = kind;
        qt::ScheduleForm form(store.g, store.ports(), printer, nullptr);
        form.ShowModeless();
        test::TakePicture(form, std::string("Form8-") + kind);
        if (std::string(kind) != "SelectedEmployees") {
            test::Click(form, "cmdPreview");
            test::TakePicture(form, std::string("Form8-preview-") + kind);
            test::Click(form, "cmdCancelPreview");
        }
    }
}

} // namespace
} // namespace tvx
