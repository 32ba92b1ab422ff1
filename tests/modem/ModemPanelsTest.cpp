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
    const auto shown = [&] {
        panel.display(rsModem);
        QStringList texts;
        for (int i = 0; i < 5; ++i) {
            texts += panel.findChild<QLineEdit *>(u"Modemdata_%1"_qs.arg(i))->text();
        }
        for (const auto &image : {u"Image1"_qs, u"Image2"_qs}) { // off, on
            texts += panel.findChild<QWidget *>(image)->isVisibleTo(&panel) ? image : QString();
        }
        return texts.join(u'|').toStdString();
    };
    database.look().run(u"UPDATE Modem SET IMEICODE = '35', ModemManufacturer = 'M', "
                        "ModemName = 'N', ModemOwner = 'PC'"_qs);
    for (const auto &[change, expected] :
         {std::pair(u"UPDATE Modem SET ModemStatus = 1"_qs, "På|N|M|PC|35||Image2"),
          // Files of long standing hold -1 for true.
          {u"UPDATE Modem SET ModemStatus = -1"_qs, "På|N|M|PC|35||Image2"},
          {u"UPDATE Modem SET ModemStatus = 0"_qs, "Av|N|M|PC|35|Image1|"},
          {u"DELETE FROM Modem"_qs, "|||||Image1|"}}) {
        database.look().run(change);
        rsModem.open(module.DatabaseConnection,
                     {.source = u"Modem"_qs,
                      .columns = {u"IMEICODE"_qs, u"ModemManufacturer"_qs, u"ModemName"_qs,
                                  u"ModemOwner"_qs, u"ModemStatus"_qs}});
        EXPECT_EQ(shown(), expected);
    }
    rsModem.close();
    EXPECT_EQ(shown(), "|||||Image1|");
}

} // namespace
