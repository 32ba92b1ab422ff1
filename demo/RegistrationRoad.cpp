#include "Hands.h"
#include "Road.h"
#include "Roads.h"
#include "app/Application.h"
#include "app/frmMain.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QLineEdit>
#include <QMessageBox>
#include <QTabBar>
#include <QTest>

namespace {

const QString kNumber = QStringLiteral("+4791234567");

template <class Control> Control *onMain(const char *name)
{
    return control<Control>("frmMain", name);
}

void fillIn(const char *field, const QString &text)
{
    fill(onMain<QLineEdit>(field), text);
}

bool usersShow(const QString &number, const QString &status)
{
    return rowWith(onMain<QAbstractItemView>("DataGrid1"), {number, status}) >= 0;
}

} // namespace

void logIn(Road &road, Application &lukora)
{
    road << Road::Step{u"Login screen"_qs, [] { return window("frmLogin") != nullptr; },
                       u"1-login"_qs,
                       [] {
                           const auto field = [](const char *name) {
                               return control<QLineEdit>("frmLogin", name);
                           };
                           field("txtUserName")->selectAll();
                           QTest::keyClicks(field("txtUserName"), u"Hovedoperatør"_qs);
                           QTest::keyClicks(field("txtPassword"), u"demo"_qs);
                           QTest::keyClick(window("frmLogin"), Qt::Key_Return);
                       }};
    road << Road::Step{u"Splash screen"_qs, [] { return window("frmSplash") != nullptr; },
                       u"2-splash"_qs};
    road << Road::Step{u"Main screen, and its modem is ready"_qs,
                       [&lukora] {
                           if (QMessageBox *box = question()) {
                               Road::remark(u"asked: "_qs + box->text().simplified());
                               click(box->button(QMessageBox::Ok));
                           }
                           const Module1 &module = lukora.module();
                           return window("frmMain") != nullptr &&
                                  (module.ModemReady || module.ActiveComPort == 0);
                       },
                       {},
                       // Without a window manager nobody else gives it the focus.
                       [&lukora] { lukora.mainScreen()->activateWindow(); }};
}

void registerUser(Road &road, Application &lukora)
{
    road << Road::Step{u"Main screen with the users of the door"_qs,
                       [&lukora] {
                           lukora.mainScreen()->activateWindow();
                           if (!isInFront("frmMain")) {
                               return false;
                           }
                           chooseAll();
                           return usersShow(u"+4791000011"_qs, u"Aktiv"_qs);
                       },
                       u"3-main-before"_qs,
                       [] {
                           click(onMain<QAbstractButton>("cmdNyBruker"));
                           fillIn("Txtfields_0", kNumber);
                           fillIn("Txtfields_1", u"Åshild"_qs);
                           fillIn("Txtfields_2", u"Nygård"_qs);
                       }};
    road << Road::Step{u"The new user is typed in"_qs,
                       [] { return onMain<QLineEdit>("Txtfields_2")->text() == u"Nygård"; },
                       u"4-main-entry"_qs,
                       [] { click(onMain<QAbstractButton>("CommandRegistrerBruker")); }};
    const auto becomes = [](const QString &status) {
        return [status] { return usersShow(kNumber, status); };
    };
    road.await({u"Registered: the command waits in the queue"_qs, becomes(u"Ny"_qs)});
    road.await({u"Registrerer: the network has taken the command"_qs, becomes(u"Registrerer"_qs)});
    road.await({u"Aktiv: the door has confirmed"_qs, becomes(u"Aktiv"_qs), u"5-main-after"_qs});
}

void leave(Road &road, Application &lukora)
{
    road << Road::Step{u"The program ends"_qs,
                       [] { return question() == nullptr; },
                       {},
                       [&lukora] { lukora.mainScreen()->close(); }};
}
