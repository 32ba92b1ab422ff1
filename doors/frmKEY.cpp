#include "doors/frmKEY.h"

#include "data/Connection.h"
#include "data/Criteria.h"
#include "data/Module1.h"
#include "data/Recordsets.h"
#include "platform/Operator.h"
#include "platform/Rules.h"
#include "platform/RuntimeFailure.h"
#include "platform/Text.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QScopeGuard>
#include <QSignalBlocker>
#include <QTabBar>
#include <QTableView>

namespace {

const char *const kAll = QT_TRANSLATE_NOOP("BrowserTable", "ALLE");

/// What a new door says and does until it is told otherwise. Nothing is sent: the unit gets these
/// when the operator presses the button of each in its configuration. The state has one blank
/// where the list there has two, so a new door matches no entry of the list.
constexpr std::pair<const char *, const char *> kDefaults[] = {
    {"Tekst1", QT_TRANSLATE_NOOP("BrowserTable", "Velkommen som ny bruker")},
    {"Tekst2", QT_TRANSLATE_NOOP("BrowserTable", "for å åpne porten")},
    {"Tekst3", QT_TRANSLATE_NOOP("BrowserTable", "De er slettet som bruker")},
    {"Tekst4", QT_TRANSLATE_NOOP("BrowserTable", "Takk for besøket og velkommen igjen")},
    {"Tekst5", QT_TRANSLATE_NOOP("BrowserTable", "**ALARM** Alarm Loop")},
    {"Tekst6", QT_TRANSLATE_NOOP("BrowserTable", "Ostrand a.s")},
    {"Alarmstatus", QT_TRANSLATE_NOOP("BrowserTable", "ALARM AV")},
    {"KeyStatus", QT_TRANSLATE_NOOP("BrowserTable", "Normal (N)")},
};

int column(const char *field)
{
    const auto found = std::ranges::find_if(kKEYTable.columns, [&](const BrowserColumn &each) {
        return QLatin1StringView(each.field) == QLatin1StringView(field);
    });
    return static_cast<int>(found - kKEYTable.columns.begin());
}

} // namespace

frmKEY::frmKEY(const BrowserTools &tools, std::function<void()> openProperties)
    : RecordBrowser(kKEYTable, tools),
      openProperties_(std::move(openProperties)),
      TabStrip1(new QTabBar)
{
    TabStrip1->setObjectName(QStringLiteral("TabStrip1"));
    TabStrip1->setExpanding(false);
    TabStrip1->setDrawBase(false);
    TabStrip1->installEventFilter(this);
    placeAboveGrid(TabStrip1);
    connect(TabStrip1, &QTabBar::currentChanged, this, &frmKEY::TabStrip1_Click);
    // A click on the active tab is no change, but counts: the list may show another building.
    connect(TabStrip1, &QTabBar::tabBarClicked, this, [this](int tab) {
        if (tab == TabStrip1->currentIndex()) {
            TabStrip1_Click(tab);
        }
    });
    auto *grid = findChild<QTableView *>(QStringLiteral("grdDataGrid"));
    // A double click opens the configuration, and no cell.
    grid->setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
    button("cmdDelete").setVisible(isLevel(u"65"));
}

bool frmKEY::isLevel(QStringView levels) const
{
    return module_.SecurityLevel.size() == 1 && levels.contains(module_.SecurityLevel);
}

bool frmKEY::addsRows() const
{
    return isLevel(u"65");
}

bool frmKEY::isEditable(const BrowserColumn &column) const
{
    return isLevel(u"654") && RecordBrowser::isEditable(column);
}

Query frmKEY::query() const
{
    Query query = RecordBrowser::query();
    const Query allowed = allowedDoors(module_.SecurityLevel, query.columns);
    query.filter = allowed.filter;
    query.values = allowed.values;
    if (!selectedTab_.isEmpty()) {
        query.filter += QStringLiteral(" AND ") + equals(QStringLiteral("Bygning"));
        query.values += filterValue(selectedTab_);
    }
    return query;
}

/// The list opens on the current door, so that to look at it changes nothing.
qint64 frmKEY::startRow()
{
    qint64 row = 0;
    // A number with a single quote cannot be looked for, but is put right here.
    kept([&] {
        if (adoPrimaryRS.findFirstAsItStands(QStringLiteral("KeyNummer"), module_.KeySelect)) {
            row = adoPrimaryRS.bookmark();
        }
    });
    return row;
}

void frmKEY::loaded()
{
    buildTabs();
}

void frmKEY::designCaptions()
{
    findChild<QTableView *>(QStringLiteral("grdDataGrid"))
        ->setToolTip(sourceText(QT_TRANSLATE_NOOP(
            "BrowserTable", "Telefonnummer til nøkkelenhetene skal angis med internasjonalt "
                            "telefonnummer +47....")));
    showTab(0, {});
}

/// A tab for all doors, and one for each building of the doors in sight. Behind a reload the first
/// tab is the active one, whichever building the list shows: it has always been so.
void frmKEY::buildTabs()
{
    const QSignalBlocker quiet(TabStrip1);
    Recordset doors;
    doors.open(connection_, allowedDoors(module_.SecurityLevel, {QStringLiteral("Bygning")}));
    doors.sort(QStringLiteral("Bygning"));
    int tabs = 1;
    QString last;
    for (const RecordsetRow &door : doors.rows()) {
        const QString building = door.values.last().toString();
        if (!same(building, last)) {
            showTab(tabs++, building);
            last = building;
        }
    }
    while (TabStrip1->count() > tabs) {
        TabStrip1->removeTab(TabStrip1->count() - 1);
    }
    TabStrip1->setCurrentIndex(0);
}

void frmKEY::showTab(int tab, const QString &building)
{
    // A single "&" would mark a shortcut.
    const QString caption = building.isEmpty()
                                ? sourceText(kAll)
                                : QString(building).replace(u'&', QStringLiteral("&&"));
    if (tab == TabStrip1->count()) {
        TabStrip1->addTab(caption);
    }
    TabStrip1->setTabText(tab, caption);
    TabStrip1->setTabData(tab, building);
}

/// The arrow keys step from the tab whose doors are listed: the active one is always the first
/// again, and by that they would reach the second alone.
bool frmKEY::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == TabStrip1 && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Left || key == Qt::Key_Right) {
            int listed = TabStrip1->count() - 1;
            while (listed > 0 && !same(TabStrip1->tabData(listed).toString(), selectedTab_)) {
                --listed;
            }
            const int next = listed + (key == Qt::Key_Right ? 1 : -1);
            TabStrip1_Click(next < TabStrip1->count() ? next : -1);
            return true;
        }
    }
    return RecordBrowser::eventFilter(watched, event);
}

void frmKEY::TabStrip1_Click(int tab)
{
    if (tab < 0 || !saveEdit()) {
        return;
    }
    shown(person_, {}, [&] {
        // What cannot be asked for must not become the tab that every later load asks for.
        selectedTab_ = filterValue(TabStrip1->tabData(tab).toString());
        load();
    });
}

/// The row that the list stands on is the current door.
void frmKEY::rowChanged()
{
    if (const QString door = value("KeyNummer"); !door.isEmpty()) {
        module_.KeySelect = door;
    }
}

void frmKEY::newRowBegun(int begun)
{
    for (const auto &[field, text] : kDefaults) {
        model_.setValue(column(field), sourceText(text));
    }
    // Without a level nobody would see the door.
    if (begun != column("KeySikkerhet")) {
        model_.setValue(column("KeySikkerhet"), QStringLiteral("4"));
    }
    if (begun == 0 && !model_.text(model_.editedRow(), 0).startsWith(u'+')) {
        // A reminder only: the text stays. It comes when the cell is closed, since the list may be
        // loaded anew while a box is open.
        const QString reminder = sourceText(
            QT_TRANSLATE_NOOP("BrowserTable", " Husk Internasjonalt telefonnummer +47..."));
        QMetaObject::invokeMethod(
            this,
            [this, reminder] {
                shown(person_, {}, [&] { person_.messageBox(reminder, {}, Buttons::Ok); });
            },
            Qt::QueuedConnection);
    }
}

/// Nothing would find a door without a number again.
void frmKEY::checkRow(int row) const
{
    if (model_.text(row, column("KeyNummer")).trimmed().isEmpty()) {
        throw RuntimeFailure(
            QCoreApplication::translate("frmKeyProperties", "En dør må ha et nummer."));
    }
}

void frmKEY::rowSaved()
{
    // The set stands on the saved row, wherever the list is by now.
    const QString door = adoPrimaryRS.text(QStringLiteral("KeyNummer"));
    if (!door.isEmpty()) {
        module_.KeySelect = door;
    }
    Query visible = allowedDoors(module_.SecurityLevel, {QStringLiteral("Bygning")});
    visible.filter += QStringLiteral(" AND ") + equals(QStringLiteral("KeyNummer"));
    visible.values += door;
    Recordset doors;
    doors.open(connection_, visible);
    if (doors.isEmpty()) {
        person_.messageBox(
            sourceText(QT_TRANSLATE_NOOP(
                "BrowserTable", "Døren er lagret, men med dette sikkerhetsnivået vises den ikke "
                                "for deg.")),
            {}, Buttons::Ok);
    }
}

void frmKEY::cmdDelete_Click()
{
    const qint64 asked = model_.bookmark(currentRow());
    if (asked == 0) {
        model_.cancelEdit(); // a door that was only begun
        return;
    }
    if (person_.messageBox(
            sourceText(QT_TRANSLATE_NOOP(
                "BrowserTable",
                "Er Du sikker. Dette vil slette NØKKEL og alle tilhørende brukere!!")),
            QStringLiteral("DELETE KEY"), Buttons::OkCancel) != Answer::Ok) {
        return;
    }
    if (model_.bookmark(currentRow()) != asked) { // loaded anew meanwhile, and the door is gone
        failOnChangedRow();
    }
    // A number that was typed and not saved may be another door's, whose messages must stay.
    model_.cancelEdit();
    model_.standOn(currentRow());
    const QString door = adoPrimaryRS.text(QStringLiteral("KeyNummer"));
    // The grid shows no door that the file still has.
    auto showAgain = qScopeGuard([this] { kept([this] { readAgain(); }); });
    // What waits for a door that is no more, is not to be sent: neither its messages nor periods
    // that would become messages. What was sent stays; its users go by the database itself.
    connection_->transaction([&] {
        const QString state = equals(QStringLiteral("CMGS"));
        deleteAll(QStringLiteral("SMS_Sent"), QStringLiteral("TilNummer"), door,
                  QStringLiteral(" AND (%1 OR %1)").arg(state),
                  {QStringLiteral("UNSENT"), QStringLiteral("SLETTET")});
        deleteAll(QStringLiteral("NYEbrukere"), QStringLiteral("KeyNummer"), door);
        RecordBrowser::cmdDelete_Click();
    });
    showAgain.dismiss();
}

void frmKEY::deleteAll(const QString &table, const QString &column, const QString &door,
                       const QString &further, const QVariantList &values)
{
    Recordset rows;
    rows.open(connection_, {.source = table,
                            .columns = {column},
                            .filter = equals(column) + further,
                            .values = QVariantList{door} + values});
    for (; !rows.isEmpty(); rows.moveFirst()) {
        rows.remove();
    }
}

void frmKEY::cellDoubleClicked()
{
    bool isNumber = false;
    const double level = module_.SecurityLevel.toDouble(&isNumber);
    if (isNumber && level > 4 && saveEdit()) {
        shown(person_, {}, [this] {
            if (model_.bookmark(currentRow()) != 0) { // not the empty row
                model_.standOn(currentRow());
                rowChanged();
            }
            openProperties_();
        });
    }
}
