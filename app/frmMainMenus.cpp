#include "app/LanguagePass.h"
#include "app/frmMain.h"
#include "data/DatabasePaths.h"
#include "data/Module1.h"
#include "platform/Operator.h"
#include "platform/Rules.h"
#include "platform/RuntimeFailure.h"
#include "platform/Text.h"
#include "ui_frmMain.h"
#include "users/UserPanel.h"

#include <QCoreApplication>
#include <QLocale>

// The menu commands of the main screen.

namespace {

const QString kCompactTitle = QStringLiteral("COMPACT DB");

/// A tick in a menu says how things are. Qt moves it on a click by itself: it is put back, and
/// whatever the handler brings about moves it.
void onClick(QAction *action, QObject *screen, std::function<void()> handler)
{
    QObject::connect(action, &QAction::triggered, screen,
                     [action, handler = std::move(handler)](bool ticked) {
                         if (action->isCheckable()) {
                             action->setChecked(!ticked);
                         }
                         handler();
                     });
}

RuntimeFailure fileWasNotChosen()
{
    return RuntimeFailure(
        QCoreApplication::translate("frmMain", "Valget av database ble avbrutt."));
}

} // namespace

void frmMain::wireMenus()
{
    onClick(ui_->mnuFileDatabase, this, [this] { mnuFileDatabase(); });
    onClick(ui_->mnuFileCompactDatabase, this, [this] { mnuFileCompactDatabase(); });
    onClick(ui_->mnuFileExit, this, [this] { close(); });
    onClick(ui_->mnuSMSSendingsbekreftelseAv, this,
            [this] { whenQueueIsIdle([this] { chooseSmsReport(false); }); });
    onClick(ui_->mnuSMSSendingsbekreftelsePå, this,
            [this] { whenQueueIsIdle([this] { chooseSmsReport(true); }); });
    onClick(ui_->mnuSpråkNorsk, this, [this] { chooseLanguage(QStringLiteral("47")); });
    onClick(ui_->mnuSpråkDansk, this, [this] { chooseLanguage(QStringLiteral("45")); });
    onClick(ui_->mnuSpråkSvensk, this, [this] { chooseLanguage(QStringLiteral("46")); });
    wirePortMenu();
    wireScreens();
}

void frmMain::wirePortMenu()
{
    for (int port = 0; port <= kLastPortInMenu; ++port) {
        onClick(portMenu()[port], this, [this, port] {
            whenQueueIsIdle([this, port] { link_.selection.mnuComPortCom(port); });
        });
    }
    onClick(ui_->mnuComPortComOther, this,
            [this] { whenQueueIsIdle([this] { link_.selection.mnuComPortComOther(); }); });
    onClick(ui_->mnuComPortWinsock, this,
            [this] { whenQueueIsIdle([this] { link_.selection.mnuComPortWinsock(); }); });
}

void frmMain::VisBrukerTabell()
{
    userPanel_->VisBrukerTabell();
}

void frmMain::tickSmsReport()
{
    ui_->mnuSMSSendingsbekreftelseAv->setChecked(!module_.SmsReportOn);
    ui_->mnuSMSSendingsbekreftelsePå->setChecked(module_.SmsReportOn);
}

void frmMain::chooseSmsReport(bool on)
{
    shown(operator_, {}, [&] {
        module_.SmsReportOn = on;
        tickSmsReport();
        link_.initialiser.InitModem();
    });
}

void frmMain::tickLanguage()
{
    ui_->mnuSpråkNorsk->setChecked(module_.CountryCode == u"47");
    ui_->mnuSpråkDansk->setChecked(module_.CountryCode == u"45");
    ui_->mnuSpråkSvensk->setChecked(module_.CountryCode == u"46");
}

void frmMain::ApplyLanguage()
{
    tickLanguage();
    emit languageChanged(module_.CountryCode);
    setLocale(QLocale()); // the calendars speak the language of the program, not the PC's
    ::ApplyLanguage(*this, module_);
    entitleScreens();
}

void frmMain::chooseLanguage(const QString &CountryCode)
{
    shown(operator_, {}, [&] {
        module_.CountryCode = CountryCode;
        module_.LogoCountryCode = CountryCode;
        // The tab that is chosen stays chosen, under its word in the new language.
        const bool showsWaiting = same(module_.GridFilter, module_.texts.nye);
        const bool showsAll = same(module_.GridFilter, module_.texts.alle);
        ApplyLanguage();
        module_.GridFilter = showsWaiting ? module_.texts.nye
                             : showsAll   ? module_.texts.alle
                                          : module_.GridFilter;
        VisBrukerTabell();
        display(); // whose words of the modem follow
    });
}

void frmMain::mnuFileDatabase()
{
    shown(operator_, {}, [this] {
        const QString path =
            operator_.chooseFile(module_.DatabasePath, QStringLiteral("Access (*.mdb);;All (*.*)"));
        if (path.isEmpty()) {
            throw fileWasNotChosen();
        }
        // The result of a message under way belongs to the file of before.
        whenQueueIsIdle([this, path] { useFile(path); });
    });
}

void frmMain::useFile(const QString &path)
{
    shown(operator_, {}, [&] {
        // The other screens show, and would write to, the file of before.
        if (!unloadOtherScreens()) {
            throw fileWasNotChosen();
        }
        module_.DatabasePath = path;
        module_.TempDatabasePath = tempDatabasePath(path);
        module_.BackupDatabasePath = backupDatabasePath(path);
        module_.ConnectionString = chosenString(path);
        recordsets_.OpenDatabase();
        userPanel_->followDoor(); // nothing of the other file's users stays in form and grid
    });
}

void frmMain::mnuFileCompactDatabase()
{
    shown(operator_, kCompactTitle, [this] {
        if (operator_.messageBox(module_.texts.compactQuestion, {}, Buttons::OkCancel) !=
            Answer::Ok) {
            return;
        }
        unloadOtherScreens(); // they hold the file, too
        recordsets_.CompactRequested = true;
        recordsets_.OpenDatabase();
        recordsets_.CompactRequested = false; // or choosing another file would compact that one
        if (recordsets_.CompactFailed) {
            operator_.messageBox(module_.texts.compactFailed, {}, Buttons::Ok);
            recordsets_.OpenDatabase();
            recordsets_.OpenRecordsets();
            VisBrukerTabell();
            return;
        }
        recordsets_.OpenRecordsets();
        VisBrukerTabell();
        operator_.messageBox(module_.texts.compactDone, {}, Buttons::Ok);
    });
}
