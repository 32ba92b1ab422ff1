#include "app/Shell.h"

#include <QPushButton>

namespace {

QStringList numbered(int count)
{
    QStringList rows;
    for (int row = 1; row <= count; ++row) {
        rows.append(u"Tekst %1"_qs.arg(row));
    }
    return rows;
}

using Language = ShellTest;

} // namespace

// Rows count by their position and not by their numbers; the load stops at row 256.
TEST_F(Language, FeedsEachPlaceFromItsPosition)
{
    language(numbered(257));
    database.look().run(u"DELETE FROM TBLLanguage WHERE ID = 1"_qs);
    person.answers(u"Tallet er for stort"_qs);
    load();
    EXPECT_EQ(menu("mnuFile"), u"Tekst 2");
    EXPECT_EQ(entry("mnuSMSSendingsbekreftelsePå").text(), u"Tekst 20");
    EXPECT_EQ(find<QLabel>("NummerLBL").text(), u"Tekst 39");
    EXPECT_EQ(find<QPushButton>("CommandSlettBruker").text(), u"Tekst 59");
    EXPECT_EQ(find<QPushButton>("CommandSlettBruker").toolTip(), u"Tekst 150");
    EXPECT_EQ(find<QWidget>("Txtfields_3").toolTip(), u"Tekst 228");
    EXPECT_EQ(module.texts.ventTilSending, u"Tekst 224");
    EXPECT_EQ(module.GridFilter, QString()) << "the last step of the load";
}

TEST_F(Language, MenuChangesTextsDialPrefixAndLogoAndTheDesignStandsWhereTheTableHasNone)
{
    QStringList rows = numbered(4);
    rows[2].clear();
    language(rows);
    load();
    EXPECT_EQ(entry("mnuFileDatabase").text(), u"&Database");
    EXPECT_EQ(entry("mnuFileCompactDatabase").text(), u"Tekst 4");
    EXPECT_EQ(entry("mnuFileExit").text(), u"E&xit");
    EXPECT_EQ(module.GridFilter, u"Nye");

    database.look().run(u"UPDATE TBLLanguage SET Dansk = 'Filer' WHERE ID = 1"_qs);
    QStringList announced;
    QObject::connect(screen.get(), &frmMain::languageChanged,
                     [&](const QString &code) { announced.append(code); });
    for (int clicks = 0; clicks < 2; ++clicks) { // the second does not take the tick away
        entry("mnuSpråkDansk").trigger();
        EXPECT_EQ(module.CountryCode + module.LogoCountryCode, u"4545");
        EXPECT_EQ(announced.takeLast(), u"45");
        EXPECT_EQ(menu("mnuFile"), u"Filer");
        EXPECT_FALSE(entry("mnuSpråkNorsk").isChecked());
        EXPECT_TRUE(entry("mnuSpråkDansk").isChecked());
    }
}
