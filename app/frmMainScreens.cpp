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
        connect(entry, &QAction::triggered, this,
                [this, entry, make] { openScreen(make, captionOf(entry)); });
    };
    // A double click in the list opens it where the menu may not.
    const auto properties = [this] {
        return std::make_unique<frmKeyProperties>(module_, operator_, clock_);
    };
    opens(ui_->mnuDatafrmKeyOppsett, properties);
    opens(ui_->mnuDatafrmKey, [this, tools, properties] {
        return std::make_unique<frmKEY>(tools, [this, properties] { openScreen(properties, {}); });
    });
    opens(ui_->mnuDatafrmKeyLogg,
          [this, tools] { return std::make_unique<frmLOGG>(tools, recordsets_, link_.pace); });
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
}

template <class Make> void frmMain::openScreen(const Make &make, const QString &title)
{
    shown(operator_, {}, [&] {
        auto made = make();
        auto *screen = made.get();
        // What is open is asked again behind the load, whose questions let others open and close.
        const QString name = screen->objectName();
        const auto open = [&] {
            const auto found = screens_.find(name);
            return found != screens_.end() && found->second->isVisible()
                       ? static_cast<decltype(screen)>(found->second.get())
                       : nullptr;
        };
        if (auto *before = open()) {
            screen = before;
        }
        screen->load();
        if (auto *meanwhile = open()) {
            screen = meanwhile;
        } else if (screen != made.get()) {
            return; // closed
        }
        if (!title.isEmpty()) {
            screen->setWindowTitle(title);
        }
        if (screen == made.get()) {
            screens_[name] = std::move(made);
        }
        screen->show();
        screen->raise();
        screen->activateWindow();
    });
}

/// Closed screens go as soon as nobody can be at work in one: when this one has the focus again.
void frmMain::forgetClosedScreens()
{
    for (auto entry = screens_.begin(); entry != screens_.end();) {
        QWidget *screen = entry->second.get();
        if (screen != nullptr && screen->isVisible()) {
            ++entry;
            continue;
        }
        if (screen != nullptr) {
            entry->second.release()->deleteLater();
        }
        entry = screens_.erase(entry);
    }
}
