#include "app/frmAbout.h"
#include "app/frmMain.h"
#include "browsers/frmBrukere.h"
#include "data/Module1.h"
#include "doors/frmKEY.h"
#include "doors/frmKeyProperties.h"
#include "inbound/frmLOGG.h"
#include "inbound/frmSMSReceived.h"
#include "inbound/frmSMSSent.h"
#include "platform/Operator.h"
#include "platform/Rules.h"
#include "ui_frmMain.h"

#include <QApplication>
#include <QScopeGuard>

// The screens that open beside the main screen. Each is there once: opened again, it is read anew
// and comes to the front.

namespace {

QString captionOf(const QAction *entry)
{
    return entry->text().remove(u'&').simplified();
}

} // namespace

void frmMain::wireScreens()
{
    const BrowserTools tools{module_, operator_, clock_, settings_};
    const auto opens = [this](QAction *entry, auto make) {
        connect(entry, &QAction::triggered, this, [this, entry, make] { openScreen(make, entry); });
    };
    // A double click in the list opens it where the menu may not.
    const auto properties = [this] {
        return std::make_unique<frmKeyProperties>(module_, operator_, clock_);
    };
    opens(ui_->mnuDatafrmKeyOppsett, properties);
    opens(ui_->mnuDatafrmKey, [this, tools, properties] {
        return std::make_unique<frmKEY>(
            tools, [this, properties] { openScreen(properties, ui_->mnuDatafrmKeyOppsett); });
    });
    opens(ui_->mnuDatafrmKeyLogg,
          [this, tools] { return std::make_unique<frmLOGG>(tools, link_.pace); });
    opens(ui_->mnuDatafrmPassWords,
          [tools] { return std::make_unique<RecordBrowser>(kPasswordTable, tools); });
    opens(ui_->mnuDatafrmKatalog, [tools] { return std::make_unique<frmBrukere>(tools); });
    opens(ui_->mnuSMSReceived, [tools] { return std::make_unique<frmSMSReceived>(tools); });
    opens(ui_->mnuSMSSent, [this, tools] {
        module_.SmsListSent = true;
        return std::make_unique<frmSMSSent>(tools);
    });
    opens(ui_->mnuSMSUnSent, [this, tools] {
        module_.SmsListSent = false;
        return std::make_unique<frmSMSSent>(tools);
    });
    opens(ui_->mnuSpråkLanguage,
          [tools] { return std::make_unique<RecordBrowser>(kLanguageTable, tools); });
    opens(ui_->mnuHelpAbout,
          [this] { return std::make_unique<frmAbout>(module_, operator_, host_); });
}

template <class Make> void frmMain::openScreen(const Make &make, QAction *entry)
{
    shown(operator_, {}, [&] {
        auto made = make();
        auto *screen = made.get();
        const QString name = screen->objectName();
        if (opening_.contains(name)) {
            return; // it has a question
        }
        opening_.insert(name);
        const auto opened = qScopeGuard([&] { opening_.remove(name); });
        const auto there = screens_.find(name);
        const bool isOpen = there != screens_.end() && there->second.window->isVisible();
        if (isOpen) {
            screen = static_cast<decltype(screen)>(there->second.window.get());
        }
        screen->load(); // which may ask, and anything may happen meanwhile
        forgetClosedScreens();
        if (isOpen && !screens_.contains(name)) {
            return;
        }
        OpenScreen &kept = screens_[name];
        if (!isOpen) {
            kept.window = std::move(made);
            kept.opened = ++screensOpened_;
        }
        kept.entry = entry;
        entitle(kept);
        screen->setWindowState(screen->windowState() & ~Qt::WindowMinimized);
        screen->show();
        screen->raise();
        screen->activateWindow();
    });
}

/// A screen bears the caption of its menu entry, in the language of the moment.
void frmMain::entitle(const OpenScreen &screen)
{
    screen.window->setWindowTitle(captionOf(screen.entry));
}

void frmMain::entitleScreens()
{
    for (const auto &[name, screen] : screens_) {
        entitle(screen);
    }
}

/// Closed screens go when nobody can be at work in one: while a box stands open, whoever asked may
/// be one of them.
void frmMain::forgetClosedScreens()
{
    for (auto entry = screens_.begin(); entry != screens_.end();) {
        if (entry->second.window->isVisible()) {
            ++entry;
        } else {
            closedScreens_.push_back(std::move(entry->second.window));
            entry = screens_.erase(entry);
        }
    }
    if (QApplication::activeModalWidget() != nullptr) {
        return;
    }
    for (auto &screen : closedScreens_) {
        screen.release()->deleteLater();
    }
    closedScreens_.clear();
}
