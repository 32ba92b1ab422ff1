#include "app/LanguagePass.h"
#include "app/LanguagePositions.h"
#include "app/Shell.h"
#include "data/Connection.h"
#include "platform/RuntimeFailure.h"

#include <QMenu>
#include <QPushButton>

#include <gtest/gtest.h>

namespace {

QStringList numbered(int count)
{
    QStringList rows;
    for (int row = 1; row <= count; ++row) {
        rows.append(QStringLiteral("Tekst %1").arg(row));
    }
    return rows;
}

} // namespace

TEST(Language, FeedsEachPlaceFromItsPosition)
{
    Shell shell;
    shell.language(numbered(227));
    shell.load();
    EXPECT_EQ(shell.find<QMenu>("mnuFile").title(), QStringLiteral("Tekst 1"));
    EXPECT_EQ(shell.find<QMenu>("mnuSpråk").title(), QStringLiteral("Tekst 27"));
    EXPECT_EQ(shell.entry("mnuSMSSendingsbekreftelsePå").text(), QStringLiteral("Tekst 19"));
    EXPECT_EQ(shell.find<QLabel>("NummerLBL").text(), QStringLiteral("Tekst 38"));
    EXPECT_EQ(shell.find<QPushButton>("CommandSendSMS").text(), QStringLiteral("Tekst 60"));
    EXPECT_EQ(shell.find<QPushButton>("CommandSlettBruker").toolTip(), QStringLiteral("Tekst 149"));
    EXPECT_EQ(shell.find<QWidget>("Txtfields_3").toolTip(), QStringLiteral("Tekst 227"));
    EXPECT_EQ(shell.module.texts.ventTilSending, QStringLiteral("Tekst 223"));
    EXPECT_EQ(shell.module.GridFilter, QStringLiteral("Tekst 137"));
}

TEST(Language, NamesOnlyControlsThatExist)
{
    Shell shell;
    shell.load();
    for (const CaptionPosition &caption : captionPositions()) {
        EXPECT_TRUE(shell.screen->findChild<QObject *>(caption.control.toString()))
            << caption.control.toString().toStdString();
    }
}

TEST(Language, KeepsTheDesignWhereTheTableIsShortOrEmpty)
{
    Shell shell;
    QStringList rows = numbered(4);
    rows[2].clear();
    shell.language(rows);
    shell.load();
    EXPECT_EQ(shell.find<QMenu>("mnuFilePrint").title(), QStringLiteral("Tekst 2"));
    EXPECT_EQ(shell.entry("mnuFileDatabase").text(), QStringLiteral("&Database"));
    EXPECT_EQ(shell.entry("mnuFileCompactDatabase").text(), QStringLiteral("Tekst 4"));
    EXPECT_EQ(shell.entry("mnuFileExit").text(), QStringLiteral("E&xit"));
    EXPECT_EQ(shell.module.GridFilter, QStringLiteral("Nye"));
}

TEST(Language, CountsRowsAndNotTheirIds)
{
    Shell shell;
    shell.language(numbered(10));
    shell.database.look().run(QStringLiteral("DELETE FROM TBLLanguage WHERE ID = 1"));
    shell.load();
    EXPECT_EQ(shell.find<QMenu>("mnuFile").title(), QStringLiteral("Tekst 2"));
    EXPECT_EQ(shell.find<QMenu>("mnuFilePrint").title(), QStringLiteral("Tekst 3"));
}

TEST(Language, StopsTheLoadAtRow256)
{
    Shell shell;
    shell.language(numbered(256));
    shell.person.answers({});
    shell.load();
    EXPECT_EQ(shell.module.texts.ventTilSending, QStringLiteral("Tekst 223"));
    // The last step of the load has not been reached.
    EXPECT_EQ(shell.module.GridFilter, QString());
}

TEST(Language, WithoutALanguageStopsTheLoad)
{
    Shell shell;
    shell.settings.values[QStringLiteral("countrycode")] = QStringLiteral("44");
    shell.person.answers(QStringLiteral("44"));
    shell.load();
    EXPECT_EQ(shell.find<QMenu>("mnuFile").title(), QStringLiteral("&File"));
    EXPECT_EQ(shell.module.dialPrefix(), QStringLiteral("+44"));
}

TEST(Language, MenuChangesTextsDialPrefixAndLogo)
{
    Shell shell;
    shell.load();
    shell.database.look().run(QStringLiteral("UPDATE TBLLanguage SET Dansk = 'Filer' WHERE ID ="
                                             " (SELECT min(ID) FROM TBLLanguage)"));
    QStringList announced;
    QObject::connect(shell.screen.get(), &frmMain::languageChanged,
                     [&](const QString &code) { announced.append(code); });
    shell.entry("mnuSpråkDansk").trigger();
    EXPECT_EQ(shell.module.CountryCode, QStringLiteral("45"));
    EXPECT_EQ(shell.module.LogoCountryCode, QStringLiteral("45"));
    EXPECT_EQ(announced, QStringList{QStringLiteral("45")});
    EXPECT_EQ(shell.find<QMenu>("mnuFile").title(), QStringLiteral("Filer"));
    EXPECT_TRUE(shell.entry("mnuSpråkDansk").isChecked());
    EXPECT_FALSE(shell.entry("mnuSpråkNorsk").isChecked());
    // A second click on the language that is set does not take its tick away.
    shell.entry("mnuSpråkDansk").trigger();
    EXPECT_TRUE(shell.entry("mnuSpråkDansk").isChecked());
}
