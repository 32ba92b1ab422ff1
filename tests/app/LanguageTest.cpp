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

TEST_F(Language, FeedsEachPlaceFromItsPosition)
{
    language(numbered(227));
    load();
    EXPECT_EQ(menu("mnuFile"), u"Tekst 1");
    EXPECT_EQ(entry("mnuSMSSendingsbekreftelsePå").text(), u"Tekst 19");
    EXPECT_EQ(find<QLabel>("NummerLBL").text(), u"Tekst 38");
    EXPECT_EQ(find<QPushButton>("CommandSlettBruker").text(), u"Tekst 58");
    EXPECT_EQ(find<QPushButton>("CommandSlettBruker").toolTip(), u"Tekst 149");
    EXPECT_EQ(find<QWidget>("Txtfields_3").toolTip(), u"Tekst 227");
    EXPECT_EQ(module.texts.ventTilSending, u"Tekst 223");
    EXPECT_EQ(module.GridFilter, u"Tekst 137");
}

TEST_F(Language, KeepsTheDesignWhereTheTableIsShortOrEmpty)
{
    QStringList rows = numbered(4);
    rows[2].clear();
    language(rows);
    load();
    EXPECT_EQ(menu("mnuFilePrint"), u"Tekst 2");
    EXPECT_EQ(entry("mnuFileDatabase").text(), u"&Database");
    EXPECT_EQ(entry("mnuFileCompactDatabase").text(), u"Tekst 4");
    EXPECT_EQ(entry("mnuFileExit").text(), u"E&xit");
    EXPECT_EQ(module.GridFilter, u"Nye");
}

TEST_F(Language, CountsRowsAndNotTheirIdsAndStopsTheLoadAtRow256)
{
    language(numbered(257));
    database.look().run(u"DELETE FROM TBLLanguage WHERE ID = 1"_qs);
    person.answers(u"Tallet er for stort"_qs);
    load();
    EXPECT_EQ(menu("mnuFile"), u"Tekst 2");
    EXPECT_EQ(module.texts.ventTilSending, u"Tekst 224");
    // The last step of the load has not been reached.
    EXPECT_EQ(module.GridFilter, QString());
}

TEST_F(Language, MenuChangesTextsDialPrefixAndLogo)
{
    load();
    database.look().run(u"UPDATE TBLLanguage SET Dansk = 'Filer' WHERE ID = 1"_qs);
    QStringList announced;
    QObject::connect(screen.get(), &frmMain::languageChanged,
                     [&](const QString &code) { announced.append(code); });
    entry("mnuSpråkDansk").trigger();
    EXPECT_EQ(module.CountryCode, u"45");
    EXPECT_EQ(module.LogoCountryCode, u"45");
    EXPECT_EQ(announced, QStringList{u"45"_qs});
    EXPECT_EQ(menu("mnuFile"), u"Filer");
    EXPECT_FALSE(entry("mnuSpråkNorsk").isChecked());
    // A second click on the language that is set does not take its tick away.
    entry("mnuSpråkDansk").trigger();
    EXPECT_TRUE(entry("mnuSpråkDansk").isChecked());
}
