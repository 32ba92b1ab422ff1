#include "app/Application.h"

#include "app/frmLogin.h"
#include "app/frmMain.h"
#include "app/frmSplash.h"
#include "platform/Operator.h"
#include "platform/Rules.h"
#include "platform/SettingsStore.h"

namespace {

constexpr milliseconds kLongestWait = 250ms;

} // namespace

Application::Application(const Machine &machine) : machine_(machine) {}

Application::~Application() = default;

bool Application::start()
{
    bool running = false;
    shown(machine_.person, {}, [&] {
        module_.CountryCode =
            machine_.settings.get(QStringLiteral("CountryCode"), QStringLiteral("47"));
        module_.LogoCountryCode =
            machine_.settings.get(QStringLiteral("LogoCountryCode"), QStringLiteral("0"));
        setLanguage(module_.CountryCode);
        if (!login()) {
            return;
        }
        frmSplash splash(machine_.clock);
        splash.show();
        waitWhileVisible(splash);
        openMainScreen(splash);
        running = !machine_.clock.hasEnded();
    });
    return running;
}

bool Application::login()
{
    frmLogin screen(module_, machine_.person, machine_.settings, machine_.host);
    screen.load();
    screen.show();
    screen.activateWindow(); // bare X servers leave it to the program
    waitWhileVisible(screen);
    return screen.LoginSucceeded;
}

void Application::setLanguage(const QString &CountryCode)
{
    if (onLanguage) {
        onLanguage(CountryCode);
    }
}

/// A modem that is mute takes minutes, with nothing else on the screen: the splash tells so long.
void Application::openMainScreen(frmSplash &splash)
{
    // Its captions come as designed, in Norwegian: the language pass starts from there.
    setLanguage(QStringLiteral("47"));
    frmMain_ =
        std::make_unique<frmMain>(machine_.clock, machine_.person, machine_.settings, machine_.host,
                                  machine_.MSComm1, machine_.Winsock1, module_);
    setLanguage(module_.CountryCode);
    QObject::connect(frmMain_.get(), &frmMain::languageChanged,
                     [this](const QString &CountryCode) { setLanguage(CountryCode); });
    module_.GridFilter = QStringLiteral("1");
    // The load starts the modem, and a box that it opens may stand for hours: without the tables
    // every message that comes meanwhile would be filed without its text.
    frmMain_->modemLink().tables.BuildCharacterTables();
    const auto waits = QObject::connect(frmMain_.get(), &frmMain::inboundTold, &splash,
                                        [&splash](const QString &text) { splash.tell(text); });
    frmMain_->load();
    QObject::disconnect(waits);
    if (machine_.clock.hasEnded()) {
        return;
    }
    frmMain_->show();
    frmMain_->activateWindow();
}

void Application::close()
{
    if (frmMain_) {
        frmMain_->unload(false);
    } else {
        machine_.clock.end();
    }
}

void Application::waitWhileVisible(const QWidget &screen)
{
    while (screen.isVisible()) {
        machine_.clock.yield(kLongestWait);
    }
}
