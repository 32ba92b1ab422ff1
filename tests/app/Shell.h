#pragma once

#include "app/frmMain.h"
#include "data/Connection.h"
#include "data/Module1.h"
#include "support/Doubles.h"
#include "support/FakeLines.h"
#include "support/TestDatabase.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>

#include <gtest/gtest.h>

/// A machine of doubles, whose settings name a fresh database.
struct Desk {
    Desk() { settings.values[u"dbpath"_qs] = database.path(); }
    /// The port of the settings, with a modem on it that says "OK" to everything.
    void modemOn(const QString &port);

    VirtualClock clock;
    ScriptedOperator person{clock};
    MemorySettings settings;
    FakeHost host;
    FakeSerialPort serial;
    FakeTcpSocket socket{clock};
    TestDatabase database;
};

/// The main screen on such a machine, behind a login of level "6".
struct Shell : Desk {
    Shell();

    /// Makes the screen and loads it.
    void load();
    void loadAndShow();
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
    QString menu(const char *name) { return find<QMenu>(name).title(); }

    Module1 module;
    std::unique_ptr<frmMain> screen;
};

struct ShellTest : testing::Test, Shell {};
