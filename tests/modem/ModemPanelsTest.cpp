#include "modem/ModemPanel.h"
#include "modem/NetworkModemPanel.h"

#include "data/Connection.h"
#include "data/Module1.h"
#include "data/Recordset.h"
#include "support/TestDatabase.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace {

const QStringList kGroup = {u"LabelTCPIP"_qs, u"lblHostName"_qs, u"lblPort"_qs,  u"txtHostName"_qs,
                            u"txtPort"_qs,    u"Command2"_qs,    u"Command3"_qs, u"txtMessages"_qs,
                            u"Line1"_qs,      u"ComShowCom"_qs};

struct NetworkPanel : testing::Test {
    NetworkModemPanel panel;

    template <typename Widget = QWidget> Widget *child(const QString &name)
    {
        return panel.findChild<Widget *>(name);
    }
    bool visible(const QString &name) { return child(name)->isVisibleTo(&panel); }
    QString terminalCaption() { return child<QPushButton>(u"ComShowCom"_qs)->text(); }
};

TEST_F(NetworkPanel, ShowsTheGroupWhole)
{
    for (const bool shown : {false, true}) {
        panel.showNetworkControls({.groupVisible = shown, .terminalVisible = !shown});
        for (const QString &name : kGroup) {
            EXPECT_EQ(visible(name), shown) << name.toStdString();
        }
        EXPECT_EQ(visible(u"rtfTerminalScreen"_qs), !shown);
        EXPECT_EQ(terminalCaption(),
                  shown ? u"Vis Modemkommunikasjon"_qs : u"Skjul Modemkommunikasjon"_qs);
        EXPECT_FALSE(visible(u"cmdConnect"_qs));
        EXPECT_FALSE(visible(u"cmdDisconnect"_qs));
    }
}

TEST_F(NetworkPanel, EnablesEachControlByItsOwnSwitch)
{
    const std::pair<const char *, bool NetworkControls::*> kSwitches[] = {
        {"cmdConnect", &NetworkControls::connectEnabled},
        {"cmdDisconnect", &NetworkControls::disconnectEnabled},
        {"txtHostName", &NetworkControls::addressEnabled},
        {"txtPort", &NetworkControls::addressEnabled},
        {"Command2", &NetworkControls::commandsEnabled},
        {"Command3", &NetworkControls::commandsEnabled}};
    for (const auto &[name, alone] : kSwitches) {
        NetworkControls controls{.connectEnabled = false, .addressEnabled = false};
        controls.*alone = true;
        panel.showNetworkControls(controls);
        for (const auto &[other, itsSwitch] : kSwitches) {
            EXPECT_EQ(child(QString::fromLatin1(other))->isEnabled(), itsSwitch == alone) << other;
        }
    }
}

TEST_F(NetworkPanel, PassesEveryClickOn)
{
    panel.showNetworkControls({.groupVisible = true,
                               .connectVisible = true,
                               .disconnectVisible = true,
                               .disconnectEnabled = true,
                               .commandsEnabled = true});
    const std::pair<const char *, void (NetworkModemPanel::*)()> kClicks[] = {
        {"cmdConnect", &NetworkModemPanel::cmdConnectClicked},
        {"cmdDisconnect", &NetworkModemPanel::cmdDisconnectClicked},
        {"Command2", &NetworkModemPanel::Command2Clicked},
        {"Command3", &NetworkModemPanel::Command3Clicked},
        {"ComShowCom", &NetworkModemPanel::ComShowComClicked}};
    for (const auto &[name, signal] : kClicks) {
        QSignalSpy spy(&panel, signal);
        QTest::mouseClick(child(QString::fromLatin1(name)), Qt::LeftButton);
        EXPECT_EQ(spy.count(), 1) << name;
    }
}

TEST_F(NetworkPanel, WritesBehindWhatStandsInTheBoxes)
{
    panel.appendStatusBox(u"Frakoblet fra modem\n"_qs);
    auto *box = child<QPlainTextEdit>(u"txtMessages"_qs);
    box->moveCursor(QTextCursor::Start); // the operator looks at an old line
    panel.appendStatusBox(u"<b>Kobler til\n"_qs);
    EXPECT_EQ(box->toPlainText(), u"Frakoblet fra modem\n<b>Kobler til\n"_qs);
    EXPECT_TRUE(box->textCursor().atEnd());
    EXPECT_FALSE(box->document()->isUndoAvailable());

    panel.setTerminal(u"==>AT\r\n<OK\r"_qs);
    auto *terminal = child<QPlainTextEdit>(u"rtfTerminalScreen"_qs);
    EXPECT_EQ(terminal->toPlainText(), u"==>AT\n<OK\n"_qs);
    EXPECT_TRUE(terminal->textCursor().atEnd());
}

struct ModemRowPanel : testing::Test {
    ModemPanel panel;
    TestDatabase database;
    Module1 module;
    Recordset rsModem;

    void display()
    {
        database.use(module);
        rsModem.open(module.DatabaseConnection,
                     {.source = u"Modem"_qs,
                      .columns = {u"IMEICODE"_qs, u"ModemManufacturer"_qs, u"ModemName"_qs,
                                  u"ModemOwner"_qs, u"ModemStatus"_qs}});
        panel.display(rsModem);
    }
    QStringList fields()
    {
        QStringList texts;
        for (int i = 0; i < 5; ++i) {
            texts += panel.findChild<QLineEdit *>(u"Modemdata_%1"_qs.arg(i))->text();
        }
        return texts;
    }
    bool isOn()
    {
        const auto visible = [&](const QString &name) {
            return panel.findChild<QWidget *>(name)->isVisibleTo(&panel);
        };
        EXPECT_NE(visible(u"Image1"_qs), visible(u"Image2"_qs));
        return visible(u"Image2"_qs);
    }
};

TEST_F(ModemRowPanel, ShowsTheModemInUse)
{
    // Files of long standing hold -1 for true.
    for (const int yes : {1, -1}) {
        database.look().run(u"UPDATE Modem SET IMEICODE = '35', ModemManufacturer = 'M', "
                            "ModemName = 'N', ModemOwner = 'PC', ModemStatus = ?"_qs,
                            {yes});
        display();
        EXPECT_EQ(fields(), (QStringList{u"På"_qs, u"N"_qs, u"M"_qs, u"PC"_qs, u"35"_qs}));
        EXPECT_TRUE(isOn());
    }
}

TEST_F(ModemRowPanel, IsOffWithoutAModemARowOrADatabase)
{
    display();
    EXPECT_FALSE(isOn());
    EXPECT_EQ(fields().first(), u"Av"_qs);
    database.look().run(u"DELETE FROM Modem"_qs);
    display();
    EXPECT_FALSE(isOn());
    EXPECT_EQ(fields().join(QString()), QString());
    rsModem.close();
    panel.display(rsModem);
    EXPECT_FALSE(isOn());
}

TEST_F(ModemRowPanel, TakesAClickOnEitherImage)
{
    QSignalSpy spy(&panel, &ModemPanel::imageClicked);
    for (const QString &name : {u"Image1"_qs, u"Image2"_qs}) {
        panel.findChild<QToolButton *>(name)->click();
    }
    EXPECT_EQ(spy.count(), 2);
}

} // namespace
