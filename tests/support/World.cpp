#include "support/World.h"

#include "app/StatusPanel.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTest>

#include <gtest/gtest.h>

World::World(Setup setup) : FarModem(static_cast<FakeMachine &>(*this)), line_(setup.line)
{
    for (const Door &door : setup.doors) {
        database_.add(
            QStringLiteral("KEYTable"), QStringLiteral("KeyNummer,KeyNavn,KeySikkerhet,Bygning"),
            {door.number, door.name, QStringLiteral("4"), QStringLiteral("Solbakken 12")});
        doors_.push_back(
            std::make_unique<DoorUnit>(network, door.number, door.name, door.language));
    }
    network.setObserver([this](const SmsMessage &message, bool delivered) {
        if (delivered && message.to != modem.ownNumber()) {
            receivedBy_[message.to].append(QString::fromLatin1(message.text));
        }
    });
    settings.values = {{QStringLiteral("dbpath"), database_.path()},
                       {QStringLiteral("countrycode"), setup.CountryCode},
                       {QStringLiteral("keyselect"), setup.doors.front().number},
                       {QStringLiteral("smsreport"),
                        setup.reports ? QStringLiteral("True") : QStringLiteral("False")},
                       {QStringLiteral("lastcomport"),
                        setup.line == Line::Com ? QStringLiteral("1") : QStringLiteral("255")}};
    if (setup.before) {
        setup.before(*this);
    }
    if (setup.line == Line::Tcp) {
        person.answers(QStringLiteral("Kobler til: "), Answer::Ok);
    }
    if (!start()) {
        throw std::runtime_error("The program did not get to its main screen");
    }
}

World::~World() = default;

bool World::start()
{
    application_ =
        std::make_unique<Application>(Machine{clock, person, settings, host, port, socket});
    clock.after(1s, [this, start = ++starts_] { login(start); });
    const bool isUp = application_->start();
    if (isUp) {
        QApplication::setActiveWindow(&screen()); // offscreen nobody else gives it the focus
    }
    return isUp;
}

void World::takeDown()
{
    ++starts_;
    application_.reset();
    clock.goOn();
}

void World::login(int start)
{
    if (start != starts_ || clock.hasEnded()) {
        return;
    }
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->objectName() == QStringLiteral("frmLogin") && window->isVisible()) {
            QTest::keyClicks(window->findChild<QLineEdit *>(QStringLiteral("txtPassword")),
                             QStringLiteral("hemmelig"));
            QTest::keyClick(window, Qt::Key_Return);
            return;
        }
    }
    // A file that cannot be opened: start() tells.
}

QString World::panel(int number)
{
    return control<StatusPanel>(QStringLiteral("sbStatusBar_%1").arg(number).toUtf8().constData())
        .text();
}

void World::click(const char *button)
{
    QTest::mouseClick(&control<QAbstractButton>(button), Qt::LeftButton);
}

void World::type(const char *field, const QString &text)
{
    auto &edit = control<QLineEdit>(field);
    edit.setFocus();
    edit.selectAll();
    QTest::keyClicks(&edit, text);
    QTest::keyClick(&edit, Qt::Key_Tab);
}

void World::chooseTab(const QString &caption)
{
    auto &tabs = control<QTabBar>("TabStrip1");
    for (int i = 0; i < tabs.count(); ++i) {
        if (tabs.tabText(i) == caption) {
            tabs.setCurrentIndex(i);
            return;
        }
    }
    ADD_FAILURE() << "No such tab: " << caption.toStdString();
}

void World::registerUser(const QString &number, const QString &saldo)
{
    click("cmdNyBruker");
    type("Txtfields_0", number);
    type("Txtfields_1", QStringLiteral("Kari"));
    type("Txtfields_2", QStringLiteral("Nordås"));
    if (!saldo.isEmpty()) {
        type("Saldo", saldo);
    }
    click("CommandRegistrerBruker");
}

void World::chooseLineAgain()
{
    if (line_ == Line::Tcp) {
        if (socket.state() != TcpSocket::State::Closed) {
            click("cmdDisconnect");
        }
        person.answers(QStringLiteral("Kobler til: "), Answer::Ok);
    }
    if (line_ == Line::Tcp) {
        click("cmdConnect");
    } else {
        control<QAction>("mnuComPortCom1").trigger();
    }
}

QString World::status(const QString &number, const QString &door)
{
    const QString sql =
        QStringLiteral("SELECT Status FROM TBLbrukere WHERE KeyBruker = '%1' AND KeyNummer = '%2'");
    return rows(sql.arg(number, door)).value(0, QStringLiteral("-"));
}

bool World::runUntil(const std::function<bool()> &condition, milliseconds limit)
{
    // Looking once a second is enough, and spares the database a question for every character.
    const milliseconds until = clock.elapsed() + limit;
    while (!condition()) {
        if (clock.elapsed() >= until) {
            return false;
        }
        clock.run(1s);
    }
    return true;
}

bool World::runUntilIdle(milliseconds limit)
{
    return runUntil(
        [this] {
            return modem.store().records().empty() &&
                   value(QStringLiteral("SELECT (SELECT count(*) FROM NYEbrukere) + "
                                        "(SELECT count(*) FROM SMS_Sent WHERE CMGS = 'UNSENT') + "
                                        "(SELECT count(*) FROM TBLbrukere WHERE Status IN "
                                        "('NY', 'Registrerer', 'Slett', 'Sletter'))")) == u"0";
        },
        limit);
}

bool World::runUntilStatus(const QString &number, const QString &wanted, milliseconds limit)
{
    return runUntil([&] { return status(number) == wanted; }, limit);
}
