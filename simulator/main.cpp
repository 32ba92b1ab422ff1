#include "platform/RuntimeFailure.h"
#include "platform/qt/SystemClock.h"
#include "simulator/Personalities.h"
#include "simulator/PtyPort.h"
#include "simulator/SimulatorConsole.h"
#include "simulator/TcpPort.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr qsizetype kLongestCommand = 65'536;

std::array<int, 2> signalPipe{-1, -1};

void onSignal(int)
{
    const int interrupted = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t count = write(signalPipe[1], &byte, 1);
    errno = interrupted;
}

/// Signals that end the program do it by the event loop, so that the link is removed.
std::unique_ptr<QSocketNotifier> quitOnSignals()
{
    if (pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        throw RuntimeFailure(QStringLiteral("No pipe for signals"));
    }
    auto notifier = std::make_unique<QSocketNotifier>(signalPipe[0], QSocketNotifier::Read);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, qApp, &QCoreApplication::quit);
    struct sigaction action {};
    action.sa_handler = onSignal;
    sigaction(SIGTERM, &action, nullptr);
    sigaction(SIGINT, &action, nullptr);
    struct sigaction before {};
    sigaction(SIGHUP, &action, &before);
    if (before.sa_handler == SIG_IGN) {
        sigaction(SIGHUP, &before, nullptr); // started by nohup
    }
    // Whoever read the prints may leave before the modem does.
    std::signal(SIGPIPE, SIG_IGN);
    return notifier;
}

/// Commands come line by line. The end of the input ends the reading, not the program.
class StandardInput {
public:
    explicit StandardInput(SimulatorConsole &console) : console_(console)
    {
        if (fcntl(STDIN_FILENO, F_GETFD) < 0) {
            return;
        }
        notifier_ = std::make_unique<QSocketNotifier>(STDIN_FILENO, QSocketNotifier::Read);
        QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                         [this] { read(); });
    }

private:
    void read()
    {
        std::array<char, 4096> bytes;
        const ssize_t count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
        if (count <= 0) {
            if (count == 0 || errno != EINTR) {
                notifier_->setEnabled(false);
            }
            return;
        }
        waiting_.append(bytes.data(), count);
        for (qsizetype end; (end = waiting_.indexOf('\n')) >= 0;) {
            const QString line = QString::fromUtf8(waiting_.left(end));
            waiting_.remove(0, end + 1);
            if (!console_.command(line)) {
                QCoreApplication::quit();
                return;
            }
        }
        if (waiting_.size() > kLongestCommand) {
            waiting_.clear();
        }
    }

    SimulatorConsole &console_;
    std::unique_ptr<QSocketNotifier> notifier_;
    QByteArray waiting_;
};

void print(const QString &line)
{
    std::puts(line.toUtf8().constData());
    std::fflush(stdout);
}

const QCommandLineOption kTcp(QStringLiteral("tcp"),
                              QStringLiteral("Listen on this port of 127.0.0.1; 0 takes any."),
                              QStringLiteral("port"));
const QCommandLineOption kPty(QStringLiteral("pty"),
                              QStringLiteral("Make a pseudo-terminal and this link to it."),
                              QStringLiteral("link"));
const QCommandLineOption kNumber(QStringLiteral("number"),
                                 QStringLiteral("The modem's own telephone number; +4799000000 "
                                                "if it is not given."),
                                 QStringLiteral("number"), QStringLiteral("+4799000000"));
const QCommandLineOption
    kDoor(QStringLiteral("door"),
          QStringLiteral("A door: number, name and language (no, da or sv), as "
                         "+4790000001:Hovedport:no. Behind it may stand its type, \":310\" "
                         "(the usual one), \":mk\" or \":argon\", and \":brief\", which makes "
                         "its answers short. May be repeated."),
          QStringLiteral("door"));
const QCommandLineOption kUser(QStringLiteral("user"),
                               QStringLiteral("A user that a door knows already, as "
                                              "+4790000001:91234567. May be repeated."),
                               QStringLiteral("user"));
const QCommandLineOption
    kAdministrator(QStringLiteral("administrator"),
                   QStringLiteral("The number that is a door's administrator already, as "
                                  "+4790000001:+4799000000. May be repeated."),
                   QStringLiteral("administrator"));
const QCommandLineOption
    kDelay(QStringLiteral("delay"),
           QStringLiteral("Time that a door takes to answer, in milliseconds; 3000 "
                          "if it is not given."),
           QStringLiteral("ms"), QStringLiteral("3000"));

const QCommandLineOption
    kFault(QStringLiteral("fault"),
           QStringLiteral("Break the modem from the start, as the command fault does: \"slow 20\". "
                          "May be repeated."),
           QStringLiteral("fault"));

int number(const QCommandLineParser &parser, const QCommandLineOption &option, int most)
{
    bool isNumber = false;
    const int value = parser.value(option).toInt(&isNumber);
    if (!isNumber || value < 0 || value > most) {
        throw RuntimeFailure(QStringLiteral("--%1 takes a number from 0 to %2")
                                 .arg(option.names().front())
                                 .arg(most));
    }
    return value;
}

std::unique_ptr<LinePort> openPort(const QCommandLineParser &parser, LinePort::Events events)
{
    if (parser.isSet(kTcp) == parser.isSet(kPty)) {
        throw RuntimeFailure(QStringLiteral("Give either --tcp or --pty"));
    }
    if (parser.isSet(kPty)) {
        return std::make_unique<PtyPort>(parser.value(kPty), std::move(events));
    }
    return std::make_unique<TcpPort>(static_cast<quint16>(number(parser, kTcp, 65535)),
                                     std::move(events));
}

void complain(const RuntimeFailure &failure)
{
    std::fprintf(stderr, "lukora-simulator: %s\n", qPrintable(failure.description()));
}

void dropLine(LinePort &port)
{
    try {
        port.drop();
    } catch (const RuntimeFailure &failure) {
        complain(failure);
        QCoreApplication::exit(1);
    }
}

int run(const QCommandLineParser &parser)
{
    SystemClock clock;
    SimulatorConsole console(clock, parser.value(kNumber), print);
    for (const QString &door : parser.values(kDoor)) {
        console.addDoor(door);
    }
    for (const QString &user : parser.values(kUser)) {
        console.addUser(user);
    }
    for (const QString &administrator : parser.values(kAdministrator)) {
        console.addAdministrator(administrator);
    }
    console.setAnswerDelay(milliseconds(number(parser, kDelay, 24 * 3600 * 1000)));

    for (const QString &fault : parser.values(kFault)) {
        addPersonality(console.modem().faults(), fault);
    }

    const auto signalNotifier = quitOnSignals();
    SimulatedModem &modem = console.modem();
    const auto port = openPort(parser, {[&modem](const QByteArray &bytes) { modem.receive(bytes); },
                                        [&modem] { modem.lineClosed(); }});
    modem.setOutput([&port](const QByteArray &bytes) { port->write(bytes); });
    modem.setLineDrop([&port] { dropLine(*port); });
    const StandardInput input(console);
    print(QStringLiteral("ready ") + port->name());
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("lukora-simulator"));
    QCoreApplication::setApplicationVersion(QStringLiteral(LUKORA_VERSION));
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("A GSM modem, an SMS network and door units to try Lukora on.\n"
                       "Give either --tcp or --pty: where Lukora, or any other program for "
                       "modems, finds the modem. \"ready\" is printed once it does.\n"
                       "Commands are read from standard input; type help."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({kTcp, kPty, kNumber, kDoor, kUser, kAdministrator, kDelay, kFault});
    parser.process(application);
    try {
        if (!parser.positionalArguments().isEmpty()) {
            throw RuntimeFailure(
                QStringLiteral("What is %1?").arg(parser.positionalArguments()[0]));
        }
        return run(parser);
    } catch (const RuntimeFailure &failure) {
        complain(failure);
        return 1;
    }
}
