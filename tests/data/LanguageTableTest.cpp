#include "data/LanguageTable.h"

#include "data/DataTest.h"
#include "data/LanguageRows.h"

#include <QMap>
#include <QSet>

namespace {

struct LanguageTableTest : DataTest {
    QMap<int, QString> read(const QString &CountryCode)
    {
        QMap<int, QString> texts;
        readLanguage(database.look(), CountryCode,
                     [&](quint8 position, const QString &text) { texts[position] = text; });
        return texts;
    }
};

TEST_F(LanguageTableTest, EachCountryHasItsColumn)
{
    EXPECT_EQ(read(u"47"_qs)[150], u"Gjest");
    EXPECT_EQ(read(u"46"_qs)[150], u"Gäst");
    EXPECT_EQ(read(u"45"_qs)[150], u"Gæst");
    EXPECT_THROW(read(u"49"_qs), RuntimeFailure);
    EXPECT_THROW(read({}), RuntimeFailure);
}

TEST_F(LanguageTableTest, NoLetterOpensTwoEntriesOfAMenuOrPressesTwoButtonsOfATable)
{
    const auto rows = languageRows();
    const std::pair<QList<int>, QString> kPlaces[] = {
        {{1, 6, 11, 13, 20, 27, 31}, {}},
        {{2, 3, 4, 5}, {}},
        {{26, 21, 22, 23, 24, 228}, {}},
        {{28, 29, 30, 229}, {}},
        {{108, 109, 110}, u"lkøö"_qs}}; // beside the search line and saving as CSV
    for (const auto &[positions, taken] : kPlaces) {
        for (const auto language :
             {&LanguageRow::norsk, &LanguageRow::dansk, &LanguageRow::svensk}) {
            QSet<QChar> letters(taken.begin(), taken.end());
            qsizetype count = taken.size();
            for (const int position : positions) {
                const QString caption = rows[static_cast<std::size_t>(position - 1)].*language;
                if (!caption.isEmpty()) {
                    ASSERT_TRUE(caption.contains(u'&')) << position;
                    letters += caption[caption.indexOf(u'&') + 1].toLower();
                    ++count;
                }
            }
            EXPECT_EQ(letters.size(), count) << rows[0].norsk.toStdString() << positions.first();
        }
    }
}

} // namespace
