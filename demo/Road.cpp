#include "Road.h"

#include "app/Application.h"
#include "app/frmMain.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QScreen>
#include <QTabBar>
#include <QTest>

#include <chrono>
#include <cstdio>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

constexpr auto kLook = 200ms;
constexpr qint64 kPatience = 90'000; // milliseconds for one step
const QString kNumber = QStringLiteral("+4791234567");

void say(const QString &text)
{
    std::printf("%s\n", text.toUtf8().constData());
    std::fflush(stdout);
}

// Milliseconds since this process was started, by the kernel's count.
qint64 processAge()
{
    QFile stat(QStringLiteral("/proc/self/stat"));
    QFile uptime(QStringLiteral("/proc/uptime"));
    if (!stat.open(QIODevice::ReadOnly) || !uptime.open(QIODevice::ReadOnly)) {
        return -1;
    }
    // The name in brackets may hold blanks; the start time is the 20th word behind it.
    const QByteArray behindName = stat.readAll().split(')').last().simplified();
    const double started =
        behindName.split(' ').value(19).toDouble() / double(sysconf(_SC_CLK_TCK));
    return qRound64((uptime.readAll().split(' ').first().toDouble() - started) * 1000);
}

QMessageBox *question()
{
    return qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
}

} // namespace

Road::Road(Application &lukora, const QString &folder) : lukora_(lukora), folder_(folder)
{
    planSteps();
    connect(&timer_, &QTimer::timeout, this, &Road::look);
    timer_.start(kLook);
    sinceStep_.start();
}

QWidget *Road::window(const char *name) const
{
    for (QWidget *each : QApplication::topLevelWidgets()) {
        if (each->isVisible() && each->objectName() == QLatin1StringView(name)) {
            return each;
        }
    }
    return nullptr;
}

template <class Control> Control *Road::control(const char *name) const
{
    return lukora_.mainScreen()->findChild<Control *>(QString::fromUtf8(name));
}

void Road::type(const char *field, const QString &text) const
{
    auto *edit = control<QLineEdit>(field);
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, text, Qt::NoModifier, 20);
    QTest::keyClick(edit, Qt::Key_Tab);
}

void Road::chooseAll() const
{
    auto *tabs = control<QTabBar>("TabStrip1");
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(tabs->count() - 1).center());
}

bool Road::gridShows(const QString &number, const QString &status) const
{
    const auto *model = control<QAbstractItemView>("DataGrid1")->model();
    for (int row = 0; model != nullptr && row < model->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model->columnCount(); ++column) {
            cells.append(model->index(row, column).data().toString().trimmed());
        }
        if (cells.contains(number) && cells.contains(status)) {
            return true;
        }
    }
    return false;
}

void Road::planSteps()
{
    const auto loginIsUp = [this] { return window("frmLogin") != nullptr; };
    steps_.push_back({QStringLiteral("Login screen"), loginIsUp, QStringLiteral("1-login"), [this] {
                          QWidget *login = window("frmLogin");
                          auto *name = login->findChild<QLineEdit *>(QStringLiteral("txtUserName"));
                          name->selectAll();
                          QTest::keyClicks(name, QStringLiteral("Hovedoperatør"));
                          QTest::keyClicks(
                              login->findChild<QLineEdit *>(QStringLiteral("txtPassword")),
                              QStringLiteral("demo"));
                          QTest::keyClick(login, Qt::Key_Return);
                      }});
    steps_.push_back({QStringLiteral("Splash screen"), [this] { return window("frmSplash"); },
                      QStringLiteral("2-splash"), [] {}});
    steps_.push_back({QStringLiteral("The modem is ready"),
                      [this] {
                          if (QMessageBox *box = question()) {
                              say(u"      asked: "_qs + box->text().simplified());
                              takeScreenshot(QStringLiteral("2-question"));
                              QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
                          }
                          return window("frmMain") != nullptr && lukora_.module().ModemReady;
                      },
                      {},
                      [this] {
                          // Without a window manager nobody else gives it the focus.
                          lukora_.mainScreen()->activateWindow();
                          chooseAll();
                      }});
    steps_.push_back(
        {QStringLiteral("Main screen with the users of the door"),
         [this] {
             return lukora_.mainScreen()->isActiveWindow() &&
                    gridShows(u"+4791000011"_qs, u"Aktiv"_qs);
         },
         QStringLiteral("3-main-before"),
         [this] {
             QTest::mouseClick(control<QAbstractButton>("cmdNyBruker"), Qt::LeftButton);
             type("Txtfields_0", kNumber);
             type("Txtfields_1", QStringLiteral("Åshild"));
             type("Txtfields_2", QStringLiteral("Nygård"));
             takeScreenshot(QStringLiteral("4-main-entry"));
             QTest::mouseClick(control<QAbstractButton>("CommandRegistrerBruker"), Qt::LeftButton);
         }});
    steps_.push_back({QStringLiteral("Registered: the command waits in the queue"),
                      [this] {
                          chooseAll();
                          return gridShows(kNumber, u"Ny"_qs);
                      },
                      {},
                      [] {}});
    steps_.push_back({QStringLiteral("Registrerer: the network has taken the command"),
                      [this] {
                          chooseAll();
                          return gridShows(kNumber, u"Registrerer"_qs);
                      },
                      {},
                      [] {}});
    steps_.push_back({QStringLiteral("Aktiv: the door has confirmed"),
                      [this] { return gridShows(kNumber, u"Aktiv"_qs); },
                      QStringLiteral("5-main-after"), [this] { lukora_.mainScreen()->close(); }});
}

void Road::look()
{
    if (next_ >= steps_.size()) {
        return;
    }
    Step &step = steps_[next_];
    if (!step.isSeen()) {
        if (sinceStep_.elapsed() > kPatience) {
            giveUp();
        }
        return;
    }
    say(u"%1. %2 (%3 ms after the start)"_qs.arg(next_ + 1).arg(step.name).arg(processAge()));
    if (!step.screenshot.isEmpty()) {
        takeScreenshot(step.screenshot);
    }
    ++next_;
    completed_ = next_ == steps_.size();
    sinceStep_.restart();
    step.act();
}

void Road::giveUp()
{
    timer_.stop();
    say(u"Not seen within %1 s: %2"_qs.arg(kPatience / 1000).arg(steps_[next_].name));
    takeScreenshot(QStringLiteral("failed"));
    if (QMessageBox *box = question()) {
        say(u"A box stands open: "_qs + box->text());
        box->reject();
    }
    lukora_.close();
}

void Road::takeScreenshot(const QString &name) const
{
    QApplication::processEvents();
    const QString file = QDir(folder_).filePath(name + u".png"_qs);
    if (!QGuiApplication::primaryScreen()->grabWindow(0).save(file)) {
        say(u"      no screenshot: "_qs + file);
    }
}
