#include "app/Desktop.h"

#include "app/Application.h"
#include "app/BrandMarks.h"
#include "platform/qt/QtHost.h"
#include "platform/qt/QtOperator.h"
#include "platform/qt/QtSerialPort.h"
#include "platform/qt/QtSettingsStore.h"
#include "platform/qt/QtTcpSocket.h"
#include "platform/qt/ScreenStyle.h"
#include "platform/qt/SystemClock.h"

#include <QApplication>
#include <QSocketNotifier>

#include <cstdlib>
#include <memory>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>
#endif

namespace {

void describeProgram()
{
    QApplication::setApplicationName(QStringLiteral("Lukora"));
    QApplication::setApplicationDisplayName(QStringLiteral("Lukora"));
    QApplication::setApplicationVersion(QStringLiteral(LUKORA_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("lukora"));
    QApplication::setWindowIcon(programIcon());
    QApplication::setStyle(new ScreenStyle);
    // The program ends with its main screen, not with the login before it.
    QApplication::setQuitOnLastWindowClosed(false);
}

#ifdef Q_OS_UNIX
int endRequest[2] = {-1, -1};

void requestEnd(int)
{
    const char request = 1;
    [[maybe_unused]] const ssize_t written = ::write(endRequest[0], &request, 1);
}

// A system that shuts down asks by signal. It gets what closing the window gives.
std::unique_ptr<QSocketNotifier> endOnSignal(Application &lukora)
{
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, endRequest) != 0) {
        return nullptr;
    }
    auto notifier = std::make_unique<QSocketNotifier>(endRequest[1], QSocketNotifier::Read);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, [&lukora, raw = notifier.get()] {
        raw->setEnabled(false);
        lukora.close();
    });
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        std::signal(signal, requestEnd);
    }
    return notifier;
}
#endif

} // namespace

int runOnDesktop(int argc, char **argv, const std::function<void(Application &)> &prepare)
{
    QApplication application(argc, argv);
    describeProgram();

    SystemClock clock;
    QtOperator person(clock);
    QtSettingsStore settings;
    const QtHost host;
    QtSerialPort MSComm1;
    QtTcpSocket Winsock1;
    Application lukora({clock, person, settings, host, MSComm1, Winsock1});
    lukora.onLanguage = [&](const QString &CountryCode) { person.setLanguage(CountryCode); };
#ifdef Q_OS_UNIX
    const auto endRequests = endOnSignal(lukora);
#endif
    prepare(lukora);
    return lukora.start() ? QApplication::exec() : EXIT_SUCCESS;
}
