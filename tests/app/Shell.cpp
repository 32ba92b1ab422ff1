#include "app/Shell.h"

void Desk::modemOn(const QString &port)
{
    settings.values[u"lastcomport"_qs] = port;
    serial.onWrite = [this](const QByteArray &bytes) {
        if (bytes.startsWith("AT+CPMS")) {
            serial.feed("+CPMS: 0,20,0,20,0,20\r\n");
        } else if (bytes.startsWith("AT+CGM") || bytes.startsWith("AT+GSN")) {
            serial.feed("Eksempel\r\n");
        }
        serial.feed("OK\r\n");
    };
}

Shell::Shell()
{
    database.use(module);
    module.LoginUser = host.user;
    module.LoginComputer = host.computer;
}

void Shell::load()
{
    screen = std::make_unique<frmMain>(clock, person, settings, host, serial, socket, module);
    screen->load();
}

void Shell::loadAndShow()
{
    load();
    screen->show();
    clock.run(10ms);
}

void Shell::language(const QStringList &rows)
{
    Connection &file = database.look();
    file.run(u"BEGIN"_qs); // a file's worth of single writes takes seconds
    file.run(u"DELETE FROM TBLLanguage"_qs);
    for (int row = 0; row < rows.size(); ++row) {
        database.add(u"TBLLanguage"_qs, u"ID,Norsk,Dansk,Svensk"_qs,
                     {row + 1, rows[row], rows[row], rows[row]});
    }
    file.run(u"COMMIT"_qs);
}

QString Shell::modem(const QString &column)
{
    return database.single(u"SELECT %1 FROM Modem"_qs.arg(column));
}
