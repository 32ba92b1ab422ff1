#include "data/tool/Terminal.h"

#include <QTextStream>

#include <cstdio>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <termios.h>
#include <unistd.h>
#endif

namespace {

/// Switches the terminal's echo off for as long as the object lives. Without a terminal it does
/// nothing.
class Silence {
public:
    Silence();
    ~Silence();
    Silence(const Silence &) = delete;
    Silence &operator=(const Silence &) = delete;

private:
#ifdef Q_OS_WIN
    DWORD before_ = 0;
#else
    termios before_{};
#endif
    bool terminal_;
};

#ifdef Q_OS_WIN
Silence::Silence() : terminal_(GetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), &before_) != 0)
{
    if (terminal_) {
        SetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), before_ & ~DWORD{ENABLE_ECHO_INPUT});
    }
}

Silence::~Silence()
{
    if (terminal_) {
        SetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), before_);
    }
}
#else
Silence::Silence() : terminal_(tcgetattr(STDIN_FILENO, &before_) == 0)
{
    if (terminal_) {
        termios silent = before_;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent);
    }
}

Silence::~Silence()
{
    if (terminal_) {
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &before_);
    }
}
#endif

QTextStream &input()
{
    // One for all questions: it reads ahead.
    static QTextStream stream(stdin);
    return stream;
}

} // namespace

std::optional<QString> ask(const QString &question, bool secret)
{
    QTextStream output(stdout);
    output << question << Qt::flush;
    const QString line = [&] {
        const std::optional<Silence> silence =
            secret ? std::make_optional<Silence>() : std::nullopt;
        return input().readLine();
    }();
    if (secret) {
        output << Qt::endl; // the one typed was not echoed
    }
    return line.isNull() ? std::nullopt : std::optional(line);
}
