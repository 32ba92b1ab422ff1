#include "app/Shell.h"

#include <QTableView>

namespace {

QStringList screensBeside(const QWidget &main)
{
    QStringList names;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (const QWidget *window : windows) {
        if (window != &main && window->isVisible() && !window->isMinimized() &&
            window->windowType() == Qt::Window) {
            names += window->objectName() + u':' + window->windowTitle();
        }
    }
    return names;
}

/// The screens that are closed while it lives, in order.
struct Closings : QObject {
    Closings() { qApp->installEventFilter(this); }
    bool eventFilter(QObject *target, QEvent *event) override
    {
        if (event->type() == QEvent::Close && target->isWidgetType()) {
            names += target->objectName();
        }
        return false;
    }
    QStringList names;
};

} // namespace

TEST(Screens, OpenBesideTheMainScreenOnceEachAndCloseFromTheLastToTheFirst)
{
    Shell shell;
    shell.database.add(u"KEYTable"_qs, u"KeyNummer,KeyNavn,KeySikkerhet,Admin"_qs,
                       {u"+4790000001"_qs, u"Hovedport"_qs, u"1"_qs, u"0"_qs});
    shell.settings.values[u"keyselect"_qs] = u"+4790000001"_qs;
    shell.loadAndShow();
    const std::pair<const char *, QString> kEntries[] = {
        {"mnuDatafrmKey", u"frmKEY:KEY Data"_qs},
        {"mnuDatafrmKeyLogg", u"frmLOGG:KEY Logg"_qs},
        {"mnuDatafrmKeyOppsett", u"frmKeyProperties:KEY Oppsett"_qs},
        {"mnuDatafrmPassWords", u"frmPassword:Passord"_qs},
        {"mnuDatafrmKatalog", u"frmBrukere:Katalog"_qs},
        {"mnuSMSReceived", u"frmSMSReceived:Mottatt"_qs},
        {"mnuSMSSent", u"frmSMSSent:Sendt"_qs},
        {"mnuSMSUnSent", u"frmSMSSent:Utboks"_qs},
        {"mnuSpråkLanguage", u"frmLanguage:&Language Table"_qs}};
    for (const auto &[entry, screen] : kEntries) {
        shell.entry(entry).trigger();
        visibleScreen(screen.section(u':', 0, 0))->showMinimized();
        shell.entry(entry).trigger();
        EXPECT_EQ(screensBeside(*shell.screen).count(QString(screen).remove(u'&')), 1)
            << screen.toStdString() << " among "
            << screensBeside(*shell.screen).join(u", "_qs).toStdString();
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    }
    EXPECT_EQ(screensBeside(*shell.screen).size(), 8) << "sent and waiting share one";
    EXPECT_FALSE(shell.module.SmsListSent);
    auto *doors = visibleScreen(u"frmKEY"_qs)->findChild<QTableView *>();
    emit doors->doubleClicked(doors->model()->index(0, 0)); // opens the configuration
    shell.entry("mnuSpråkSvensk").trigger();
    for (const QString &swedish :
         {u"frmKeyProperties:KEY Inställningar"_qs, u"frmSMSSent:Utkorg"_qs}) {
        EXPECT_TRUE(screensBeside(*shell.screen).contains(swedish)) << swedish.toStdString();
    }
    Closings closings;
    shell.screen->unload();
    EXPECT_EQ(closings.names.join(u' '), u"frmLanguage frmSMSSent frmSMSReceived frmBrukere "
                                         "frmPassword frmKeyProperties frmLOGG frmKEY");
    EXPECT_EQ(screensBeside(*shell.screen).size(), 0);
}

TEST(Screens, AFailureIsShownAndNothingOpens)
{
    Shell shell;
    shell.loadAndShow();
    shell.module.DatabaseConnection.reset();
    shell.person.answers(u"Ingen database er åpen"_qs);
    shell.entry("mnuDatafrmKatalog").trigger();
    EXPECT_EQ(screensBeside(*shell.screen).size(), 0);
}
