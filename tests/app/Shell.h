#pragma once

#include "app/frmMain.h"
#include "data/Connection.h"
#include "data/Module1.h"
#include "support/FakeMachine.h"
#include "support/TestDatabase.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>

#include <gtest/gtest.h>

/// A machine of doubles, whose settings name a fresh database.
struct Desk : FakeMachine {
    Desk() { settings.values[u"dbpath"_qs] = database.path(); }
    /// The port of the settings, with a modem on it that says "OK" to everything.
    void modemOn(const QString &number)
    {
        settings.values[u"lastcomport"_qs] = number;
        port.onWrite = [this](const QByteArray &bytes) {
            if (bytes.startsWith("AT+CPMS")) {
                port.feed("+CPMS: 0,20,0,20,0,20\r\n");
            } else if (bytes.startsWith("AT+CGM") || bytes.startsWith("AT+GSN")) {
                port.feed("Eksempel\r\n");
            }
            port.feed("OK\r\n");
        };
    }

    TestDatabase database;
};

/// The main screen on such a machine, behind a login of level "6".
struct Shell : Desk {
    Shell()
    {
        database.use(module);
        module.LoginUser = host.user;
        module.LoginComputer = host.computer;
    }

    /// Makes the screen and loads it.
    void load()
    {
        screen = std::make_unique<frmMain>(clock, person, settings, host, port, socket, module);
        screen->load();
    }
    void loadAndShow()
    {
        load();
        screen->show();
        clock.run(10ms);
    }
    /// Replaces the rows of TBLLanguage by these; each is one row's text in all three languages.
    void language(const QStringList &rows)
    {
        // A file's worth of single writes takes seconds.
        database.look().transaction([&] {
            database.look().run(u"DELETE FROM TBLLanguage"_qs);
            for (int row = 0; row < rows.size(); ++row) {
                database.add(u"TBLLanguage"_qs, u"ID,Norsk,Dansk,Svensk"_qs,
                             {row + 1, rows[row], rows[row], rows[row]});
            }
        });
    }
    /// What stands in the Modem row.
    QString modem(const QString &column)
    {
        return database.single(u"SELECT %1 FROM Modem"_qs.arg(column));
    }

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
