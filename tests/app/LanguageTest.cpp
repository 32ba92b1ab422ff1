#include "app/LanguagePositions.h"
#include "app/Shell.h"

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
    EXPECT_EQ(shows(u"mnuFile.title mnuSMSSendingsbekreftelsePå.text NummerLBL.text"
                    " CommandSlettBruker.text CommandSlettBruker.toolTip Txtfields_3.toolTip"_qs),
              "Tekst 2|Tekst 20|Tekst 39|Tekst 59|Tekst 150|Tekst 228");
    for (const CaptionPosition &caption : captionPositions()) {
        EXPECT_NO_THROW(find<QObject>(qPrintable(caption.control.toString()))) << "was renamed";
    }
    EXPECT_EQ(module.texts.ventTilSending, u"Tekst 224");
    EXPECT_EQ(module.GridFilter, QString()) << "the last step of the load";
}

TEST_F(Language, MenuChangesTextsDialPrefixAndLogoAndTheDesignStandsWhereTheTableHasNone)
{
    QStringList rows = numbered(4);
    rows[2].clear();
    language(rows);
    load();
    EXPECT_EQ(shows(u"mnuFileDatabase.text mnuFileCompactDatabase.text mnuFileExit.text"_qs),
              "&Database|Tekst 4|E&xit");
    EXPECT_EQ(module.GridFilter, u"Nye");

    database.look().run(u"UPDATE TBLLanguage SET Dansk = 'Filer' WHERE ID = 1"_qs);
    QStringList announced;
    QObject::connect(screen.get(), &frmMain::languageChanged,
                     [&](const QString &code) { announced.append(code); });
    for (int clicks = 0; clicks < 2; ++clicks) { // the second does not take the tick away
        entry("mnuSpråkDansk").trigger();
        EXPECT_EQ(module.CountryCode + module.LogoCountryCode, u"4545");
        EXPECT_EQ(announced.takeLast(), u"45");
        EXPECT_EQ(shows(u"mnuFile.title mnuSpråkNorsk.checked mnuSpråkDansk.checked"_qs),
                  "Filer|false|true");
    }
}
