#include "data/Dates.h"

#include <gtest/gtest.h>

namespace {

TEST(Dates, AreReadInTheSystemsOrderFirst)
{
    struct Reading {
        QString text, format;
        std::optional<QDate> day;
    };
    const QString nordic = u"dd/MM/yyyy"_qs;
    for (const Reading &reading : {
             Reading{u" 01.12.2026 "_qs, nordic, QDate(2026, 12, 1)},
             {u"1/12/2026"_qs, u"MM/dd/yyyy"_qs, QDate(2026, 1, 12)},
             {u"31/12/2099"_qs, u"MM/dd/yyyy"_qs, QDate(2099, 12, 31)},
             {u"12/31/2026"_qs, u"dd.MM.yyyy"_qs, QDate(2026, 12, 31)},
             {u"2026-12-01"_qs, u"yyyy-MM-dd"_qs, QDate(2026, 12, 1)},
             {u"1/12/26"_qs, nordic, QDate(2026, 12, 1)},
             {u"1/12/30"_qs, nordic, QDate(1930, 12, 1)},
             {u"1/12/2026"_qs, u"?"_qs, QDate(2026, 12, 1)},
             {u"1/12/2026x"_qs, nordic, {}},
             {u"1/12/99999999999999"_qs, nordic, {}},
             {{}, nordic, {}},
             {u" 12 & DATOSKILLETEGN & 05 & DATOSKILLETEGN & 2004"_qs, u"MM/dd/yyyy"_qs,
              QDate(2004, 5, 12)},
             {u"5 & DATOSKILLETEGN & 31 & DATOSKILLETEGN & 2004"_qs, nordic, {}},
         }) {
        EXPECT_EQ(readDay(reading.text, reading.format), reading.day)
            << reading.text.toStdString() << ' ' << reading.format.toStdString();
    }
}

} // namespace
