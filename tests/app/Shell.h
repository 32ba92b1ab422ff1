#pragma once

#include "app/frmMain.h"
#include "data/Connection.h"
#include "data/Module1.h"
#include "support/FarModem.h"
#include "support/TestDatabase.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>

#include <gtest/gtest.h>

#include <algorithm>

/// The window of this name, when it can be seen.
inline QWidget *visibleScreen(const QString &name)
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto found = std::ranges::find_if(windows, [&](const QWidget *window) {
        return window->isVisible() && window->objectName() == name;
    });
    return found == windows.end() ? nullptr : *found;
}

/// A machine of doubles with a modem, whose settings name a fresh database.
struct Desk : FakeMachine, FarModem {
    Desk() : FarModem(static_cast<FakeMachine &>(*this))
    {
        settings.values[u"dbpath"_qs] = database.path();
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
    QString modemRow(const QString &column)
    {
        return database.single(u"SELECT %1 FROM Modem"_qs.arg(column));
    }

    template <class Control> Control &find(const char *name)
    {
        auto *control = screen->findChild<Control *>(QString::fromUtf8(name));
        if (control == nullptr) {
            throw std::runtime_error(std::string("No such control: ") + name);
        }
        return *control;
    }
    QAction &entry(const char *name) { return find<QAction>(name); }
    /// Properties of controls, "name.property" each with blanks between; joined by "|".
    std::string shows(const QString &properties)
    {
        QStringList values;
        for (const QString &each : properties.split(u' ')) {
            const QByteArray property = each.section(u'.', 1).toUtf8();
            values += find<QObject>(qPrintable(each.section(u'.', 0, 0)))
                          .property(property.constData())
                          .toString();
        }
        return values.join(u'|').toStdString();
    }

    Module1 module;
    std::unique_ptr<frmMain> screen;
};

struct ShellTest : testing::Test, Shell {};
