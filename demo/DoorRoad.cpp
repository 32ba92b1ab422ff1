#include "Hands.h"
#include "Road.h"
#include "Roads.h"
#include "app/Application.h"
#include "app/frmMain.h"
#include "data/Connection.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QRadioButton>
#include <QTabBar>
#include <QTest>

namespace {

struct Door {
    QString number;
    QString name;
    QString building;
    QString level;
    QString ownNumber;
    QString unitName;
    QString pulse;
};

const Door kDoors[] = {
    {u"+4790000001"_qs, u"Hovedport"_qs, u"Solbakken 12"_qs, u"4"_qs, u"90000001"_qs,
     u"Solbakken port"_qs, u"5"_qs},
    {u"+4790000002"_qs, u"Garasje"_qs, u"Solbakken 12"_qs, u"4"_qs, u"90000002"_qs,
     u"Solbakken garasje"_qs, u"8"_qs},
    // The unit writes a blank for the hyphen, so that its report can be told from what was typed.
    {u"+4790000003"_qs, u"Sykkelkjeller"_qs, u"Solbakken 14"_qs, u"5"_qs, u"90000003"_qs,
     u"Sykkel-kjeller"_qs, u"3"_qs},
};
const Door &kSetUp = kDoors[2];

/// What the number of the modem becomes in the report of a unit that has it as administrator.
const QString kModem = u"99000000"_qs;
/// Registering in from and to, registering out from and to.
const QString kHours[] = {u"07"_qs, u"16"_qs, u"08"_qs, u"16"_qs};

QAbstractItemView *list()
{
    return control<QAbstractItemView>("frmKEY", "grdDataGrid");
}

template <class Control> Control *inSetUp(const char *name, int index)
{
    return control<Control>("frmKeyProperties",
                            (QByteArray(name) + '_' + QByteArray::number(index)).constData());
}

QString field(int index)
{
    const auto *edit = inSetUp<QLineEdit>("KeyTXT", index);
    return edit == nullptr ? QString() : edit->text();
}

/// A window that waits behind another one is clicked, to go on there.
bool comesToFront(const char *name)
{
    if (QWidget *wanted = window(name)) {
        wanted->raise();
        wanted->activateWindow();
    }
    return isInFront(name) && question() == nullptr;
}

std::function<bool()> toFront(const char *name)
{
    return [name] { return comesToFront(name); };
}

std::function<void()> closing(const char *name)
{
    return [name] { QTest::keyClick(window(name), Qt::Key_Escape); };
}

QString stored(Application &lukora, const char *column)
{
    return lukora.module()
        .DatabaseConnection
        ->single(u"SELECT %1 FROM KEYTable WHERE KeyNummer = ?"_qs.arg(QLatin1StringView(column)),
                 {kSetUp.number})
        .toString();
}

/// Whether the network has taken this command.
bool isTaken(Application &lukora, const QString &command)
{
    const QVariant state = lukora.module().DatabaseConnection->single(
        u"SELECT CMGS FROM SMS_Sent WHERE TilNummer = ? AND SMS_Text = ?"_qs,
        {kSetUp.number, command});
    return state.isValid() && state.toString() != u"UNSENT";
}

void openList(Road &road)
{
    road << Road::Step{u"The main screen; its menu opens the door list"_qs,
                       toFront("frmMain"),
                       {},
                       [] { chooseFromMenu("mnuKEY", "mnuDatafrmKey"); }};
}

void typeDoor(Road &road, int place)
{
    const Door &door = kDoors[place];
    road << Road::Step{
        u"The empty row for %1"_qs.arg(door.name),
        [place] {
            return comesToFront("frmKEY") && list()->model()->rowCount() == place + 1 &&
                   list()->currentIndex().row() == place;
        },
        {},
        [&door] {
            list()->setFocus();
            type(door.number + u'\t' + door.name + u'\t' + door.building + u'\t' + door.level);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
        }};
}

void openConfiguration(Road &road, const Door &door, const QString &screenshot = {})
{
    road << Road::Step{u"%1 in the list"_qs.arg(door.name),
                       [&door] {
                           return comesToFront("frmKEY") &&
                                  rowWith(list(), {door.number, door.name, door.level}) >= 0;
                       },
                       screenshot,
                       [&door] { clickRow(list(), rowWith(list(), {door.number}), true); }};
}

std::function<bool()> isConfigured(const Door &door)
{
    return [&door] { return comesToFront("frmKeyProperties") && field(0) == door.number; };
}

/// Presses a send button and answers what it asks.
void send(Road &road, int button, const QString &what, const QString &screenshot = {})
{
    road << Road::Step{u"The button for %1"_qs.arg(what),
                       [button] {
                           return comesToFront("frmKeyProperties") &&
                                  inSetUp<QAbstractButton>("Command1", button)->isVisible();
                       },
                       {},
                       [button] { click(inSetUp<QAbstractButton>("Command1", button)); }};
    road << Road::Step{u"The question behind it"_qs, [] { return question() != nullptr; },
                       screenshot,
                       [] {
                           Road::remark(u"asked: "_qs + question()->text().simplified());
                           click(question()->button(QMessageBox::Ok));
                       }};
}

void sendSettings(Road &road)
{
    openConfiguration(road, kSetUp, u"setup-1-list"_qs);
    road << Road::Step{u"Its configuration: the model is chosen, and the hours"_qs,
                       isConfigured(kSetUp), u"setup-2-configuration"_qs, [] {
                           click(inSetUp<QRadioButton>("KeyType", 0));
                           for (int i = 0; i < 4; ++i) {
                               choose(inSetUp<QComboBox>("Combo1", i), kHours[i]);
                           }
                           // As if it had just been typed: only that shows a button.
                           fill(inSetUp<QLineEdit>("KeyTXT", 9), kSetUp.ownNumber);
                           fill(inSetUp<QLineEdit>("KeyTXT", 10), kSetUp.unitName);
                       }};
    send(road, 1, u"the administrator"_qs, u"setup-3-question"_qs);
    send(road, 9, u"the own number"_qs);
    send(road, 10, u"the name"_qs);
    send(road, 13, u"the pulse"_qs);
    send(road, 21, u"the hours"_qs);
    send(road, 14, u"the users"_qs);
}

/// At most one message goes out each 30 seconds, in the order in which they were asked for.
void awaitConfirmations(Road &road, Application &lukora)
{
    const auto holds = [&lukora](const char *column, const QString &value, int index) {
        return [&lukora, column, value, index] {
            return stored(lukora, column) == value && field(index) == value;
        };
    };
    road.await({u"The unit welcomes its administrator, and the screen shows it"_qs,
                holds("Admin", u"1"_qs, 14), u"setup-4-administrator"_qs});
    road.await({u"The unit reports its own number, and the administrator's"_qs, [&lukora, holds] {
                    return holds("Admin", kModem, 14)() &&
                           holds("Eget_Nummer", kSetUp.ownNumber, 9)();
                }});
    road.await({u"The unit reports its name as it writes it"_qs,
                holds("Beskrivelse", u"Sykkel kjeller"_qs, 10), u"setup-5-reported"_qs});
    road << Road::Step{u"The configuration is closed"_qs,
                       toFront("frmKeyProperties"),
                       {},
                       closing("frmKeyProperties")};
    // To these units say nothing.
    for (const QString &command : {u"P 3"_qs, u"A7 07160816"_qs}) {
        road.await({u"The network has taken \"%1\""_qs.arg(command),
                    [&lukora, command] { return isTaken(lukora, command); }});
    }
}

void awaitUsers(Road &road)
{
    road << Road::Step{
        u"The list, left with the door that it stands on"_qs, toFront("frmKEY"), {}, [] {
            click(control<QAbstractButton>("frmKEY", "cmdClose"));
            chooseAll();
        }};
    road.await({u"The unit's users are listed"_qs,
                [] {
                    if (!comesToFront("frmMain")) {
                        return false;
                    }
                    const auto *users = control<QAbstractItemView>("frmMain", "DataGrid1");
                    return rowWith(users, {u"+4791000017"_qs, u"AKTIV"_qs}) >= 0;
                },
                u"setup-6-users"_qs, [] { chooseFromMenu("mnuKEY", "mnuDatafrmKeyLogg"); }});
}

void fetchLog(Road &road)
{
    const auto rows = [] {
        return control<QAbstractItemView>("frmLOGG", "grdDataGrid")->model()->rowCount();
    };
    road << Road::Step{u"The log of the door, empty yet"_qs,
                       [rows] { return comesToFront("frmLOGG") && rows() == 0; },
                       {},
                       [] { click(control<QAbstractButton>("frmLOGG", "Command2")); }};
    road.await({u"The unit's log is listed"_qs, [rows] { return rows() == 3; }, u"setup-7-log"_qs});
    road << Road::Step{u"The log is closed"_qs, toFront("frmLOGG"), {}, closing("frmLOGG")};
}

} // namespace

void enterDoors(Road &road)
{
    openList(road);
    for (int place = 0; place < int(std::size(kDoors)); ++place) {
        typeDoor(road, place);
    }
    for (const Door &door : kDoors) {
        openConfiguration(road, door);
        road << Road::Step{u"Its configuration is filled in"_qs, isConfigured(door), {}, [&door] {
                               fill(inSetUp<QLineEdit>("KeyTXT", 9), door.ownNumber);
                               fill(inSetUp<QLineEdit>("KeyTXT", 10), door.unitName);
                               fill(inSetUp<QLineEdit>("KeyTXT", 13), door.pulse);
                               QTest::keyClick(window("frmKeyProperties"), Qt::Key_Escape);
                           }};
    }
}

void setUpDoor(Road &road, Application &lukora)
{
    sendSettings(road);
    awaitConfirmations(road, lukora);
    awaitUsers(road);
    fetchLog(road);
}

void chooseFirstDoor(Road &road)
{
    openList(road);
    road << Road::Step{
        u"The list: the first door becomes the current one"_qs, toFront("frmKEY"), {}, [] {
            clickRow(list(), rowWith(list(), {kDoors[0].number}));
            click(control<QAbstractButton>("frmKEY", "cmdClose"));
        }};
}
