#pragma once

#include "app/frmMain.h"
#include "data/Module1.h"
#include "support/Doubles.h"
#include "support/FakeLines.h"
#include "support/TestDatabase.h"
#include "support/VirtualClock.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>

/// The main screen on a machine of doubles, behind a login of the given level.
struct Shell {
    Shell();

    /// Makes the screen and loads it.
    frmMain &load();
    frmMain &loadAndShow();
    /// Replaces the rows of TBLLanguage by these; each is one row's text in all three languages.
    void language(const QStringList &rows);
    /// What stands in the Modem row.
    QString modem(const QString &column);

    template <class Control> Control &find(const char *name)
    {
        auto *control = screen->findChild<Control *>(QString::fromUtf8(name));
        Q_ASSERT(control != nullptr);
        return *control;
    }
    QAction &entry(const char *name) { return find<QAction>(name); }

    VirtualClock clock;
    ScriptedOperator person{clock};
    MemorySettings settings;
    FakeHost host;
    FakeSerialPort serial;
    FakeTcpSocket socket{clock};
    TestDatabase database;
    Module1 module;
    std::unique_ptr<frmMain> screen;
};

/// Answers "OK" to every command, and the storage commands with their counts.
void answerLikeAModem(FakeSerialPort &serial);
