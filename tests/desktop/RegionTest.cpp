#include "desktop/QtPorts.h"
#include "shell/common/Conversions.h"

#include <QElapsedTimer>
#include <QLocale>

#include <gtest/gtest.h>

#include <array>
#include <iostream>
#include <vector>

namespace tvx::qt {
namespace {

constexpr DaySerial Today = 46086; // 5 March 2026

QList<QLocale> EveryLocale() {
    return QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry);
}

/// Days of every month, in centuries of every kind.
std::vector<DaySerial> SampleDays() {
    constexpr std::array Years{100, 1905, 1931, 1999, 2000, 2026, 2031, 9999};
    std::vector<DaySerial> days;
    for (int i = 0; i < 24; ++i)
        days.push_back(
            SerialFromParts(Years[static_cast<std::size_t>(i % 8)], i / 2 + 1, i % 2 == 0 ? 1 : 12));
    return days;
}

/// The first date that is read back as another one or as none; "" when there is no such date.
std::string FirstLostDate(const Region& region) {
    static const std::vector<DaySerial> days = SampleDays();
    for (const char* setting : {"MM-DD-YYYY", "DD-MM-YYYY", "YYYY-MM-DD"})
        for (const DaySerial day : days) {
            const std::string text = DateText(day, setting, region);
            if (TypedDate(text, region, Today) != day) return text;
        }
    return "";
}

TEST(QtRegion, reads_every_date_as_it_wrote_it_in_every_language) {
    int english = 0;
    QElapsedTimer watch;
    watch.start();
    const QList<QLocale> locales = EveryLocale();
    for (const QLocale& locale : locales) {
        const QtRegion region(locale);
        EXPECT_EQ(FirstLostDate(region), "") << locale.name().toStdString();
        if (region.Names().shortMonths == EnglishNames().shortMonths) ++english;
    }
    std::cout << locales.size() << " languages in " << watch.elapsed() << " ms, " << english
              << " with the English short names of the months\n";
    EXPECT_GT(locales.size(), 500);
}

TEST(QtRegion, keeps_the_short_names_of_the_months_where_they_can_be_read_back) {
    const auto march = [](const char* language) {
        return DateText(Today, "DD-MM-YYYY", QtRegion(QLocale(QLatin1String(language))));
    };
    EXPECT_EQ(march("de_DE"), "5-Mär-2026");
    EXPECT_EQ(march("fr_FR"), "5-mars-2026");
    EXPECT_EQ(march("zh_CN"), "5-Mar-2026"); // a digit and a sign at home
    EXPECT_EQ(march("vi_VN"), "5-Mar-2026"); // a word, a blank and a digit
}

} // namespace
} // namespace tvx::qt
