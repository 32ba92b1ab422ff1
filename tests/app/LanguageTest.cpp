#include "app/Shell.h"

#include <QPushButton>

#include <gtest/gtest.h>

namespace {

QStringList numbered(int count)
{
    QStringList rows;
    for (int row = 1; row <= count; ++row) {
        rows.append(u"Tekst %1"_qs.arg(row));
    }
    return rows;
}

} // namespace

TEST(Language, FeedsEachPlaceFromItsPosition)
{
    Shell shell;
    shell.language(numbered(227));
    shell.load();
    EXPECT_EQ(shell.menu("mnuFile"), u"Tekst 1");
    EXPECT_EQ(shell.entry("mnuSMSSendingsbekreftelsePå").text(), u"Tekst 19");
    EXPECT_EQ(shell.find<QLabel>("NummerLBL").text(), u"Tekst 38");
    EXPECT_EQ(shell.find<QPushButton>("CommandSlettBruker").text(), u"Tekst 58");
    EXPECT_EQ(shell.find<QPushButton>("CommandSlettBruker").toolTip(), u"Tekst 149");
    EXPECT_EQ(shell.find<QWidget>("Txtfields_3").toolTip(), u"Tekst 227");
    EXPECT_EQ(shell.module.texts.ventTilSending, u"Tekst 223");
    EXPECT_EQ(shell.module.GridFilter, u"Tekst 137");
}

TEST(Language, KeepsTheDesignWhereTheTableIsShortOrEmpty)
{
    Shell shell;
    QStringList rows = numbered(4);
    rows[2].clear();
    shell.language(rows);
    shell.load();
    EXPECT_EQ(shell.menu("mnuFilePrint"), u"Tekst 2");
    EXPECT_EQ(shell.entry("mnuFileDatabase").text(), u"&Database");
    EXPECT_EQ(shell.entry("mnuFileCompactDatabase").text(), u"Tekst 4");
    EXPECT_EQ(shell.entry("mnuFileExit").text(), u"E&xit");
    EXPECT_EQ(shell.module.GridFilter, u"Nye");
}

TEST(Language, CountsRowsAndNotTheirIdsAndStopsTheLoadAtRow256)
{
    Shell shell;
    shell.language(numbered(257));
    shell.database.look().run(u"DELETE FROM TBLLanguage WHERE ID = 1"_qs);
    shell.person.answers(u"Tallet er for stort"_qs);
    shell.load();
    EXPECT_EQ(shell.menu("mnuFile"), u"Tekst 2");
    EXPECT_EQ(shell.module.texts.ventTilSending, u"Tekst 224");
    // The last step of the load has not been reached.
    EXPECT_EQ(shell.module.GridFilter, QString());
}

TEST(Language, WithoutALanguageStopsTheLoad)
{
    Shell shell;
    shell.settings.values[u"countrycode"_qs] = u"44"_qs;
    shell.person.answers(u"44"_qs);
    shell.load();
    EXPECT_EQ(shell.menu("mnuFile"), u"&File");
    EXPECT_EQ(shell.module.dialPrefix(), u"+44");
}

TEST(Language, MenuChangesTextsDialPrefixAndLogo)
{
    Shell shell;
    shell.load();
    shell.database.look().run(u"UPDATE TBLLanguage SET Dansk = 'Filer' WHERE ID = 1"_qs);
    QStringList announced;
    QObject::connect(shell.screen.get(), &frmMain::languageChanged,
                     [&](const QString &code) { announced.append(code); });
    shell.entry("mnuSpråkDansk").trigger();
    EXPECT_EQ(shell.module.CountryCode, u"45");
    EXPECT_EQ(shell.module.LogoCountryCode, u"45");
    EXPECT_EQ(announced, QStringList{u"45"_qs});
    EXPECT_EQ(shell.menu("mnuFile"), u"Filer");
    EXPECT_FALSE(shell.entry("mnuSpråkNorsk").isChecked());
    // A second click on the language that is set does not take its tick away.
    shell.entry("mnuSpråkDansk").trigger();
    EXPECT_TRUE(shell.entry("mnuSpråkDansk").isChecked());
}
