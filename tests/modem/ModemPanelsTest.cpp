#include "modem/ModemPanel.h"
#include "modem/NetworkModemPanel.h"

#include "data/Connection.h"
#include "data/Module1.h"
#include "data/Recordset.h"
#include "support/TestDatabase.h"

#include <QLineEdit>
#include <QPlainTextEdit>

#include <gtest/gtest.h>

namespace {

TEST(NetworkPanel, WritesBehindWhatStandsInTheBoxes)
{
    NetworkModemPanel panel;
    panel.appendStatusBox(u"Frakoblet fra modem\n"_qs);
    auto *box = panel.findChild<QPlainTextEdit *>(u"txtMessages"_qs);
    box->moveCursor(QTextCursor::Start); // the operator looks at an old line
    panel.appendStatusBox(u"<b>Kobler til\n"_qs);
    EXPECT_EQ(box->toPlainText(), u"Frakoblet fra modem\n<b>Kobler til\n"_qs);
    EXPECT_TRUE(box->textCursor().atEnd());
    panel.setTerminal(u"==>AT\r\n<OK\r"_qs);
    EXPECT_EQ(panel.findChild<QPlainTextEdit *>(u"rtfTerminalScreen"_qs)->toPlainText(),
              u"==>AT\n<OK\n"_qs);
}

TEST(ModemRowPanel, IsOnByEitherTrueAndOffWithoutAModemARowOrADatabase)
{
    TestDatabase database;
    Module1 module;
    database.use(module);
    ModemPanel panel;
    Recordset rsModem;
    const auto shown = [&](const QString &change) {
        database.look().run(change);
        rsModem.open(module.DatabaseConnection,
                     {.source = u"Modem"_qs,
                      .columns = {u"IMEICODE"_qs, u"ModemManufacturer"_qs, u"ModemName"_qs,
                                  u"ModemOwner"_qs, u"ModemStatus"_qs}});
        panel.display(rsModem);
        QStringList texts;
        for (int i = 0; i < 5; ++i) {
            texts += panel.findChild<QLineEdit *>(u"Modemdata_%1"_qs.arg(i))->text();
        }
        return texts.join(u'|');
    };
    const auto isOn = [&] {
        const auto *off = panel.findChild<QWidget *>(u"Image1"_qs);
        const auto *on = panel.findChild<QWidget *>(u"Image2"_qs);
        EXPECT_NE(on->isVisibleTo(&panel), off->isVisibleTo(&panel));
        return on->isVisibleTo(&panel);
    };
    // Files of long standing hold -1 for true.
    for (const QString &yes : {u"1"_qs, u"-1"_qs}) {
        EXPECT_EQ(shown(u"UPDATE Modem SET IMEICODE = '35', ModemManufacturer = 'M', "
                        "ModemName = 'N', ModemOwner = 'PC', ModemStatus = "_qs +
                        yes),
                  u"På|N|M|PC|35"_qs);
        EXPECT_TRUE(isOn());
    }
    EXPECT_EQ(shown(u"UPDATE Modem SET ModemStatus = 0"_qs), u"Av|N|M|PC|35"_qs);
    EXPECT_FALSE(isOn());
    EXPECT_EQ(shown(u"DELETE FROM Modem"_qs), u"||||"_qs);
    EXPECT_FALSE(isOn());
    rsModem.close();
    panel.display(rsModem);
    EXPECT_FALSE(isOn());
}

} // namespace
