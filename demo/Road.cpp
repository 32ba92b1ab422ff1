#include "Road.h"

#include "Hands.h"
#include "app/Application.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QScreen>

#include <chrono>
#include <cstdio>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

constexpr auto kLook = 100ms;
constexpr auto kAnswer = 120s;

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

} // namespace

Road::Road(Application &lukora, const QString &folder) : lukora_(lukora), folder_(folder)
{
    connect(&timer_, &QTimer::timeout, this, &Road::look);
}

Road &Road::operator<<(Step step)
{
    steps_.push_back(std::move(step));
    return *this;
}

void Road::await(Step step)
{
    step.patience = kAnswer;
    *this << std::move(step);
}

void Road::start()
{
    timer_.start(kLook);
    sinceStep_.start();
}

void Road::look()
{
    if (next_ >= steps_.size()) {
        return;
    }
    const Step &step = steps_[next_];
    if (!step.isSeen()) {
        if (sinceStep_.elapsed() > std::chrono::milliseconds(step.patience).count()) {
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
    // Not from within the tick: a timer whose tick waits at a box is not served.
    QMetaObject::invokeMethod(this, step.act, Qt::QueuedConnection);
}

void Road::giveUp()
{
    timer_.stop();
    const Step &missed = steps_[next_];
    say(u"Not seen within %1 s: %2"_qs.arg(missed.patience.count()).arg(missed.name));
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

void Road::remark(const QString &text)
{
    say(u"      "_qs + text);
}
