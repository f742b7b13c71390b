// Every folder of tests/cases/schedules is a test: the week and options of input.txt, printed, must give
// expected.txt. With TVX_ACCEPT_CASES set the expectations are written instead of compared; read what changed
// before it is kept.
#include "ScheduleCase.h"
#include "reports/schedules/Schedules.h"
#include "support/FixedMeasures.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace tvx::test {
namespace {

const std::filesystem::path Cases = std::filesystem::path(TVX_SOURCE_DIR) / "tests/cases/schedules";

std::vector<std::string> CaseNames() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(Cases))
        if (entry.is_directory()) names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::string TestName(const testing::TestParamInfo<std::string>& info) {
    std::string name = info.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

class ScheduleCases : public testing::TestWithParam<std::string> {};

TEST_P(ScheduleCases, prints_what_is_expected) {
    const std::filesystem::path folder = Cases / GetParam();
    ScheduleCase made;
    ASSERT_NO_THROW(ReadScheduleCase(folder / "input.txt", made));
    const FixedMeasures measures;
    VpDocument document(measures, made.paper);
    RunSchedule(made.store.g, made.store.ports(), made.request, made.html, document);
    const std::string seen =
        made.html ? TablesAsText(document) : PagesAsText(document, measures, made.UnitsAcross());
    if (std::getenv("TVX_ACCEPT_CASES") != nullptr) WriteFile(folder / "expected.txt", seen);
    EXPECT_EQ(ReadFile(folder / "expected.txt"), seen);
}

INSTANTIATE_TEST_SUITE_P(folder, ScheduleCases, testing::ValuesIn(CaseNames()), TestName);

} // namespace
} // namespace tvx::test
